#include "EngineTest.h"

#include "LogModule.h"

#include <QProcess>

#include <regex>

namespace {

bool systemStatus = true;

bool isMessage(const std::string &event)
{
    return event.front() == '"';
}

} // namespace

// The host's own hook: the engine asks this one in place of the library's.
bool PHONE_ENG_Setup::setupCheckSystemStatus()
{
    return systemStatus;
}

EngineTest::EngineTest()
{
    systemStatus = true;
    phone.reset();
    phone.settings().setFile(settingsFile());
    phone.setJournalEnabled(true);
    // The objects log when they are made; that belongs to no test.
    PHONE_ENG_Setup::instance();
    m_log = fopencookie(this, "w", {nullptr, &EngineTest::write, nullptr, nullptr});
    std::setvbuf(m_log, nullptr, _IONBF, 0);
    libaplog_to_module_ptr = m_log;
    PHONE_ENG_NtInterface::instance();
    take();
    m_locations.clear();
}

EngineTest::~EngineTest()
{
    PHONE_ENG_NtInterface::destroy();
    PHONE_ENG_Setup::destruction();
    libaplog_to_module_ptr = nullptr;
    std::fclose(m_log);
    phone.reset();
    phone.settings().setFile(QString());
}

void EngineTest::refuse()
{
    systemStatus = false;
}

void EngineTest::answer(const std::string &function, long long result, std::vector<std::string> out)
{
    const auto &known = SimulatedPhone::functionNames();
    ASSERT_NE(std::find(known.begin(), known.end(), function), known.end()) << function;
    ScriptedAnswer scripted;
    scripted.result = result;
    scripted.out = std::move(out);
    phone.script(function, scripted);
}

Events EngineTest::events()
{
    return take();
}

std::string EngineTest::journal()
{
    std::string text;
    for (const std::string &event : events())
        text += ' ' + event;
    return text;
}

Events EngineTest::calls()
{
    Events events = take();
    std::erase_if(events, [](const std::string &event) { return event == trace || isMessage(event); });
    return events;
}

Events EngineTest::messages()
{
    Events messages;
    for (const std::string &event : take()) {
        if (isMessage(event))
            messages.push_back(event.substr(1, event.size() - 2));
    }
    return messages;
}

std::set<std::string> EngineTest::locations()
{
    return std::exchange(m_locations, {});
}

void EngineTest::reachPlatform(const std::vector<PlatformWrite> &writes)
{
    constexpr unsigned int failure = 77;
    for (const auto &[operation, call] : writes) {
        for (const unsigned int result : {static_cast<unsigned int>(TAPI_RESULT_SUCC), failure}) {
            answer(call.substr(0, call.find('(')), result);
            EXPECT_EQ(after(operation()), std::to_string(result) + ": | " + call + " |");
        }
    }
    refuse();
    for (const auto &[operation, call] : writes)
        EXPECT_EQ(after(operation()), std::to_string(TAPI_RESULT_FAIL) + ':') << call;
}

QString EngineTest::settingsFile() const
{
    return m_directory.filePath(QStringLiteral("settings.cbor"));
}

std::string EngineTest::inAnotherProcess(const char *line) const
{
    QProcess console;
    console.start(QStringLiteral(KVQ_CONSOLE),
                  QStringList{QStringLiteral("-q"), QStringLiteral("--settings"), settingsFile()}
                      + QString::fromLatin1(line).split(QLatin1Char(' ')));
    EXPECT_TRUE(console.waitForFinished());
    return console.readAllStandardOutput().toStdString();
}

Events EngineTest::take()
{
    return phone.takeJournal();
}

void EngineTest::hear(const std::string &line)
{
    static const std::regex traceLine("(utility/\\w+),(\\w+),[0-9]+ ");
    static const std::regex messageLine("(utility/\\w+), (\\w+), [0-9]+: (\".*\")");
    std::smatch match;
    if (line.empty())
        return; // the line break that opens a message
    if (std::regex_match(line, match, traceLine)) {
        phone.note(trace);
        m_locations.insert(match.str(1) + ' ' + match.str(2));
    } else if (std::regex_match(line, match, messageLine)) {
        phone.note(match.str(3));
        m_locations.insert(match.str(1) + ' ' + match.str(2));
    } else {
        phone.note("log line of no known shape: " + line);
    }
}

ssize_t EngineTest::write(void *test, const char *data, std::size_t size)
{
    auto *const self = static_cast<EngineTest *>(test);
    for (std::size_t position = 0; position < size; ++position) {
        if (data[position] != '\n') {
            self->m_line += data[position];
            continue;
        }
        self->hear(self->m_line);
        self->m_line.clear();
    }
    return static_cast<ssize_t>(size);
}
