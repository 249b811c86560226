// The telephony daemon: the one place of this library that speaks D-Bus.
#pragma once

#include "Answer.h"
#include "BusConnection.h"
#include "Exchange.h"
#include "ModemChoice.h"
#include "Request.h"

#include "TAPI_RESULT.h"

#include <atomic>
#include <chrono>
#include <functional>
#include <mutex>
#include <string>

namespace Ofono {

/**
 * The daemon, and the modem of it that this phone uses, by the choice that the user's programs share.
 *
 * Every request holds to its deadline, is made again while the daemon is occupied, and turns the daemon's errors
 * into results. Any thread may ask; one request is under way at a time. The first request connects. After the bus
 * was lost everything is answered #TAPI_RESULT_LINK_LOST until open() succeeds.
 */
class Daemon {
public:
    static Daemon &instance();

    /** Connects, also again after the bus was lost, and looks whether the daemon is there. */
    _TAPI_RESULT_E open();
    /**
     * The descriptor by which the link is probed, -1 before there was one. It is the same number for ever: while
     * the link is lost it is kept from others by a descriptor that answers no probe.
     */
    int linkDescriptor();

    _TAPI_RESULT_E request(const Request &request);
    _TAPI_RESULT_E request(const Request &request, Answer &answer);
    /** For what may take for ever: stays only long enough to hear a refusal. What the request wants done follows. */
    _TAPI_RESULT_E begin(const Request &request);

    _TAPI_RESULT_E properties(const char *interface, Deadline deadline, Properties &properties);
    _TAPI_RESULT_E setProperty(const char *interface, const char *name, const Value &value,
                               Deadline deadline = Deadline::Network);

    /** Looks again at each change that the daemon tells, until it is so. False when it is not within @p limit. */
    static bool waitUntil(const std::function<bool()> &isSo, std::chrono::milliseconds limit);
    static std::chrono::milliseconds lengthOf(Deadline deadline) { return Ofono::lengthOf(deadline); }

    /** The modem's path, for the paths of its objects as arguments. */
    std::string modem();
    /** The next request looks where the chosen card is before it asks. The choice itself stays. */
    void lookAgain();

private:
    using Time = std::chrono::steady_clock::time_point;
    enum class Link {
        NeverOpened,
        Open,
        Given, ///< away, to who follows the last request
        Lost,
    };

    /** What became of one message to the daemon. */
    struct Outcome {
        _TAPI_RESULT_E result = TAPI_RESULT_SUCC;
        bool inProgress = false;
        bool nothingThere = false; ///< no such object, interface or method
        Message answer = {};
    };

    Daemon();

    _TAPI_RESULT_E connect();
    void lose();
    void park() const noexcept;
    void leaveToParent() noexcept;

    Outcome ask(const std::string &path, const Request &request, Time end, bool waits = true);
    Outcome exchange(const std::string &path, const Request &request, Time end, bool waits);
    Outcome failure(int error, const char *name, const char *message);
    bool freeLine(const std::string &path, const Request &request, Time end);
    void leave(std::unique_ptr<Exchange> exchange, const Request &request);
    _TAPI_RESULT_E chooseModem(std::string &path, Time end);
    _TAPI_RESULT_E whyNothingIsThere(const std::string &modem, const Request &request, Time end);
    _TAPI_RESULT_E perform(const Request &request, bool waits, Answer &answer);

    std::timed_mutex m_mutex; ///< held while a request is under way; guards the next three
    Handset::BusConnection m_bus;
    Link m_state = Link::NeverOpened;
    bool m_refusalReported = false;
    ModemChoice m_choice;
    std::atomic<int> m_linkDescriptor = -1;
};

} // namespace Ofono
