// The call table and what can be done to calls.
#pragma once

#include "Rows.h"

#include "PHONE_ENG_WrapTapi.h"

#include <QTimer>

namespace Kvq {

struct Call {
    int callId = 0;
    QString number;
    int state = 0;
    bool incoming = false;
    bool joined = false;

    int key() const { return callId; }
    bool operator==(const Call &) const = default;
};

/**
 * The model of the call table. The platform does not tell when it changes, so it is read: often while there are
 * calls or somebody uses the application, seldom while it is only seen, not while nobody can see it, and after each
 * request. The next reading is asked for when the last one is there, so readings do not pile up behind a slow request.
 */
class Calls : public Kvq::ListSubject {
    Q_OBJECT
    QML_ELEMENT
    Q_PROPERTY(bool watching READ isWatching WRITE setWatching NOTIFY watchingChanged)
    Q_PROPERTY(bool visible READ isVisible WRITE setVisible RESET resetVisible NOTIFY visibleChanged)
    Q_PROPERTY(bool active READ isActive WRITE setActive RESET resetActive NOTIFY activeChanged)
    Q_PROPERTY(int interval READ interval WRITE setInterval NOTIFY intervalChanged)
    Q_PROPERTY(int idleInterval READ idleInterval WRITE setIdleInterval NOTIFY idleIntervalChanged)
    Q_PROPERTY(int readResult READ readResult NOTIFY readResultChanged)
    Q_PROPERTY(bool canSwap READ canSwap NOTIFY possibilitiesChanged)
    Q_PROPERTY(bool canJoin READ canJoin NOTIFY possibilitiesChanged)
    Q_PROPERTY(Kvq::BoolSetting *muted MEMBER m_muted CONSTANT)

public:
    enum CallState {
        Idle = TAPI_CALL_STATE_IDLE,
        Dialling = TAPI_CALL_STATE_DIALLING,
        Ringing = TAPI_CALL_STATE_RINGING,
        Active = TAPI_CALL_STATE_ACTIVE,
        Held = TAPI_CALL_STATE_HELD,
    };
    Q_ENUM(CallState)

    enum AnswerType {
        HoldActive = TAPI_VOICE_ANSWER_HOLD_ACTIVE,
        ReleaseActive = TAPI_VOICE_ANSWER_RELEASE_ACTIVE,
    };
    Q_ENUM(AnswerType)

    enum RejectType {
        Decline = TAPI_VOICE_REJECT_DECLINE,
        UserBusy = TAPI_VOICE_REJECT_BUSY,
    };
    Q_ENUM(RejectType)

    enum ReleaseScope {
        OneCall = TAPI_VOICE_DROP_ONE,
        AllCalls = TAPI_VOICE_DROP_ALL,
        AllActive = TAPI_VOICE_DROP_ALL_ACTIVE,
        AllHeld = TAPI_VOICE_DROP_ALL_HELD,
    };
    Q_ENUM(ReleaseScope)

    explicit Calls(QObject *parent = nullptr);

    bool isWatching() const { return m_watching; }
    void setWatching(bool watching);
    /** Somebody can see the application; as the application itself has it unless it was told. */
    bool isVisible() const { return m_visible.value_or(m_applicationVisible); }
    void setVisible(bool visible) { setAttention(m_visible, visible); }
    void resetVisible() { setAttention(m_visible, std::nullopt); }
    /** Somebody uses the application. */
    bool isActive() const { return m_active.value_or(m_applicationActive); }
    void setActive(bool active) { setAttention(m_active, active); }
    void resetActive() { setAttention(m_active, std::nullopt); }
    int interval() const { return m_interval; }
    void setInterval(int milliseconds);
    int idleInterval() const { return m_idleInterval; }
    void setIdleInterval(int milliseconds);
    /** Of the last reading of the table; while it is no success, the rows are those of an earlier one. */
    int readResult() const { return m_readResult; }
    /** There are an active and a held call. */
    bool canSwap() const { return firstIn(Active) != 0 && firstIn(Held) != 0; }
    bool canJoin() const { return canSwap(); }

    Q_INVOKABLE Kvq::Request *dial(const QString &number);
    Q_INVOKABLE Kvq::Request *answer(int callId, Kvq::Calls::AnswerType type = HoldActive);
    Q_INVOKABLE Kvq::Request *reject(int callId, Kvq::Calls::RejectType type = Decline);
    Q_INVOKABLE Kvq::Request *hangUp(int callId);
    Q_INVOKABLE Kvq::Request *release(int callId, Kvq::Calls::ReleaseScope scope = OneCall);
    Q_INVOKABLE Kvq::Request *hold(int callId);
    Q_INVOKABLE Kvq::Request *retrieve(int callId);
    Q_INVOKABLE Kvq::Request *split(int callId);
    Q_INVOKABLE Kvq::Request *swap(int first, int second);
    Q_INVOKABLE Kvq::Request *join(int first, int second);
    /** The active and the held call. */
    Q_INVOKABLE Kvq::Request *swap() { return swap(firstIn(Active), firstIn(Held)); }
    Q_INVOKABLE Kvq::Request *join() { return join(firstIn(Active), firstIn(Held)); }
    /** Connects two calls with each other and leaves them. */
    Q_INVOKABLE Kvq::Request *connectCalls(int first, int second);
    Q_INVOKABLE Kvq::Request *transfer(int callId, const QString &number);
    Q_INVOKABLE Kvq::Request *sendTones(int callId, const QString &digits);
    Q_INVOKABLE Kvq::Request *pressKey(const QString &key);
    Q_INVOKABLE Kvq::Request *releaseKey(const QString &key);
    Q_INVOKABLE Kvq::Request *muteBeep();
    Q_INVOKABLE Kvq::Request *setSpeakerVolume(int volume);

    void componentComplete() override;

Q_SIGNALS:
    void watchingChanged();
    void visibleChanged();
    void activeChanged();
    void intervalChanged();
    void idleIntervalChanged();
    void readResultChanged();
    void possibilitiesChanged();
    void callAdded(int callId, const QString &number, bool incoming);
    void callRemoved(int callId);

private:
    /** Id of the first call in a state, 0 for none. */
    int firstIn(CallState state) const;
    int stateOf(int callId) const;
    void take(QList<Call> calls);
    bool isLooking() const { return m_watching && m_isComplete && isVisible(); }
    void lookAgain();
    void setAttention(std::optional<bool> &wish, std::optional<bool> wanted);
    void followApplication();
    /** Tells what is different from before and begins or ends the readings. */
    void attend(bool wasVisible, bool wasActive);
    /** A request that may change the call table. */
    Request *callRequest(Job job);
    Request *tone(const QString &key, _TAPI_VOICE_DTMF_KEY_STATUS_E status);

    Rows<Call> *const m_calls;
    BoolSetting *const m_muted;
    QTimer m_timer;
    bool m_watching = true;
    std::optional<bool> m_visible; ///< as told; otherwise as the application has it
    std::optional<bool> m_active;
    bool m_applicationVisible = true;
    bool m_applicationActive = true;
    bool m_isComplete = false;
    int m_interval = 500;
    int m_idleInterval = 2000;
    int m_readResult = TAPI_RESULT_SUCC;
};

} // namespace Kvq

Q_DECLARE_METATYPE(QList<Kvq::Call>)
