// Result codes of the module and what they say to a person.
#pragma once

#include "TAPI_RESULT.h"

#include <QString>

namespace Kvq::Results {

/** The module's own results, outside the platform's range. */
enum : int {
    NotStored = 0x10000, ///< a setting was not stored, for no reason that is known
    DiskFull,            ///< a setting was not stored because the disk is full
    NotAllowed,          ///< the phone is not in a state to change settings
    Cancelled,           ///< the request was cancelled before it ran
};

/** What happened. Empty for success. */
QString text(int result);
/** What to do about it. Empty for success, and where there is nothing to do. */
QString advice(int result);

} // namespace Kvq::Results
