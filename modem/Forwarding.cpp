// Call forwarding.
#include "Commands.h"

#include "Forwarding.h"

namespace AtModem {

namespace {

using Form = Command::Form;

constexpr int lastReason = 5;
constexpr int noReplyReason = 2;
constexpr int defaultClasses = 7;
constexpr int allData = 2;
constexpr int dataBearers = 16 | 32; ///< synchronous and asynchronous
constexpr int defaultTime = 20;      // seconds
constexpr int shortestTime = 1;
constexpr int longestTime = 30;
constexpr std::size_t maxNumberLength = 42;
constexpr int internationalNumber = 145;
constexpr int otherNumber = 129;

/** The network knows steps of five seconds only. */
unsigned char roundedTime(int seconds)
{
    constexpr int step = 5;
    return static_cast<unsigned char>((seconds + step - 1) / step * step);
}

std::string statusLine(const Forwarding *forwarding, int serviceClass, int reason)
{
    if (!forwarding)
        return "+CCFC: 0," + std::to_string(serviceClass);
    std::string line = "+CCFC: 1," + std::to_string(serviceClass) + ",\"" + forwarding->number + "\","
        + std::to_string(forwarding->number.rfind('+', 0) == 0 ? internationalNumber : otherNumber);
    if (reason == noReplyReason)
        line += ",,," + std::to_string(forwarding->noReplyTimer);
    return line;
}

/** The network keeps data by bearer; the class for all data means each of them. */
int bearerClasses(int classes)
{
    return (classes & allData) != 0 ? (classes & ~allData) | dataBearers : classes;
}

Answer query(const Modem &modem, int reason, int classes)
{
    Answer answer;
    for (const unsigned char oneClass : Simulator::forwardedClasses) {
        if ((classes & oneClass) == 0)
            continue;
        const Forwarding *const forwarding = Simulator::activeForwarding(
            modem.phone.services, oneClass, static_cast<_TAPI_CS_DIVERT_WHEN_E>(reason));
        answer.lines.push_back(statusLine(forwarding, oneClass, reason));
    }
    if (answer.lines.empty())
        answer.lines.push_back(statusLine(nullptr, classes, reason));
    return answer;
}

bool isNumber(const std::string &number)
{
    const std::size_t digits = number.rfind('+', 0) == 0 ? 1 : 0;
    return number.size() > digits && number.size() <= maxNumberLength
        && number.find_first_not_of("0123456789*#", digits) == std::string::npos;
}

/** +CCFC=<reason>,<mode>[,<number>[,<type>[,<classes>[,<subaddress>[,<satype>[,<time>]]]]]] */
Answer forward(Modem &modem, Session &, const Command &command)
{
    enum Mode { Disable, Enable, Query, Register, Erase };
    const auto reason = command.number(0);
    const auto mode = command.number(1);
    const auto type = command.number(3, otherNumber);
    const auto classes = command.number(4, defaultClasses);
    const auto time = command.number(7, defaultTime);
    if (command.form != Form::Set || !reason || *reason > lastReason || !mode || *mode > Erase || !type
        || !classes || !time || *time < shortestTime || *time > longestTime)
        return Answer::error(Cme::IncorrectParameters);
    const auto when = static_cast<_TAPI_CS_DIVERT_WHEN_E>(*reason);
    const int bearers = bearerClasses(*classes);
    const auto serviceClasses = static_cast<unsigned int>(bearers);
    ServiceState &services = modem.phone.services;
    _TAPI_RESULT_E result = TAPI_RESULT_INVALID_PARAM;
    switch (*mode) {
    case Query:
        // The network is asked for one condition at a time.
        if (when > TAPI_CS_DIVERT_NOT_REACHABLE)
            return Answer::error(Cme::OperationNotAllowed);
        return query(modem, *reason, bearers);
    case Disable:
    case Enable:
        result = Simulator::switchForwarding(services, *mode == Enable, serviceClasses, when);
        break;
    case Register: {
        std::string number = command.text(2);
        if (!isNumber(number))
            return Answer::error(Cme::IncorrectParameters);
        if (*type == internationalNumber && number.front() != '+')
            number.insert(0, 1, '+');
        result = Simulator::setForwarding(services, true, serviceClasses, when, number, roundedTime(*time));
        break;
    }
    default:
        result = Simulator::setForwarding(services, false, serviceClasses, when, {}, 0);
        break;
    }
    return result == TAPI_RESULT_SUCC ? Answer::ok() : Answer::error(Cme::OperationNotAllowed);
}

constexpr std::array<CommandEntry, 1> commands = {{
    {"+CCFC", Needs::Network, "(0-5)", forward},
}};

} // namespace

std::span<const CommandEntry> forwardingCommands()
{
    return commands;
}

} // namespace AtModem
