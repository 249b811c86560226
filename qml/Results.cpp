// The words for each result. One table, so that translators see them together.
#include "Results.h"

#include <QCoreApplication>
#include <QLocale>
#include <QTranslator>

#include <algorithm>
#include <array>

namespace Kvq::Results {

namespace {

struct Words {
    int result;
    const char *text;
    const char *advice;
};

constexpr std::array<Words, 20> words = {{
    {TAPI_RESULT_INVALID_PARAM, QT_TRANSLATE_NOOP("CallSetup", "The phone does not take this value."),
     QT_TRANSLATE_NOOP("CallSetup", "Check what you entered.")},
    {TAPI_RESULT_CALL_REQ_FAIL, QT_TRANSLATE_NOOP("CallSetup", "The call could not be changed."),
     QT_TRANSLATE_NOOP("CallSetup", "See whether it is still there.")},
    {TAPI_RESULT_CALL_NO_NUMBER, QT_TRANSLATE_NOOP("CallSetup", "There is no number to call."),
     QT_TRANSLATE_NOOP("CallSetup", "Enter one first.")},
    {TAPI_RESULT_CALL_INVALID_ID, QT_TRANSLATE_NOOP("CallSetup", "This call has ended."),
     QT_TRANSLATE_NOOP("CallSetup", "Dial again to talk on.")},
    {TAPI_RESULT_FAIL, QT_TRANSLATE_NOOP("CallSetup", "The request was refused."),
     QT_TRANSLATE_NOOP("CallSetup", "Try again later, or ask your provider.")},
    {TAPI_RESULT_SIM_UNAVAILABLE, QT_TRANSLATE_NOOP("CallSetup", "The SIM does not answer."),
     QT_TRANSLATE_NOOP("CallSetup", "Check that it is inserted and unlocked.")},
    {TAPI_RESULT_PIN_REJECTED, QT_TRANSLATE_NOOP("CallSetup", "The SIM refused the PIN."),
     QT_TRANSLATE_NOOP("CallSetup", "Enter it once more, with care: three wrong ones in a row block it.")},
    {TAPI_RESULT_PIN_REJECTED_FINAL, QT_TRANSLATE_NOOP("CallSetup", "The SIM has blocked this PIN."),
     QT_TRANSLATE_NOOP("CallSetup", "Unblock it with the PUK that came with the SIM.")},
    {TAPI_RESULT_NOT_SUPPORTED,
     QT_TRANSLATE_NOOP("CallSetup", "This phone or its network does not offer this."),
     QT_TRANSLATE_NOOP("CallSetup", "Ask your provider whether it can.")},
    {TAPI_RESULT_TIMED_OUT, QT_TRANSLATE_NOOP("CallSetup", "No answer came in time."),
     QT_TRANSLATE_NOOP("CallSetup", "Look again in a moment: the change may still take effect.")},
    {TAPI_RESULT_BUSY, QT_TRANSLATE_NOOP("CallSetup", "The phone is busy with another request."),
     QT_TRANSLATE_NOOP("CallSetup", "Try again in a moment.")},
    {TAPI_RESULT_SERVICE_DOWN, QT_TRANSLATE_NOOP("CallSetup", "The telephony service is not running."),
     QT_TRANSLATE_NOOP("CallSetup", "Restart the phone if this lasts.")},
    {TAPI_RESULT_MODEM_OFFLINE, QT_TRANSLATE_NOOP("CallSetup", "The modem is off."),
     QT_TRANSLATE_NOOP("CallSetup", "Switch flight mode off first.")},
    {TAPI_RESULT_LINK_LOST,
     QT_TRANSLATE_NOOP("CallSetup", "The connection to the telephony service was lost."),
     QT_TRANSLATE_NOOP("CallSetup", "It is made again when you try again.")},
    {TAPI_RESULT_ACCESS_DENIED,
     QT_TRANSLATE_NOOP("CallSetup", "This program may not use the telephony service."),
     QT_TRANSLATE_NOOP("CallSetup", "Ask who manages the phone.")},
    {TAPI_RESULT_PIN2_NEEDED,
     QT_TRANSLATE_NOOP("CallSetup", "The SIM asks for the PIN2 before such a change."),
     QT_TRANSLATE_NOOP("CallSetup", "Enter it, and the change is made.")},
    {NotStored,
     QT_TRANSLATE_NOOP("CallSetup", "The setting could not be saved, and the one from before still holds."),
     QT_TRANSLATE_NOOP("CallSetup", "Try again.")},
    {DiskFull, QT_TRANSLATE_NOOP("CallSetup", "The disk is full, so nothing was changed."),
     QT_TRANSLATE_NOOP("CallSetup", "Delete something, then try again.")},
    {NotAllowed, QT_TRANSLATE_NOOP("CallSetup", "Settings cannot be changed just now."),
     QT_TRANSLATE_NOOP("CallSetup", "Try again when the call has ended.")},
    {Cancelled, QT_TRANSLATE_NOOP("CallSetup", "The request was cancelled."), nullptr},
}};

/**
 * A text in the user's language: the application's translation if it has one, else the module's. The module's
 * is not installed in the application, which would make every screen translate itself anew.
 */
QString translated(const char *source)
{
    const QString byApplication = QCoreApplication::translate("CallSetup", source);
    if (byApplication != QLatin1String(source))
        return byApplication;
    static QTranslator translator;
    static QString loadedFor;
    if (const QString language = QLocale().name(); language != loadedFor) {
        loadedFor = language;
        [[maybe_unused]] const bool found =
            translator.load(QLocale(), QStringLiteral("callsetup"), QStringLiteral("_"),
                            QStringLiteral(":/qt/qml/Kvq/CallSetup/i18n"));
    }
    const QString own = translator.translate("CallSetup", source);
    return own.isEmpty() ? byApplication : own;
}

const Words *wordsFor(int result)
{
    const auto *const found = std::find_if(words.begin(), words.end(),
                                           [result](const Words &entry) { return entry.result == result; });
    return found == words.end() ? nullptr : found;
}

} // namespace

QString text(int result)
{
    if (result == TAPI_RESULT_SUCC)
        return {};
    if (const Words *const found = wordsFor(result))
        return translated(found->text);
    return translated(QT_TRANSLATE_NOOP("CallSetup", "The request failed (code %1).")).arg(result);
}

QString advice(int result)
{
    if (result == TAPI_RESULT_SUCC)
        return {};
    if (const Words *const found = wordsFor(result))
        return found->advice ? translated(found->advice) : QString();
    return translated(QT_TRANSLATE_NOOP("CallSetup", "Try again later."));
}

} // namespace Kvq::Results
