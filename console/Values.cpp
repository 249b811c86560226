// Values as words.
#include "Values.h"

#include "PHONE_ENG_NtInterface.h"

#include <algorithm>
#include <array>
#include <utility>

namespace Console {

namespace {

/** One entry a line below the name of the value. */
QString lines(const QStringList &entries)
{
    if (entries.isEmpty())
        return QStringLiteral("(none)");
    return QStringLiteral("\n    ") + entries.join(QStringLiteral("\n    "));
}

QString field(const char *text, int size)
{
    return QString::fromLatin1(text, static_cast<int>(strnlen(text, static_cast<std::size_t>(size))));
}

} // namespace

template <>
const Enumerators &enumeratorsOf<_TAPI_RESULT_E>()
{
    static const Enumerators names = {
        {"TAPI_RESULT_SUCC", TAPI_RESULT_SUCC},
        {"TAPI_RESULT_INVALID_PARAM", TAPI_RESULT_INVALID_PARAM},
        {"TAPI_RESULT_CALL_REQ_FAIL", TAPI_RESULT_CALL_REQ_FAIL},
        {"TAPI_RESULT_CALL_NO_NUMBER", TAPI_RESULT_CALL_NO_NUMBER},
        {"TAPI_RESULT_CALL_INVALID_ID", TAPI_RESULT_CALL_INVALID_ID},
        {"TAPI_RESULT_FAIL", TAPI_RESULT_FAIL},
        {"TAPI_RESULT_SIM_UNAVAILABLE", TAPI_RESULT_SIM_UNAVAILABLE},
        {"TAPI_RESULT_PIN_REJECTED", TAPI_RESULT_PIN_REJECTED},
        {"TAPI_RESULT_PIN_REJECTED_FINAL", TAPI_RESULT_PIN_REJECTED_FINAL},
        {"TAPI_RESULT_NOT_SUPPORTED", TAPI_RESULT_NOT_SUPPORTED},
        {"TAPI_RESULT_TIMED_OUT", TAPI_RESULT_TIMED_OUT},
        {"TAPI_RESULT_BUSY", TAPI_RESULT_BUSY},
        {"TAPI_RESULT_SERVICE_DOWN", TAPI_RESULT_SERVICE_DOWN},
        {"TAPI_RESULT_MODEM_OFFLINE", TAPI_RESULT_MODEM_OFFLINE},
        {"TAPI_RESULT_LINK_LOST", TAPI_RESULT_LINK_LOST},
        {"TAPI_RESULT_ACCESS_DENIED", TAPI_RESULT_ACCESS_DENIED},
        {"TAPI_RESULT_PIN2_NEEDED", TAPI_RESULT_PIN2_NEEDED},
    };
    return names;
}

template <>
const Enumerators &enumeratorsOf<_TAPI_CS_DIVERT_WHEN_E>()
{
    static const Enumerators names = {{"unconditional", TAPI_CS_DIVERT_UNCONDITIONAL},
                                      {"busy", TAPI_CS_DIVERT_BUSY},
                                      {"no-reply", TAPI_CS_DIVERT_NO_REPLY},
                                      {"not-reachable", TAPI_CS_DIVERT_NOT_REACHABLE},
                                      {"all", TAPI_CS_DIVERT_ALL},
                                      {"all-conditional", TAPI_CS_DIVERT_ALL_CONDITIONAL}};
    return names;
}

template <>
const Enumerators &enumeratorsOf<_TAPI_CALL_RESTRICT_ID_E>()
{
    static const Enumerators names = {{"network", TAPI_CALL_RESTRICT_ID_NETWORK},
                                      {"invoke", TAPI_CALL_RESTRICT_ID_INVOKE},
                                      {"suppress", TAPI_CALL_RESTRICT_ID_SUPPRESS}};
    return names;
}

template <>
const Enumerators &enumeratorsOf<_TAPI_CALL_STATE_E>()
{
    static const Enumerators names = {{"idle", TAPI_CALL_STATE_IDLE},
                                      {"dialling", TAPI_CALL_STATE_DIALLING},
                                      {"ringing", TAPI_CALL_STATE_RINGING},
                                      {"active", TAPI_CALL_STATE_ACTIVE},
                                      {"held", TAPI_CALL_STATE_HELD}};
    return names;
}

template <>
const Enumerators &enumeratorsOf<_TAPI_SECURITY_PIN_STATUS_E>()
{
    static const Enumerators names = {{"verified", TAPI_SECURITY_PIN_STATUS_VERIFIED},
                                      {"not-verified", TAPI_SECURITY_PIN_STATUS_NOT_VERIFIED},
                                      {"blocked", TAPI_SECURITY_PIN_STATUS_BLOCKED},
                                      {"not-used", TAPI_SECURITY_PIN_STATUS_NOT_USED}};
    return names;
}

template <>
const Enumerators &enumeratorsOf<_TAPI_NETWORK_SEARCH_MODE_E>()
{
    static const Enumerators names = {{"automatic", TAPI_NETWORK_SEARCH_AUTOMATIC},
                                      {"manual", TAPI_NETWORK_SEARCH_MANUAL}};
    return names;
}

template <>
const Enumerators &enumeratorsOf<_TAPI_NETWORK_SEARCH_SPEED_E>()
{
    static const Enumerators names = {{"slow", TAPI_NETWORK_SEARCH_SLOW},
                                      {"medium", TAPI_NETWORK_SEARCH_MEDIUM},
                                      {"fast", TAPI_NETWORK_SEARCH_FAST},
                                      {"continuous", TAPI_NETWORK_SEARCH_CONTINUOUS}};
    return names;
}

template <>
const Enumerators &enumeratorsOf<_TAPI_NETWORK_BAND_E>()
{
    static const Enumerators names = {{"automatic", TAPI_NETWORK_BAND_AUTOMATIC},
                                      {"gsm-900-1800", TAPI_NETWORK_BAND_GSM_900_1800},
                                      {"gsm-850-1900", TAPI_NETWORK_BAND_GSM_850_1900},
                                      {"wcdma", TAPI_NETWORK_BAND_WCDMA}};
    return names;
}

template <>
const Enumerators &enumeratorsOf<PHONE_SETUP_HYPHENATION_T>()
{
    static const Enumerators names = {{"default", PHONE_SETUP_HYPHENATION_DEFAULT},
                                      {"not-supported", PHONE_SETUP_HYPHENATION_NOT_SUPPORTED}};
    return names;
}

template <>
const Enumerators &enumeratorsOf<PHONE_SETUP_CAMERA_MUTE_T>()
{
    static const Enumerators names = {{"off", PHONE_SETUP_CAMERA_MUTE_OFF},
                                      {"on", PHONE_SETUP_CAMERA_MUTE_ON}};
    return names;
}

std::optional<long long> parseNumber(const QString &word, long long lowest, long long highest,
                                     const Enumerators &names)
{
    for (const Enumerator &enumerator : names) {
        if (word.compare(QLatin1String(enumerator.name), Qt::CaseInsensitive) == 0)
            return enumerator.value;
    }
    const bool hexadecimal = word.startsWith(QLatin1String("0x"), Qt::CaseInsensitive);
    bool isNumber = false;
    const long long number = hexadecimal ? word.mid(2).toLongLong(&isNumber, 16) : word.toLongLong(&isNumber);
    if (!isNumber || number < lowest || number > highest)
        return std::nullopt;
    return number;
}

QString expectedNumber(long long lowest, long long highest, const Enumerators &names)
{
    QStringList words;
    for (const Enumerator &enumerator : names)
        words += QString::fromLatin1(enumerator.name);
    const QString range = QStringLiteral("a number from %1 to %2").arg(lowest).arg(highest);
    return words.isEmpty() ? range : words.join(QStringLiteral(", ")) + QStringLiteral(" or ") + range;
}

QString quoted(const QString &text)
{
    return QLatin1Char('"') + text + QLatin1Char('"');
}

QString assignment(const QString &name, const QString &value)
{
    return name + QLatin1String(value.startsWith(QLatin1Char('\n')) ? " =" : " = ") + value;
}

QString named(long long value, const Enumerators &names)
{
    const auto found = std::find_if(names.begin(), names.end(), [value](const Enumerator &enumerator) {
        return enumerator.value == value;
    });
    QString text = QString::number(value);
    if (found != names.end())
        text += QStringLiteral(" (%1)").arg(QLatin1String(found->name));
    else if (value > 255)
        text += QStringLiteral(" (0x%1)").arg(value, 0, 16);
    return text;
}

std::optional<bool> Value<bool>::parse(const QString &word)
{
    for (const char *yes : {"true", "on", "yes", "1"}) {
        if (word.compare(QLatin1String(yes), Qt::CaseInsensitive) == 0)
            return true;
    }
    for (const char *no : {"false", "off", "no", "0"}) {
        if (word.compare(QLatin1String(no), Qt::CaseInsensitive) == 0)
            return false;
    }
    return std::nullopt;
}

QString Value<bool>::expected()
{
    return QStringLiteral("true or false");
}

QString Value<bool>::show(bool value)
{
    return value ? QStringLiteral("true") : QStringLiteral("false");
}

std::optional<char> Value<char>::parse(const QString &word)
{
    if (word.size() != 1 || word.at(0).unicode() > 0x7E)
        return std::nullopt;
    return word.at(0).toLatin1();
}

QString Value<char>::expected()
{
    return QStringLiteral("one character");
}

std::optional<QUuid> Value<QUuid>::parse(const QString &word)
{
    const QUuid id = QUuid::fromString(word);
    return id.isNull() ? std::nullopt : std::optional<QUuid>(id);
}

QString Value<QUuid>::expected()
{
    return QStringLiteral("a UUID like {01234567-89ab-cdef-0123-456789abcdef}");
}

QString Value<QStringList>::show(const QStringList &list)
{
    QStringList entries;
    for (const QString &text : list)
        entries += QStringLiteral("%1: %2").arg(entries.size() + 1).arg(quoted(text));
    return lines(entries);
}

QString Value<PHONE_SERVICE_PROVIDER_S>::show(const PHONE_SERVICE_PROVIDER_S &provider)
{
    return QStringLiteral("%1, display condition %2")
        .arg(quoted(provider.name))
        .arg(provider.displayCondition);
}

QString Value<PHONE_BP_VERSION_INFO_S>::show(const PHONE_BP_VERSION_INFO_S &versions)
{
    const auto text = [](const char(&version)[48]) { return quoted(field(version, sizeof version)); };
    return lines({QStringLiteral("bpVer: ") + text(versions.bpVer),
                  QStringLiteral("bpFlexVer: ") + text(versions.bpFlexVer),
                  QStringLiteral("dspVer: ") + text(versions.dspVer),
                  QStringLiteral("technology: ") + text(versions.technology)});
}

QString Value<_TAPI_CALL_SESSION_TABLE_S>::show(const _TAPI_CALL_SESSION_TABLE_S &table)
{
    QStringList entries;
    for (unsigned int call = 0; call < std::min(table.count, TAPI_CALL_MAX_SESSIONS); ++call) {
        const _TAPI_CALL_SESSION_S &session = table.sessions[call];
        entries +=
            QStringLiteral("call %1: %2 %3%4%5")
                .arg(session.callId)
                .arg(field(session.number, sizeof session.number),
                     QString::fromLatin1(
                         enumeratorsOf<_TAPI_CALL_STATE_E>()[std::min<std::size_t>(session.state, 4)].name),
                     session.incoming == 1 ? QStringLiteral(", came in") : QString(),
                     session.joined == 1 ? QStringLiteral(", joined") : QString());
    }
    return lines(entries);
}

QString Value<_TAPI_NETWORK_PREFERRED_S>::show(const _TAPI_NETWORK_PREFERRED_S &list)
{
    QStringList entries;
    for (int entry = 0; entry < std::clamp(list.count, 0, TAPI_NETWORK_MAX_PREFERRED); ++entry) {
        _TAPI_NETWORK_PREFERRED_ENTRY_S network = list.entries[entry];
        entries += QStringLiteral("%1: %2 %3")
                       .arg(network.priority)
                       .arg(field(network.networkId, sizeof network.networkId),
                            Unicode2QStr(network.name, TAPI_NETWORK_NAME_UNITS));
    }
    return lines(entries);
}

} // namespace Console
