// Commands that act on the simulated phone: what happens to it, what it has, how it answers.
#include "Session.h"

#include "SimulatedPhoneControl.h"

#include <chrono>

namespace Console {

namespace {

/** Asked only by commands that run where the phone is loaded. */
SimulatedPhoneControl &phone()
{
    return *findSimulatedPhone();
}

QString noSuchFunction(const QString &name)
{
    return QStringLiteral("there is no platform function %1: expected a name that .calls shows, like %2, or "
                          "the beginning of names, like %3")
        .arg(name, QLatin1String("TAPI_CS_SelectLine"), QLatin1String("TAPI_CS_*"));
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
    ScriptedAnswer answer;
    answer.result = result;
    answer.out = std::move(out);
    answer.times = times;
    return phone().setAnswer(words.first().toStdString(), answer) ? QString() : noSuchFunction(words.first());
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

QString delay(const QStringList &words)
{
    constexpr int longest = 600'000;
    int milliseconds = -1;
    const QString error = readNumber<int>(words.at(1), [&](int number) { milliseconds = number; });
    if (!error.isEmpty() || milliseconds < 0 || milliseconds > longest)
        return QStringLiteral("MS cannot be %1: expected a number from 0 to %2")
            .arg(quoted(words.at(1)))
            .arg(longest);
    return phone().setDelay(words.first().toStdString(), std::chrono::milliseconds(milliseconds))
        ? QString()
        : noSuchFunction(words.first());
}

QString pushToTalk(const QStringList &words)
{
    const bool accepts = words.first() == QLatin1String("accept");
    if (words.size() == 1 && (accepts || words.first() == QLatin1String("refuse"))) {
        phone().setPushToTalkAccepts(accepts);
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

} // namespace

void Session::addPhoneCommands()
{
    const auto probeNote = [this] {
        say(QStringLiteral(
            "note: where PHONE_ENG_IsTapiDeviceActive found the link down, it answers false until the "
            "console ends"));
    };
    const std::vector<Command> commands = {
        {QStringLiteral(".fail"), QStringLiteral("FUNCTION CODE [TIMES]"),
         QStringLiteral("Makes a platform function answer with a code."), 2, 3, fail},
        {QStringLiteral(".answer"), QStringLiteral("FUNCTION RESULT [BYTES...]"),
         QStringLiteral("The same, with raw bytes for its out-parameters."), 2, 10, answer},
        {QStringLiteral(".pass"), QStringLiteral("FUNCTION"),
         QStringLiteral("Lets a platform function answer by itself again."), 1, 1,
         [](const QStringList &words) {
             return phone().clearAnswer(words.first().toStdString()) ? QString()
                                                                     : noSuchFunction(words.first());
         }},
        {QStringLiteral(".delay"), QStringLiteral("FUNCTION MS"),
         QStringLiteral("Makes a platform function answer later; 0 for at once."), 2, 2, delay},
        {QStringLiteral(".state"), QString(),
         QStringLiteral("Shows how the phone is, and what was arranged for it."), 0, 0,
         [this](const QStringList &) { return showState(); }},
        {QStringLiteral(".reset"), QString(), QStringLiteral("A new phone. The settings stay."), 0, 0,
         [probeNote](const QStringList &) {
             phone().reset();
             probeNote();
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
        {QStringLiteral(".hangup"), QStringLiteral("CALLID"), QStringLiteral("The other side ends a call."),
         1, 1,
         [](const QStringList &words) {
             bool ended = false;
             const QString error = readNumber<unsigned char>(
                 words.first(), [&](unsigned char callId) { ended = phone().remoteHangsUp(callId); });
             return error.isEmpty() && !ended ? QStringLiteral("there is no such call") : error;
         }},
        {QStringLiteral(".ptt"), QStringLiteral("start CALLID [complete] | accept | refuse"),
         QStringLiteral(
             "Starts a push-to-talk call, its audio buffer complete or not; or what its service answers."),
         1, 3, pushToTalk},
        {QStringLiteral(".link"), QStringLiteral("up|down"), QStringLiteral("The telephony link."), 1, 1,
         [probeNote](const QStringList &words) {
             return readChoice(words.first(), "up", "down", [&](bool up) {
                 phone().setLink(up);
                 if (up)
                     probeNote();
             });
         }},
        {QStringLiteral(".sim"), QStringLiteral("ready|busy"),
         QStringLiteral("Whether the SIM may be asked (the shared status behind it)."), 1, 1,
         [](const QStringList &words) {
             return readChoice(words.first(), "ready", "busy",
                               [](bool ready) { phone().setSimReady(ready); });
         }},
        {QStringLiteral(".incoming"), QStringLiteral("yes|no"),
         QStringLiteral("Whether the shared state says that a call is coming in."), 1, 1,
         [](const QStringList &words) {
             return readChoice(words.first(), "yes", "no", [](bool yes) { phone().setIncoming(yes); });
         }},
        {QStringLiteral(".disk"), QStringLiteral("full|free"),
         QStringLiteral("Whether the settings store finds the disk full."), 1, 1,
         [](const QStringList &words) {
             return readChoice(words.first(), "full", "free", [](bool full) { phone().setDiskFull(full); });
         }},
        {QStringLiteral(".feature"), QStringLiteral("ID on|off"),
         QStringLiteral("Whether the product has a feature (it has all at the start)."), 2, 2,
         [](const QStringList &words) {
             unsigned short feature = 0;
             const QString error =
                 readNumber<unsigned short>(words.first(), [&](unsigned short id) { feature = id; });
             if (!error.isEmpty())
                 return error;
             return readChoice(words.at(1), "on", "off", [&](bool on) { phone().setFeature(feature, on); });
         }},
        {QStringLiteral(".language"), QStringLiteral("ID"),
         QStringLiteral("The system language; 20 and 22 have names of their own."), 1, 1,
         [](const QStringList &words) {
             return readNumber<int>(words.first(), [](int id) { phone().setLanguage(id); });
         }},
    };
    for (Command command : commands) {
        command.needsPhone = true;
        m_commands.push_back(command);
    }
}

QString Session::showState()
{
    for (const SimulatedPhoneControl::Fact &fact : phone().facts())
        say(QString::fromStdString(fact.subject + ": " + fact.text));
    return {};
}

} // namespace Console
