// The prompt, on the line-editing library.
#include "Prompt.h"

#include "History.h"

#include <QDir>
#include <QStandardPaths>

#include <cerrno>
#include <csignal>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <cwchar>
#include <memory>

#include <editline/readline.h>
#include <poll.h>
#include <unistd.h>

namespace Console {

namespace {

/** The library's completion callback takes no context of its own. */
const Session *completingSession = nullptr;
QStringList candidates;

char *nextCandidate(const char *, int state)
{
    if (state == 0)
        candidates =
            completingSession->completions(QString::fromUtf8(rl_line_buffer, static_cast<int>(rl_point)));
    return candidates.isEmpty() ? nullptr : strdup(candidates.takeFirst().toUtf8().constData());
}

char **complete(const char *text, int, int)
{
    rl_attempted_completion_over = 1;
    return rl_completion_matches(text, nextCandidate);
}

QString historyFile()
{
    const QString directory =
        QStandardPaths::writableLocation(QStandardPaths::GenericDataLocation) + QStringLiteral("/kvq-phone");
    QDir().mkpath(directory);
    return directory + QStringLiteral("/history");
}

volatile std::sig_atomic_t interrupted = 0;

/** The signals as they are while the console waits for a key. */
sigset_t whileWaiting = {};

/**
 * While a line is typed, an interrupt drops the line and nothing else. It is let in only where a key is waited for, so
 * it cannot cut off what is just being shown.
 */
class InterruptGuard {
public:
    InterruptGuard()
    {
        interrupted = 0;
        struct sigaction drop = {};
        drop.sa_handler = [](int) { interrupted = 1; };
        sigaction(SIGINT, &drop, &m_before);
        sigset_t interrupt;
        sigemptyset(&interrupt);
        sigaddset(&interrupt, SIGINT);
        pthread_sigmask(SIG_BLOCK, &interrupt, &whileWaiting);
    }
    ~InterruptGuard()
    {
        pthread_sigmask(SIG_SETMASK, &whileWaiting, nullptr);
        sigaction(SIGINT, &m_before, nullptr);
    }
    InterruptGuard(const InterruptGuard &) = delete;
    InterruptGuard &operator=(const InterruptGuard &) = delete;

private:
    struct sigaction m_before = {};
};

/**
 * While an operation runs, the first interrupt only says so: what was asked of the phone cannot be taken back, and to
 * leave would lose the simulated one. The second leaves.
 */
class ImpatienceGuard {
public:
    ImpatienceGuard()
    {
        struct sigaction tell = {};
        tell.sa_handler = [](int) {
            static constexpr char text[] = "\nThe phone has not answered yet; a second interrupt leaves.\n";
            if (::write(STDERR_FILENO, text, sizeof text - 1) < 0)
                return; // nobody is there to be told
        };
        tell.sa_flags = SA_RESTART | static_cast<int>(SA_RESETHAND);
        sigaction(SIGINT, &tell, &m_before);
    }
    ~ImpatienceGuard() { sigaction(SIGINT, &m_before, nullptr); }
    ImpatienceGuard(const ImpatienceGuard &) = delete;
    ImpatienceGuard &operator=(const ImpatienceGuard &) = delete;

private:
    struct sigaction m_before = {};
};

/** Reads a character for the library, which would wait on through an interrupt. */
int readCharacter(std::FILE *input)
{
    std::mbstate_t state = {};
    for (;;) {
        pollfd key = {fileno(input), POLLIN, 0};
        const int ready = interrupted == 0 ? ppoll(&key, 1, nullptr, &whileWaiting) : 0;
        if (interrupted != 0)
            return EOF;
        if (ready < 0 && errno == EINTR)
            continue;
        char byte = 0;
        if (ready < 0 || ::read(fileno(input), &byte, 1) != 1)
            return EOF;
        wchar_t character = 0;
        const std::size_t used = std::mbrtowc(&character, &byte, 1, &state);
        if (used == static_cast<std::size_t>(-2))
            continue; // the character goes on
        return used == static_cast<std::size_t>(-1) ? '?' : static_cast<int>(character);
    }
}

/** The lines that a program or a file sends. */
bool runInput(Session &session)
{
    QTextStream input(stdin);
    bool mistaken = false;
    QString line;
    for (int number = 1; !session.outputFailed() && input.readLineInto(&line); ++number) {
        session.setPlace(QStringLiteral("standard input:%1: ").arg(number));
        const Status status = session.runLine(line);
        mistaken = mistaken || status == Status::Mistake;
        if (status == Status::Quit)
            break;
    }
    return !mistaken;
}

} // namespace

bool runPrompt(Session &session)
{
    if (isatty(STDIN_FILENO) != 1)
        return runInput(session);
    completingSession = &session;
    rl_readline_name = "kvq-console";
    rl_attempted_completion_function = complete;
    rl_basic_word_break_characters = " ";
    rl_getc_function = readCharacter;
    using_history();
    History history(historyFile(), [&session](const QString &line) { return session.mayBeKept(line); });
    for (const QString &line : history.lines())
        add_history(line.toUtf8().constData());
    Status status = Status::Done;
    while (status != Status::Quit && !session.outputFailed()) {
        const ImpatienceGuard whileItRuns;
        std::unique_ptr<char, decltype(&std::free)> line(nullptr, &std::free);
        {
            const InterruptGuard guard;
            line.reset(readline("> "));
        }
        if (interrupted != 0) {
            std::fputs("\n", stdout);
            continue;
        }
        if (!line)
            break;
        const QString text = QString::fromUtf8(line.get()).trimmed();
        // A PIN typed here belongs to the card: such a line cannot even be called up again.
        if (!text.isEmpty() && !Session::carriesPin(text))
            add_history(line.get());
        history.add(text);
        status = session.runLine(text);
    }
    return true;
}

} // namespace Console
