// The simulated modem: a phone's card, network and calls behind AT commands on a TCP port.
#include "ControlClient.h"
#include "Server.h"
#include "Terminal.h"

#include <QCommandLineParser>
#include <QCoreApplication>
#include <QTextStream>

#include <sys/signalfd.h>

#include <cerrno>
#include <csignal>
#include <cstdio>
#include <cstring>
#include <fstream>

namespace {

using AtModem::Prompt;

constexpr int failureStatus = 1;
constexpr int mistakeStatus = 2;
constexpr unsigned int usualPort = 12345;

int complain(const QString &reason)
{
    QTextStream(stderr) << "error: " << reason << "; --help shows the options\n";
    return mistakeStatus;
}

int complainOfSystem(const QString &what)
{
    QTextStream(stderr) << "error: " << what << ": " << std::strerror(errno) << '\n';
    return failureStatus;
}

/** Interruption and termination end the loop, so that everything is closed in order. */
void stopOnSignals(AtModem::Server &server)
{
    sigset_t signals;
    sigemptyset(&signals);
    sigaddset(&signals, SIGINT);
    sigaddset(&signals, SIGTERM);
    sigaddset(&signals, SIGHUP);
    sigprocmask(SIG_BLOCK, &signals, nullptr);
    const int descriptor = signalfd(-1, &signals, SFD_CLOEXEC);
    server.watch(descriptor, [&server] {
        server.stop();
        return false;
    });
}

/** Runs the lines of a script; stops at the first mistake. */
Prompt::Status runScript(Prompt &prompt, const QString &file)
{
    std::ifstream script(file.toLocal8Bit().constData());
    if (!script) {
        complainOfSystem(file);
        return Prompt::Status::Mistake;
    }
    std::string line;
    for (int number = 1; std::getline(script, line); ++number) {
        const Prompt::Reply reply = prompt.run(line);
        if (reply.status == Prompt::Status::Mistake)
            QTextStream(stderr) << file << ", line " << number << ": " << QString::fromStdString(reply.text);
        else
            std::fputs(reply.text.c_str(), stdout);
        if (reply.status != Prompt::Status::Done)
            return reply.status;
    }
    return Prompt::Status::Done;
}

} // namespace

int main(int argc, char **argv)
{
    const QCoreApplication application(argc, argv);
    QCoreApplication::setApplicationName(QStringLiteral("kvq-modem"));
    QCoreApplication::setApplicationVersion(QStringLiteral(KVQ_VERSION));

    const QCommandLineOption address(QStringLiteral("address"), QStringLiteral("Listens on <address>."),
                                     QStringLiteral("address"), QStringLiteral("127.0.0.1"));
    const QCommandLineOption port({QStringLiteral("p"), QStringLiteral("port")},
                                  QStringLiteral("Listens on TCP <port>; 0 for any."), QStringLiteral("port"),
                                  QString::number(usualPort));
    const QCommandLineOption script(QStringLiteral("script"),
                                    QStringLiteral("Runs the commands of <file> first."),
                                    QStringLiteral("file"));
    const QCommandLineOption control(QStringLiteral("control"),
                                     QStringLiteral("Takes commands on a Unix socket at <path> too."),
                                     QStringLiteral("path"));
    const QCommandLineOption tell(
        QStringLiteral("tell"),
        QStringLiteral("Sends the remaining words to the modem whose control socket is "
                       "<path>; without words it opens its prompt."),
        QStringLiteral("path"));
    const QCommandLineOption noPrompt(QStringLiteral("no-prompt"),
                                      QStringLiteral("Reads no commands from standard input."));
    const QCommandLineOption log(QStringLiteral("log"), QStringLiteral("Shows the AT traffic, PINs masked."));
    QCommandLineParser parser;
    parser.setApplicationDescription(
        QStringLiteral("A modem on a TCP port: AT commands in front of a simulated card, network and calls.\n"
                       "Its prompt makes things happen to the phone; .help there tells more."));
    parser.addHelpOption();
    parser.addVersionOption();
    parser.addOptions({address, port, script, control, tell, noPrompt, log});
    parser.addPositionalArgument(QStringLiteral("words"), QStringLiteral("With --tell: what to tell."),
                                 QStringLiteral("[words...]"));
    if (!parser.parse(application.arguments()))
        return complain(parser.errorText());
    if (parser.isSet(QStringLiteral("help")))
        parser.showHelp();
    if (parser.isSet(QStringLiteral("version")))
        parser.showVersion();
    const QStringList words = parser.positionalArguments();
    if (parser.isSet(tell)) {
        const std::string path = parser.value(tell).toLocal8Bit().toStdString();
        return words.isEmpty() ? AtModem::runRemotePrompt(path)
                               : AtModem::tellModem(path, words.join(QLatin1Char(' ')).toStdString());
    }
    if (!words.isEmpty())
        return complain(QStringLiteral("unexpected argument \"%1\"").arg(words.first()));
    bool isNumber = false;
    const unsigned short portNumber = parser.value(port).toUShort(&isNumber);
    if (!isNumber)
        return complain(QStringLiteral("port cannot be \"%1\": expected a number from 0 to 65535")
                            .arg(parser.value(port)));

    AtModem::Modem modem;
    Prompt prompt(modem);
    AtModem::Server server(modem, prompt);
    stopOnSignals(server);
    if (!server.listenForCommands(parser.value(address).toStdString(), portNumber))
        return complainOfSystem(parser.value(address) + QLatin1Char(':') + parser.value(port));
    if (parser.isSet(control) && !server.listenForControl(parser.value(control).toLocal8Bit().toStdString()))
        return complainOfSystem(parser.value(control));
    prompt.setLogSink([](const std::string &text) {
        std::fputs(text.c_str(), stdout);
        std::fflush(stdout);
    });
    prompt.setLogShown(parser.isSet(log));
    std::printf("port %u\n", static_cast<unsigned int>(server.port()));
    std::fflush(stdout);
    if (parser.isSet(script)) {
        const Prompt::Status status = runScript(prompt, parser.value(script));
        if (status != Prompt::Status::Done)
            return status == Prompt::Status::Quit ? 0 : mistakeStatus;
    }
    if (parser.isSet(noPrompt)) {
        server.run();
        return 0;
    }
    AtModem::Terminal terminal(server, prompt);
    prompt.setLogSink([&terminal](const std::string &text) { terminal.show(text); });
    server.run();
    return terminal.hasMistakes() ? mistakeStatus : 0;
}
