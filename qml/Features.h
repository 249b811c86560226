// What the product has, so that a screen shows no page for what it lacks.
#pragma once

#include "Subject.h"

namespace Kvq {

/**
 * Each property is true until the product is known to lack the feature. The questions are asked one after the other,
 * so that what a page asks has to wait for one of them at most.
 */
class Features : public Kvq::Subject {
    Q_OBJECT
    QML_ELEMENT
    Q_PROPERTY(bool hearingAid READ hearingAid NOTIFY featuresChanged)
    Q_PROPERTY(bool hyphenation READ hyphenation NOTIFY featuresChanged)
    Q_PROPERTY(bool forwarding READ forwarding NOTIFY featuresChanged)
    Q_PROPERTY(bool callCosts READ callCosts NOTIFY featuresChanged)
    Q_PROPERTY(bool callerId READ callerId NOTIFY featuresChanged)
    Q_PROPERTY(bool callWaiting READ callWaiting NOTIFY featuresChanged)
    Q_PROPERTY(bool fixedDialling READ fixedDialling NOTIFY featuresChanged)
    Q_PROPERTY(bool lines READ lines NOTIFY featuresChanged)
    Q_PROPERTY(bool pin2 READ pin2 NOTIFY featuresChanged)
    Q_PROPERTY(bool upin READ upin NOTIFY featuresChanged)
    Q_PROPERTY(bool ownNumbers READ ownNumbers NOTIFY featuresChanged)
    Q_PROPERTY(bool usimAccounts READ usimAccounts NOTIFY featuresChanged)
    Q_PROPERTY(bool networkSelection READ networkSelection NOTIFY featuresChanged)
    Q_PROPERTY(bool preferredNetworks READ preferredNetworks NOTIFY featuresChanged)
    Q_PROPERTY(bool ready READ isReady NOTIFY featuresChanged)

public:
    explicit Features(QObject *parent = nullptr);

    bool hearingAid() const { return m_has[HearingAid]; }
    bool hyphenation() const { return m_has[Hyphenation]; }
    bool forwarding() const { return m_has[Forwarding]; }
    bool callCosts() const { return m_has[CallCosts]; }
    bool callerId() const { return m_has[CallerId]; }
    bool callWaiting() const { return m_has[CallWaiting]; }
    bool fixedDialling() const { return m_has[FixedDialling]; }
    bool lines() const { return m_has[Lines]; }
    bool pin2() const { return m_has[Pin2]; }
    bool upin() const { return m_has[Upin]; }
    bool ownNumbers() const { return m_has[OwnNumbers]; }
    bool usimAccounts() const { return m_has[UsimAccounts]; }
    bool networkSelection() const { return m_has[NetworkSelection]; }
    bool preferredNetworks() const { return m_has[PreferredNetworks]; }
    bool isReady() const { return m_ready; }

    Q_INVOKABLE void refresh();

    void componentComplete() override;

Q_SIGNALS:
    void featuresChanged();

private:
    /** In the order in which they are asked for: what the phone knows itself comes first. */
    enum Feature {
        HearingAid,
        Hyphenation,
        FixedDialling,
        CallWaiting,
        CallerId,
        Lines,
        Pin2,
        Upin,
        OwnNumbers,
        UsimAccounts,
        NetworkSelection,
        PreferredNetworks,
        CallCosts,
        Forwarding,
        FeatureCount
    };

    void ask(int feature);

    std::array<bool, FeatureCount> m_has;
    QPointer<Ticket> m_asking;
    bool m_ready = false;
};

} // namespace Kvq
