// The call table that the simulated phone and the modem share.
#include "Calls.h"

#include <gtest/gtest.h>

namespace Simulator {

TEST(CallsTest, VoiceAndPushToTalkCallsNeverShareAnId)
{
    CallState calls;
    EXPECT_TRUE(startPushToTalk(calls, 1, false));
    EXPECT_TRUE(startPushToTalk(calls, 3, false));
    EXPECT_EQ(ring(calls, "555"), 2);
    unsigned char dialled = 0;
    EXPECT_EQ(dial(calls, "777", &dialled), TAPI_RESULT_SUCC);
    EXPECT_EQ(dialled, 4);
    EXPECT_FALSE(startPushToTalk(calls, 2, false));
    EXPECT_FALSE(startPushToTalk(calls, 4, false));
    EXPECT_TRUE(remoteHangsUp(calls, 2));
    EXPECT_TRUE(startPushToTalk(calls, 2, false));
}

TEST(CallsTest, ACallRingsUntilItIsAnsweredOrGone)
{
    CallState calls;
    EXPECT_FALSE(isRinging(calls));
    ring(calls, "555");
    EXPECT_TRUE(isRinging(calls));
    EXPECT_EQ(answerCall(calls, 1, false), TAPI_RESULT_SUCC);
    EXPECT_FALSE(isRinging(calls));
    ring(calls, "777");
    EXPECT_TRUE(remoteHangsUp(calls, 2));
    EXPECT_FALSE(isRinging(calls));
}

} // namespace Simulator
