// The console: what it keeps, what it shows, and how it takes a mistake.
#include "Program.h"

#include <QFile>
#include <QRegularExpression>
#include <QSet>

#include <gmock/gmock.h>

namespace {

using Program::Output;
using Program::words;
using testing::HasSubstr;
using testing::Not;

class ConsoleTest : public testing::Test {
protected:
    Output run(const QStringList &arguments, const QByteArray &input = {})
    {
        return Program::run(QStringLiteral(KVQ_CONSOLE), arguments, input,
                            Program::environmentIn(m_directory.path()));
    }

    QTemporaryDir m_directory;
};

// Which of the two is registered depends on the build.
using ConsoleOnTheSimulatedPhoneTest = ConsoleTest;
using ConsoleOnAPortTest = ConsoleTest;

TEST_F(ConsoleOnTheSimulatedPhoneTest, SettingsAreKeptFromOneRunToTheNext)
{
    const QStringList settings = {QStringLiteral("--settings"),
                                  m_directory.filePath(QStringLiteral("settings.cbor"))};
    EXPECT_EQ(run(settings + words("-q isRoamAlert")).text, "result = false\n");
    EXPECT_EQ(run(settings + words("setRoamAlert on")).text,
              "  SETUP_SET_Manager(4, true)\n"
              "  SETUP_SET_Manager::setSettingInfo(\"Setup\", \"roamAlert\", true) = true\n"
              "  ~SETUP_SET_Manager()\nresult = true\n");
    EXPECT_EQ(run(settings + words("-q isRoamAlert")).text, "result = true\n");
    EXPECT_EQ(run(words("-q isRoamAlert")).text, "result = false\n") << "another file";
}

TEST_F(ConsoleOnTheSimulatedPhoneTest, ASettingsFileIsListedInWords)
{
    const QString file = m_directory.filePath(QStringLiteral("settings.cbor"));
    const QStringList settings = {QStringLiteral("--settings"), file};
    const std::string heading = "settings = " + file.toStdString() + '\n';
    EXPECT_EQ(run(settings + words(".settings")).text, heading + "there is no such file yet\n");
    run(settings, "setRoamAlert on\nsetAudibleTimer 7\nsetTurboDialing 2 5551234\n");
    const std::string values =
        "4/Setup/roamAlert = true\n4/Setup/audibleTimer = 7\n4/Turbo Dialing/2 = \"5551234\"\n";
    EXPECT_EQ(run(settings + words(".settings")).text, heading + values);
    EXPECT_EQ(run({QStringLiteral(".settings"), file}).text, heading + values) << "whichever is in use";
    QFile damaged(file);
    ASSERT_TRUE(damaged.open(QIODevice::ReadWrite) && damaged.resize(damaged.size() - 1));
    const Output output = run(settings + words(".settings"));
    EXPECT_EQ(output.status, 2);
    EXPECT_EQ(output.text, "");
    EXPECT_THAT(output.errors, HasSubstr(file.toStdString() + " is damaged"));
}

TEST_F(ConsoleTest, MistakesAreNamedAndNothingIsCalled)
{
    static constexpr char notLoaded[] = "the simulated phone is not loaded";
    const struct {
        const char *line;
        const char *error;
    } rows[] = {
        {"setRoamalert on", "there is no operation setRoamalert: expected setRoamAlert"},
        {"setRoamAlert perhaps", "on cannot be \"perhaps\": expected true or false"},
        {"setRoamAlert", "on is missing: expected true or false"},
        {"setRoamAlert on off", "too many arguments: off"},
        {"divertVoiceCallsWithTime on 5 256", "time cannot be \"256\": expected a number from 0 to 255"},
        {"getVoiceCallsDivert never",
         "expected unconditional, busy, no-reply, not-reachable, all, "
         "all-conditional or a number from 0 to 4294967295"},
        {"getSearchMode", "expected PHONE_ENG_Setup::getSearchMode or PHONE_ENG_NtInterface::getSearchMode"},
        {".fail TAPI_NO_SUCH 1",
         Program::onSimulatedPhone() ? "there is no platform function TAPI_NO_SUCH" : notLoaded},
        {".ring", Program::onSimulatedPhone() ? "wrong number of arguments" : notLoaded},
        {".nothing", "there is no command .nothing"},
        {"--nothing", "Unknown option 'nothing'"},
    };
    for (const auto &row : rows) {
        SCOPED_TRACE(row.line);
        const Output output = run(words(row.line));
        EXPECT_EQ(output.status, 2);
        EXPECT_EQ(output.text, "");
        EXPECT_NE(output.errors.find(row.error), std::string::npos) << output.errors;
    }
}

TEST_F(ConsoleTest, AScriptStopsAtItsFirstMistake)
{
    const QString script = m_directory.filePath(QStringLiteral("script"));
    QFile file(script);
    ASSERT_TRUE(file.open(QIODevice::WriteOnly));
    file.write("# a comment\n\nisReminder\nisReminder now\nsetReminder off\n");
    file.close();
    const Output output = run({QStringLiteral("-q"), QStringLiteral("--script"), script});
    EXPECT_EQ(output.status, 2);
    EXPECT_EQ(output.text, "result = true\n");
    EXPECT_NE(output.errors.find("script:4: isReminder: too many arguments: now"), std::string::npos);
}

TEST_F(ConsoleOnTheSimulatedPhoneTest, ThePromptGoesOnAfterAMistakeAndShowsSignals)
{
    const Output output = run(words("-q"),
                              "nothing\n.disk full\nsetReminder off\n.fail TAPI_CS_SelectLine 5 1\n"
                              "setLineNo 2\nsetLineNo 2\n.log on\ngetServiceTone\n");
    EXPECT_EQ(output.status, 2) << "nobody was there to mend the mistake";
    EXPECT_NE(
        output.text.find("result = false\n  signal flashFull()\nresult = 5\nresult = 0 (TAPI_RESULT_SUCC)\n"
                         "utility/PHONE_ENG_NtInterface,getServiceTone,"),
        std::string::npos)
        << output.text;
}

TEST_F(ConsoleTest, EveryExportedOperationIsReachable)
{
    const QString listed = QString::fromStdString(run(words(".list")).text);
    QSet<QString> reachable;
    for (const QString &line : listed.split(QLatin1Char('\n')))
        reachable.insert(line.section(QLatin1Char(' '), 0, 0));
    QFile symbols(QStringLiteral(KVQ_EXPORTED_SYMBOLS));
    ASSERT_TRUE(symbols.open(QIODevice::ReadOnly));
    // What the toolkit calls, and data.
    const QRegularExpression notOperations(
        QStringLiteral("^(typeinfo|vtable)|::(qt_meta|metaObj|staticMetaObject|m_pInstance|initMetaObject|"
                       "event$|SignalEvent|~|"
                       "flashFull|sigSetup|updateCallForwardingFlag|preferredChanged|PHONE_ENG_)"));
    int operations = 0;
    for (const QString &symbol : QString::fromUtf8(symbols.readAll()).split(QLatin1Char('\n'))) {
        const QString name = symbol.section(QRegularExpression(QStringLiteral("[(@]")), 0, 0);
        if (name.isEmpty() || notOperations.match(name).hasMatch())
            continue;
        ++operations;
        EXPECT_TRUE(reachable.contains(name)) << name.toStdString();
    }
    EXPECT_GT(operations, 180);
}

TEST_F(ConsoleOnTheSimulatedPhoneTest, TheTourEndsWell)
{
    const Output output =
        run({QStringLiteral("--script"), QStringLiteral(KVQ_TOUR), QStringLiteral("--echo")});
    EXPECT_EQ(output.status, 0);
    EXPECT_EQ(output.errors, "");
    EXPECT_NE(output.text.find("QCopChannel::send(\"/KVQ/PHONE/SIM\", \"PIN OK\")"), std::string::npos);
}

/** What the exported headers say of an operation is what .help tells: every one has at least a sentence. */
TEST_F(ConsoleTest, HelpTellsWhatAnOperationDoesTakesGivesAndAsks)
{
    const Output output = run(words("-q"), ".help divertVoiceCalls\n.help isCallWaiting\n");
    for (const char *const line :
         {"  Forwards voice calls, or no longer. Guarded.\n",
          "  takes enable: true or false; whether to forward voice",
          "  takes when: unconditional, busy, no-reply,", "  asks: TAPI_CS_DivertCallToNumber, class 1.\n",
          "  gives on: also set, to false, when the hook refuses\n",
          "  result: 1, with on untouched, when the setting forbids to ask.\n",
          "  subject: Call forwarding: Supple"})
        EXPECT_THAT(output.text, HasSubstr(line));
    QByteArray questions;
    const QStringList listed = QString::fromStdString(run(words(".list")).text).split(QLatin1Char('\n'));
    for (const QString &line : listed)
        questions += ".help " + line.section(QLatin1Char(' '), 0, 0).toUtf8() + "\n";
    const QStringList answers =
        QString::fromStdString(run(words("-q"), questions).text).split(QLatin1Char('\n'));
    for (int line = 0; line + 1 < answers.size(); ++line) {
        if (!listed.contains(answers.at(line)))
            continue;
        const QString next = answers.at(line + 1);
        EXPECT_TRUE(next.startsWith(QLatin1String("  ")) && !next.startsWith(QLatin1String("  result:"))
                    && !next.startsWith(QLatin1String("  asks:"))
                    && !next.startsWith(QLatin1String("  takes ")))
            << answers.at(line).toStdString() << next.toStdString();
    }
}

TEST_F(ConsoleOnTheSimulatedPhoneTest, InputIsAnsweredLineByLine)
{
    const Output output = run(words("-q"),
                              "help\n?\n.delay TAPI_VOICE_MuteBeep 40\n.state\n.link up\n.reset\n"
                              "isReminder now\n\nisFlipAnswer\nexit\nsetReminder off\n");
    EXPECT_EQ(output.errors,
              "error: standard input:7: isReminder: too many arguments: now; usage: isReminder \n");
    EXPECT_THAT(output.text, HasSubstr("PIN1 1234 (PUK 12345678)"));
    EXPECT_THAT(output.text, HasSubstr("TAPI_VOICE_MuteBeep: answers 40 ms later\n"));
    EXPECT_THAT(output.text, HasSubstr("PIN2: not verified, 3 tries left (PUK: 10 tries left)\n"));
    EXPECT_THAT(output.text, HasSubstr("shared caller id: network, next call not known\n"));
    EXPECT_THAT(output.text, testing::EndsWith("result = false\n")) << "what follows exit is not read";
    const std::string note = "note: where PHONE_ENG_IsTapiDeviceActive found the link down, it answers false";
    EXPECT_THAT(output.text, HasSubstr(note));
    EXPECT_NE(output.text.find(note), output.text.rfind(note)) << "after .link up and after .reset";
}

TEST_F(ConsoleTest, WhatCannotBeShownIsNoSuccess)
{
    QProcess console;
    console.setProcessEnvironment(Program::environmentIn(m_directory.path()));
    console.setStandardOutputFile(QStringLiteral("/dev/full"));
    console.start(QStringLiteral(KVQ_CONSOLE), words("-q .list"));
    ASSERT_TRUE(console.waitForFinished());
    EXPECT_EQ(console.exitCode(), 1);
    EXPECT_EQ(console.readAllStandardError().toStdString(), "error: standard output cannot be written\n");
}

TEST_F(ConsoleOnAPortTest, OperationsWorkAndThePhonesCommandsSayWhyTheyDoNot)
{
    const Output output = run({}, "currentLineNo\nsetRoamAlert on\n.ring 5551234\n");
    EXPECT_EQ(output.text, "line = 1\nresult = 36864 (TAPI_RESULT_NOT_SUPPORTED)\nresult = false\n");
    EXPECT_THAT(output.errors, HasSubstr(".ring: the simulated phone is not loaded"));
    EXPECT_EQ(output.status, 2);
    const Output settings = run(words("--settings file isReminder"));
    EXPECT_EQ(settings.status, 2);
    EXPECT_THAT(settings.errors, HasSubstr("--settings: the simulated phone is not loaded"));
    EXPECT_THAT(run(words(".help")).text, testing::AllOf(HasSubstr(".list"), Not(HasSubstr(".ring"))));
}

} // namespace
