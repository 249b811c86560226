// kvq-port-conformance: runs the checks against whatever platform library the engine finds. kvq-port-check starts it.
#include "Conformance.h"

#include "../console/Values.h"
#include "PHONE_ENG_WrapTapi.h"

#include <QCoreApplication>
#include <QFile>
#include <QFileInfo>
#include <QRegularExpression>

#include <algorithm>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <map>

#include <dlfcn.h>
#include <link.h>
#include <sys/wait.h>
#include <unistd.h>

namespace Conformance {

namespace {

constexpr unsigned int longestCheck = 30; // seconds

/** The engine's log of a check. */
std::FILE *logStream = nullptr;
char *logText = nullptr;
std::size_t logSize = 0;

/** The log is ours: it would stand between the lines of the table, and it tells codes. */
void takeLog()
{
    if (auto *const stream = static_cast<std::FILE **>(dlsym(RTLD_DEFAULT, "libaplog_to_module_ptr")))
        *stream = logStream = open_memstream(&logText, &logSize);
}

/** The last code that network selection logged; a failure when it logged none. */
_TAPI_RESULT_E loggedCode()
{
    static const QRegularExpression failure(QStringLiteral("(?:[Rr]et|Return value) = (-?\\d+)"));
    auto code = TAPI_RESULT_FAIL;
    if (!logStream || std::fflush(logStream) != 0)
        return code;
    auto found = failure.globalMatch(QString::fromLatin1(logText, static_cast<int>(logSize)));
    while (found.hasNext())
        code = static_cast<_TAPI_RESULT_E>(found.next().captured(1).toInt());
    return code;
}

Outcome outcomeOf(const Check &check)
{
    try {
        check.run();
    } catch (const Outcome &outcome) {
        return outcome;
    }
    return {Outcome::Passed, {}};
}

/** Runs a check in a process of its own: a library that crashes or hangs fails one check. */
Outcome runApart(const Check &check)
{
    std::array<int, 2> ends = {};
    if (pipe(ends.data()) != 0)
        return {Outcome::NotRun, std::strerror(errno)};
    std::fflush(stdout);
    const pid_t child = fork();
    if (child == 0) {
        close(ends[0]);
        alarm(longestCheck);
        int argumentCount = 0;
        const QCoreApplication application(argumentCount, nullptr);
        takeLog();
        const Outcome outcome = outcomeOf(check);
        const std::string report = static_cast<char>(outcome.kind) + outcome.reason;
        const bool reported = write(ends[1], report.data(), report.size()) >= 0;
        std::fflush(stdout);
        _exit(reported ? 0 : 1);
    }
    close(ends[1]);
    std::string report;
    std::array<char, 512> buffer = {};
    for (ssize_t bytes = 0; (bytes = read(ends[0], buffer.data(), buffer.size())) > 0;)
        report.append(buffer.data(), static_cast<std::size_t>(bytes));
    close(ends[0]);
    int status = 0;
    if (child < 0 || waitpid(child, &status, 0) != child)
        return {Outcome::NotRun, std::strerror(errno)};
    if (!report.empty())
        return {static_cast<Outcome::Kind>(report.front()), report.substr(1)};
    if (WIFSIGNALED(status) && WTERMSIG(status) == SIGALRM)
        return {Outcome::Failed, "no answer within " + std::to_string(longestCheck) + " seconds"};
    if (WIFSIGNALED(status))
        return {Outcome::Failed, std::string("ended by a signal: ") + strsignal(WTERMSIG(status))};
    return {Outcome::Failed, "ended the program with status " + std::to_string(WEXITSTATUS(status))};
}

/** Whether the loader has taken that file for the platform library. */
bool isInPlace(const char *library)
{
    struct Search {
        QString wanted;
        bool found = false;
    } search{QFileInfo(QFile::decodeName(library)).canonicalFilePath()};
    dl_iterate_phdr(
        [](dl_phdr_info *loaded, std::size_t, void *data) {
            auto *const sought = static_cast<Search *>(data);
            const QFileInfo file(QFile::decodeName(loaded->dlpi_name));
            sought->found = sought->found || file.canonicalFilePath() == sought->wanted;
            return 0;
        },
        &search);
    if (!search.found)
        std::fprintf(stderr, "error: the loader takes another library in place of %s\n", library);
    return search.found;
}

int runAll(const std::vector<Check> &checks)
{
    std::map<Outcome::Kind, int> count;
    for (const Check &check : checks) {
        const Outcome outcome = runApart(check);
        ++count[outcome.kind];
        static const std::map<Outcome::Kind, const char *> words = {{Outcome::Passed, "pass"},
                                                                    {Outcome::Failed, "FAIL"},
                                                                    {Outcome::NotSupported, "not supported"},
                                                                    {Outcome::NotRun, "not run"}};
        const auto word = words.find(outcome.kind);
        std::printf("%-12s %-52s %s%s%s\n", check.part.c_str(), check.name.c_str(),
                    word == words.end() ? "FAIL" : word->second, outcome.reason.empty() ? "" : ": ",
                    outcome.reason.c_str());
    }
    std::printf("\n%d passed, %d failed, %d not supported, %d not run\n", count[Outcome::Passed],
                count[Outcome::Failed], count[Outcome::NotSupported], count[Outcome::NotRun]);
    return count[Outcome::Failed] == 0 ? 0 : 1;
}

} // namespace

void expect(bool condition, const std::string &otherwise)
{
    if (!condition)
        throw Outcome{Outcome::Failed, otherwise};
}

void answered(_TAPI_RESULT_E result)
{
    if (result == TAPI_RESULT_NOT_SUPPORTED)
        throw Outcome{Outcome::NotSupported, {}};
    expect(result == TAPI_RESULT_SUCC,
           "answers " + Console::Value<_TAPI_RESULT_E>::show(result).toStdString());
}

void answered(bool success)
{
    if (success)
        return;
    const _TAPI_RESULT_E code = loggedCode();
    expect(code != TAPI_RESULT_SUCC, "answers false");
    answered(code);
}

void leave(const std::string &reason)
{
    throw Outcome{Outcome::NotRun, reason};
}

void openSession()
{
    answered(PHONE_ENG_TAPI_initiation());
}

} // namespace Conformance

int main(int argc, char **argv)
{
    using Conformance::Check;
    // A second process of the check that stored preferences are seen by the next one.
    if (argc == 3 && std::strcmp(argv[1], "--is-prepend") == 0) {
        Conformance::takeLog();
        const bool expected = std::strcmp(argv[2], "true") == 0;
        return Conformance::setup().isPrepend() == expected ? 0 : 1;
    }
    if (argc < 2 || !Conformance::isInPlace(argv[1]))
        return 2;
    std::vector<Check> checks = Conformance::boundaryChecks();
    const auto add = [&checks](std::vector<Check> more) {
        std::move(more.begin(), more.end(), std::back_inserter(checks));
    };
    add(Conformance::readChecks());
    // What the options mean says kvq-port-check, which has checked them.
    for (int argument = 2; argument < argc; ++argument) {
        const QString option = QString::fromLocal8Bit(argv[argument]);
        if (option == QLatin1String("--write"))
            add(Conformance::writeChecks());
        else if (option.startsWith(QLatin1String("--calls=")))
            add(Conformance::callChecks(option.section(QLatin1Char('='), 1)));
    }
    return Conformance::runAll(checks);
}
