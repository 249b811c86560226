// The conformance run: checks that ask a platform library through the engine, each in a process of its own.
#pragma once

#include "PHONE_ENG_NtInterface.h"
#include "PHONE_ENG_Setup.h"

#include <functional>
#include <string>
#include <vector>

namespace Conformance {

/** How a check ended when it did not pass; thrown by the check. */
struct Outcome {
    enum Kind : char { Passed = 'p', Failed = 'f', NotSupported = 's', NotRun = 'n' };
    Kind kind;
    std::string reason;
};

struct Check {
    std::string part;
    std::string name;
    std::function<void()> run;
};

/** @name The checks
 * @{ */
/** What the library must not do to the engine's memory, and what it owes the objects that the engine makes. */
std::vector<Check> boundaryChecks();
/** What can be read; nothing of the phone changes. */
std::vector<Check> readChecks();
/** Settings are changed, read back and put back. */
std::vector<Check> writeChecks();
/** Calls to a number; to the phone's own when it is empty. */
std::vector<Check> callChecks(const QString &number);
/** @} */

/** @name What checks are made of
 * @{ */
inline PHONE_ENG_Setup &setup()
{
    return *PHONE_ENG_Setup::instance();
}

inline PHONE_ENG_NtInterface &network()
{
    return *PHONE_ENG_NtInterface::instance();
}

/** Ends the check as failed unless @p condition holds. */
void expect(bool condition, const std::string &otherwise);
/** Ends the check as failed, or as not supported, unless the result is 0. */
void answered(_TAPI_RESULT_E result);
/** The same for an operation of network selection, whose code stands in the log. */
void answered(bool success);
/** Ends the check as not run. */
[[noreturn]] void leave(const std::string &reason);
/** Opens the telephony client, as a host does before any other request. */
void openSession();
/** @} */

} // namespace Conformance
