// Commands that act on the simulated phone: what happens to it, what it has, how it answers.
#include "Session.h"

#include "SimulatedPhone.h"

#include <QFile>
#include <QFileInfo>

#include <algorithm>
#include <cerrno>

namespace Console {

namespace {

SimulatedPhone &phone()
{
    return SimulatedPhone::instance();
}

QString noSuchFunction(const QString &name)
{
    const auto &names = SimulatedPhone::functionNames();
    if (std::find(names.begin(), names.end(), name.toStdString()) != names.end())
        return {};
    return QStringLiteral("there is no platform function %1: expected a name that .calls shows, like %2")
        .arg(name, QLatin1String("TAPI_CS_SelectLine"));
}

/** Reads a number, or says what was wrong with it. */
template <typename Number>
QString readNumber(const QString &word, const std::function<void(Number)> &use)
{
    const auto number = Value<Number>::parse(word);
    if (!number)
        return QStringLiteral("cannot be %1: expected %2").arg(quoted(word), Value<Number>::expected());
    use(*number);
    return {};
}

/** Reads one of two words. */
QString readChoice(const QString &word, const char *yes, const char *no, const std::function<void(bool)> &use)
{
    if (word != QLatin1String(yes) && word != QLatin1String(no))
        return QStringLiteral("cannot be %1: expected %2 or %3")
            .arg(quoted(word), QLatin1String(yes), QLatin1String(no));
    use(word == QLatin1String(yes));
    return {};
}

QString script(const QStringList &words, long long result, std::vector<std::string> out, int times)
{
    const QString error = noSuchFunction(words.first());
    if (!error.isEmpty())
        return error;
    ScriptedAnswer answer;
    answer.result = result;
    answer.out = std::move(out);
    answer.times = times;
    phone().script(words.first().toStdString(), answer);
    return {};
}

QString fail(const QStringList &words)
{
    if (!words.first().startsWith(QLatin1String("TAPI_")))
        return QStringLiteral("%1 gives no result code: expected a TAPI_ function").arg(words.first());
    const auto result = Value<_TAPI_RESULT_E>::parse(words.at(1));
    if (!result)
        return QStringLiteral("cannot be %1: expected %2")
            .arg(quoted(words.at(1)), Value<_TAPI_RESULT_E>::expected());
    int times = -1;
    if (words.size() > 2) {
        const QString error = readNumber<int>(words.at(2), [&](int number) { times = number; });
        if (!error.isEmpty() || times < 1)
            return QStringLiteral("TIMES cannot be %1: expected a number from 1").arg(quoted(words.at(2)));
    }
    return script(words, *result, {}, times);
}

QString answer(const QStringList &words)
{
    long long result = 0;
    QString error = readNumber<int>(words.at(1), [&](int number) { result = number; });
    std::vector<std::string> out;
    for (const QString &word : words.mid(2)) {
        const QByteArray hexadecimal = word.toLatin1();
        const QByteArray bytes = QByteArray::fromHex(hexadecimal);
        if (bytes.toHex() != hexadecimal.toLower())
            error = QStringLiteral("cannot be %1: expected bytes like 01ff00").arg(quoted(word));
        out.push_back(bytes.toStdString());
    }
    return error.isEmpty() ? script(words, result, out, -1) : error;
}

QString pushToTalk(const QStringList &words)
{
    const bool accepts = words.first() == QLatin1String("accept");
    if (words.size() == 1 && (accepts || words.first() == QLatin1String("refuse"))) {
        phone().state().calls.pushToTalkAccepts = accepts;
        return {};
    }
    const bool complete = words.size() > 2 && words.at(2) == QLatin1String("complete");
    if (words.first() != QLatin1String("start") || words.size() < 2 || (words.size() > 2 && !complete))
        return QStringLiteral("expected one of these");
    bool started = false;
    const QString error = readNumber<unsigned char>(
        words.at(1), [&](unsigned char callId) { started = phone().startPushToTalk(callId, complete); });
    return error.isEmpty() && !started ? QStringLiteral("there is no room for that call") : error;
}

/** Every write fails as on a full file system, without filling one. */
void fillDisk(bool full)
{
    for (const char *write : {"SETUP_SET_Manager::setSettingInfo", "SETUP_SET_Manager::flush"}) {
        ScriptedAnswer refusal;
        refusal.error = ENOSPC;
        if (full)
            phone().script(write, refusal);
        else
            phone().clearScript(write);
    }
}

} // namespace

void Session::addPhoneCommands()
{
    const auto product = [] { return &phone().state().product; };
    const std::vector<Command> commands = {
        {QStringLiteral(".fail"), QStringLiteral("FUNCTION CODE [TIMES]"),
         QStringLiteral("Makes a platform function answer with a code."), 2, 3, fail},
        {QStringLiteral(".answer"), QStringLiteral("FUNCTION RESULT [BYTES...]"),
         QStringLiteral("The same, with raw bytes for its out-parameters."), 2, 10, answer},
        {QStringLiteral(".pass"), QStringLiteral("FUNCTION"),
         QStringLiteral("Lets a platform function answer by itself again."), 1, 1,
         [](const QStringList &words) {
             phone().clearScript(words.first().toStdString());
             return noSuchFunction(words.first());
         }},
        {QStringLiteral(".state"), QString(), QStringLiteral("Shows the phone's shared state and its calls."),
         0, 0, [this](const QStringList &) { return showState(); }},
        {QStringLiteral(".reset"), QString(), QStringLiteral("A new phone. The settings stay."), 0, 0,
         [](const QStringList &) {
             phone().reset();
             return QString();
         }},
        {QStringLiteral(".ring"), QStringLiteral("NUMBER"), QStringLiteral("A call comes in."), 1, 1,
         [this](const QStringList &words) {
             const unsigned char callId = phone().ring(words.first().toStdString());
             if (callId == 0)
                 return QStringLiteral("the call table is full");
             say(QStringLiteral("callId = %1").arg(callId));
             return QString();
         }},
        {QStringLiteral(".connect"), QStringLiteral("CALLID"),
         QStringLiteral("The other side answers a call that was dialled."), 1, 1,
         [](const QStringList &words) {
             bool connected = false;
             const QString error = readNumber<unsigned char>(
                 words.first(), [&](unsigned char callId) { connected = phone().remoteAnswers(callId); });
             return error.isEmpty() && !connected ? QStringLiteral("no such call is being dialled") : error;
         }},
        {QStringLiteral(".ptt"), QStringLiteral("start CALLID [complete] | accept | refuse"),
         QStringLiteral(
             "Starts a push-to-talk call, its audio buffer complete or not; or what its service answers."),
         1, 3, pushToTalk},
        {QStringLiteral(".link"), QStringLiteral("up|down"), QStringLiteral("The telephony link."), 1, 1,
         [](const QStringList &words) {
             return readChoice(words.first(), "up", "down",
                               [](bool up) { up ? phone().openLink() : phone().closeLink(); });
         }},
        {QStringLiteral(".sim"), QStringLiteral("ready|busy"),
         QStringLiteral("Whether the SIM may be asked (the shared status behind it)."), 1, 1,
         [](const QStringList &words) {
             return readChoice(words.first(), "ready", "busy",
                               [](bool ready) { phone().state().shared.simPinBattery = ready ? 0 : 1; });
         }},
        {QStringLiteral(".incoming"), QStringLiteral("yes|no"),
         QStringLiteral("Whether the shared state says that a call is coming in."), 1, 1,
         [](const QStringList &words) {
             return readChoice(words.first(), "yes", "no",
                               [](bool yes) { phone().state().shared.incomingCall = yes ? 1 : 0; });
         }},
        {QStringLiteral(".disk"), QStringLiteral("full|free"),
         QStringLiteral("Whether the settings store finds the disk full."), 1, 1,
         [](const QStringList &words) { return readChoice(words.first(), "full", "free", fillDisk); }},
        {QStringLiteral(".feature"), QStringLiteral("ID on|off"),
         QStringLiteral("Whether the product has a feature (it has all at the start)."), 2, 2,
         [product](const QStringList &words) {
             unsigned short feature = 0;
             const QString error =
                 readNumber<unsigned short>(words.first(), [&](unsigned short id) { feature = id; });
             if (!error.isEmpty())
                 return error;
             return readChoice(words.at(1), "on", "off", [&](bool on) {
                 if (on)
                     product()->missingFeatures.erase(feature);
                 else
                     product()->missingFeatures.insert(feature);
             });
         }},
        {QStringLiteral(".language"), QStringLiteral("ID"),
         QStringLiteral("The system language; 20 and 22 have names of their own."), 1, 1,
         [product](const QStringList &words) {
             return readNumber<int>(words.first(), [&](int id) { product()->language = id; });
         }},
        {QStringLiteral(".settings"), QStringLiteral("[FILE]"),
         QStringLiteral("Shows or changes the file that keeps the settings."), 0, 1,
         [this](const QStringList &words) {
             if (!words.isEmpty())
                 phone().settings().setFile(QFileInfo(words.first()).absoluteFilePath());
             say(QStringLiteral("settings = ") + phone().settings().file());
             return QString();
         }},
    };
    m_commands.insert(m_commands.end(), commands.begin(), commands.end());
}

QString Session::showState()
{
    const PhoneState &state = phone().state();
    const SharedState &shared = state.shared;
    const std::vector<std::pair<const char *, int>> values = {
        {"dialHyphenation", shared.dialHyphenation},
        {"chargeType", shared.chargeType},
        {"restrictId", shared.restrictId},
        {"restrictNextId", shared.restrictNextId},
        {"phoneLine", shared.phoneLine},
        {"cphsForwarding", shared.cphsForwarding},
        {"cphsVoiceMail", shared.cphsVoiceMail},
        {"simPinBattery", shared.simPinBattery},
        {"pinStatus", shared.pinStatus},
        {"cardType", shared.cardType},
        {"activeAccount", shared.activeAccount},
        {"incomingCall", shared.incomingCall},
    };
    for (const auto &[name, value] : values)
        say(QStringLiteral("%1 = %2").arg(QLatin1String(name)).arg(value));
    say(assignment(QStringLiteral("calls"), Value<_TAPI_CALL_SESSION_TABLE_S>::show(state.calls.table)));
    for (const PushToTalkCall &call : state.calls.pushToTalkCalls) {
        if (call.callId != 0)
            say(QStringLiteral("push-to-talk call %1: %2")
                    .arg(call.callId)
                    .arg(call.active ? QStringLiteral("active") : QStringLiteral("held")));
    }
    return {};
}

} // namespace Console
