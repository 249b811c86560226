// What a developer does to the simulated phone, for the panel and for the command line.
#include "Desk.h"

#include "SimulatedPhoneControl.h"

#include <algorithm>
#include <array>
#include <chrono>

namespace {

/** Call ids that a call table can hold. */
constexpr int maxCallId = 16;

/** What a phone answers that lacks a service. */
constexpr qlonglong notSupported = 0x9000;

/** What a product can lack, and the request whose answer says so. */
struct Lack {
    const char *subject;
    const char *function;
};

constexpr std::array lacks = {
    Lack{"forwarding", "TAPI_CS_GetDivertStatus"},
    Lack{"caller-id", "TAPI_FTRDB_GetState"},
    Lack{"waiting", "TAPI_CS_GetVoiceWaitingStatus"},
    Lack{"costs", "TAPI_CS_GetChargeDisplay"},
    Lack{"lines", "TAPI_CS_GetLine"},
    Lack{"networks", "TAPI_NETWORK_GetSearchMode"},
    Lack{"preferred", "TAPI_NETWORK_GetTotalPreferredOperatorNumber"},
    Lack{"own-numbers", "TAPI_OWNNUMBER_GetRange"},
};

/** Hyphenation is a feature of the product, not a service. */
constexpr unsigned short hyphenationFeature = 266;

struct Command {
    const char *name;
    const char *arguments;
    int count;
    bool (*run)(SimulatedPhoneControl &phone, const QStringList &arguments);
};

bool setDelay(SimulatedPhoneControl &phone, const QStringList &arguments)
{
    bool isNumber = false;
    const int delay = arguments[0].toInt(&isNumber);
    return isNumber && phone.setDelay("*", std::chrono::milliseconds(delay));
}

bool fail(SimulatedPhoneControl &phone, const QStringList &arguments)
{
    bool isNumber = false;
    const qlonglong result = arguments[1].toLongLong(&isNumber, 0);
    const std::string functions = arguments[0].toStdString();
    if (!isNumber)
        return false;
    return result == 0 ? phone.clearAnswer(functions)
                       : phone.setAnswer(functions, {.result = result, .out = {}});
}

bool setMissing(SimulatedPhoneControl &phone, const QString &subject, bool missing)
{
    if (subject == QLatin1String("hyphenation")) {
        phone.setFeature(hyphenationFeature, !missing);
        return true;
    }
    const auto lack = std::find_if(lacks.begin(), lacks.end(), [&](const Lack &candidate) {
        return subject == QLatin1String(candidate.subject);
    });
    if (lack == lacks.end())
        return false;
    return missing ? phone.setAnswer(lack->function, {.result = notSupported, .out = {}})
                   : phone.clearAnswer(lack->function);
}

bool prefer(SimulatedPhoneControl &phone, const QStringList &arguments)
{
    std::vector<std::string> networkIds;
    const QStringList words = arguments[0].split(QLatin1Char(','), Qt::SkipEmptyParts);
    for (const QString &word : words)
        networkIds.push_back(word.toStdString());
    phone.setPreferredNetworks(networkIds);
    return true;
}

bool ring(SimulatedPhoneControl &phone, const QStringList &arguments)
{
    return phone.ring(arguments[0].toStdString()) != 0;
}

void answerAll(SimulatedPhoneControl &phone)
{
    for (int callId = 1; callId <= maxCallId; ++callId)
        phone.remoteAnswers(static_cast<unsigned char>(callId));
}

void hangUpAll(SimulatedPhoneControl &phone)
{
    for (int callId = 1; callId <= maxCallId; ++callId)
        phone.remoteHangsUp(static_cast<unsigned char>(callId));
}

constexpr std::array commands = {
    Command{"ring", "NUMBER", 1, ring},
    Command{"answer", "", 0,
            [](SimulatedPhoneControl &phone, const QStringList &) {
                answerAll(phone);
                return true;
            }},
    Command{"delay", "MS", 1, setDelay},
    Command{"fail", "FUNCTIONS RESULT", 2, fail},
    Command{"missing", "SUBJECT", 1,
            [](SimulatedPhoneControl &phone, const QStringList &arguments) {
                return setMissing(phone, arguments[0], true);
            }},
    Command{"prefer", "NETWORK,...", 1, prefer},
    Command{"disk-full", "", 0,
            [](SimulatedPhoneControl &phone, const QStringList &) {
                phone.setDiskFull(true);
                return true;
            }},
};

} // namespace

Desk::Desk(QObject *parent)
    : QObject(parent)
{
    m_timer.setInterval(500);
    connect(&m_timer, &QTimer::timeout, this, &Desk::look);
    SimulatedPhoneControl *const phone = findSimulatedPhone();
    if (!phone)
        return;
    // The observer runs wherever the platform is called, so what it hears is sent here.
    phone->setObserver([this](const std::string &call, const std::string &answer) {
        QMetaObject::invokeMethod(
            this,
            [this, call = QString::fromStdString(call), answer = QString::fromStdString(answer)] {
                m_journal.add(call, answer);
            },
            Qt::QueuedConnection);
    });
}

Desk::~Desk()
{
    if (SimulatedPhoneControl *const phone = findSimulatedPhone())
        phone->setObserver({});
}

bool Desk::isPresent()
{
    return findSimulatedPhone() != nullptr;
}

bool Desk::run(const QString &command, QString *error)
{
    QStringList words = command.split(QLatin1Char(' '), Qt::SkipEmptyParts);
    const QString name = words.isEmpty() ? QString() : words.takeFirst();
    const auto found = std::find_if(commands.begin(), commands.end(), [&](const Command &candidate) {
        return name == QLatin1String(candidate.name);
    });
    SimulatedPhoneControl *const phone = findSimulatedPhone();
    if (!phone)
        *error =
            QStringLiteral("the phone is not the simulated one: \"%1\" cannot be done to it").arg(command);
    else if (found == commands.end() || words.size() != found->count || !found->run(*phone, words))
        *error =
            QStringLiteral("\"%1\" cannot be done to the phone; these can: %2").arg(command, commandHelp());
    else
        return true;
    return false;
}

QString Desk::commandHelp()
{
    QStringList help;
    for (const Command &command : commands)
        help << QStringLiteral("%1 %2")
                    .arg(QLatin1String(command.name), QLatin1String(command.arguments))
                    .trimmed();
    return help.join(QStringLiteral(", "));
}

void Desk::setWatching(bool watching)
{
    if (watching == this->watching())
        return;
    if (watching) {
        m_timer.start();
        look();
    } else {
        m_timer.stop();
    }
    Q_EMIT watchingChanged();
}

void Desk::setDelay(int milliseconds)
{
    if (SimulatedPhoneControl *const phone = findSimulatedPhone())
        phone->setDelay("*", std::chrono::milliseconds(milliseconds));
    s_delay = milliseconds;
    Q_EMIT arranged();
}

void Desk::setDiskFull(bool full)
{
    if (SimulatedPhoneControl *const phone = findSimulatedPhone())
        phone->setDiskFull(full);
    s_diskFull = full;
    Q_EMIT arranged();
}

void Desk::setSimReady(bool ready)
{
    if (SimulatedPhoneControl *const phone = findSimulatedPhone())
        phone->setSimReady(ready);
    s_simReady = ready;
    Q_EMIT arranged();
}

void Desk::ring(const QString &number)
{
    if (SimulatedPhoneControl *const phone = findSimulatedPhone())
        phone->ring(number.toStdString());
    look();
}

void Desk::otherSideAnswers()
{
    if (SimulatedPhoneControl *const phone = findSimulatedPhone())
        answerAll(*phone);
    look();
}

void Desk::otherSideHangsUp()
{
    if (SimulatedPhoneControl *const phone = findSimulatedPhone())
        hangUpAll(*phone);
    look();
}

void Desk::fail(const QString &functions, int result)
{
    SimulatedPhoneControl *const phone = findSimulatedPhone();
    if (!phone)
        return;
    if (result == 0)
        phone->clearAnswer(functions.toStdString());
    else
        phone->setAnswer(functions.toStdString(), {.result = result, .out = {}});
}

void Desk::setMissing(const QString &subject, bool missing)
{
    SimulatedPhoneControl *const phone = findSimulatedPhone();
    if (!phone || !::setMissing(*phone, subject, missing))
        return;
    s_missing.removeAll(subject);
    if (missing)
        s_missing << subject;
    Q_EMIT arranged();
}

void Desk::reset()
{
    if (SimulatedPhoneControl *const phone = findSimulatedPhone()) {
        phone->reset();
        phone->setLink(
            true); // a program that runs has opened it and does not know that it is another phone's
    }
    s_delay = 0;
    s_diskFull = false;
    s_simReady = true;
    s_missing.clear();
    look();
    Q_EMIT arranged();
}

void Desk::look()
{
    SimulatedPhoneControl *const phone = findSimulatedPhone();
    if (!phone)
        return;
    QVariantList facts;
    for (const SimulatedPhoneControl::Fact &fact : phone->facts()) {
        facts << QVariantMap{{QStringLiteral("subject"), QString::fromStdString(fact.subject)},
                             {QStringLiteral("text"), QString::fromStdString(fact.text)}};
    }
    if (facts == m_facts)
        return;
    m_facts = facts;
    Q_EMIT factsChanged();
}
