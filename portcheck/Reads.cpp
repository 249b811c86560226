// What can be read from the phone, and whether it makes sense.
#include "Conformance.h"

#include "PHONE_ENG_WrapTapi.h"

#include "UTIL_Language.h"
#include "UTIL_State.h"

#include <QRegularExpression>

#include <array>
#include <cstring>
#include <memory>
#include <set>

namespace Conformance {

namespace {

using Setup = PHONE_ENG_Setup;
using Net = PHONE_ENG_NtInterface;

/** A check that opens the session first. */
Check check(const char *part, const char *name, std::function<void()> run)
{
    return {part, name, [run] {
                openSession();
                run();
            }};
}

bool matches(const QString &text, const char *pattern)
{
    return QRegularExpression(QRegularExpression::anchoredPattern(QString::fromLatin1(pattern)))
        .match(text)
        .hasMatch();
}

std::string quoted(const QString &text)
{
    return '"' + text.toStdString() + '"';
}

/** A setting of the modem or the network whose value has a range. */
template <typename Type>
Check inRange(const char *part, const char *name, _TAPI_RESULT_E (Setup::*getter)(Type &), long long lowest,
              long long highest)
{
    return check(part, name, [=] {
        Type value = {};
        answered((setup().*getter)(value));
        const auto number = static_cast<long long>(value);
        expect(number >= lowest && number <= highest, "gives " + std::to_string(number));
    });
}

template <typename Type>
Check inRange(const char *name, bool (Net::*getter)(Type *), long long highest)
{
    return check("network", name, [=] {
        Type value = {};
        answered((network().*getter)(&value));
        expect(static_cast<long long>(value) <= highest, "gives " + std::to_string(value));
    });
}

Check forwarding(const char *name, _TAPI_RESULT_E (Setup::*getter)(bool &, QString &, _TAPI_CS_DIVERT_WHEN_E))
{
    return check("forwarding", name, [=] {
        for (const auto when : {TAPI_CS_DIVERT_UNCONDITIONAL, TAPI_CS_DIVERT_BUSY, TAPI_CS_DIVERT_NO_REPLY,
                                TAPI_CS_DIVERT_NOT_REACHABLE}) {
            bool active = false;
            QString number;
            answered((setup().*getter)(active, number, when));
            expect(!active || matches(number, "[+*#0-9a-cpw]+"), "is active to " + quoted(number));
        }
    });
}

void theLinkAnswers()
{
    expect(PHONE_ENG_IsTapiDeviceActive(), "the link does not answer after the client was opened");
    expect(PHONE_ENG_IsTapiDeviceActive(), "the link is lost at the second question");
}

void theCallTableMakesSense()
{
    _TAPI_CALL_SESSION_TABLE_S table = {};
    answered(PHONE_ENG_TAPI_CALL_GetCallStatus(&table));
    expect(table.count <= TAPI_CALL_MAX_SESSIONS, "counts " + std::to_string(table.count) + " calls");
    std::set<unsigned char> ids;
    for (unsigned int call = 0; call < table.count; ++call) {
        const _TAPI_CALL_SESSION_S &session = table.sessions[call];
        expect(session.callId != 0 && session.callId != 255, "a call has the id 0 or 255");
        expect(ids.insert(session.callId).second, "two calls have one id");
        expect(session.state <= TAPI_CALL_STATE_HELD,
               "a call has the state " + std::to_string(session.state));
        expect(std::memchr(session.number, 0, sizeof session.number) != nullptr, "a number has no end");
    }
}

void theImeiIsOne()
{
    QString imei;
    answered(setup().readIMEISerialNumber(imei));
    expect(matches(imei, "\\d{14,16}"), "gives " + quoted(imei));
}

void theVersionsAreTexts()
{
    PHONE_BP_VERSION_INFO_S versions = {};
    answered(setup().getBpVersionInfo(&versions));
    for (const auto &text : {versions.bpVer, versions.bpFlexVer, versions.dspVer, versions.technology})
        expect(std::memchr(text, 0, sizeof versions.bpVer) != nullptr, "a version has no end");
    expect(versions.bpVer[0] != '\0', "there is no version");
}

void theImsiIsOne()
{
    TAPI_IMSI_A imsi = {};
    answered(TAPI_ACCE_GetImsi(imsi));
    const QString text = QString::fromLatin1(imsi, static_cast<int>(strnlen(imsi, sizeof imsi)));
    expect(matches(text, "\\d{6,15}"), "is not 6 to 15 digits");
    expect(PHONE_SET_IsHomeNetwork(text.left(5)), "its first five digits are not the home network");
}

void ownNumbersFitTheirLimits()
{
    signed char longestNumber = 0;
    signed char longestName = 0;
    answered(setup().getMyNumberLimit(longestNumber, longestName));
    QStringList list;
    answered(setup().getMyNumberList(list));
    expect(list.size() % 2 == 0, "names and numbers are not pairs");
    for (int entry = 0; entry < list.size(); entry += 2) {
        expect(list.at(entry).size() <= static_cast<unsigned char>(longestName), "a name is too long");
        expect(list.at(entry + 1).size() <= static_cast<unsigned char>(longestNumber) + 1,
               "a number is too long");
    }
    QString number1;
    QString name1;
    QString number2;
    QString name2;
    answered(setup().getMyNumber(number1, name1, number2, name2));
    if (list.size() >= 2)
        expect(list.at(1) == number1 && list.at(0) == name1, "line 1 is not the first record");
}

void usimApplicationsAreListed()
{
    QStringList list;
    unsigned char active = 0;
    unsigned char count = 0;
    const _TAPI_RESULT_E result = setup().getUSIMAccountList(list, active, count);
    if (result == 1)
        leave("the card tells of none");
    answered(result);
    expect(active <= count,
           "application " + std::to_string(active) + " of " + std::to_string(count) + " is active");
    expect(count == 0 || list.size() == count, "the list has " + std::to_string(list.size()) + " entries");
}

void amountsAreTexts()
{
    for (const QString &amount : {setup().getAvailableCredit(), setup().getTotalCallCost()})
        expect(!amount.isEmpty(), "an amount is empty");
    QString max;
    bool limited = false;
    answered(setup().getMeterMax(max, limited));
    expect(limited == !max.startsWith(QLatin1Char('0')), "the maximum is " + quoted(max));
}

void callTimesAreTimes()
{
    _TAPI_CS_CALL_TIME_S time = {};
    answered(TAPI_CS_GetTotalCallTime(&time));
    expect(time.minutes < 60 && time.seconds < 60, "minutes or seconds are 60 or more");
    const QString text = setup().getTotalCallTime();
    expect(matches(text, R"(\d+:\d+:\d+)"), "gives " + quoted(text));
}

void knownNetworksAreListed()
{
    unsigned short count = network().getKwnownNetworksCnt();
    if (count == 0)
        leave("no network is known; a search may find some");
    std::vector<_TAPI_NETWORK_PLMN_INFO_S> networks(count);
    answered(network().getKnownNetworks(networks.data()));
    for (const _TAPI_NETWORK_PLMN_INFO_S &known : networks) {
        const QString id = QString::fromLatin1(
            known.networkId, static_cast<int>(strnlen(known.networkId, sizeof known.networkId)));
        expect(matches(id, "\\d{3}-?\\d{2,3}"), "a network has the id " + quoted(id));
        expect(known.status <= 3, "a network has the status " + std::to_string(known.status));
    }
}

void thePreferredListFits()
{
    auto list = std::make_unique<_TAPI_NETWORK_PREFERRED_S>();
    answered(network().getPreferredNetworks(list.get()));
    expect(list->count >= 0 && list->count <= TAPI_NETWORK_MAX_PREFERRED,
           "counts " + std::to_string(list->count) + " entries");
    unsigned int capacity = 0;
    answered(network().getCapacityPreferedNetwork(&capacity));
    expect(static_cast<unsigned int>(list->count) <= capacity,
           "holds more than its capacity of " + std::to_string(capacity));
    std::set<int> positions;
    for (int entry = 0; entry < list->count; ++entry)
        expect(list->entries[entry].priority >= 0 && positions.insert(list->entries[entry].priority).second,
               "two entries have one position, or one is negative");
}

void thePhoneTellsItsState()
{
    const int line = UTIL_GetPhoneLine();
    expect(line == 0 || line == 1, "the line index is " + std::to_string(line));
    expect(UTIL_Language::getSystemLanguageId() >= 0, "the language is negative");
}

void aWrongCallIsRefused()
{
    constexpr unsigned char noSuchCall = 200;
    const _TAPI_RESULT_E result = PHONE_ENG_TAPI_CALL_VOICECALL_HoldReq(noSuchCall, 1);
    if (result == TAPI_RESULT_NOT_SUPPORTED)
        answered(result);
    expect(result != TAPI_RESULT_SUCC, "holds a call that is not there");
}

} // namespace

std::vector<Check> readChecks()
{
    return {
        check("session", "the client opens", [] {}),
        check("session", "the link answers", theLinkAnswers),
        check("calls", "the call table makes sense", theCallTableMakesSense),
        check("calls", "a call that is not there is refused", aWrongCallIsRefused),
        check("device", "the IMEI", theImeiIsOne),
        check("device", "the versions", theVersionsAreTexts),
        check("device", "the text telephone mode",
              [] {
                  int mode = -1;
                  answered(PHONE_ENG_TAPI_GetTTYMode(mode));
                  expect(mode >= 0 && mode <= 3, "is none of the four");
              }),
        check("device", "the shared state and the language", thePhoneTellsItsState),
        check("SIM", "the IMSI", theImsiIsOne),
        check("SIM", "the state of PIN1",
              [] {
                  unsigned char status = 255;
                  answered(TAPI_SECURITY_GetPin1Status(1, &status));
                  expect(status <= 1, "is neither 0 nor 1");
              }),
        inRange("SIM", "the state of PIN2", &Setup::readPin2Status, 0, 3),
        check("SIM", "the state of the UPIN",
              [] {
                  _TAPI_SECURITY_PIN_STATUS_E status = {};
                  answered(setup().getUpinStatus(&status));
                  expect(status <= 3, "gives " + std::to_string(status));
              }),
        check("SIM", "own numbers fit their limits", ownNumbersFitTheirLimits),
        check("SIM", "USIM applications", usimApplicationsAreListed),
        check("SIM", "the update rule of a file",
              [] {
                  unsigned char rule = 255;
                  answered(setup().getEFUpdateRule(0, rule));
                  expect(rule != 255, "is not written");
              }),
        forwarding("voice calls", &Setup::getVoiceCallsDivert),
        forwarding("data calls", &Setup::getDataCallsDivert),
        forwarding("fax calls", &Setup::getFaxCallsDivert),
        check("metering", "amounts", amountsAreTexts),
        check("metering", "call times", callTimesAreTimes),
        check("metering", "the price of a unit",
              [] {
                  QString unit;
                  QString currency;
                  answered(setup().getPriceUnitCurrency(unit, currency));
              }),
        inRange("metering", "the charge type", &Setup::getChargeType, 0, 255),
        inRange("metering", "the charge display", &Setup::getMeterDisplay, 0, 255),
        inRange("options", "fixed dialling", &Setup::isFixedDialing, 0, 1),
        inRange("options", "the DTMF type", &Setup::getDTMF, 0, 255),
        inRange("options", "caller id", &Setup::getCLIR, 0, 2),
        inRange("options", "caller id of the next call", &Setup::getNextCLIR, 0, 255),
        inRange("options", "call waiting", &Setup::isCallWaiting, 0, 1),
        inRange("options", "automatic redial", &Setup::isAutoRedial, 0, 1),
        inRange("options", "the tone of a dropped call", &Setup::isCallDropTone, 0, 1),
        inRange("lines", "the selected line", &Setup::currentLineNo, 1, 2),
        inRange("lines", "the line lock", &Setup::curLineLockStatus, 0, 255),
        inRange("the search mode", &Net::getSearchMode, 255),
        inRange("the search speed", &Net::getSearchFreqency, 255),
        inRange("the band", &Net::getBand, 65535),
        check("network", "the service tone",
              [] {
                  bool on = false;
                  answered(network().getServiceTone(on));
              }),
        check("network", "known networks", knownNetworksAreListed),
        check("network", "the preferred list", thePreferredListFits),
        check("network", "the service provider",
              [] {
                  _TAPI_NETWORK_SERVICE_PROVIDER_S provider = {};
                  answered(TAPI_NETWORK_GetServiceProviderName(&provider));
                  network().getServiceProviderName();
              }),
    };
}

} // namespace Conformance
