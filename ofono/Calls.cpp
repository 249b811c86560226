// The daemon's voice calls.
#include "Calls.h"
#include "CallTimes.h"
#include "Interfaces.h"

#include <algorithm>
#include <charconv>

namespace Ofono {

namespace {

constexpr std::string_view pathPrefix = "/voicecall";

/** More than any network lets a phone have; what is beyond is not looked at. */
constexpr std::size_t mostCalls = 32;

_TAPI_CALL_STATE_E stateOf(std::string_view text)
{
    if (text == "dialing" || text == "alerting")
        return TAPI_CALL_STATE_DIALLING;
    if (text == "incoming" || text == "waiting")
        return TAPI_CALL_STATE_RINGING;
    if (text == "active")
        return TAPI_CALL_STATE_ACTIVE;
    return text == "held" ? TAPI_CALL_STATE_HELD : TAPI_CALL_STATE_IDLE;
}

} // namespace

unsigned char callIdOf(std::string_view path)
{
    const auto begin = path.rfind(pathPrefix);
    if (begin == std::string_view::npos)
        return 0;
    path.remove_prefix(begin + pathPrefix.size());
    unsigned char id = 0;
    const auto parsed = std::from_chars(path.data(), path.data() + path.size(), id);
    return parsed.ec == std::errc() && parsed.ptr == path.data() + path.size() && id != 255 ? id : 0;
}

_TAPI_RESULT_E Calls::read(Deadline deadline)
{
    const std::int64_t begun = CallTimes::beginLook();
    Answer answer;
    const _TAPI_RESULT_E result =
        Daemon::instance().request({voiceCallManager, "GetCalls", {}, deadline}, answer);
    if (result != TAPI_RESULT_SUCC)
        return result;
    m_calls.clear();
    answer.objects([this](std::string_view path, const Properties &properties) {
        Call call;
        const std::string_view state = properties.text("State").value_or("");
        call.id = callIdOf(path);
        call.state = stateOf(state);
        if (call.id == 0 || call.state == TAPI_CALL_STATE_IDLE)
            return true;
        call.waits = state == "waiting";
        call.isRinging = call.state == TAPI_CALL_STATE_RINGING;
        call.joined = properties.flag("Multiparty").value_or(false);
        call.object = path.substr(path.rfind('/'));
        call.number = properties.text("LineIdentification").value_or("");
        call.startTime = properties.text("StartTime").value_or("");
        m_calls.push_back(std::move(call));
        return m_calls.size() < mostCalls;
    });
    CallTimes::see(m_calls, begun);
    return TAPI_RESULT_SUCC;
}

const Call *Calls::find(unsigned char id) const
{
    const auto found =
        std::find_if(m_calls.begin(), m_calls.end(), [id](const Call &call) { return call.id == id; });
    return found == m_calls.end() ? nullptr : &*found;
}

unsigned int Calls::count(_TAPI_CALL_STATE_E state) const
{
    return static_cast<unsigned int>(std::count_if(
        m_calls.begin(), m_calls.end(), [state](const Call &call) { return call.state == state; }));
}

} // namespace Ofono
