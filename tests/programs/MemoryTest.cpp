// The memory of programs that take PINs is nobody else's, and no file's.
#include "Program.h"

#include <gtest/gtest.h>

#include <array>
#include <cerrno>
#include <csignal>
#include <string>

#include <linux/capability.h>
#include <linux/securebits.h>
#include <sys/prctl.h>
#include <sys/syscall.h>
#include <sys/wait.h>
#include <unistd.h>

namespace {

/** Rights of the superuser would open every memory. A program that is started then gets none back. */
void giveUpRights()
{
    prctl(PR_SET_SECUREBITS, SECBIT_NOROOT | SECBIT_NO_SETUID_FIXUP);
    __user_cap_header_struct header = {_LINUX_CAPABILITY_VERSION_3, 0};
    const std::array<__user_cap_data_struct, 2> none = {};
    syscall(SYS_capset, &header, none.data());
}

/** Whether another process of the same user may look into it, or have it dumped: the kernel asks the same for both. */
bool isOpenToItsUser(pid_t program)
{
    const pid_t looker = fork();
    if (looker == 0) {
        giveUpRights();
        std::array<char, 8> target = {};
        const std::string link = "/proc/" + std::to_string(program) + "/exe";
        _exit(readlink(link.c_str(), target.data(), target.size()) < 0 && errno == EACCES ? 0 : 1);
    }
    int status = 0;
    return waitpid(looker, &status, 0) != looker || status != 0;
}

class MemoryTest : public testing::TestWithParam<const char *> { };

} // namespace

TEST_P(MemoryTest, IsClosedToOthers)
{
    QTemporaryDir folder;
    std::array<int, 2> input = {};
    ASSERT_EQ(pipe(input.data()), 0);
    const QProcessEnvironment environment = Program::environmentIn(folder.path());
    const pid_t program = fork();
    if (program == 0) {
        for (const QString &name : environment.keys())
            qputenv(name.toLocal8Bit().constData(), environment.value(name).toLocal8Bit());
        setenv("QT_QPA_PLATFORM", "offscreen", 1);
        dup2(input[0], STDIN_FILENO);
        close(input[1]);
        giveUpRights();
        execl(GetParam(), GetParam(), nullptr);
        _exit(1);
    }
    close(input[0]);
    bool isOpen = true;
    for (int look = 0; isOpen && look < 1000 && waitpid(program, nullptr, WNOHANG) == 0; ++look) {
        usleep(30'000);
        isOpen = isOpenToItsUser(program);
    }
    EXPECT_FALSE(isOpen);
    kill(program, SIGKILL);
    EXPECT_EQ(waitpid(program, nullptr, 0), program) << "it was still running";
    close(input[1]);
}

INSTANTIATE_TEST_SUITE_P(Programs, MemoryTest, testing::Values(KVQ_PROGRAMS_WITH_PINS));
