// Calls to a number that the user has chosen, or to the phone's own.
#include "Conformance.h"

#include "PHONE_ENG_WrapTapi.h"

#include <chrono>
#include <optional>
#include <thread>

namespace Conformance {

namespace {

using namespace std::chrono_literals;

/** A call in the table, or nothing. */
std::optional<_TAPI_CALL_SESSION_S> find(unsigned char callId)
{
    _TAPI_CALL_SESSION_TABLE_S table = {};
    answered(PHONE_ENG_TAPI_CALL_GetCallStatus(&table));
    for (unsigned int call = 0; call < std::min(table.count, TAPI_CALL_MAX_SESSIONS); ++call) {
        if (table.sessions[call].callId == callId)
            return table.sessions[call];
    }
    return std::nullopt;
}

/** The network takes its time. */
template <typename Condition>
bool becomes(Condition condition, std::chrono::milliseconds patience)
{
    const auto end = std::chrono::steady_clock::now() + patience;
    while (!condition()) {
        if (std::chrono::steady_clock::now() >= end)
            return false;
        std::this_thread::sleep_for(50ms);
    }
    return true;
}

/** A call that is gone when the check ends, however it ends. */
class Call {
public:
    explicit Call(const QString &number)
    {
        QByteArray text = number.toLatin1();
        answered(
            PHONE_ENG_TAPI_CALL_VOICECALL_MakeReq(0, reinterpret_cast<unsigned char *>(text.data()), &m_id));
        expect(m_id != 0 && m_id != 255, "the call has the id 0 or 255");
    }
    ~Call()
    {
        if (m_id != 0)
            PHONE_ENG_TAPI_CALL_VOICECALL_ReleaseReq(m_id, TAPI_VOICE_DROP_ONE);
    }
    Call(const Call &) = delete;
    Call &operator=(const Call &) = delete;

    unsigned char id() const { return m_id; }

    /** Ends the call with a request that must make it disappear. */
    template <typename Request>
    void end(Request request)
    {
        const unsigned char id = m_id;
        answered(request(id));
        m_id = 0;
        expect(becomes([id] { return !find(id); }, 5s), "the call is still in the table");
    }

private:
    unsigned char m_id = 0;
};

/** How long somebody may take to answer: the phone's own number is busy, and nobody is asked to. */
std::chrono::seconds patienceFor(const QString &chosen)
{
    return chosen.isEmpty() ? 1s : 15s;
}

/** The number to call, with the session opened. */
QString numberToCall(const QString &chosen)
{
    openSession();
    if (!chosen.isEmpty())
        return chosen;
    QString number1;
    QString name1;
    QString number2;
    QString name2;
    if (setup().getMyNumber(number1, name1, number2, name2) != TAPI_RESULT_SUCC || number1.isEmpty())
        leave("the SIM tells no own number: name one with --number");
    return number1;
}

void aDialledCallIsInTheTable(const QString &chosen)
{
    const QString number = numberToCall(chosen);
    Call call(number);
    expect(becomes([&] { return find(call.id()).has_value(); }, 5s), "the call is not in the table");
    const auto session = find(call.id());
    if (!session)
        leave("the other side ended the call at once");
    expect(session->incoming == 0, "the call counts as one that came in");
    expect(QString::fromLatin1(session->number).endsWith(number.right(6)), "the call has another number");
    call.end(
        [](unsigned char id) { return PHONE_ENG_TAPI_CALL_VOICECALL_ReleaseReq(id, TAPI_VOICE_DROP_ONE); });
}

void aDialledCallIsGivenUp(const QString &chosen)
{
    Call call(numberToCall(chosen));
    call.end([](unsigned char id) { return PHONE_ENG_TAPI_CALL_VOICECALL_CancelReq(id); });
}

void anActiveCallIsHeldAndRetrieved(const QString &chosen)
{
    Call call(numberToCall(chosen));
    const auto isIn = [&](_TAPI_CALL_STATE_E state) {
        return [&call, state] {
            const auto session = find(call.id());
            return session && session->state == state;
        };
    };
    if (!becomes(isIn(TAPI_CALL_STATE_ACTIVE), patienceFor(chosen)))
        leave("nobody answers that number");
    answered(PHONE_ENG_TAPI_CALL_VOICECALL_DtmfReq('1', TAPI_VOICE_DTMF_KEY_PRESSED));
    answered(PHONE_ENG_TAPI_CALL_VOICECALL_DtmfReq('1', TAPI_VOICE_DTMF_KEY_RELEASED));
    answered(PHONE_ENG_TAPI_CALL_VOICECALL_HoldReq(call.id(), 1));
    expect(becomes(isIn(TAPI_CALL_STATE_HELD), 5s), "the call is not held");
    answered(PHONE_ENG_TAPI_CALL_VOICECALL_HoldReq(call.id(), 0));
    expect(becomes(isIn(TAPI_CALL_STATE_ACTIVE), 5s), "the call is not retrieved");
    call.end(
        [](unsigned char id) { return PHONE_ENG_TAPI_CALL_VOICECALL_ReleaseReq(id, TAPI_VOICE_DROP_ONE); });
}

} // namespace

std::vector<Check> callChecks(const QString &number)
{
    const auto check = [&number](const char *name, void (*run)(const QString &)) {
        return Check{"calls", name, [run, number] { run(number); }};
    };
    return {
        check("a dialled call is in the table until it ends", aDialledCallIsInTheTable),
        check("a dialled call is given up", aDialledCallIsGivenUp),
        check("an active call is held and retrieved", anActiveCallIsHeldAndRetrieved),
    };
}

} // namespace Conformance
