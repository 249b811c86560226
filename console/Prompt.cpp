// The prompt, on the line-editing library.
#include "Prompt.h"

#include <QDir>
#include <QFileInfo>
#include <QStandardPaths>

#include <cstdlib>
#include <cstring>
#include <memory>

#include <editline/readline.h>
#include <unistd.h>

namespace Console {

namespace {

constexpr int historyLength = 1000;

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

QByteArray historyFile()
{
    const QString directory =
        QStandardPaths::writableLocation(QStandardPaths::GenericDataLocation) + QStringLiteral("/kvq-phone");
    QDir().mkpath(directory);
    return (directory + QStringLiteral("/history")).toLocal8Bit();
}

} // namespace

bool runPrompt(Session &session)
{
    completingSession = &session;
    rl_readline_name = "kvq-console";
    rl_attempted_completion_function = complete;
    rl_basic_word_break_characters = " ";
    using_history();
    stifle_history(historyLength);
    const bool interactive = isatty(STDIN_FILENO) == 1;
    const QByteArray history = historyFile();
    if (interactive)
        read_history(history.constData());
    Status status = Status::Done;
    bool mistaken = false;
    while (status != Status::Quit) {
        const std::unique_ptr<char, decltype(&std::free)> line(readline(interactive ? "> " : ""), &std::free);
        if (!line)
            break;
        const QString text = QString::fromUtf8(line.get());
        // A PIN typed here belongs to the card, not to a file.
        if (interactive && !text.isEmpty() && !Session::carriesPin(text))
            add_history(line.get());
        status = session.runLine(text);
        mistaken = mistaken || status == Status::Mistake;
    }
    if (interactive)
        write_history(history.constData());
    return interactive || !mistaken;
}

} // namespace Console
