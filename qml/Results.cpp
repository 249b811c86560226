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
};

constexpr std::array<Words, 20> words = {{
    {TAPI_RESULT_INVALID_PARAM, QT_TRANSLATE_NOOP("CallSetup", "The phone cannot work with this value.")},
    {TAPI_RESULT_CALL_REQ_FAIL,
     QT_TRANSLATE_NOOP("CallSetup", "The push-to-talk service refused the request.")},
    {TAPI_RESULT_CALL_NO_NUMBER, QT_TRANSLATE_NOOP("CallSetup", "There is no number to call.")},
    {TAPI_RESULT_CALL_INVALID_ID, QT_TRANSLATE_NOOP("CallSetup", "This call has ended.")},
    {TAPI_RESULT_FAIL, QT_TRANSLATE_NOOP("CallSetup", "The request was refused.")},
    {TAPI_RESULT_SIM_UNAVAILABLE, QT_TRANSLATE_NOOP("CallSetup", "The SIM cannot be used just now.")},
    {TAPI_RESULT_PIN_REJECTED, QT_TRANSLATE_NOOP("CallSetup", "The SIM refused the PIN.")},
    {TAPI_RESULT_PIN_REJECTED_FINAL,
     QT_TRANSLATE_NOOP("CallSetup", "The SIM refused the PIN for the last time. It is blocked now.")},
    {TAPI_RESULT_NOT_SUPPORTED,
     QT_TRANSLATE_NOOP("CallSetup", "This phone or its network does not offer this.")},
    {TAPI_RESULT_TIMED_OUT,
     QT_TRANSLATE_NOOP("CallSetup", "No answer came in time. It may still take effect.")},
    {TAPI_RESULT_BUSY, QT_TRANSLATE_NOOP("CallSetup", "The phone is busy with another request.")},
    {TAPI_RESULT_SERVICE_DOWN, QT_TRANSLATE_NOOP("CallSetup", "The telephony service is not running.")},
    {TAPI_RESULT_MODEM_OFFLINE, QT_TRANSLATE_NOOP("CallSetup", "The phone is offline.")},
    {TAPI_RESULT_LINK_LOST,
     QT_TRANSLATE_NOOP("CallSetup", "The connection to the telephony service was lost.")},
    {TAPI_RESULT_ACCESS_DENIED,
     QT_TRANSLATE_NOOP("CallSetup", "This application may not use the telephony service.")},
    {TAPI_RESULT_PIN2_NEEDED, QT_TRANSLATE_NOOP("CallSetup", "The SIM wants the PIN2 first.")},
    {NotStored, QT_TRANSLATE_NOOP("CallSetup", "The setting could not be saved.")},
    {DiskFull, QT_TRANSLATE_NOOP("CallSetup", "The setting could not be saved: the storage is full.")},
    {NotAllowed, QT_TRANSLATE_NOOP("CallSetup", "Settings cannot be changed just now.")},
    {Cancelled, QT_TRANSLATE_NOOP("CallSetup", "The request was cancelled.")},
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

} // namespace

QString text(int result)
{
    if (result == TAPI_RESULT_SUCC)
        return {};
    const auto *const found = std::find_if(words.begin(), words.end(),
                                           [result](const Words &entry) { return entry.result == result; });
    if (found != words.end())
        return translated(found->text);
    return translated(QT_TRANSLATE_NOOP("CallSetup", "The request failed (code %1).")).arg(result);
}

} // namespace Kvq::Results
