// Which operation of the engine each code is.
#include "ServiceCodes.h"

#include "Secret.h"
#include "ServiceCode.h"
#include "SimPins.h"

#include "PHONE_ENG_WrapTapi.h"

namespace Kvq {

namespace {

using Procedure = ServiceCode::Procedure;
using Divert = _TAPI_CS_DIVERT_WHEN_E;
using Setup = PHONE_ENG_Setup;

/** Nothing where the engine has no operation for exactly what the code says. */
using Outcome = std::optional<Answer>;

Answer outcome(_TAPI_RESULT_E result, ServiceCodes::Kind kind, QVariantMap details = {})
{
    details.insert(QStringLiteral("kind"), kind);
    return {result, details};
}

bool isNumber(QStringView text)
{
    const QStringView digits = text.startsWith(u'+') ? text.mid(1) : text;
    return !digits.isEmpty()
        && std::all_of(digits.begin(), digits.end(), [](QChar sign) { return sign >= u'0' && sign <= u'9'; });
}

bool hasNone(const ServiceCode &code)
{
    return std::all_of(code.information.begin(), code.information.end(),
                       [](QStringView piece) { return piece.isEmpty(); });
}

Outcome deviceNumber(Engine &engine, const ServiceCode &code)
{
    if (code.procedure != Procedure::Interrogate || !hasNone(code))
        return std::nullopt;
    QString imei;
    const _TAPI_RESULT_E result = engine.setup.readIMEISerialNumber(imei);
    return outcome(result, ServiceCodes::DeviceNumber, {{QStringLiteral("text"), imei}});
}

/** The operations for a class of calls, by the codes of its basic services (3GPP TS 22.030, annex C). */
struct ForwardingClass {
    QStringView basicService;
    int serviceClass;
    _TAPI_RESULT_E (Setup::*get)(bool &active, QString &number, Divert when);
    _TAPI_RESULT_E (Setup::*divert)(bool enable, Divert when, const QString &number);
};

// A code without a basic service means them all. Calls of this phone are voice calls, and the outcome says which it was.
constexpr std::array<ForwardingClass, 4> forwardingClasses = {{
    {u"", 0, &Setup::getVoiceCallsDivert, &Setup::divertVoiceCalls},
    {u"11", 0, &Setup::getVoiceCallsDivert, &Setup::divertVoiceCalls},
    {u"20", 1, &Setup::getDataCallsDivert, &Setup::divertDataCalls},
    {u"13", 2, &Setup::getFaxCallsDivert, &Setup::divertFaxCalls},
}};

Answer forwardingNow(Engine &engine, const ForwardingClass &of, Divert when)
{
    bool active = false;
    QString number;
    const _TAPI_RESULT_E result = (engine.setup.*of.get)(active, number, when);
    return outcome(result, ServiceCodes::Forwarding,
                   {{QStringLiteral("condition"), when},
                    {QStringLiteral("serviceClass"), of.serviceClass},
                    {QStringLiteral("active"), active},
                    {QStringLiteral("number"), number}});
}

/** What stands after a change is what the network says then. */
Answer forwardingAfter(_TAPI_RESULT_E change, Engine &engine, const ForwardingClass &of, Divert when)
{
    return change == TAPI_RESULT_SUCC ? forwardingNow(engine, of, when)
                                      : outcome(change, ServiceCodes::Forwarding);
}

template <Divert when>
Outcome forwarding(Engine &engine, const ServiceCode &code)
{
    const auto [number, basicService, time] = code.information;
    const auto *const of = std::find_if(
        forwardingClasses.begin(), forwardingClasses.end(),
        [wanted = basicService](const ForwardingClass &known) { return known.basicService == wanted; });
    if (of == forwardingClasses.end())
        return std::nullopt;
    switch (code.procedure) {
    case Procedure::Interrogate:
        if (!number.isEmpty() || !time.isEmpty())
            return std::nullopt;
        return forwardingNow(engine, *of, when);
    case Procedure::Activate: // with a number it is registered as well
    case Procedure::Register:
        if (!isNumber(number))
            return std::nullopt;
        if (time.isEmpty())
            return forwardingAfter((engine.setup.*of->divert)(true, when, number.toString()), engine, *of,
                                   when);
        // The engine passes on three times, for voice calls alone.
        if (when != TAPI_CS_DIVERT_NO_REPLY || of->serviceClass != 0
            || (time != u"5" && time != u"10" && time != u"20"))
            return std::nullopt;
        return forwardingAfter(engine.setup.divertVoiceCallsWithTime(
                                   true, number.toString(), static_cast<unsigned char>(time.toInt())),
                               engine, *of, when);
    case Procedure::Erase:
        if (!number.isEmpty() || !time.isEmpty())
            return std::nullopt;
        return forwardingAfter((engine.setup.*of->divert)(false, when, {}), engine, *of, when);
    case Procedure::Deactivate: // the network keeps the number, and the engine would erase it
        break;
    }
    return std::nullopt;
}

Outcome allForwarding(Engine &engine, const ServiceCode &code)
{
    if (code.procedure != Procedure::Erase || !hasNone(code))
        return std::nullopt;
    return outcome(engine.setup.cancelAllCallsDiverts(), ServiceCodes::AllForwarding);
}

Outcome callWaiting(Engine &engine, const ServiceCode &code)
{
    if (!hasNone(code))
        return std::nullopt;
    if (code.procedure == Procedure::Activate || code.procedure == Procedure::Deactivate) {
        const bool on = code.procedure == Procedure::Activate;
        return outcome(engine.setup.setCallWaiting(on), ServiceCodes::CallWaiting,
                       {{QStringLiteral("active"), on}});
    }
    if (code.procedure != Procedure::Interrogate)
        return std::nullopt;
    bool on = false;
    const _TAPI_RESULT_E result = engine.setup.isCallWaiting(on);
    return outcome(result, ServiceCodes::CallWaiting, {{QStringLiteral("active"), on}});
}

Outcome callerId(Engine &engine, const ServiceCode &code)
{
    if (!hasNone(code))
        return std::nullopt;
    _TAPI_CALL_RESTRICT_ID_E restriction = TAPI_CALL_RESTRICT_ID_NETWORK;
    _TAPI_RESULT_E result = TAPI_RESULT_SUCC;
    switch (code.procedure) {
    case Procedure::Activate:
    case Procedure::Deactivate:
        restriction = code.procedure == Procedure::Activate ? TAPI_CALL_RESTRICT_ID_INVOKE
                                                            : TAPI_CALL_RESTRICT_ID_SUPPRESS;
        result = engine.setup.setCLIR(restriction);
        break;
    case Procedure::Interrogate:
        result = engine.setup.getCLIR(restriction);
        break;
    default:
        return std::nullopt;
    }
    return outcome(result, ServiceCodes::CallerId, {{QStringLiteral("restriction"), restriction}});
}

template <SimPins::Pin which, bool unblocks>
Outcome pin(Engine &engine, const ServiceCode &code)
{
    // Whatever is wrong with it: a code with PINs never goes to the network.
    const auto [first, second, again] = code.information;
    if (code.procedure != Procedure::Register || first.isEmpty() || second.isEmpty() || second != again)
        return outcome(TAPI_RESULT_INVALID_PARAM, ServiceCodes::PinsDiffer);
    const auto copied = [](QStringView text) {
        return Secret(QString::fromRawData(text.data(), text.size()));
    };
    const _TAPI_RESULT_E result = copied(first).with([&](const QString &old) {
        return copied(second).with([&](const QString &wanted) {
            return unblocks ? SimPins::unblockNow(which, old, wanted)
                            : SimPins::changeNow(engine.setup, which, old, wanted);
        });
    });
    return outcome(result, ServiceCodes::Pin,
                   {{QStringLiteral("pin"), which}, {QStringLiteral("unblocked"), unblocks}});
}

struct Service {
    QStringView code;
    Outcome (*run)(Engine &engine, const ServiceCode &code);
};

constexpr std::array<Service, 12> services = {{
    {u"06", deviceNumber},
    {u"21", forwarding<TAPI_CS_DIVERT_UNCONDITIONAL>},
    {u"67", forwarding<TAPI_CS_DIVERT_BUSY>},
    {u"61", forwarding<TAPI_CS_DIVERT_NO_REPLY>},
    {u"62", forwarding<TAPI_CS_DIVERT_NOT_REACHABLE>},
    {u"002", allForwarding},
    {u"43", callWaiting},
    {u"31", callerId},
    {u"04", pin<SimPins::Pin1, false>},
    {u"042", pin<SimPins::Pin2, false>},
    {u"05", pin<SimPins::Pin1, true>},
    {u"052", pin<SimPins::Pin2, true>},
}};

Answer sentToTheNetwork(const Secret &typed)
{
    return typed.withLatin1([](unsigned char *text) {
        _TAPI_USSD_REQ_APP_MSG_S request = {};
        const std::size_t length = std::strlen(reinterpret_cast<const char *>(text));
        _TAPI_RESULT_E result = TAPI_RESULT_INVALID_PARAM;
        if (length <= sizeof request.text) {
            request.length = static_cast<unsigned char>(length);
            std::memcpy(request.text, text, length);
            result = PHONE_ENG_TAPI_USSD_Make_Req(&request);
            explicit_bzero(&request, sizeof request);
        }
        return outcome(result, ServiceCodes::ServiceRequest);
    });
}

Outcome byTheEngine(Engine &engine, const QString &typed)
{
    const std::optional<ServiceCode> code = ServiceCode::parse(typed);
    if (!code || !code->rest.isEmpty())
        return std::nullopt;
    const auto *const service = std::find_if(services.begin(), services.end(), [&code](const Service &known) {
        return known.code == code->service;
    });
    return service == services.end() ? std::nullopt : service->run(engine, *code);
}

} // namespace

bool ServiceCodes::isCode(const QString &typed) const
{
    return typed.size() > 1 && typed.endsWith(u'#');
}

Request *ServiceCodes::run(const QString &typed)
{
    return m_activity->request([secret = Secret(typed)](Engine &engine) {
        const Outcome done =
            secret.with([&engine](const QString &text) { return byTheEngine(engine, text); });
        return done ? *done : sentToTheNetwork(secret);
    });
}

} // namespace Kvq
