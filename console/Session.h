// One sitting at the console: it runs lines and shows what happened.
#pragma once

#include "Operation.h"

#include <QObject>
#include <QPointer>
#include <QString>
#include <QStringList>
#include <QTextStream>

#include <cstdio>
#include <functional>
#include <memory>
#include <vector>

namespace Console {

/** How a line ended. */
enum class Status { Done, Mistake, Quit };

class Session {
public:
    Session();
    ~Session();

    Session(const Session &) = delete;
    Session &operator=(const Session &) = delete;

    /** Runs one line: an operation, a command that begins with a dot, a comment or nothing. */
    Status runLine(const QString &line);
    Status run(QStringList words);
    /** Runs a file line by line; stops at the first mistake. */
    Status runScript(const QString &path);

    /** Shows each line of a script before it runs. */
    void setEcho(bool echo) { m_echo = echo; }
    void setCallsShown(bool shown) { m_callsShown = shown; }
    void setLogShown(bool shown);

    /** Said before each mistake: where the lines come from. */
    void setPlace(const QString &place) { m_place = place; }

    /** Whether a line may be kept: one that would run, and that carries no PIN or PUK. */
    bool mayBeKept(const QString &line) const;
    /** Whether a line calls an operation that takes a PIN or a PUK, or dials one. */
    static bool carriesPin(const QString &line);

    /** Whether something that was to be shown could not be written. */
    bool outputFailed() const { return m_out.status() != QTextStream::Ok || std::ferror(stdout) != 0; }

    /** What can stand at the beginning of a line, or behind a command. */
    QStringList completions(const QString &line) const;

private:
    struct Command {
        QString name;
        QString usage;
        QString help;
        int fewest; ///< arguments
        int most;
        std::function<QString(const QStringList &words)> run; ///< returns what was wrong, or nothing
        bool needsPhone = false;                              ///< acts on the simulated phone
    };
    struct CloseFile {
        void operator()(std::FILE *file) const { std::fclose(file); }
    };

    const Command *findCommand(const QString &name) const;
    static bool canRun(const Command &command);
    static QStringList choices(const Command &command, const QStringList &wordsBefore);
    void addCommands();
    void addPhoneCommands();
    Status runOperation(const QString &name, const QStringList &words);
    Status runCommand(const QString &name, const QStringList &words);
    Status mistake(const QString &text);
    void watchSignals();
    void say(const QString &text);
    QString showHelp(const QStringList &words);
    QString showState();

    QTextStream m_out;
    std::vector<Command> m_commands;
    QPointer<QObject> m_watchedSetup;
    QPointer<QObject> m_watchedNetwork;
    std::FILE **m_log;        ///< the log library's variable, null where there is none
    std::FILE *m_platformLog; ///< where the platform sends the log by itself, null for nowhere
    std::unique_ptr<std::FILE, CloseFile> m_noLog;
    QString m_place; ///< file and line of a script, for mistakes
    bool m_echo = false;
    bool m_callsShown = true;
    bool m_quit = false;
    int m_scriptDepth = 0;
};

/** Splits a line into words; double quotes keep blanks together. False when a quote is not closed. */
bool splitWords(const QString &line, QStringList &words);

} // namespace Console
