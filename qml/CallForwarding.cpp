// How forwardings are asked for and set, for each class of calls.
#include "CallForwarding.h"

namespace Kvq {

namespace {

using Divert = _TAPI_CS_DIVERT_WHEN_E;

/** The engine's operations for one class of calls. */
struct ClassOperations {
    _TAPI_RESULT_E (PHONE_ENG_Setup::*get)(bool &active, QString &number, Divert when);
    _TAPI_RESULT_E (PHONE_ENG_Setup::*divert)(bool enable, Divert when, const QString &number);
    _TAPI_RESULT_E (PHONE_ENG_Setup::*cancelAll)();
};

constexpr std::array<ClassOperations, 3> classOperations = {{
    {&PHONE_ENG_Setup::getVoiceCallsDivert, &PHONE_ENG_Setup::divertVoiceCalls,
     &PHONE_ENG_Setup::cancelAllVoiceCallsDiverts},
    {&PHONE_ENG_Setup::getDataCallsDivert, &PHONE_ENG_Setup::divertDataCalls,
     &PHONE_ENG_Setup::cancelAllCallsDiverts},
    {&PHONE_ENG_Setup::getFaxCallsDivert, &PHONE_ENG_Setup::divertFaxCalls,
     &PHONE_ENG_Setup::cancelAllCallsDiverts},
}};

const ClassOperations &operationsOf(CallForwarding::ServiceClass serviceClass)
{
    return classOperations[static_cast<std::size_t>(serviceClass)];
}

/** The no-reply times that the engine passes on; every other one becomes the last of them. */
int takenTime(int seconds)
{
    return seconds == 5 || seconds == 10 ? seconds : 20;
}

} // namespace

/** What the engine's thread must know of a rule. */
struct ForwardingRule::Network {
    std::atomic<CallForwarding::ServiceClass> serviceClass = CallForwarding::Voice;

    /** The network does not tell the no-reply time. So it is kept here, for all rules that are the same. */
    static std::atomic<int> &noReplyTime(CallForwarding::ServiceClass of, Divert when)
    {
        static std::array<std::array<std::atomic<int>, classOperations.size()>, 4> times = {};
        return times[static_cast<std::size_t>(when)][static_cast<std::size_t>(of)];
    }

    Answer read(Engine &engine, CallForwarding::ServiceClass asked, Divert when)
    {
        Forwarding forwarding;
        forwarding.serviceClass = asked;
        const _TAPI_RESULT_E result =
            (engine.setup.*operationsOf(asked).get)(forwarding.active, forwarding.number, when);
        if (result != TAPI_RESULT_SUCC)
            return {result, {}};
        if (forwarding.active)
            forwarding.noReplyTime = noReplyTime(asked, when);
        else
            noReplyTime(asked, when) = 0;
        return {TAPI_RESULT_SUCC, QVariant::fromValue(forwarding)};
    }

    Answer write(Engine &engine, const Forwarding &wanted, Divert when)
    {
        const bool timed = wanted.active && wanted.noReplyTime != 0 && when == TAPI_CS_DIVERT_NO_REPLY
            && wanted.serviceClass == CallForwarding::Voice;
        const _TAPI_RESULT_E result = timed
            ? engine.setup.divertVoiceCallsWithTime(true, wanted.number,
                                                    static_cast<unsigned char>(takenTime(wanted.noReplyTime)))
            : (engine.setup.*operationsOf(wanted.serviceClass).divert)(wanted.active, when, wanted.number);
        if (result != TAPI_RESULT_SUCC)
            return {result, {}};
        noReplyTime(wanted.serviceClass, when) = timed ? takenTime(wanted.noReplyTime) : 0;
        // The network may have taken something else, or nothing.
        const Answer taken = read(engine, wanted.serviceClass, when);
        return {TAPI_RESULT_SUCC, taken.isSuccess() ? taken.value : QVariant()};
    }
};

CallForwarding::CallForwarding(QObject *parent)
    : Subject(parent)
    , m_rules{new ForwardingRule(Unconditional, this), new ForwardingRule(WhenBusy, this),
              new ForwardingRule(NoReply, this), new ForwardingRule(NotReachable, this)}
{
    for (ForwardingRule *const rule : m_rules)
        m_activity->add(rule);
}

void CallForwarding::setServiceClass(ServiceClass serviceClass)
{
    if (m_serviceClass == serviceClass || serviceClass < Voice || serviceClass > Fax)
        return;
    m_serviceClass = serviceClass;
    for (ForwardingRule *const rule : m_rules)
        rule->setServiceClass(serviceClass);
    Q_EMIT serviceClassChanged();
    if (m_isComplete && autoRefresh())
        refresh();
}

Request *CallForwarding::cancelAll()
{
    Request *const request = m_activity->request([serviceClass = m_serviceClass](Engine &engine) {
        return Operations::answerOf((engine.setup.*operationsOf(serviceClass).cancelAll)());
    });
    connect(request, &Request::answered, this, [this](const Answer &answer) {
        if (answer.isSuccess())
            refresh();
    });
    return request;
}

void CallForwarding::componentComplete()
{
    m_isComplete = true;
    Subject::componentComplete();
}

ForwardingRule::ForwardingRule(CallForwarding::Condition condition, CallForwarding *item)
    : ForwardingRule(condition, std::make_shared<Network>(), item)
{
}

ForwardingRule::ForwardingRule(CallForwarding::Condition condition, const std::shared_ptr<Network> &network,
                               CallForwarding *item)
    : Setting(
        QVariant::fromValue(Forwarding()),
        [network, when = static_cast<Divert>(condition)](Engine &engine) {
            return network->read(engine, network->serviceClass, when);
        },
        [network, when = static_cast<Divert>(condition)](Engine &engine, const QVariant &value) {
            return network->write(engine, value.value<Forwarding>(), when);
        },
        item)
    , m_condition(condition)
    , m_network(network)
{
}

void ForwardingRule::activate(const QString &number, int seconds)
{
    write(QVariant::fromValue(Forwarding{m_network->serviceClass, true, number, seconds}));
}

void ForwardingRule::deactivate()
{
    write(QVariant::fromValue(Forwarding{m_network->serviceClass, false, number(), 0}));
}

void ForwardingRule::setServiceClass(CallForwarding::ServiceClass serviceClass)
{
    m_network->serviceClass = serviceClass;
    forget();
}

int ForwardingRule::variant() const
{
    return m_network->serviceClass;
}

} // namespace Kvq
