// How calls are watched and requested.
#include "Calls.h"

#include "Secret.h"
#include "ServiceCode.h"

#include <QGuiApplication>

#include <utility>

namespace Kvq {

namespace {

constexpr int shortestInterval = 50;

bool isIn(const Call &call, Calls::CallState state)
{
    return call.state == state;
}

constexpr std::array<Role<Call>, 10> roles = {{
    {"callId", [](const Call &call) { return QVariant(call.callId); }},
    {"number", [](const Call &call) { return QVariant(call.number); }},
    {"callState", [](const Call &call) { return QVariant(call.state); }},
    {"incoming", [](const Call &call) { return QVariant(call.incoming); }},
    {"joined", [](const Call &call) { return QVariant(call.joined); }},
    {"canAnswer", [](const Call &call) { return QVariant(isIn(call, Calls::Ringing) && call.incoming); }},
    {"canHold", [](const Call &call) { return QVariant(isIn(call, Calls::Active)); }},
    {"canRetrieve", [](const Call &call) { return QVariant(isIn(call, Calls::Held)); }},
    {"canSplit", [](const Call &call) { return QVariant(call.joined); }},
    {"canTransfer",
     [](const Call &call) { return QVariant(isIn(call, Calls::Active) || isIn(call, Calls::Held)); }},
}};

Answer readCalls(Engine &)
{
    _TAPI_CALL_SESSION_TABLE_S table = {};
    const _TAPI_RESULT_E result = PHONE_ENG_TAPI_CALL_GetCallStatus(&table);
    if (result != TAPI_RESULT_SUCC)
        return Operations::answerOf(result);
    QList<Call> calls;
    const unsigned int count = std::min(table.count, TAPI_CALL_MAX_SESSIONS);
    for (unsigned int entry = 0; entry < count; ++entry) {
        const _TAPI_CALL_SESSION_S &session = table.sessions[entry];
        const std::size_t length = strnlen(session.number, sizeof session.number);
        calls.append({session.callId, QString::fromLatin1(session.number, static_cast<qsizetype>(length)),
                      static_cast<int>(session.state), session.incoming != 0, session.joined != 0});
    }
    return {TAPI_RESULT_SUCC, QVariant::fromValue(calls)};
}

/** An id that no call can have becomes 0, which the engine refuses. */
unsigned char callIdOf(int callId)
{
    return callId > 0 && callId < 255 ? static_cast<unsigned char>(callId) : 0;
}

Answer dialNumber(QStringView number)
{
    unsigned char callId = 0;
    const _TAPI_RESULT_E result =
        Secret(QString::fromRawData(number.data(), number.size())).withLatin1([&callId](unsigned char *text) {
            return PHONE_ENG_TAPI_CALL_VOICECALL_MakeReq(0, text, &callId);
        });
    return Operations::answerOf(result, callId);
}

/** A code for the caller id before a number holds for that call (3GPP TS 22.030). A number to be hidden is never shown. */
Answer dialTyped(Engine &engine, const QString &typed)
{
    using Procedure = ServiceCode::Procedure;

    if (typed.isEmpty())
        return Operations::answerOf(TAPI_RESULT_CALL_NO_NUMBER);
    const std::optional<ServiceCode> code = ServiceCode::parse(typed);
    const bool hides = code && code->procedure == Procedure::Deactivate;
    if (!code || (!hides && code->procedure != Procedure::Activate) || code->service != u"31"
        || !code->information.front().isEmpty() || code->rest.isEmpty())
        return dialNumber(typed);

    unsigned char before = TAPI_CALL_RESTRICT_ID_NETWORK;
    _TAPI_RESULT_E result = engine.setup.getNextCLIR(before);
    if (result == TAPI_RESULT_SUCC)
        result =
            engine.setup.setNextCLIR(hides ? TAPI_CALL_RESTRICT_ID_INVOKE : TAPI_CALL_RESTRICT_ID_SUPPRESS);
    if (result != TAPI_RESULT_SUCC)
        return Operations::answerOf(result);
    const Answer answer = dialNumber(code->rest);
    engine.setup.setNextCLIR(before);
    return answer;
}

/** A request with one call id and nothing else. */
template <typename Operation>
Job onCall(int callId, Operation operation)
{
    return
        [id = callIdOf(callId), operation](Engine &) mutable { return Operations::answerOf(operation(id)); };
}

} // namespace

Calls::Calls(QObject *parent)
    : ListSubject(parent, Urgency::CallControl)
    , m_calls(addRows<Call>(roles))
    , m_muted(m_activity->custom<BoolSetting>(nullptr, [](Engine &, const QVariant &mute) {
        return Operations::answerOf(PHONE_ENG_TAPI_CALL_VOICECALL_MuteReq(mute.toBool() ? 1 : 0));
    }))
{
    m_activity->setReader(
        readCalls, [this](const QVariant &calls) { take(calls.value<QList<Call>>()); },
        Activity::Keeping::ForNow);
    m_timer.setSingleShot(true);
    connect(&m_timer, &QTimer::timeout, m_activity, &Activity::readQuietly);
    connect(m_activity, &Activity::readingEnded, this, [this] {
        if (std::exchange(m_readResult, m_activity->readResult()) != m_activity->readResult())
            Q_EMIT readResultChanged();
        lookAgain();
    });
    if (qGuiApp) {
        connect(qGuiApp, &QGuiApplication::applicationStateChanged, this, &Calls::followApplication);
        followApplication();
    }
}

void Calls::setWatching(bool watching)
{
    if (m_watching == watching)
        return;
    m_watching = watching;
    if (!watching)
        m_timer.stop();
    else if (isLooking())
        m_activity->read();
    Q_EMIT watchingChanged();
}

void Calls::setAttention(std::optional<bool> &wish, std::optional<bool> wanted)
{
    const bool wasVisible = isVisible();
    const bool wasActive = isActive();
    wish = wanted;
    attend(wasVisible, wasActive);
}

void Calls::followApplication()
{
    const bool wasVisible = isVisible();
    const bool wasActive = isActive();
    const Qt::ApplicationState state = QGuiApplication::applicationState();
    m_applicationActive = state == Qt::ApplicationActive;
    m_applicationVisible = m_applicationActive || state == Qt::ApplicationInactive;
    attend(wasVisible, wasActive);
}

void Calls::attend(bool wasVisible, bool wasActive)
{
    if (isVisible() == wasVisible && isActive() == wasActive)
        return;
    if (!isLooking())
        m_timer.stop();
    else if (!m_activity->isReading())
        m_activity->readQuietly(); // what happened meanwhile is not to be waited for
    if (isVisible() != wasVisible)
        Q_EMIT visibleChanged();
    if (isActive() != wasActive)
        Q_EMIT activeChanged();
}

void Calls::setInterval(int milliseconds)
{
    const int interval = std::max(shortestInterval, milliseconds);
    if (std::exchange(m_interval, interval) == interval)
        return;
    lookAgain();
    Q_EMIT intervalChanged();
}

void Calls::setIdleInterval(int milliseconds)
{
    const int interval = std::max(shortestInterval, milliseconds);
    if (std::exchange(m_idleInterval, interval) == interval)
        return;
    lookAgain();
    Q_EMIT idleIntervalChanged();
}

void Calls::componentComplete()
{
    m_isComplete = true;
    if (isLooking() || autoRefresh())
        m_activity->read();
}

int Calls::firstIn(CallState state) const
{
    for (const Call &call : m_calls->list()) {
        if (call.state == state)
            return call.callId;
    }
    return 0;
}

int Calls::stateOf(int callId) const
{
    for (const Call &call : m_calls->list()) {
        if (call.callId == callId)
            return call.state;
    }
    return Idle;
}

void Calls::take(QList<Call> calls)
{
    const QList<Call> before = m_calls->list();
    // A conference with one party left is a call.
    if (std::count_if(calls.cbegin(), calls.cend(), [](const Call &call) { return call.joined; }) == 1) {
        for (Call &call : calls)
            call.joined = false;
    }
    // A platform may know who called only as long as it rings.
    for (Call &call : calls) {
        call.incoming =
            call.incoming || std::any_of(before.cbegin(), before.cend(), [&call](const Call &old) {
                return old.callId == call.callId && old.number == call.number && old.incoming;
            });
    }
    const auto has = [](const QList<Call> &list, int callId) {
        return std::any_of(list.cbegin(), list.cend(),
                           [callId](const Call &call) { return call.callId == callId; });
    };
    m_calls->setConfirmed(calls);
    if (before != calls)
        Q_EMIT possibilitiesChanged();
    for (const Call &call : before) {
        if (!has(calls, call.callId))
            Q_EMIT callRemoved(call.callId);
    }
    for (const Call &call : calls) {
        if (!has(before, call.callId))
            Q_EMIT callAdded(call.callId, call.number, call.incoming);
    }
}

void Calls::lookAgain()
{
    if (isLooking() && !m_activity->isReading())
        m_timer.start(count() > 0 || isActive() ? m_interval : m_idleInterval);
}

Request *Calls::callRequest(Job job)
{
    Request *const request = m_activity->request(std::move(job));
    connect(request, &Request::answered, m_activity, &Activity::read);
    return request;
}

Request *Calls::dial(const QString &number)
{
    return callRequest([dialled = Secret(number)](Engine &engine) {
        return dialled.with([&engine](const QString &typed) { return dialTyped(engine, typed); });
    });
}

Request *Calls::answer(int callId, AnswerType type)
{
    return callRequest(onCall(callId, [type](unsigned char id) {
        return PHONE_ENG_TAPI_CALL_VOICECALL_AnswerReq(id, static_cast<_TAPI_VOICE_ANSWER_CALL_TYPE_E>(type));
    }));
}

Request *Calls::reject(int callId, RejectType type)
{
    return callRequest(onCall(callId, [type](unsigned char id) {
        return PHONE_ENG_TAPI_CALL_VOICECALL_RejectReq(id, static_cast<_TAPI_VOICE_REJECT_CALL_TYPE_E>(type));
    }));
}

Request *Calls::hangUp(int callId)
{
    switch (stateOf(callId)) {
    case Dialling:
        return callRequest(onCall(callId, PHONE_ENG_TAPI_CALL_VOICECALL_CancelReq));
    case Ringing:
        return reject(callId);
    default:
        return release(callId);
    }
}

Request *Calls::release(int callId, ReleaseScope scope)
{
    return callRequest(onCall(callId, [scope](unsigned char id) {
        return PHONE_ENG_TAPI_CALL_VOICECALL_ReleaseReq(id, static_cast<_TAPI_VOICE_DROP_CALL_TYPE_E>(scope));
    }));
}

Request *Calls::hold(int callId)
{
    return callRequest(
        onCall(callId, [](unsigned char id) { return PHONE_ENG_TAPI_CALL_VOICECALL_HoldReq(id, 1); }));
}

Request *Calls::retrieve(int callId)
{
    return callRequest(
        onCall(callId, [](unsigned char id) { return PHONE_ENG_TAPI_CALL_VOICECALL_HoldReq(id, 0); }));
}

Request *Calls::split(int callId)
{
    return callRequest(onCall(callId, POHONE_ENG_TAPI_CALL_VOICECALL_UnconferenceReq));
}

Request *Calls::swap(int first, int second)
{
    return callRequest(onCall(first, [second = callIdOf(second)](unsigned char id) {
        return PHONE_ENG_TAPI_CALL_VOICECALL_SwitchReq(id, second);
    }));
}

Request *Calls::join(int first, int second)
{
    return callRequest(onCall(first, [second = callIdOf(second)](unsigned char id) {
        return PHONE_ENG_TAPI_CALL_VOICECALL_ConferenceReq(id, second);
    }));
}

Request *Calls::connectCalls(int first, int second)
{
    return callRequest(onCall(first, [second = callIdOf(second)](unsigned char id) {
        return PHONE_ENG_TAPI_CALL_VOICECALL_LinkReq(id, second);
    }));
}

Request *Calls::transfer(int callId, const QString &number)
{
    return callRequest(onCall(callId, [dialled = Secret(number)](unsigned char id) {
        return dialled.withLatin1(
            [id](unsigned char *text) { return PHONE_ENG_TAPI_CALL_VOICECALL_TransferReq(id, text); });
    }));
}

Request *Calls::sendTones(int callId, const QString &digits)
{
    return m_activity->request(onCall(callId, [tones = Secret(digits)](unsigned char id) {
        return tones.withLatin1(
            [id](unsigned char *text) { return PHONE_ENG_TAPI_CALL_VOICECALL_DtmfStringReq(id, text); });
    }));
}

Request *Calls::pressKey(const QString &key)
{
    return tone(key, TAPI_VOICE_DTMF_KEY_PRESSED);
}

Request *Calls::releaseKey(const QString &key)
{
    return tone(key, TAPI_VOICE_DTMF_KEY_RELEASED);
}

Request *Calls::tone(const QString &key, _TAPI_VOICE_DTMF_KEY_STATUS_E status)
{
    return m_activity->request([key = key.toLatin1(), status](Engine &) {
        return Operations::answerOf(key.size() == 1 ? PHONE_ENG_TAPI_CALL_VOICECALL_DtmfReq(key.at(0), status)
                                                    : TAPI_RESULT_INVALID_PARAM);
    });
}

Request *Calls::muteBeep()
{
    return m_activity->request(
        [](Engine &) { return Operations::answerOf(PHONE_ENG_TAPI_CALL_VOICECALL_Mute_Beep()); });
}

Request *Calls::setSpeakerVolume(int volume)
{
    return m_activity->request(
        [volume](Engine &) { return Operations::answerOf(PHONE_ENG_TAPI_set_speaker_volume(volume)); });
}

} // namespace Kvq
