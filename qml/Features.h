// What the product has, so that a screen shows no page for what it lacks.
#pragma once

#include "Subject.h"

#include <bitset>

namespace Kvq {

/**
 * Each property is true until the product is known to lack the feature. Nothing is asked that the network has to
 * answer: what only the network can tell is learnt when an item of its type has asked for it.
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
    Q_PROPERTY(bool sim READ sim NOTIFY featuresChanged)
    Q_PROPERTY(bool ready READ isReady NOTIFY featuresChanged)

public:
    explicit Features(QObject *parent = nullptr);

    bool hearingAid() const { return m_has[HearingAid]; }
    bool hyphenation() const { return m_has[Hyphenation]; }
    bool forwarding() const;
    bool callCosts() const { return m_has[CallCosts]; }
    bool callerId() const;
    bool callWaiting() const;
    bool fixedDialling() const { return m_has[FixedDialling]; }
    bool lines() const { return m_has[Lines]; }
    bool pin2() const { return m_has[Pin2]; }
    bool upin() const { return m_has[Upin]; }
    bool ownNumbers() const { return m_has[OwnNumbers]; }
    bool usimAccounts() const { return m_has[UsimAccounts]; }
    bool networkSelection() const { return m_has[NetworkSelection]; }
    bool preferredNetworks() const { return m_has[PreferredNetworks]; }
    /** False while the phone has told that it has no SIM to ask. */
    bool sim() const { return m_has[Sim]; }
    bool isReady() const { return m_ready; }

    Q_INVOKABLE void refresh();

    void componentComplete() override;

Q_SIGNALS:
    void featuresChanged();

private:
    /** What is asked for, in the order of asking. */
    enum Feature {
        HearingAid,
        Hyphenation,
        Pin2, // listens for the card, so that what is told of it holds for those that follow
        FixedDialling,
        Lines,
        Upin,
        OwnNumbers,
        UsimAccounts,
        NetworkSelection,
        PreferredNetworks,
        CallCosts,
        Sim,
        FeatureCount
    };

    std::bitset<FeatureCount> m_has;
    QPointer<Ticket> m_asking;
    bool m_ready = false;
};

} // namespace Kvq
