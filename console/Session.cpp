// Running lines: operations, commands and scripts.
#include "Session.h"

#include "DialledSecret.h"
#include "Help.h"
#include "SimulatedPhoneControl.h"
#include "StoredSettings.h"

#include <QCoreApplication>
#include <QFile>

#include <algorithm>
#include <cstdio>
#include <map>

namespace Console {

namespace {

bool systemStatus = true;

constexpr int deepestScript = 16;

/** Words that are near enough to what was typed to be meant by it. */
QStringList near(const QString &typed, const QStringList &names)
{
    QStringList found;
    for (const QString &name : names) {
        if (name.contains(typed, Qt::CaseInsensitive))
            found += name;
    }
    return found.mid(0, 5);
}

/** What somebody types who has never seen a command with a dot. */
QString commandOf(const QString &name)
{
    static const std::map<QString, QString> aliases = {{QStringLiteral("help"), QStringLiteral(".help")},
                                                       {QStringLiteral("?"), QStringLiteral(".help")},
                                                       {QStringLiteral("quit"), QStringLiteral(".quit")},
                                                       {QStringLiteral("exit"), QStringLiteral(".quit")}};
    const auto alias = aliases.find(name);
    return alias == aliases.end() ? name : alias->second;
}

std::vector<const Operation *> findOperations(const QString &name)
{
    std::vector<const Operation *> found;
    for (const Operation &operation : operations()) {
        if (operation.name == name || operation.fullName() == name)
            found.push_back(&operation);
    }
    return found;
}

} // namespace

bool splitWords(const QString &line, QStringList &words)
{
    QString word;
    bool inWord = false;
    bool inQuotes = false;
    for (const QChar character : line) {
        if (character == QLatin1Char('"')) {
            inQuotes = !inQuotes;
            inWord = true;
        } else if (character.isSpace() && !inQuotes) {
            if (inWord)
                words += word;
            word.clear();
            inWord = false;
        } else {
            word += character;
            inWord = true;
        }
    }
    if (inWord)
        words += word;
    return !inQuotes;
}

Session::Session()
    : m_out(stdout)
    , m_log(static_cast<std::FILE **>(dlsym(RTLD_DEFAULT, "libaplog_to_module_ptr")))
    , m_platformLog(m_log ? *m_log : nullptr)
    , m_noLog(std::fopen("/dev/null", "w"))
{
    addCommands();
    addPhoneCommands();
    setLogShown(false);
    SimulatedPhoneControl *const phone = findSimulatedPhone();
    if (!phone)
        return;
    phone->setObserver([this](const std::string &call, const std::string &answer) {
        if (!m_callsShown)
            return;
        const QString line = QStringLiteral("  ") + QString::fromStdString(call);
        say(answer.empty() ? line : line + QStringLiteral(" = ") + QString::fromStdString(answer));
    });
}

Session::~Session()
{
    if (SimulatedPhoneControl *const phone = findSimulatedPhone())
        phone->setObserver(nullptr);
    if (m_log)
        *m_log = m_platformLog;
}

void Session::setLogShown(bool shown)
{
    if (m_log)
        *m_log = shown ? nullptr : m_platformLog ? m_platformLog : m_noLog.get();
}

Status Session::runLine(const QString &line)
{
    const QString trimmed = line.trimmed();
    if (m_echo)
        say(trimmed.isEmpty() || trimmed.startsWith(QLatin1Char('#')) ? trimmed
                                                                      : QStringLiteral("> ") + trimmed);
    if (trimmed.isEmpty() || trimmed.startsWith(QLatin1Char('#')))
        return Status::Done;
    QStringList words;
    if (!splitWords(trimmed, words))
        return mistake(QStringLiteral("a quotation mark is not closed"));
    return run(words);
}

Status Session::run(QStringList words)
{
    const QString name = commandOf(words.takeFirst());
    return name.startsWith(QLatin1Char('.')) ? runCommand(name, words) : runOperation(name, words);
}

Status Session::runScript(const QString &path)
{
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly | QIODevice::Text))
        return mistake(QStringLiteral("cannot read %1: %2").arg(path, file.errorString()));
    if (m_scriptDepth == deepestScript)
        return mistake(QStringLiteral("scripts run one another without end"));
    const QString outerPlace = m_place;
    ++m_scriptDepth;
    Status status = Status::Done;
    QByteArray line;
    for (int number = 1; status == Status::Done && !outputFailed() && !(line = file.readLine()).isEmpty();
         ++number) {
        m_place = QStringLiteral("%1:%2: ").arg(path).arg(number);
        status = runLine(QString::fromUtf8(line));
    }
    --m_scriptDepth;
    m_place = outerPlace;
    return status;
}

bool Session::mayBeKept(const QString &line) const
{
    if (Handset::carriesSecret(line.toStdString()))
        return false;
    QStringList words;
    if (!splitWords(line, words) || words.isEmpty())
        return false;
    const QString name = commandOf(words.takeFirst());
    if (const Command *const command = findCommand(name))
        return words.size() >= command->fewest && words.size() <= command->most;
    const std::vector<const Operation *> found = findOperations(name);
    return found.size() == 1 && !found.front()->carriesPin() && found.front()->objection(words).isEmpty();
}

bool Session::carriesPin(const QString &line)
{
    if (Handset::carriesSecret(line.toStdString()))
        return true;
    QStringList words;
    splitWords(line, words);
    const QString name = words.isEmpty() ? QString() : words.first();
    return std::any_of(operations().begin(), operations().end(), [&](const Operation &operation) {
        return operation.carriesPin()
            && (operation.name.compare(name, Qt::CaseInsensitive) == 0
                || operation.fullName().compare(name, Qt::CaseInsensitive) == 0);
    });
}

const Session::Command *Session::findCommand(const QString &name) const
{
    const auto found = std::find_if(m_commands.begin(), m_commands.end(),
                                    [&](const Command &command) { return command.name == name; });
    return found == m_commands.end() ? nullptr : &*found;
}

bool Session::canRun(const Command &command)
{
    return !command.needsPhone || findSimulatedPhone();
}

/** The words that can follow, as the usage tells: "start CALLID [complete] | accept". */
QStringList Session::choices(const Command &command, const QStringList &wordsBefore)
{
    QStringList names;
    for (const QString &form : command.usage.split(QStringLiteral(" | "))) {
        QStringList parts =
            QString(form).remove(QLatin1Char('[')).remove(QLatin1Char(']')).split(QLatin1Char(' '));
        if (parts.size() <= wordsBefore.size())
            continue;
        const bool begun = wordsBefore.isEmpty() || parts.first() == wordsBefore.first()
            || parts.first() != parts.first().toLower();
        const QString next = parts.at(wordsBefore.size());
        if (next == QLatin1String("OPERATION")) {
            for (const Operation &operation : operations())
                names << operation.name << operation.fullName();
        } else if (next == QLatin1String("FUNCTION") && findSimulatedPhone()) {
            for (const std::string_view function : findSimulatedPhone()->functions())
                names += QString::fromLatin1(function.data(), static_cast<int>(function.size()));
        } else if (begun && next == next.toLower()) {
            names += next.split(QLatin1Char('|'));
        }
    }
    return names;
}

QStringList Session::completions(const QString &line) const
{
    QStringList words = line.split(QLatin1Char(' '));
    const QString prefix = words.takeLast();
    QStringList names;
    if (words.isEmpty()) {
        for (const Operation &operation : operations())
            names << operation.name << operation.fullName();
        for (const Command &command : m_commands) {
            if (canRun(command))
                names += command.name;
        }
    } else {
        const QString name = commandOf(words.takeFirst());
        if (const Command *const command = findCommand(name))
            names = choices(*command, words);
        for (const Operation *const operation : findOperations(name)) {
            const auto position = static_cast<std::size_t>(words.size());
            if (position < operation->arguments.size())
                names += operation->arguments[position].choices;
        }
    }
    names.removeDuplicates();
    names.erase(std::remove_if(names.begin(), names.end(),
                               [&](const QString &name) { return !name.startsWith(prefix); }),
                names.end());
    names.sort();
    return names;
}

Status Session::runOperation(const QString &name, const QStringList &words)
{
    const std::vector<const Operation *> found = findOperations(name);
    if (found.size() > 1)
        return mistake(QStringLiteral("%1 is in two classes: expected %2 or %3")
                           .arg(name, found[0]->fullName(), found[1]->fullName()));
    if (found.empty()) {
        QStringList names;
        for (const Operation &operation : operations())
            names += operation.name;
        const QStringList meant = near(name, names);
        return mistake(QStringLiteral("there is no operation %1: expected %2")
                           .arg(name,
                                meant.isEmpty() ? QStringLiteral("a name that .list shows")
                                                : meant.join(QStringLiteral(", "))));
    }
    watchSignals();
    const Outcome outcome = found.front()->call(words);
    if (!outcome.error.isEmpty())
        return mistake(QStringLiteral("%1: %2; usage: %1 %3").arg(name, outcome.error, found.front()->usage));
    for (const QString &line : outcome.lines)
        say(line);
    // What the engine has put off until the event loop runs happens now.
    QCoreApplication::sendPostedEvents();
    QCoreApplication::processEvents();
    return Status::Done;
}

Status Session::runCommand(const QString &name, const QStringList &words)
{
    const Command *const found = findCommand(name);
    if (!found)
        return mistake(QStringLiteral("there is no command %1: expected one that .help shows").arg(name));
    if (!canRun(*found))
        return mistake(
            QStringLiteral("%1: the simulated phone is not loaded: the platform library is another one")
                .arg(name));
    if (words.size() < found->fewest || words.size() > found->most)
        return mistake(QStringLiteral("%1: wrong number of arguments; usage: %1 %2").arg(name, found->usage));
    const QString error = found->run(words);
    if (!error.isEmpty())
        return mistake(QStringLiteral("%1: %2; usage: %1 %3").arg(name, error, found->usage));
    return m_quit ? Status::Quit : Status::Done;
}

Status Session::mistake(const QString &text)
{
    m_out.flush();
    QTextStream(stderr) << "error: " << m_place << text << '\n';
    return Status::Mistake;
}

/** An operation may delete an object, so both are made, if need be, and watched before each one. */
void Session::watchSignals()
{
    const auto show = [this](const char *signal) {
        return [this, signal] { say(QStringLiteral("  signal %1").arg(QLatin1String(signal))); };
    };
    PHONE_ENG_Setup *const setup = PHONE_ENG_Setup::instance();
    if (m_watchedSetup != setup) {
        m_watchedSetup = setup;
        QObject::connect(setup, &PHONE_ENG_Setup::flashFull, setup, show("flashFull()"));
        QObject::connect(setup, &PHONE_ENG_Setup::sigSetupOpertionNotAllowed, setup,
                         show("sigSetupOpertionNotAllowed()"));
        QObject::connect(setup, &PHONE_ENG_Setup::updateCallForwardingFlag, setup,
                         show("updateCallForwardingFlag()"));
    }
    PHONE_ENG_NtInterface *const network = PHONE_ENG_NtInterface::instance();
    if (m_watchedNetwork != network) {
        m_watchedNetwork = network;
        QObject::connect(network, &PHONE_ENG_NtInterface::preferredChanged, network,
                         show("preferredChanged()"));
    }
}

void Session::say(const QString &text)
{
    m_out << text << '\n';
    m_out.flush();
}

QString Session::showHelp(const QStringList &words)
{
    if (words.isEmpty()) {
        say(QStringLiteral("Type the name of an operation and its arguments, or one of these:"));
        for (const Command &command : m_commands) {
            if (canRun(command))
                say(QStringLiteral("  %1 %2\n      %3").arg(command.name, command.usage, command.help));
        }
        if (findSimulatedPhone())
            say(QStringLiteral(
                "The simulated SIM: PIN1 1234 (PUK 12345678), PIN2 5678 (PUK 87654321), UPIN 2468 "
                "(PUK 13572468)."));
        return {};
    }
    bool found = false;
    for (const Operation *const operation : findOperations(words.first())) {
        for (const QString &line : helpOf(*operation))
            say(line);
        found = true;
    }
    if (const Command *const command = findCommand(commandOf(words.first()))) {
        say(QStringLiteral("%1 %2").arg(command->name, command->usage).trimmed());
        say(QStringLiteral("  ") + command->help);
        found = true;
    }
    return found
        ? QString()
        : QStringLiteral("there is no operation %1: expected one that .list shows").arg(words.first());
}

void Session::addCommands()
{
    const auto onOff = [](const QStringList &words, const std::function<void(bool)> &set) {
        const auto on = Value<bool>::parse(words.first());
        if (!on)
            return QStringLiteral("cannot be %1: expected on or off").arg(quoted(words.first()));
        set(*on);
        return QString();
    };
    m_commands = {
        {QStringLiteral(".help"), QStringLiteral("[OPERATION]"),
         QStringLiteral(
             "Shows the commands, or what an operation does, takes, gives and asks of the platform."),
         0, 1, [this](const QStringList &words) { return showHelp(words); }},
        {QStringLiteral(".list"), QStringLiteral("[TEXT]"),
         QStringLiteral("Lists the operations, or those whose names contain a text."), 0, 1,
         [this](const QStringList &words) {
             for (const Operation &operation : operations()) {
                 if (words.isEmpty() || operation.fullName().contains(words.first(), Qt::CaseInsensitive))
                     say(QStringLiteral("%1 %2").arg(operation.fullName(), operation.usage).trimmed());
             }
             return QString();
         }},
        {QStringLiteral(".calls"), QStringLiteral("on|off"),
         QStringLiteral("Shows the platform calls that an operation makes (on at the start)."), 1, 1,
         [this, onOff](const QStringList &words) {
             return onOff(words, [this](bool on) { setCallsShown(on); });
         },
         true},
        {QStringLiteral(".log"), QStringLiteral("on|off"),
         QStringLiteral("Shows the engine's log lines (off at the start)."), 1, 1,
         [this, onOff](const QStringList &words) {
             return onOff(words, [this](bool on) { setLogShown(on); });
         }},
        {QStringLiteral(".hook"), QStringLiteral("on|off"),
         QStringLiteral("What the system-status hook answers (on at the start)."), 1, 1,
         [onOff](const QStringList &words) { return onOff(words, [](bool on) { systemStatus = on; }); }},
        {QStringLiteral(".source"), QStringLiteral("FILE"), QStringLiteral("Runs the lines of a file."), 1, 1,
         [this](const QStringList &words) {
             const Status status = runScript(words.first());
             m_quit = status == Status::Quit;
             return status == Status::Mistake ? QStringLiteral("the script has a mistake") : QString();
         }},
        {QStringLiteral(".settings"), QStringLiteral("[FILE]"),
         QStringLiteral("Lists a file of settings, or the one in use."), 0, 1,
         [this](const QStringList &words) {
             QString file = words.value(0);
             if (file.isEmpty() && findSimulatedPhone())
                 file = QString::fromStdString(findSimulatedPhone()->settingsFile());
             QStringList lines;
             const QString error = listSettings(file, lines);
             for (const QString &line : lines)
                 say(line);
             return error;
         }},
        {QStringLiteral(".quit"), QString(), QStringLiteral("Leaves the console."), 0, 0,
         [this](const QStringList &) {
             m_quit = true;
             return QString();
         }},
    };
}

} // namespace Console

// The console is a host with a hook of its own, to show what the engine does when it refuses.
bool PHONE_ENG_Setup::setupCheckSystemStatus()
{
    return Console::systemStatus;
}
