// Call control takes no memory from the heap; what does take some says when there is none.
#include "EngineTest.h"

#include "LogModule.h"

#include <cstdlib>
#include <new>

namespace {

bool counting = false;
bool memoryIsShort = false; ///< for who can be told so
unsigned int allocations = 0;

/** Every form takes its memory here, so that each form of delete gives back what malloc gave. */
void *allocate(std::size_t size)
{
    if (counting)
        ++allocations;
    return std::malloc(size == 0 ? 1 : size);
}

void *allocateOrThrow(std::size_t size)
{
    if (void *const memory = allocate(size))
        return memory;
    throw std::bad_alloc();
}

} // namespace

// clang-format off
void *operator new(std::size_t size) { return allocateOrThrow(size); }
void *operator new[](std::size_t size) { return allocateOrThrow(size); }
void *operator new(std::size_t size, const std::nothrow_t &) noexcept { return allocate(size); }
void *operator new[](std::size_t size, const std::nothrow_t &) noexcept { return memoryIsShort ? nullptr : allocate(size); }
void operator delete(void *memory) noexcept { std::free(memory); }
void operator delete[](void *memory) noexcept { std::free(memory); }
void operator delete(void *memory, std::size_t) noexcept { std::free(memory); }
void operator delete[](void *memory, std::size_t) noexcept { std::free(memory); }
// clang-format on

namespace {

unsigned char number[] = "112";
unsigned char callId = 0;
int mode = 0;
_TAPI_USSD_REQ_APP_MSG_S ussd = {};
_TAPI_CALL_SESSION_TABLE_S table = {};

using Request = _TAPI_RESULT_E (*)();

const Request requests[] = {
    // These reach the push-to-talk service when call 5 is its.
    [] { return PHONE_ENG_TAPI_CALL_VOICECALL_AnswerReq(5, TAPI_VOICE_ANSWER_HOLD_ACTIVE); },
    [] { return PHONE_ENG_TAPI_CALL_VOICECALL_ReleaseReq(5, TAPI_VOICE_DROP_ONE); },
    [] { return PHONE_ENG_TAPI_CALL_VOICECALL_ReleaseReq(1, TAPI_VOICE_DROP_ALL); },
    [] { return PHONE_ENG_TAPI_CALL_VOICECALL_HoldReq(5, 1); },
    [] { return PHONE_ENG_TAPI_CALL_VOICECALL_SwitchReq(5, 1); },
    [] { return PHONE_ENG_TAPI_CALL_VOICECALL_CancelReq(5); },
    [] { return PHONE_ENG_TAPI_CALL_VOICECALL_LinkReq(1, 5); },
    [] { return PHONE_ENG_TAPI_CALL_VOICECALL_TransferReq(5, number); },
    [] { return PHONE_ENG_TAPI_CALL_VOICECALL_ConferenceReq(1, 5); },
    [] { return PHONE_ENG_TAPI_CALL_VOICECALL_RejectReq(5, TAPI_VOICE_REJECT_BUSY); },
    // These never do.
    [] { return PHONE_ENG_TAPI_CALL_VOICECALL_MakeReq(0, number, &callId); },
    [] { return PHONE_ENG_TAPI_CALL_VOICECALL_STK_MakeReq(number, {}, {}, 0, &callId); },
    [] { return PHONE_ENG_TAPI_CALL_VOICECALL_HoldReq(5, 0); },
    [] { return POHONE_ENG_TAPI_CALL_VOICECALL_UnconferenceReq(5); },
    [] { return PHONE_ENG_TAPI_CALL_VOICECALL_MuteReq(1); },
    [] { return PHONE_ENG_TAPI_USSD_Make_Req(&ussd); },
    [] { return PHONE_ENG_TAPI_CALL_VOICECALL_DtmfReq('1', TAPI_VOICE_DTMF_KEY_PRESSED); },
    [] { return PHONE_ENG_TAPI_CALL_VOICECALL_DtmfStringReq(5, number); },
    [] { return PHONE_ENG_TAPI_set_speaker_volume(1); },
    [] { return PHONE_ENG_TAPI_audio_accessory_status(1); },
    [] { return PHONE_ENG_TAPI_CALL_GetCallStatus(&table); },
    [] { return PHONE_ENG_TAPI_GetTTYMode(mode); },
    [] { return PHONE_ENG_TAPI_SetTTYMode(1); },
    [] { return PHONE_ENG_TAPI_SetUSBDriverMode(TAPI_USB_CABLE_ATTACHED, TAPI_USB_CHARGING_ON); },
    [] { return PHONE_ENG_TAPI_CALL_VOICECALL_Mute_Beep(); },
};

class AllocationTest : public EngineTest {
protected:
    /** Sends every request, each to a fresh phone. Returns how many the push-to-talk service refused. */
    int refusalsWithoutAllocation(bool pushToTalk, bool accepted)
    {
        int refusals = 0;
        for (std::size_t request = 0; request < std::size(requests); ++request) {
            state().calls = {};
            state().calls.pushToTalkAccepts = accepted;
            if (pushToTalk)
                phone.startPushToTalk(5, false);
            allocations = 0;
            counting = true;
            const _TAPI_RESULT_E result = requests[request]();
            counting = false;
            EXPECT_EQ(allocations, 0u) << request;
            refusals += result == TAPI_RESULT_CALL_REQ_FAIL ? 1 : 0;
        }
        return refusals;
    }
};

TEST_F(AllocationTest, NoRequestAllocatesWhoeverItGoesTo)
{
    allocations = 0;
    counting = true;
    ::operator delete[](::operator new[](1));
    counting = false;
    EXPECT_EQ(allocations, 1u) << "nothing counts";

    std::FILE *const captured = std::exchange(libaplog_to_module_ptr, std::fopen("/dev/null", "w"));
    std::setvbuf(libaplog_to_module_ptr, nullptr, _IONBF, 0);
    phone.setJournalEnabled(false);
    EXPECT_EQ(refusalsWithoutAllocation(false, true), 0);
    EXPECT_EQ(refusalsWithoutAllocation(true, true), 0);
    EXPECT_EQ(refusalsWithoutAllocation(true, false), 10);
    std::fclose(std::exchange(libaplog_to_module_ptr, captured));
}

TEST_F(AllocationTest, AListWithoutMemoryIsAFailure)
{
    QStringList list = {QStringLiteral("old")};
    memoryIsShort = true;
    EXPECT_EQ(setup().getMyNumberList(list), TAPI_RESULT_FAIL);
    memoryIsShort = false;
    EXPECT_EQ(list, QStringList{QStringLiteral("old")});
}

} // namespace
