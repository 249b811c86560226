// kvq-port-check: tells how far a platform library is.
#include "Declared.h"
#include "Skeleton.h"

#include <QCommandLineParser>
#include <QCoreApplication>
#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QProcess>
#include <QTemporaryDir>

#include <cstdio>
#include <optional>

namespace {

constexpr int failedStatus = 1;
constexpr int mistakeStatus = 2;

int mistake(const QString &text)
{
    std::fprintf(stderr, "error: %s\n", qPrintable(text));
    return mistakeStatus;
}

/** The program that runs the checks stands beside this one, or where it was installed to. */
QString conformanceProgram()
{
    const QString name = QStringLiteral("kvq-port-conformance");
    const QString here = QCoreApplication::applicationDirPath();
    for (const QString &folder : {here, here + QStringLiteral("/../" KVQ_LIBEXEC "/kvq-port-check")}) {
        const QString program = folder + QLatin1Char('/') + name;
        if (QFileInfo(program).isExecutable())
            return program;
    }
    return {};
}

/** Shows what the library defines. False when it cannot do as a platform library. */
bool showDeclared(const PortCheck::Findings &findings)
{
    for (const std::string &name : findings.missing)
        std::printf("missing: %s\n", name.c_str());
    for (const std::string &text : findings.mistakes)
        std::printf("FAIL: %s\n", text.c_str());
    std::printf("%d of %d declared names are there\n\n",
                findings.declared - static_cast<int>(findings.missing.size()), findings.declared);
    std::fflush(stdout);
    return findings.missing.empty() && findings.mistakes.empty();
}

/** Runs the checks with the library in place of the platform's. Returns their exit status. */
int runChecks(const QString &library, const QStringList &arguments)
{
    // The engine looks for a name, so the library gets that name in a folder that is searched first. Under the name
    // already, it is used where it stands, with what lies beside it.
    const QString name = QStringLiteral("libkvqplatform.so.1");
    std::optional<QTemporaryDir> place;
    QString folder = QFileInfo(library).absolutePath();
    if (QFileInfo(library).fileName() != name) {
        place.emplace();
        folder = place->path();
        if (!place->isValid() || !QFile::link(library, place->filePath(name)))
            return mistake(QStringLiteral("cannot make a temporary folder: %1").arg(place->errorString()));
    }
    QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
    const QString searched = environment.value(QStringLiteral("LD_LIBRARY_PATH"));
    environment.insert(QStringLiteral("LD_LIBRARY_PATH"),
                       searched.isEmpty() ? folder : folder + QLatin1Char(':') + searched);
    const QString program = conformanceProgram();
    if (program.isEmpty())
        return mistake(QStringLiteral("kvq-port-conformance is not installed"));
    QProcess checks;
    checks.setProcessEnvironment(environment);
    checks.setProcessChannelMode(QProcess::ForwardedChannels);
    checks.start(program, arguments);
    if (!checks.waitForFinished(-1) || checks.exitStatus() != QProcess::NormalExit)
        return mistake(QStringLiteral("the checks did not run to their end: %1").arg(checks.errorString()));
    return checks.exitCode();
}

} // namespace

int main(int argc, char **argv)
{
    const QCoreApplication application(argc, argv);
    QCoreApplication::setApplicationName(QStringLiteral("kvq-port-check"));
    QCoreApplication::setApplicationVersion(QStringLiteral(KVQ_VERSION));

    const QCommandLineOption skeleton(
        QStringLiteral("skeleton"),
        QStringLiteral("Writes the skeleton of a platform library into <folder>, which is new or empty."),
        QStringLiteral("folder"));
    const QCommandLineOption write(QStringLiteral("write"),
                                   QStringLiteral("Also changes settings, and puts them back."));
    const QCommandLineOption calls(QStringLiteral("calls"),
                                   QStringLiteral("Also makes calls, to the phone's own number."));
    const QCommandLineOption number(QStringLiteral("number"), QStringLiteral("Makes them to <number>."),
                                    QStringLiteral("number"));
    QCommandLineParser parser;
    parser.setApplicationDescription(QStringLiteral(
        "Names what a platform library for the call setup engine lacks, and checks what it does.\n"
        "Nothing of the phone is changed unless an option says so."));
    parser.addHelpOption();
    parser.addVersionOption();
    parser.addOptions({write, calls, number, skeleton});
    parser.addPositionalArgument(
        QStringLiteral("library"),
        QStringLiteral("The platform library, libkvqplatform.so.1 by name or any other."));
    if (!parser.parse(application.arguments()))
        return mistake(parser.errorText() + QStringLiteral("; --help shows the options"));
    if (parser.isSet(QStringLiteral("help")))
        parser.showHelp();
    if (parser.isSet(QStringLiteral("version")))
        parser.showVersion();

    const QStringList libraries = parser.positionalArguments();
    if (parser.isSet(skeleton) && libraries.isEmpty()) {
        const QString error = PortCheck::writeSkeleton(parser.value(skeleton));
        return error.isEmpty() ? 0 : mistake(error);
    }
    if (libraries.size() != 1 || parser.isSet(skeleton))
        return mistake(QStringLiteral("expected one library, or --skeleton and a folder; --help tells more"));
    if (parser.isSet(number) && !parser.isSet(calls))
        return mistake(QStringLiteral("--number needs --calls"));
    if (!QFileInfo(libraries.first()).isFile())
        return mistake(QStringLiteral("there is no file %1").arg(libraries.first()));

    const QString library = QFileInfo(libraries.first()).absoluteFilePath();
    std::printf("%s\n", qPrintable(library));
    const PortCheck::Findings findings = PortCheck::examine(QFile::encodeName(library).constData());
    if (!findings.error.empty()) {
        std::printf("FAIL: the library cannot be loaded: %s\n", findings.error.c_str());
        return failedStatus;
    }
    const bool complete = showDeclared(findings);
    QStringList arguments = {library};
    if (parser.isSet(write))
        arguments += QStringLiteral("--write");
    if (parser.isSet(calls))
        arguments += QStringLiteral("--calls=") + parser.value(number);
    const int status = runChecks(library, arguments);
    if (!complete)
        std::printf("and in the library itself, see above: %zu missing, %zu failed\n",
                    findings.missing.size(), findings.mistakes.size());
    return status == 0 && !complete ? failedStatus : status;
}
