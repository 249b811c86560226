// The prompt on a terminal: interrupts, completion, and what the history may keep.
#include "Program.h"

#include <QFile>

#include <gmock/gmock.h>

#include <array>
#include <csignal>
#include <fstream>
#include <string>
#include <thread>

#include <poll.h>
#include <pty.h>
#include <sys/stat.h>
#include <sys/wait.h>
#include <unistd.h>

namespace {

using testing::HasSubstr;

/** A console on a terminal of its own. */
class PromptTest : public testing::Test {
protected:
    PromptTest() { start(); }
    void start()
    {
        if (m_terminal >= 0)
            close(m_terminal);
        const QProcessEnvironment environment = Program::environmentIn(m_directory.path());
        m_console = forkpty(&m_terminal, nullptr, nullptr, nullptr);
        if (m_console == 0) {
            for (const QString &name : environment.keys())
                qputenv(name.toLocal8Bit().constData(), environment.value(name).toLocal8Bit());
            setenv("TERM", "xterm", 1);
            execl(KVQ_CONSOLE, KVQ_CONSOLE, "-q", nullptr);
            _exit(1);
        }
        waitFor("> ");
    }
    ~PromptTest() override
    {
        close(m_terminal);
        if (m_console > 0) {
            kill(m_console, SIGKILL);
            waitpid(m_console, nullptr, 0);
        }
    }

    /** Types something and waits until the console has shown what is expected and, after a line, prompts again. */
    void type(const std::string &keys, const std::string &expected)
    {
        type(keys, expected, keys.back() == '\r' || keys.back() == '\003');
    }
    void type(const std::string &keys, const std::string &expected, bool untilPrompt)
    {
        ASSERT_EQ(write(m_terminal, keys.data(), keys.size()), static_cast<ssize_t>(keys.size()));
        waitFor(expected, untilPrompt);
    }

    /** Types the last line and gives the exit status. */
    int leave()
    {
        const std::string line = "quit\r";
        EXPECT_EQ(write(m_terminal, line.data(), line.size()), static_cast<ssize_t>(line.size()));
        int status = 0;
        EXPECT_EQ(waitpid(m_console, &status, 0), m_console);
        m_console = -1;
        return WIFEXITED(status) ? WEXITSTATUS(status) : -1;
    }

    std::string history() const
    {
        QFile file(historyFile());
        EXPECT_TRUE(file.open(QIODevice::ReadOnly));
        return file.readAll().toStdString();
    }
    /** Waits until an operation runs, for which interrupts have another meaning than for a line. */
    void waitForOperation() const
    {
        constexpr unsigned long long interrupt = 1ULL << (SIGINT - 1);
        for (bool runs = false; !runs; std::this_thread::yield()) {
            const auto signalsIn = [this](const char *name) {
                std::ifstream status("/proc/" + std::to_string(m_console) + "/status");
                std::string word;
                while (status >> word && word != name) { }
                unsigned long long signals = 0;
                status >> std::hex >> signals;
                return signals;
            };
            runs = (signalsIn("SigCgt:") & ~signalsIn("SigBlk:") & interrupt) != 0;
        }
    }
    QString historyFile() const { return m_directory.filePath(QStringLiteral("kvq-phone/history")); }

    void waitFor(const std::string &expected, bool untilPrompt = true)
    {
        const auto isThere = [&](const std::string &shown) {
            return shown.find(expected) != std::string::npos && (!untilPrompt || shown.ends_with("> "));
        };
        constexpr int patience = 60'000; // milliseconds
        std::string shown;
        pollfd terminal = {m_terminal, POLLIN, 0};
        while (!isThere(shown) && poll(&terminal, 1, patience) == 1) {
            std::array<char, 4096> buffer = {};
            const ssize_t bytes = read(m_terminal, buffer.data(), buffer.size());
            if (bytes <= 0)
                break;
            shown.append(buffer.data(), static_cast<std::size_t>(bytes));
        }
        EXPECT_THAT(shown, HasSubstr(expected));
    }

private:
    QTemporaryDir m_directory;
    int m_terminal = -1;
    pid_t m_console = -1;
};

using PromptOnTheSimulatedPhoneTest = PromptTest;

TEST_F(PromptTest, AnInterruptDropsTheLineAndKeepsPhoneAndHistory)
{
    type("setLineNo 2\r", "result = ");
    type("setLineNo 1", "setLineNo 1");
    type("\003", "> ");
    type("\003", "> ");
    type("isReminder\r", "result = ");
    EXPECT_EQ(history(), "setLineNo 2\nisReminder\n");
    EXPECT_EQ(leave(), 0);
}

TEST_F(PromptOnTheSimulatedPhoneTest, OnlyASecondInterruptLeavesAnOperationThatWaits)
{
    const std::string told = "a second interrupt leaves";
    type(".delay TAPI_CS_* 3000\r", "> ");
    for (int time = 0; time < 2; ++time) { // each operation has its own first
        type("setLineNo 2\r", "\n", false);
        waitForOperation();
        type("\003", told, false);
        waitFor("result = 0");
    }
    type(".delay TAPI_CS_* 60000\r", "> ");
    type("setLineNo 1\r", "\n", false);
    waitForOperation();
    type("\003", told, false);
    type("\003", "", false);
    EXPECT_EQ(leave(), -1);
}

TEST_F(PromptTest, NamesAndArgumentWordsAreCompleted)
{
    type("getVoiceCallsD\t", "ivert ");
    type("not\t", "-reachable ");
    type("\r", "result = ");
    type(".help setLineN\t\r", "Selects a line");
    type("setRoamAlert of\t\r", "result = ");
    std::string expected = "getVoiceCallsDivert not-reachable\n.help setLineNo\nsetRoamAlert off\n";
    if (Program::onSimulatedPhone()) {
        type(".fail TAPI_CS_SelectL\t5\r", "> ");
        expected += ".fail TAPI_CS_SelectLine 5\n";
    }
    EXPECT_EQ(history(), expected);
}

/** A line is kept only when it is known to carry no PIN; whatever was mistyped may carry one. */
TEST_F(PromptTest, NoLineThatCarriesAPinIsKept)
{
    const std::string result = "result = ";
    const std::string error = "error: ";
    const std::string dial = "PHONE_ENG_TAPI_CALL_VOICECALL_MakeReq 0 ";
    const std::string service = "PHONE_ENG_TAPI_USSD_Make_Req ";
    for (const auto &[line, shown] : {std::pair<std::string, std::string>("setupVerifySimPin 1234", result),
                                      {"  setupVerifySimPin  1234", result},
                                      {"PHONE_ENG_Setup::setupVerifySimPin 1234", result},
                                      {"\"setupVerifySimPin\" \"1234\"", result},
                                      {"setup\"Verify\"SimPin 1234", result},
                                      {"SETUPVERIFYSIMPIN 1234", error},
                                      {"setupVerifySimPinn 1234", error},
                                      {"verify 1234", error},
                                      {"isReminder 1234", error},
                                      {"setFixedDialing on", error},
                                      {"setupVerifySimPin \"1234", error},
                                      {".log on 1234", error},
                                      {dial + "**04*1234*5678*5678#", result},
                                      {dial + "\"**042 * 1234*5678*5678#\"", result},
                                      {dial + "**05*12345678*1234*1234#", result},
                                      {dial + "*052*12345678*1234*1234#", result}, // mistyped
                                      {service + "**04*1234*5678*5678#", result},
                                      {service + "*33*1234*11#", result},
                                      {".nothing 1234", error}})
        type(line + "\r", shown);
    type("# setupVerifySimPin 1234\r", "> ");
    type("unblockingPin 12345678 1234\r", result);
    type(".log off\r", "> ");
    type("isReminder\r", result);
    EXPECT_EQ(leave(), 0);
    EXPECT_EQ(history(), ".log off\nisReminder\nquit\n");
    struct stat status = {};
    ASSERT_EQ(stat(QFile::encodeName(historyFile()).constData(), &status), 0);
    EXPECT_EQ(status.st_mode & 0777, 0600U);
}

TEST_F(PromptTest, AHistoryThatOthersMayReadIsNarrowedAndALinkIsRefused)
{
    EXPECT_EQ(leave(), 0);
    const std::string file = QFile::encodeName(historyFile()).toStdString();
    ASSERT_EQ(chmod(file.c_str(), 0664), 0);
    start();
    type("isReminder\r", "result = ");
    EXPECT_EQ(leave(), 0);
    EXPECT_EQ(history(), "quit\nisReminder\nquit\n");
    struct stat status = {};
    ASSERT_EQ(stat(file.c_str(), &status), 0);
    EXPECT_EQ(status.st_mode & 0777, 0600U);

    const std::string elsewhere = file + "-elsewhere";
    ASSERT_EQ(rename(file.c_str(), elsewhere.c_str()), 0);
    ASSERT_EQ(symlink(elsewhere.c_str(), file.c_str()), 0);
    start();
    EXPECT_EQ(leave(), 0);
    EXPECT_EQ(history(), "quit\nisReminder\nquit\n") << "nothing was written through the link";
}

} // namespace
