// The telephony session: the service table and the probe of the link.
#include "EngineTest.h"

#include <cerrno>
#include <cstdarg>
#include <cstdlib>
#include <functional>

#include <sys/ioctl.h>
#include <sys/syscall.h>
#include <unistd.h>

namespace {

/** What the next calls of ioctl() fail with; 0 succeeds. When there are none left the system answers. */
std::vector<int> ioctlErrors;
int ioctlCalls = 0;

class TelephonySessionTest : public EngineTest {
protected:
    /** The probe remembers its descriptor for the life of the process, so each case has one of its own. */
    static void inOwnProcess(const std::function<void()> &test)
    {
        EXPECT_EXIT(
            {
                ioctlErrors.clear();
                ioctlCalls = 0;
                test();
                std::exit(testing::Test::HasFailure() ? 1 : 0);
            },
            testing::ExitedWithCode(0), "");
    }
};

} // namespace

// The engine's ioctl() is this one: the executable comes before the C library.
extern "C" __attribute__((visibility("default"))) int ioctl(int descriptor, unsigned long request, ...)
{
    va_list arguments;
    va_start(arguments, request);
    void *const argument = va_arg(arguments, void *);
    va_end(arguments);
    ++ioctlCalls;
    if (ioctlErrors.empty())
        return static_cast<int>(syscall(SYS_ioctl, descriptor, request, argument));
    const int error = ioctlErrors.front();
    ioctlErrors.erase(ioctlErrors.begin());
    errno = error;
    return error == 0 ? 0 : -1;
}

namespace {

TEST_F(TelephonySessionTest, InitiationHandsOverTheServiceTable)
{
    answer("TAPI_CLIENT_Init", 77);
    EXPECT_EQ(PHONE_ENG_TAPI_initiation(), static_cast<_TAPI_RESULT_E>(77));
    EXPECT_EQ(events(),
              (Events{trace, "TAPI_CLIENT_Init(<00020008000a000e000d0009000700040016000b001100130006>, 13)",
                      trace}));
    EXPECT_EQ(locations(), std::set<std::string>{"utility/PHONE_ENG_WrapTapi PHONE_ENG_TAPI_initiation"});
}

TEST_F(TelephonySessionTest, TheProbeAsksARealSocketUntilItIsGone)
{
    inOwnProcess([this] {
        EXPECT_FALSE(PHONE_ENG_IsTapiDeviceActive()); // no client yet
        EXPECT_EQ(events(), (Events{trace, "TAPI_CLIENT_GetSyncSocketFd()", trace}));
        phone.openLink();
        EXPECT_TRUE(PHONE_ENG_Setup::isTapiDeviceActive());
        phone.closeLink();
        EXPECT_FALSE(PHONE_ENG_IsTapiDeviceActive());
        phone.openLink(); // a new descriptor comes too late
        const int callsSoFar = ioctlCalls;
        EXPECT_FALSE(PHONE_ENG_IsTapiDeviceActive());
        EXPECT_EQ(ioctlCalls, callsSoFar);
    });
}

TEST_F(TelephonySessionTest, TheFirstDescriptorIsKept)
{
    inOwnProcess([this] {
        answer("TAPI_CLIENT_GetSyncSocketFd", -1);
        EXPECT_FALSE(PHONE_ENG_IsTapiDeviceActive());
        EXPECT_EQ(ioctlCalls, 0);
        phone.openLink();
        phone.clearScript("TAPI_CLIENT_GetSyncSocketFd");
        EXPECT_TRUE(PHONE_ENG_IsTapiDeviceActive());
        answer("TAPI_CLIENT_GetSyncSocketFd", 999); // not open, and not asked
        EXPECT_TRUE(PHONE_ENG_IsTapiDeviceActive());
    });
}

TEST_F(TelephonySessionTest, InterruptedProbesAreRepeatedAndABadAddressCountsAsAlive)
{
    inOwnProcess([this] {
        phone.openLink();
        ioctlErrors = {EINTR, EINTR, EINTR, 0};
        EXPECT_TRUE(PHONE_ENG_IsTapiDeviceActive());
        EXPECT_EQ(ioctlCalls, 4);
        ioctlErrors = {EFAULT};
        EXPECT_TRUE(PHONE_ENG_IsTapiDeviceActive());
        ioctlErrors = {EINTR, EBADF};
        EXPECT_FALSE(PHONE_ENG_IsTapiDeviceActive());
        EXPECT_FALSE(PHONE_ENG_IsTapiDeviceActive());
        EXPECT_EQ(ioctlCalls, 7);
    });
}

} // namespace
