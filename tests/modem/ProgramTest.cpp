// The program: its port, its control socket, its prompt from a pipe.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <QProcess>
#include <QTemporaryDir>
#include <QTemporaryFile>

#include <arpa/inet.h>
#include <netinet/in.h>
#include <sys/socket.h>
#include <sys/time.h>
#include <sys/un.h>
#include <unistd.h>

#include <algorithm>
#include <array>
#include <cerrno>
#include <fstream>
#include <vector>

namespace {

constexpr int deadline = 10000; // milliseconds

class ProgramTest : public testing::Test {
protected:
    void start(const QStringList &arguments)
    {
        m_program.start(QStringLiteral(KVQ_MODEM_PROGRAM),
                        QStringList{QStringLiteral("--port"), QStringLiteral("0")} + arguments);
        while (!m_program.canReadLine())
            ASSERT_TRUE(m_program.waitForReadyRead(deadline));
        m_port = m_program.readLine().simplified().split(' ').value(1).toUShort();
    }

    ~ProgramTest() override
    {
        m_program.terminate();
        m_program.waitForFinished(deadline);
    }

    /** Runs the program once and gives what it says, with its exit status. */
    static std::pair<int, QByteArray> once(const QStringList &arguments)
    {
        QProcess program;
        program.setProcessChannelMode(QProcess::MergedChannels);
        program.start(QStringLiteral(KVQ_MODEM_PROGRAM), arguments);
        EXPECT_TRUE(program.waitForFinished(deadline));
        return {program.exitCode(), program.readAll()};
    }

    int connectToPort() const
    {
        const int peer = socket(AF_INET, SOCK_STREAM | SOCK_CLOEXEC, 0);
        sockaddr_in place = {};
        place.sin_family = AF_INET;
        place.sin_port = htons(m_port);
        place.sin_addr.s_addr = htonl(INADDR_LOOPBACK);
        const timeval time = {deadline / 1000, 0};
        setsockopt(peer, SOL_SOCKET, SO_RCVTIMEO, &time, sizeof time);
        EXPECT_EQ(connect(peer, reinterpret_cast<const sockaddr *>(&place), sizeof place), 0);
        return peer;
    }

    /** Sends a line and reads until its result. */
    static std::string ask(int peer, const std::string &line)
    {
        send(peer, line.data(), line.size(), MSG_NOSIGNAL);
        send(peer, "\r", 1, MSG_NOSIGNAL);
        std::string answer;
        std::array<char, 512> buffer = {};
        while (answer.find("OK\r\n") == std::string::npos && answer.find("ERROR") == std::string::npos) {
            const ssize_t received = recv(peer, buffer.data(), buffer.size(), 0);
            if (received <= 0)
                return answer + "<gone>";
            answer.append(buffer.data(), static_cast<std::size_t>(received));
        }
        return answer;
    }

    /** Whether the other side has ended the connection, within the deadline of its socket. */
    static bool hasEnded(int peer)
    {
        std::array<char, 4096> buffer = {};
        ssize_t received = 0;
        while ((received = recv(peer, buffer.data(), buffer.size(), 0)) > 0)
            continue;
        return received == 0 || errno == ECONNRESET;
    }

    /** Waits until the program waits for something; a program that runs and runs never does. */
    bool fallsAsleep() const
    {
        const std::string path = "/proc/" + std::to_string(m_program.processId()) + "/stat";
        for (int look = 0; look < 3000; ++look) {
            std::string text;
            std::getline(std::ifstream(path), text);
            if (text.substr(text.rfind(')') + 2, 1) == "S")
                return true;
            usleep(10'000);
        }
        return false;
    }

    QProcess m_program;
    unsigned short m_port = 0;
};

} // namespace

TEST_F(ProgramTest, TheStateOutlivesItsConnections)
{
    start({});
    int peer = connectToPort();
    EXPECT_THAT(ask(peer, "AT+CFUN=1"), testing::StartsWith("AT+CFUN=1\r\r\nOK"));
    EXPECT_THAT(ask(peer, "ATE0;+CCFC=1,3,\"555\",129,1"), testing::HasSubstr("OK"));
    EXPECT_THAT(ask(peer, "AT+PTTY=1"), testing::StrEq("\r\nOK\r\n"));
    close(peer);
    peer = connectToPort();
    EXPECT_THAT(ask(peer, "ATE0;+PTTY?"), testing::HasSubstr("+PTTY: 1"));
    EXPECT_THAT(ask(peer, "AT+CCFC=1,2,,,1"), testing::HasSubstr("+CCFC: 1,1,\"555\",129"));
    EXPECT_THAT(ask(peer, std::string(50000, 'A')), testing::HasSubstr("ERROR"));
    EXPECT_THAT(ask(peer, "AT"), testing::HasSubstr("OK"));
    close(peer);
}

TEST_F(ProgramTest, ItIsToldThroughItsControlSocket)
{
    const QTemporaryDir folder;
    const QString control = folder.filePath(QStringLiteral("control"));
    start({QStringLiteral("--no-prompt"), QStringLiteral("--control"), control});
    const auto tell = [&control](const char *words) {
        return once(QStringList{QStringLiteral("--tell"), control}
                    + QString::fromLatin1(words).split(QLatin1Char(' ')));
    };
    EXPECT_EQ(tell("AT+CFUN=1"), std::make_pair(0, QByteArray("OK\n")));
    EXPECT_EQ(tell(".ring 5551234"), std::make_pair(0, QByteArray("call 1 rings\n")));
    EXPECT_EQ(tell(".state").second.contains("call 1: incoming, from 5551234"), true);
    EXPECT_EQ(tell(".hangup 7"), std::make_pair(2, QByteArray("error: there is no such call\n")));
    EXPECT_EQ(tell(".nonsense").first, 2);
    EXPECT_EQ(tell("quit").first, 0);
    EXPECT_TRUE(m_program.waitForFinished(deadline));
    EXPECT_EQ(m_program.exitCode(), 0);
    EXPECT_EQ(tell(".state").first, 1);
}

TEST_F(ProgramTest, ASilentModemDoesLaterWhatItIsTold)
{
    const QTemporaryDir folder;
    const QString control = folder.filePath(QStringLiteral("control"));
    start({QStringLiteral("--no-prompt"), QStringLiteral("--control"), control});
    const auto tell = [&control](const char *words) {
        return once(QStringList{QStringLiteral("--tell"), control}
                    + QString::fromLatin1(words).split(QLatin1Char(' ')))
            .second;
    };
    const int peer = connectToPort();
    EXPECT_THAT(ask(peer, "ATE0"), testing::HasSubstr("OK"));
    EXPECT_EQ(tell(".silence on"), "");
    EXPECT_EQ(send(peer, "AT+CFUN=1\r", 10, MSG_NOSIGNAL), 10);
    EXPECT_TRUE(tell(".state").contains("power: off"));
    EXPECT_TRUE(tell(".state").contains("the modem is silent"));
    std::array<char, 16> buffer = {};
    EXPECT_EQ(recv(peer, buffer.data(), buffer.size(), MSG_DONTWAIT), -1);
    EXPECT_EQ(tell(".silence off"), "");
    EXPECT_THAT(ask(peer, "AT"), testing::StartsWith("\r\nOK\r\n"));
    EXPECT_TRUE(tell(".state").contains("power: on"));
    EXPECT_TRUE(tell(".card in 2").contains("there is a card in already"));
    EXPECT_TRUE(tell(".card out 2").contains("expected the number"));
    EXPECT_EQ(tell(".card out"), "");
    EXPECT_EQ(tell(".card in 2"), "");
    EXPECT_TRUE(tell(".state").contains("card 2: ready"));
    close(peer);
}

TEST_F(ProgramTest, ScriptsAndPlainLinesReportTheirMistakes)
{
    QTemporaryFile script;
    ASSERT_TRUE(script.open());
    script.write("# a comment\n.delay AT+CSQ 5\n.refuse\n.state\n");
    script.flush();
    const auto [status, said] =
        once({QStringLiteral("--port"), QStringLiteral("0"), QStringLiteral("--script"), script.fileName()});
    EXPECT_EQ(status, 2);
    EXPECT_TRUE(said.contains("line 3: error: usage: .refuse COMMAND [ERROR [TIMES]]")) << said.constData();

    start({QStringLiteral("--log")});
    m_program.write(".help\nAT+CPIN=\"1234\"\n.bogus\nquit\n");
    EXPECT_TRUE(m_program.waitForFinished(deadline));
    const QByteArray output = m_program.readAll();
    EXPECT_TRUE(output.contains(".ring NUMBER [withheld]"));
    EXPECT_TRUE(output.contains("< AT+CPIN=\"****\"")) << output.constData();
    EXPECT_FALSE(output.contains("1234"));
    EXPECT_EQ(m_program.exitCode(), 2);

    for (const char *const wrong : {"--bogus", "--port=70000", "--port=x", "stray"})
        EXPECT_EQ(once({QString::fromLatin1(wrong)}).first, 2) << wrong;
    EXPECT_TRUE(once({QStringLiteral("--version")}).second.startsWith("kvq-modem "));
}

/** Any page could have a browser on this machine send such, with commands in what follows. */
TEST_F(ProgramTest, AWebRequestEndsTheConnection)
{
    start({});
    const std::string dials = "\r\nHost: localhost\r\n\r\nAT+CFUN=1;+CCFC=1,3,\"666\",129,1\r";
    for (const std::string &request :
         {"POST / HTTP/1.1" + dials, "GET /?AT+CFUN=1" + dials, "ATZ / HTTP/1.1" + dials,
          "\x16\x03\x01" + dials, std::string(9000, 'A') + dials}) {
        // Also where it comes in pieces.
        for (const std::size_t piece : {request.size(), std::size_t(3)}) {
            const int peer = connectToPort();
            for (std::size_t at = 0; at < request.size(); at += piece) {
                if (send(peer, &request[at], std::min(piece, request.size() - at), MSG_NOSIGNAL) < 0)
                    break;
            }
            EXPECT_TRUE(hasEnded(peer)) << request.substr(0, 40);
            close(peer);
        }
    }
    const int peer = connectToPort();
    EXPECT_THAT(ask(peer, "ATE0;+CFUN=1;+CCFC=1,2,,,1"), testing::Not(testing::HasSubstr("666")));
    close(peer);
}

TEST_F(ProgramTest, IdlePeersLockNobodyOut)
{
    const QTemporaryDir folder;
    const QString control = folder.filePath(QStringLiteral("control"));
    start({QStringLiteral("--no-prompt"), QStringLiteral("--control"), control});
    const int first = connectToPort();
    EXPECT_THAT(ask(first, "AT"), testing::HasSubstr("OK"));
    std::vector<int> idle(100);
    for (int &peer : idle)
        peer = connectToPort();
    EXPECT_TRUE(hasEnded(idle.front()));
    EXPECT_THAT(ask(idle.back(), "AT"), testing::HasSubstr("OK"));
    EXPECT_THAT(ask(first, "AT"), testing::HasSubstr("OK")) << "who has spoken stays";
    EXPECT_EQ(once({QStringLiteral("--tell"), control, QStringLiteral("AT")}),
              std::make_pair(0, QByteArray("OK\n")));
    // With the port full of such that have spoken, the owner is still heard.
    for (int &peer : idle) {
        close(peer);
        peer = connectToPort();
        ask(peer, "AT");
    }
    EXPECT_EQ(once({QStringLiteral("--tell"), control, QStringLiteral("quit")}).first, 0);
    for (const int peer : idle)
        close(peer);
    close(first);
}

/** One that has said all it will and does not read what it is sent is waited for asleep. */
TEST_F(ProgramTest, APeerThatDoesNotReadKeepsNobodyBusy)
{
    const QTemporaryDir folder;
    const QString control = folder.filePath(QStringLiteral("control"));
    start({QStringLiteral("--no-prompt"), QStringLiteral("--control"), control});
    const int peer = socket(AF_UNIX, SOCK_STREAM | SOCK_CLOEXEC, 0);
    sockaddr_un place = {};
    place.sun_family = AF_UNIX;
    control.toLatin1().toStdString().copy(place.sun_path, sizeof place.sun_path - 1);
    ASSERT_EQ(connect(peer, reinterpret_cast<const sockaddr *>(&place), sizeof place), 0);
    constexpr int times = 250; // more than the socket takes
    std::string lines;
    for (int line = 0; line < times; ++line)
        lines += ".help\n";
    ASSERT_EQ(send(peer, lines.data(), lines.size(), MSG_NOSIGNAL), static_cast<ssize_t>(lines.size()));
    ASSERT_EQ(shutdown(peer, SHUT_WR), 0);
    // The modem has seen all that when it has answered somebody who came later.
    EXPECT_EQ(once({QStringLiteral("--tell"), control, QStringLiteral("AT")}).first, 0);
    EXPECT_TRUE(fallsAsleep());
    std::string answers;
    std::array<char, 4096> buffer = {};
    for (ssize_t received = 0; (received = recv(peer, buffer.data(), buffer.size(), 0)) > 0;)
        answers.append(buffer.data(), static_cast<std::size_t>(received));
    close(peer);
    EXPECT_GT(answers.size(), 300'000U);
    EXPECT_EQ(answers.substr(answers.size() - 4), "\nok\n") << "what was asked is answered";
}
