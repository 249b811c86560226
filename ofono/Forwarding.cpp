// Call forwarding, as the network keeps it.
//
// Everything goes by the service strings of 3GPP TS 22.030, which the daemon hands to the network at once. They set number
// and no-reply time in one step, reach data and fax too, and tell the network's truth: the daemon's own properties are
// for voice only, are read from the network once, and hide the conditional forwardings while an unconditional one is
// on. A question for all classes at once keeps those properties right; one for data or fax alone would clear them.
#include "Daemon.h"
#include "Interfaces.h"
#include "Text.h"

#include "TAPI_CS.h"

#include <array>

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
    {2, "25", {"DataAsync", "DataSync"}},
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

_TAPI_RESULT_E tell(const std::string &serviceString)
{
    Answer answer;
    return ask(serviceString, answer);
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
        const _TAPI_RESULT_E result =
            tell(enable == enabled ? registration(conditions[when], oneClass, target, noReplyTimer)
                                   : erasure(conditions[when], oneClass));
        if (result != TAPI_RESULT_SUCC)
            return result;
    }
    return TAPI_RESULT_SUCC;
}

_TAPI_RESULT_E TAPI_CS_CancelAllVoiceDivert()
{
    return tell(erasure(conditions[TAPI_CS_DIVERT_ALL], serviceClasses[0]));
}

_TAPI_RESULT_E TAPI_CS_CancelAllDivert()
{
    return tell("##002#");
}
