// The desk that a test stands on.
#include "Desk.h"

#include <QCoreApplication>

#include "SharedState.h"

#include <array>
#include <csignal>
#include <cstddef>
#include <cstdio>
#include <cstdlib>
#include <fstream>
#include <memory>
#include <sstream>
#include <thread>

#include <sys/wait.h>
#include <unistd.h>

namespace Desk {

namespace {

std::string folder()
{
    const char *const named = std::getenv("KVQ_DESK");
    return named ? named : "";
}

std::string outputOf(const std::string &command)
{
    const std::unique_ptr<std::FILE, int (*)(std::FILE *)> output(popen(command.c_str(), "r"), pclose);
    std::string answer;
    std::array<char, 4096> buffer = {};
    while (output && std::fgets(buffer.data(), buffer.size(), output.get()))
        answer += buffer.data();
    return answer;
}

} // namespace

bool isThere()
{
    return !folder().empty();
}

void script(const std::string &command)
{
    ASSERT_EQ(std::system((KVQ_DESK_SCRIPT " " + command + " >/dev/null").c_str()), 0) << command;
}

void tell(const std::string &command)
{
    script("tell " + command);
}

std::string told(const std::string &command)
{
    return outputOf(KVQ_DESK_SCRIPT " tell " + command);
}

void forgetModem()
{
    const std::uint64_t none = 0;
    std::fstream state(folder() + "/kvq/phone-state", std::ios::in | std::ios::out | std::ios::binary);
    state.seekp(offsetof(Handset::SharedState, chosenModem));
    state.write(reinterpret_cast<const char *>(&none), sizeof none); // there is none before the first use
}

pid_t idOf(const char *program)
{
    pid_t id = 0;
    std::ifstream(folder() + '/' + program + ".pid") >> id;
    return id;
}

void end(const char *program, int signal)
{
    const pid_t id = idOf(program);
    ASSERT_GT(id, 0);
    ASSERT_EQ(kill(id, signal), 0);
    if (signal != SIGKILL && signal != SIGTERM)
        return;
    // A process that has ended has no command line, also while nobody has asked for its status.
    EXPECT_TRUE(becomes([id] {
        std::ifstream commandLine("/proc/" + std::to_string(id) + "/cmdline");
        return commandLine.peek() == std::ifstream::traits_type::eof();
    }));
}

std::string byHand(const std::string &arguments)
{
    return outputOf("dbus-send --bus=\"$DBUS_SYSTEM_BUS_ADDRESS\" --print-reply=literal "
                    "--reply-timeout=30000 --dest=org.ofono "
                    + arguments + " 2>/dev/null");
}

bool runApart(const char *tests, const std::map<std::string, std::string> &environment)
{
    const std::string filter = std::string("--gtest_filter=") + tests;
    const pid_t child = fork();
    if (child == 0) {
        for (const auto &[name, value] : environment)
            setenv(name.c_str(), value.c_str(), 1);
        execl("/proc/self/exe", "ofono_tests", filter.c_str(), nullptr);
        _exit(127);
    }
    int status = -1;
    return waitpid(child, &status, 0) == child && status == 0;
}

bool becomes(const std::function<bool()> &isSo)
{
    for (int tenth = 0; tenth < 600; ++tenth) {
        if (isSo())
            return true;
        std::this_thread::sleep_for(std::chrono::milliseconds(100));
    }
    return false;
}

double secondsOf(const std::function<void()> &action)
{
    const auto begin = std::chrono::steady_clock::now();
    action();
    return std::chrono::duration<double>(std::chrono::steady_clock::now() - begin).count();
}

Traffic::Traffic()
    : m_begin(std::ifstream(folder() + "/daemon.log", std::ios::ate).tellg())
{
}

void Traffic::waitFor(const std::string &command) const
{
    EXPECT_TRUE(becomes([&] { return has(command); })) << command;
}

bool Traffic::has(const std::string &command) const
{
    std::ifstream log(folder() + "/daemon.log");
    log.seekg(m_begin);
    std::ostringstream sent;
    sent << log.rdbuf();
    return sent.str().find("> AT" + command) != std::string::npos;
}

} // namespace Desk

OfonoTest::OfonoTest()
{
    // The first test finds a modem that was switched on just now, or one that an earlier test has left.
    EXPECT_EQ(PHONE_ENG_TAPI_initiation(), TAPI_RESULT_SUCC);
}

int main(int argc, char **argv)
{
    testing::InitGoogleTest(&argc, argv);
    const std::string place = Desk::isThere() ? std::getenv("KVQ_DESK") : "";
    if (place.empty()) {
        std::fputs("these tests run on a desk: scripts/desk.sh run --online -- ofono_tests\n", stderr);
        return 1;
    }
    setenv("DBUS_SESSION_BUS_ADDRESS", std::getenv("DBUS_SYSTEM_BUS_ADDRESS"), 1);
    setenv("XDG_RUNTIME_DIR", place.c_str(), 1);
    setenv("XDG_DATA_HOME", place.c_str(), 1);
    setenv("KVQ_LOG", "off", 1); // for the programs that a test starts; this one has its stream already
    const QCoreApplication application(argc, argv);
    return RUN_ALL_TESTS();
}
