// Call forwarding, as the network keeps it.
//
// Everything goes by the service strings of 3GPP TS 22.030, which the daemon hands to the network at once. They set number
// and no-reply time in one step, reach data and fax too, and tell the network's truth: the daemon's own properties are
// for voice only, are read from the network once, and hide the conditional forwardings while an unconditional one is
// on. A question for all classes at once keeps those properties right; one for data or fax alone would clear them. After
// each change the daemon asks the network how things stand now; a change counts only when that says so too.
#include "Daemon.h"
#include "Interfaces.h"
#include "Text.h"

#include "TAPI_CS.h"

#include <algorithm>
#include <array>
#include <span>

using namespace Ofono;

namespace {

constexpr std::size_t mostDigits = 20;
constexpr unsigned char longestTimer = 30;
constexpr unsigned char enabled = 1;

/** A service class, its code in a service string, and how the daemon's names for its forwardings begin. */
struct ServiceClass {
    unsigned char bit;
    const char *code;
    std::array<const char *, 2> names;
};

constexpr std::array<ServiceClass, 3> serviceClasses = {{
    {1, "11", {"Voice", nullptr}},
    {2, "20", {"DataAsync", "DataSync"}}, // for data of every kind
    {4, "13", {"Fax", nullptr}},
}};
constexpr unsigned char allClasses = 7;

/** A condition's code in a service string, and how the daemon's names for it end; a combined one has several. */
struct Condition {
    const char *code;
    bool waits; ///< for the no-reply time
    std::array<const char *, 4> names;
};

constexpr std::array<Condition, 6> conditions = {{
    {"21", false, {"Unconditional"}},
    {"67", false, {"Busy"}},
    {"61", true, {"NoReply"}},
    {"62", false, {"NotReachable"}},
    {"002", true, {"Unconditional", "Busy", "NoReply", "NotReachable"}},
    {"004", true, {"Busy", "NoReply", "NotReachable"}},
}};

_TAPI_RESULT_E ask(const std::string &serviceString, Answer &answer)
{
    return Daemon::instance().request(
        {supplementaryServices, "Initiate", {Value(serviceString.c_str())}, Deadline::Network}, answer);
}

std::string registration(const Condition &condition, const ServiceClass &serviceClass,
                         const std::string &number, unsigned char noReplyTimer)
{
    std::string text = std::string("**") + condition.code + '*' + number + '*' + serviceClass.code;
    if (condition.waits && noReplyTimer >= 1 && noReplyTimer <= longestTimer)
        text += '*' + std::to_string(noReplyTimer);
    return text + '#';
}

std::string erasure(const Condition &condition, const ServiceClass &serviceClass)
{
    return std::string("##") + condition.code + "**" + serviceClass.code + '#';
}

/**
 * The number of the first forwarding of that class that is on under that condition, empty when none is. Nothing when the
 * answer does not tell: the daemon names each forwarding, those that are off too.
 */
std::optional<std::string_view> numberIn(const Properties &rules, const ServiceClass &serviceClass,
                                         const Condition &condition)
{
    bool allTold = true;
    for (const char *const conditionName : condition.names) {
        for (const char *const className : serviceClass.names) {
            if (!conditionName || !className)
                continue;
            const auto number = rules.text((std::string(className) + conditionName).c_str());
            if (number && !number->empty())
                return number;
            allTold = allTold && number;
        }
    }
    return allTold ? std::optional(std::string_view()) : std::nullopt;
}

/** The network may tell the number with or without the country's code, or the area's. */
bool isSameNumber(std::string_view first, std::string_view second)
{
    const auto significant = [](std::string_view number) {
        return number.substr(std::min(number.find_first_not_of("+0"), number.size()));
    };
    const std::string_view shorter = significant(first.size() < second.size() ? first : second);
    const std::string_view longer = significant(first.size() < second.size() ? second : first);
    return longer.size() >= shorter.size() && longer.substr(longer.size() - shorter.size()) == shorter;
}

/** Whether each forwarding that the condition names is as it was told to be: on to that number, or off without one. */
bool isSo(const Properties &rules, const ServiceClass &serviceClass, const Condition &condition,
          std::string_view number)
{
    return std::all_of(condition.names.begin(), condition.names.end(), [&](const char *name) {
        if (!name)
            return true;
        const auto told = numberIn(rules, serviceClass, {nullptr, false, {name}});
        return told && told->empty() == number.empty() && isSameNumber(*told, number);
    });
}

/** Changes forwardings by a service string. A failure when the network's own word is another one afterwards. */
_TAPI_RESULT_E change(const std::string &serviceString, const Condition &condition,
                      std::span<const ServiceClass> classes, std::string_view number)
{
    Answer answer;
    const _TAPI_RESULT_E result = ask(serviceString, answer);
    if (result != TAPI_RESULT_SUCC)
        return result;
    const Properties rules = answer.forwardingRules();
    const bool done = std::all_of(classes.begin(), classes.end(), [&](const ServiceClass &serviceClass) {
        return isSo(rules, serviceClass, condition, number);
    });
    return done ? TAPI_RESULT_SUCC : TAPI_RESULT_FAIL;
}

} // namespace

_TAPI_RESULT_E TAPI_CS_GetDivertStatus(unsigned char serviceClass, _TAPI_CS_DIVERT_WHEN_E when,
                                       _TAPI_CS_DIVERT_STATUS_S *status)
{
    if (when >= conditions.size() || (serviceClass & allClasses) == 0)
        return TAPI_RESULT_INVALID_PARAM;
    Answer answer;
    const _TAPI_RESULT_E result = ask(std::string("*#") + conditions[when].code + '#', answer);
    if (result != TAPI_RESULT_SUCC)
        return result;
    const Properties rules = answer.forwardingRules();
    _TAPI_CS_DIVERT_STATUS_S found = {};
    for (const ServiceClass &oneClass : serviceClasses) {
        if ((serviceClass & oneClass.bit) == 0 || found.status == enabled)
            continue;
        const auto number = numberIn(rules, oneClass, conditions[when]);
        if (!number)
            return TAPI_RESULT_FAIL;
        if (number->empty())
            continue;
        found.status = enabled;
        fillLatin1(found.number, *number);
    }
    *status = found;
    return TAPI_RESULT_SUCC;
}

_TAPI_RESULT_E TAPI_CS_DivertCallToNumber(unsigned char enable, unsigned char serviceClass,
                                          _TAPI_CS_DIVERT_WHEN_E when, TAPI_DIVERT_NUMBER_A number,
                                          unsigned char noReplyTimer)
{
    const std::string target = withoutPunctuation(textOf(number, sizeof(TAPI_DIVERT_NUMBER_A)));
    if (when >= conditions.size() || (serviceClass & allClasses) == 0)
        return TAPI_RESULT_INVALID_PARAM;
    // What is no proper service string would go to the network as a text, and might never be answered.
    if (enable == enabled && !isPhoneNumber(target, mostDigits))
        return TAPI_RESULT_INVALID_PARAM;
    const OneDeadline deadline;
    for (const ServiceClass &oneClass : serviceClasses) {
        if ((serviceClass & oneClass.bit) == 0)
            continue;
        const bool on = enable == enabled;
        const _TAPI_RESULT_E result =
            change(on ? registration(conditions[when], oneClass, target, noReplyTimer)
                      : erasure(conditions[when], oneClass),
                   conditions[when], {&oneClass, 1}, on ? std::string_view(target) : std::string_view());
        if (result != TAPI_RESULT_SUCC)
            return result;
    }
    return TAPI_RESULT_SUCC;
}

_TAPI_RESULT_E TAPI_CS_CancelAllVoiceDivert()
{
    const Condition &all = conditions[TAPI_CS_DIVERT_ALL];
    return change(erasure(all, serviceClasses[0]), all, {serviceClasses.data(), 1}, {});
}

_TAPI_RESULT_E TAPI_CS_CancelAllDivert()
{
    return change("##002#", conditions[TAPI_CS_DIVERT_ALL], serviceClasses, {});
}
