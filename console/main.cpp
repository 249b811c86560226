// The console: every operation of the engine by name, on the simulated phone.
#include "Prompt.h"
#include "Session.h"

#include "SimulatedPhoneControl.h"

#include <QCommandLineParser>
#include <QCoreApplication>
#include <QFileInfo>

#include <cstdio>

#include <sys/prctl.h>

namespace {

constexpr int unwrittenStatus = 1;
constexpr int mistakeStatus = 2;

} // namespace

int main(int argc, char **argv)
{
    prctl(PR_SET_DUMPABLE,
          0); // else PINs could end in a dump of the memory, or before other programs of the user
    const QCoreApplication application(argc, argv);
    QCoreApplication::setApplicationName(QStringLiteral("kvq-console"));
    QCoreApplication::setApplicationVersion(QStringLiteral(KVQ_VERSION));

    const QCommandLineOption script(QStringLiteral("script"), QStringLiteral("Runs the lines of <file>."),
                                    QStringLiteral("file"));
    const QCommandLineOption settings(
        QStringLiteral("settings"), QStringLiteral("Keeps the settings in <file>."), QStringLiteral("file"));
    const QCommandLineOption interactive({QStringLiteral("i"), QStringLiteral("interactive")},
                                         QStringLiteral("Opens the prompt after a script or an operation."));
    const QCommandLineOption echo(QStringLiteral("echo"), QStringLiteral("Shows the lines of a script."));
    const QCommandLineOption quiet({QStringLiteral("q"), QStringLiteral("quiet")},
                                   QStringLiteral("Does not show platform calls."));
    const QCommandLineOption log(QStringLiteral("log"), QStringLiteral("Shows the engine's log lines."));
    QCommandLineParser parser;
    parser.setApplicationDescription(
        QStringLiteral("Calls the operations of the call setup engine, by default on a simulated phone.\n"
                       "Without an operation or a script it opens a prompt; .help there tells more."));
    parser.addHelpOption();
    parser.addVersionOption();
    parser.addOptions({script, settings, interactive, echo, quiet, log});
    parser.addPositionalArgument(QStringLiteral("operation"), QStringLiteral("An operation to call."),
                                 QStringLiteral("[operation"));
    parser.addPositionalArgument(QStringLiteral("arguments"), QStringLiteral("Its arguments."),
                                 QStringLiteral("[arguments...]]"));
    parser.setOptionsAfterPositionalArgumentsMode(QCommandLineParser::ParseAsPositionalArguments);
    if (!parser.parse(application.arguments())) {
        QTextStream(stderr) << "error: " << parser.errorText() << "; --help shows the options\n";
        return mistakeStatus;
    }
    if (parser.isSet(QStringLiteral("help")))
        parser.showHelp();
    if (parser.isSet(QStringLiteral("version")))
        parser.showVersion();

    if (parser.isSet(settings)) {
        SimulatedPhoneControl *const phone = findSimulatedPhone();
        if (!phone) {
            QTextStream(stderr)
                << "error: --settings: the simulated phone is not loaded: the platform library is "
                   "another one\n";
            return mistakeStatus;
        }
        phone->setSettingsFile(QFileInfo(parser.value(settings)).absoluteFilePath().toStdString());
    }
    Console::Session session;
    session.setEcho(parser.isSet(echo));
    session.setCallsShown(!parser.isSet(quiet));
    session.setLogShown(parser.isSet(log));

    Console::Status status = Console::Status::Done;
    if (parser.isSet(script))
        status = session.runScript(parser.value(script));
    const QStringList words = parser.positionalArguments();
    if (status == Console::Status::Done && !words.isEmpty())
        status = session.run(words);
    bool mistaken = status == Console::Status::Mistake;
    const bool nothingAsked = words.isEmpty() && !parser.isSet(script);
    if (status == Console::Status::Done && (parser.isSet(interactive) || nothingAsked)) {
        session.setEcho(false);
        mistaken = !Console::runPrompt(session);
    }
    if (session.outputFailed()) {
        std::fputs("error: standard output cannot be written\n", stderr);
        return unwrittenStatus;
    }
    return mistaken ? mistakeStatus : 0;
}
