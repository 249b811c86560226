// The daemon's voice calls.
#pragma once

#include "Daemon.h"

#include "TAPI_CALL.h"

#include <string>
#include <vector>

namespace Ofono {

/** One voice call as the daemon knows it. Its id is the daemon's own number, so that all programs mean the same. */
struct Call {
    unsigned char id = 0;
    _TAPI_CALL_STATE_E state = TAPI_CALL_STATE_IDLE;
    bool waits = false;     ///< came in beside another call
    bool isRinging = false; ///< came in and is not answered yet
    bool joined = false;
    std::string object; ///< such as "/voicecall01"
    std::string number;
    std::string startTime;
};

class Calls {
public:
    /** Reads the calls there are; those that take part in the time count are counted. */
    _TAPI_RESULT_E read(Deadline deadline);

    const std::vector<Call> &all() const { return m_calls; }
    /** Null when there is no such call. */
    const Call *find(unsigned char id) const;
    unsigned int count(_TAPI_CALL_STATE_E state) const;

private:
    std::vector<Call> m_calls;
};

/** The id in the path of a call; 0 when it is none. */
unsigned char callIdOf(std::string_view path);

} // namespace Ofono
