// What may take for ever: tones that sound, service requests, searches.
#include "Desk.h"

#include <algorithm>
#include <future>

using Desk::tell;
using Desk::text;

namespace {

class UnansweredOnOfono : public OfonoTest {
protected:
    static bool stateIs(const char *state)
    {
        return Desk::byHand("/phone org.ofono.SupplementaryServices.GetProperties").find(state)
            != std::string::npos;
    }

    static bool becomesIdle()
    {
        return Desk::becomes([] { return stateIs("idle"); });
    }

    static _TAPI_RESULT_E request(const char *service)
    {
        _TAPI_USSD_REQ_APP_MSG_S request = {0x0F, 5, {}};
        std::copy_n(service, 5, request.text);
        return PHONE_ENG_TAPI_USSD_Make_Req(&request);
    }

    _TAPI_RESULT_E readForwarding()
    {
        bool active = false;
        QString number;
        return setup().getVoiceCallsDivert(active, number, TAPI_CS_DIVERT_BUSY);
    }

    /** How many tones the other side has heard. */
    static int heard()
    {
        const std::string state = Desk::told(".state");
        const std::string label = "tones heard: ";
        const auto begin = state.find(label);
        return begin == std::string::npos ? 0 : std::atoi(state.c_str() + begin + label.size());
    }
};

} // namespace

TEST_F(UnansweredOnOfono, HangsUpWhileManyTonesSound)
{
    std::string number = "0555";
    unsigned char callId = 0;
    ASSERT_EQ(
        PHONE_ENG_TAPI_CALL_VOICECALL_MakeReq(0, reinterpret_cast<unsigned char *>(number.data()), &callId),
        TAPI_RESULT_SUCC);
    tell(".answer 1");
    std::string few = "1,aD"; // a pause, and letters as the daemon does not take them
    auto *const fewTones = reinterpret_cast<unsigned char *>(few.data());
    EXPECT_TRUE(Desk::becomes(
        [&] { return PHONE_ENG_TAPI_CALL_VOICECALL_DtmfStringReq(1, fewTones) == TAPI_RESULT_SUCC; }));
    EXPECT_EQ(heard(), 3);
    std::string tones(200, '5');
    std::future<_TAPI_RESULT_E> sending = std::async(std::launch::async, [&] {
        return PHONE_ENG_TAPI_CALL_VOICECALL_DtmfStringReq(1,
                                                           reinterpret_cast<unsigned char *>(tones.data()));
    });
    EXPECT_TRUE(Desk::becomes([] { return heard() > 3; }));
    EXPECT_EQ(PHONE_ENG_TAPI_CALL_VOICECALL_ReleaseReq(1, TAPI_VOICE_DROP_ONE), TAPI_RESULT_SUCC);
    EXPECT_NE(sending.get(), TAPI_RESULT_SUCC);
    EXPECT_LT(heard(), 200);
}

/** The network waits for the subscriber, or says nothing. What this phone began gives way; what another did does not. */
TEST_F(UnansweredOnOfono, EndsItsServiceRequestForAnotherRequest)
{
    EXPECT_EQ(request("*123#"), TAPI_RESULT_SUCC); // a menu
    EXPECT_TRUE(Desk::becomes([] { return stateIs("user-response"); }));
    EXPECT_EQ(readForwarding(), TAPI_RESULT_SUCC);
    EXPECT_TRUE(becomesIdle());
    EXPECT_EQ(request("*199#"), TAPI_RESULT_SUCC); // no answer
    EXPECT_TRUE(Desk::becomes([] { return stateIs("active"); }));
    EXPECT_EQ(setup().setCallWaiting(true), TAPI_RESULT_SUCC);
    EXPECT_TRUE(becomesIdle());
    Desk::byHand("/phone org.ofono.SupplementaryServices.Initiate string:*123#");
    EXPECT_TRUE(stateIs("user-response"));
    EXPECT_EQ(readForwarding(), TAPI_RESULT_BUSY);
    EXPECT_TRUE(stateIs("user-response"));
    Desk::byHand("/phone org.ofono.SupplementaryServices.Cancel");
    EXPECT_TRUE(becomesIdle());
}

/** A minute by default, half of it here. */
TEST_F(UnansweredOnOfono, EndsAServiceRequestThatTheNetworkDoesNotAnswer)
{
    EXPECT_EQ(request("*199#"), TAPI_RESULT_SUCC);
    EXPECT_TRUE(Desk::becomes([] { return stateIs("active"); }));
    EXPECT_TRUE(becomesIdle());
}

TEST_F(UnansweredOnOfono, ShowsWhatASearchHasFoundWhenItEnds)
{
    ASSERT_EQ(network().getKwnownNetworksCnt(), 1);
    tell(".delay +COPS 2000");
    const Desk::Traffic traffic;
    EXPECT_TRUE(network().findNewNetwork());
    traffic.waitFor("+COPS=?");
    EXPECT_EQ(network().getKwnownNetworksCnt(), 1);
    EXPECT_TRUE(network().findNewNetwork()); // it is under way already
    tell(".delay +COPS off");
    EXPECT_TRUE(Desk::becomes([this] { return network().getKwnownNetworksCnt() == 3; }));
}
