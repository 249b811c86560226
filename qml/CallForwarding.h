// Call forwarding, by condition and service class.
#pragma once

#include "Subject.h"

namespace Kvq {

class ForwardingRule;

class CallForwarding : public Kvq::Subject {
    Q_OBJECT
    QML_ELEMENT
    Q_PROPERTY(Kvq::CallForwarding::ServiceClass serviceClass READ serviceClass WRITE setServiceClass NOTIFY
                   serviceClassChanged)
    Q_PROPERTY(Kvq::ForwardingRule *unconditional READ unconditional CONSTANT)
    Q_PROPERTY(Kvq::ForwardingRule *whenBusy READ whenBusy CONSTANT)
    Q_PROPERTY(Kvq::ForwardingRule *noReply READ noReply CONSTANT)
    Q_PROPERTY(Kvq::ForwardingRule *notReachable READ notReachable CONSTANT)
    Q_PROPERTY(Kvq::IntSetting *defaultNoReplyTime MEMBER m_defaultNoReplyTime CONSTANT)

public:
    /** Numbered as in 3GPP TS 27.007 (+CCFC). */
    enum Condition {
        Unconditional = TAPI_CS_DIVERT_UNCONDITIONAL,
        WhenBusy = TAPI_CS_DIVERT_BUSY,
        NoReply = TAPI_CS_DIVERT_NO_REPLY,
        NotReachable = TAPI_CS_DIVERT_NOT_REACHABLE,
    };
    Q_ENUM(Condition)

    enum ServiceClass { Voice, Data, Fax };
    Q_ENUM(ServiceClass)

    explicit CallForwarding(QObject *parent = nullptr);

    ServiceClass serviceClass() const { return m_serviceClass; }
    void setServiceClass(ServiceClass serviceClass);
    ForwardingRule *unconditional() const { return m_rules[Unconditional]; }
    ForwardingRule *whenBusy() const { return m_rules[WhenBusy]; }
    ForwardingRule *noReply() const { return m_rules[NoReply]; }
    ForwardingRule *notReachable() const { return m_rules[NotReachable]; }

    Q_INVOKABLE Kvq::Request *cancelAll();

    void componentComplete() override;

Q_SIGNALS:
    void serviceClassChanged();

private:
    std::array<ForwardingRule *, 4> m_rules;
    IntSetting *const m_defaultNoReplyTime =
        m_activity->setting<IntSetting>(&PHONE_ENG_Setup::getDefaultCallForwardTimer);
    ServiceClass m_serviceClass = Voice;
    bool m_isComplete = false;
};

/** What a forwarding is set to. */
struct Forwarding {
    CallForwarding::ServiceClass serviceClass = CallForwarding::Voice;
    bool active = false;
    QString number;
    int noReplyTime = 0; ///< seconds; 0 when not known, or for the default when it is set

    bool operator==(const Forwarding &) const = default;
};

/** One forwarding: a setting of three values that are written together. */
class ForwardingRule : public Kvq::Setting {
    Q_OBJECT
    QML_ELEMENT
    QML_UNCREATABLE("Forwarding rules are properties of CallForwarding")
    Q_PROPERTY(Kvq::CallForwarding::Condition condition READ condition CONSTANT)
    Q_PROPERTY(bool active READ isActive NOTIFY valueChanged)
    Q_PROPERTY(QString number READ number NOTIFY valueChanged)
    Q_PROPERTY(int noReplyTime READ noReplyTime NOTIFY valueChanged)

public:
    ForwardingRule(CallForwarding::Condition condition, CallForwarding *item);

    CallForwarding::Condition condition() const { return m_condition; }
    bool isActive() const { return forwarding().active; }
    QString number() const { return forwarding().number; }
    int noReplyTime() const { return forwarding().noReplyTime; }

    Q_INVOKABLE void activate(const QString &number, int seconds = 0);
    Q_INVOKABLE void deactivate();

    void setServiceClass(CallForwarding::ServiceClass serviceClass);
    int variant() const override;

private:
    struct Network;

    ForwardingRule(CallForwarding::Condition condition, const std::shared_ptr<Network> &network,
                   CallForwarding *item);
    Forwarding forwarding() const { return shown().value<Forwarding>(); }

    const CallForwarding::Condition m_condition;
    const std::shared_ptr<Network> m_network;
};

} // namespace Kvq

Q_DECLARE_METATYPE(Kvq::Forwarding)
