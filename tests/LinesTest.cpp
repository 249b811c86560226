// Lines: selection, lock, hot keys.
#include "EngineTest.h"

namespace {

class LinesTest : public EngineTest { };

TEST_F(LinesTest, SelectionTellsThePhoneInOrder)
{
    EXPECT_EQ(setup().setLineNo(2), TAPI_RESULT_SUCC);
    EXPECT_EQ(calls(),
              (Events{"TAPI_CS_SelectLine(1)", "TAPI_CS_GetDivertStatus(1, 0)",
                      R"(QCopChannel::send("Call_Forward_Notice", "Call_Forward_Not_All"))",
                      "UTIL_SetPhoneLine(1)", R"(QCopChannel::send("/KVQ/PHONE/GNB_UPDATE", "UPDATE GNB"))",
                      R"(PHONE_Msg(false, ""))", "PHONE_Msg::send(66)", "~PHONE_Msg()"}));
}

TEST_F(LinesTest, OtherLinesAreRefusedBeforeAnythingIsAsked)
{
    for (const int line : {0, 3, -1, 257, 258})
        EXPECT_EQ(setup().setLineNo(line), TAPI_RESULT_INVALID_PARAM) << line;
    EXPECT_TRUE(events().empty());
}

} // namespace
