// Emergency calls while everything else is used up: the disk, the runtime folder, descriptors, memory.
#include "Desk.h"
#include "OwnMounts.h"

#include <QTemporaryDir>

#include <cstdlib>
#include <fstream>

#include <fcntl.h>
#include <sys/resource.h>
#include <sys/wait.h>
#include <unistd.h>

namespace {

constexpr int notAllowed = 77;

#if defined(__SANITIZE_ADDRESS__) // whose checks themselves need descriptors and address space

void useUpDescriptors() { }

void useUpMemory() { }

#else

/** Lets the process have no more than that. */
void limitTo(__rlimit_resource resource, rlim_t used)
{
    rlimit limit = {};
    getrlimit(resource, &limit);
    limit.rlim_cur = used;
    setrlimit(resource, &limit);
}

void useUpDescriptors()
{
    limitTo(RLIMIT_NOFILE, 64);
    while (open("/dev/null", O_RDONLY | O_CLOEXEC) >= 0)
        continue;
}

void useUpMemory()
{
    rlim_t pages = 0;
    std::ifstream("/proc/self/statm") >> pages;
    limitTo(RLIMIT_AS, pages * static_cast<rlim_t>(sysconf(_SC_PAGESIZE)));
}

#endif

class EmergencyOnOfono : public OfonoTest {
protected:
    ~EmergencyOnOfono() override
    {
        Desk::byHand("/phone org.ofono.VoiceCallManager.HangupAll");
        EXPECT_TRUE(Desk::becomes([] {
            _TAPI_CALL_SESSION_TABLE_S table = {};
            return PHONE_ENG_TAPI_CALL_GetCallStatus(&table) == TAPI_RESULT_SUCC && table.count == 0;
        }));
    }
};

/** What a program of its own does whose folders are full; it knows them by KVQ_TEST_FULL_FOLDER. */
class CrampedOnOfono : public testing::Test {
protected:
    CrampedOnOfono()
    {
        if (const char *const folder = std::getenv("KVQ_TEST_FULL_FOLDER")) {
            setenv("XDG_RUNTIME_DIR", folder, 1);
            setenv("XDG_DATA_HOME", folder, 1);
        }
        EXPECT_EQ(PHONE_ENG_TAPI_initiation(), TAPI_RESULT_SUCC);
    }

    static void dials()
    {
        std::string number = "112";
        unsigned char callId = 0;
        ASSERT_EQ(PHONE_ENG_TAPI_CALL_VOICECALL_MakeReq(0, reinterpret_cast<unsigned char *>(number.data()),
                                                        &callId),
                  TAPI_RESULT_SUCC);
        EXPECT_NE(callId, 0);
        EXPECT_EQ(PHONE_ENG_TAPI_CALL_VOICECALL_CancelReq(callId), TAPI_RESULT_SUCC);
    }
};

} // namespace

TEST_F(EmergencyOnOfono, IsDialledByAProgramThatHasNothingLeft)
{
    const QTemporaryDir folder;
    const std::string place = folder.path().toStdString();
    const pid_t child = fork();
    if (child == 0) {
        if (!mountTinyDisk(place))
            _exit(notAllowed);
        fillDisk(place);
        setenv("KVQ_TEST_FULL_FOLDER", place.c_str(), 1);
        execl("/proc/self/exe", "ofono_tests", "--gtest_filter=CrampedOnOfono.*", nullptr);
        _exit(127);
    }
    int status = -1;
    ASSERT_EQ(waitpid(child, &status, 0), child);
    if (WIFEXITED(status) && WEXITSTATUS(status) == notAllowed)
        GTEST_SKIP() << "mounts of its own are not allowed";
    EXPECT_EQ(status, 0);
}

TEST_F(CrampedOnOfono, DialsWithFullFolders)
{
    dials();
    const bool isFull = std::getenv("KVQ_TEST_FULL_FOLDER") != nullptr;
    EXPECT_NE(PHONE_ENG_Setup::instance()->setRoamAlert(true), isFull);
}

TEST_F(CrampedOnOfono, DialsWithoutDescriptors)
{
    useUpDescriptors();
    dials();
}

/** Last, for what was used up before is so still. */
TEST_F(CrampedOnOfono, DialsWithoutMemory)
{
    useUpMemory();
    dials();
}
