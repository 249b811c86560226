// What is waited for is waited for on the bus.
#include "Desk.h"
#include "FakeDaemon.h"

#include <csignal>

#include <systemd/sd-bus.h>

namespace {

/** A daemon that has an active and a held call, and swaps them some looks after it was told to. */
class Swapping {
public:
    /** Tells of a change at each look up to this one, counted from the request, and has swapped them then; 0 for never. */
    explicit Swapping(int toldAt)
        : m_toldAt(toldAt)
    {
    }

    int looks() const { return m_looks; }

    void answer(std::string_view method, sd_bus_message *answer)
    {
        if (method != "GetCalls") {
            m_asked = m_asked || method == "SwapCalls";
            return;
        }
        const bool swapped = m_toldAt != 0 && m_looks >= m_toldAt;
        sd_bus_message_append(answer, "a(oa{sv})", 2, "/phone/voicecall01", 1, "State", "s",
                              swapped ? "held" : "active", "/phone/voicecall02", 1, "State", "s",
                              swapped ? "active" : "held");
        m_looks += m_asked ? 1 : 0;
        // Told before the answer, which does not know of it yet: whoever only listens after its look would miss it.
        if (m_looks <= m_toldAt && m_asked)
            sd_bus_emit_signal(sd_bus_message_get_bus(answer), "/phone/voicecall01", "org.ofono.VoiceCall",
                               "PropertyChanged", "sv", "State", "s", "held");
    }

private:
    const int m_toldAt;
    bool m_asked = false;
    int m_looks = 0;
};

class WaitsOnOfono : public testing::Test {
protected:
    static void SetUpTestSuite() { Desk::end("daemon", SIGTERM); }

    /** What it came to, and how often the daemon was asked meanwhile. */
    static std::pair<_TAPI_RESULT_E, int> swap(int toldAt)
    {
        Swapping calls(toldAt);
        _TAPI_RESULT_E result = TAPI_RESULT_FAIL;
        {
            const FakeDaemon daemon(withOneModem(
                [&calls](std::string_view method, sd_bus_message *answer) { calls.answer(method, answer); }));
            result = PHONE_ENG_TAPI_CALL_VOICECALL_SwitchReq(1, 2);
        }
        return {result, calls.looks()};
    }
};

} // namespace

TEST_F(WaitsOnOfono, LooksWhenAChangeIsToldAndNotBefore)
{
    PHONE_ENG_TAPI_initiation();
    EXPECT_EQ(swap(2), std::pair(TAPI_RESULT_SUCC, 3));
    // Nothing is told: it is looked at the beginning and at the end of the time.
    EXPECT_EQ(swap(0), std::pair(TAPI_RESULT_TIMED_OUT, 2));
}
