// The telephony daemon: the one place of this library that speaks D-Bus.
#pragma once

#include "BusConnection.h"
#include "Properties.h"

#include "TAPI_RESULT.h"

#include <atomic>
#include <chrono>
#include <functional>
#include <mutex>
#include <optional>
#include <string>
#include <string_view>
#include <variant>
#include <vector>

namespace Ofono {

/** How long a request may take. */
enum class Deadline {
    AtHand,  ///< what the daemon knows: 2 seconds
    Network, ///< what the modem, the card or the network must be asked for: 30 seconds
};

/** While it lives, all requests of its thread together have the time of one for the network. */
class OneDeadline {
public:
    OneDeadline();
    ~OneDeadline();

    OneDeadline(const OneDeadline &) = delete;
    OneDeadline &operator=(const OneDeadline &) = delete;

    /** When a request that is made now must have ended. */
    static std::chrono::steady_clock::time_point endOf(Deadline deadline);

private:
    const std::chrono::steady_clock::time_point m_before;
};

/** The path of an object, as an argument. */
struct ObjectPath {
    const char *text;
};

using Texts = std::vector<std::string>;

/** What a request carries. Texts and lists stay the caller's, who keeps them until it is answered. */
using Value = std::variant<bool, std::uint8_t, std::uint16_t, std::uint32_t, double, const char *, ObjectPath,
                           const Texts *>;

struct Argument {
    Argument(Value argument, bool variant = false)
        : value(argument)
        , inVariant(variant)
    {
    }

    Value value;
    bool inVariant; ///< travels in a variant, as the values of properties do
};

struct Request {
    const char *interface;
    const char *method;
    std::vector<Argument> arguments = {};
    Deadline deadline = Deadline::AtHand;
    std::string_view object = {}; ///< below the modem's own, such as "/voicecall01"
    bool secret = false;          ///< carries a PIN, so its message is wiped
};

/** What a request was answered with. A reader gives nothing when the answer has another shape. */
class Answer {
public:
    std::optional<std::string_view> path() const;
    Properties properties() const;
    /** A list of objects with their properties; what is malformed ends it. */
    void objects(const std::function<void(std::string_view path, const Properties &)> &visit) const;
    /** The rules that the answer to a forwarding's service string lists. */
    Properties forwardingRules() const;

private:
    friend class Daemon;

    Message m_message;
};

/**
 * The daemon, and the modem of it that this phone uses: the one that KVQ_MODEM names, else the first that is
 * powered and has a card.
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
    /** For what may take for ever: stays only long enough to hear a refusal. */
    _TAPI_RESULT_E begin(const Request &request);

    _TAPI_RESULT_E properties(const char *interface, Deadline deadline, Properties &properties);
    _TAPI_RESULT_E setProperty(const char *interface, const char *name, const Value &value,
                               Deadline deadline = Deadline::Network);

    /** Looks again at each change that the daemon tells, until it is so. False when it is not within @p limit. */
    static bool waitUntil(const std::function<bool()> &isSo, std::chrono::milliseconds limit);
    static std::chrono::milliseconds lengthOf(Deadline deadline);

    /** The modem's path, for the paths of its objects as arguments. */
    std::string modem();
    /** Lets the next request choose its modem anew, as when the card of this one is gone. */
    void forgetModem();

private:
    using Time = std::chrono::steady_clock::time_point;
    enum class Link { NeverOpened, Open, Lost };

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

    Outcome ask(const std::string &path, const Request &request, Time end);
    Outcome exchange(const std::string &path, const Request &request, Time end, bool waits);
    Outcome failure(int error, const char *name, const char *message);
    _TAPI_RESULT_E chooseModem(std::string &path, Time end);
    _TAPI_RESULT_E whyNothingIsThere(const std::string &modem, const Request &request, Time end);
    _TAPI_RESULT_E perform(const Request &request, bool waits, Message &answer);

    std::timed_mutex m_mutex; ///< held while a request is under way; guards the next three
    Handset::BusConnection m_bus;
    Link m_state = Link::NeverOpened;
    bool m_refusalReported = false;
    std::mutex m_modemMutex; ///< held for moments only, so that nobody's deadline counts
    std::string m_modem;     ///< the modem that was chosen; empty when it is to be chosen
    std::atomic<int> m_linkDescriptor = -1;
};

} // namespace Ofono
