// The caller-id choice that goes with the next call and is then gone.
#pragma once

#include "SharedState.h"

#include "TAPI_CS.h"

#include <array>

namespace Ofono {

/** The ways to show the own number by _TAPI_CALL_RESTRICT_ID_E, as the daemon names them. */
constexpr std::array<const char *, 3> callerIdNames = {"default", "enabled", "disabled"};

/** Takes the choice for one call, so that no other program dials with it too. Puts it back unless it was used. */
class NextCall {
public:
    NextCall() = default;
    ~NextCall()
    {
        std::int32_t none = 0;
        if (m_taken != 0) // unless a newer choice has been made meanwhile
            Handset::sharedState().restrictNextCall.compare_exchange_strong(none, m_taken);
    }

    NextCall(const NextCall &) = delete;
    NextCall &operator=(const NextCall &) = delete;

    _TAPI_CALL_RESTRICT_ID_E take()
    {
        m_taken = Handset::sharedState().restrictNextCall.exchange(0);
        const auto choice = static_cast<_TAPI_CALL_RESTRICT_ID_E>(m_taken);
        const bool known = choice == TAPI_CALL_RESTRICT_ID_INVOKE || choice == TAPI_CALL_RESTRICT_ID_SUPPRESS;
        return known ? choice : TAPI_CALL_RESTRICT_ID_NETWORK;
    }

    void use()
    {
        if (m_taken != 0)
            Handset::sharedState().restrictNextId = 0; // what the programs mirror is over too
        m_taken = 0;
    }

private:
    std::int32_t m_taken = 0;
};

} // namespace Ofono
