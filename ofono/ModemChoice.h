// Which of the daemon's modems this phone uses.
#pragma once

#include "Answer.h"

#include "TAPI_RESULT.h"

#include <chrono>
#include <cstdint>
#include <functional>
#include <mutex>
#include <string>

namespace Ofono {

/**
 * The choice of the modem: once for the user's session, by its card, and shared by the user's programs.
 *
 * It is the modem that KVQ_MODEM or the product file names, else the first that is powered and has a card. No program
 * goes over to another modem by itself: while the chosen one is off or has no card, that is what requests are answered.
 * Another card in the same modem is chosen with it, and a card that is put into another modem is followed there.
 */
class ModemChoice {
public:
    using Time = std::chrono::steady_clock::time_point;
    /** Asks an object of the daemon, without arguments. */
    using Ask = std::function<_TAPI_RESULT_E(const std::string &path, const char *interface,
                                             const char *method, Answer &answer)>;

    /** The path of the modem to ask. What is not known of it is asked for by @p end. */
    _TAPI_RESULT_E choose(std::string &path, Time end, const Ask &ask);
    /** The modem may be gone, off or without its card: the next choice looks at it again. */
    void forget();
    /** In a forked child, where only this thread lives on. */
    void leaveToParent() noexcept;

private:
    _TAPI_RESULT_E look(std::string &path, Time end, const Ask &ask);
    void remember(const std::string &path, std::uint64_t choice);

    std::mutex m_mutex;         ///< held for moments only, so that nobody's deadline counts
    std::string m_path;         ///< empty when it is to be looked at
    std::uint64_t m_choice = 0; ///< the choice that it came from; 0 for a modem that is named
};

} // namespace Ofono
