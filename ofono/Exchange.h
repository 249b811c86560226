// A request on its way, and what becomes of it.
#pragma once

#include "BusConnection.h"
#include "Properties.h"

#include <chrono>
#include <cstdint>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include <systemd/sd-bus.h>

namespace Ofono {

/**
 * One request, from its sending to its end.
 *
 * The daemon never answers a request that was pending when its modem went off or its interface went away. So whoever
 * waits longer than a moment also hears what becomes of these.
 */
class Exchange {
public:
    using Time = std::chrono::steady_clock::time_point;

    /** @p modem is the path of the modem that is asked; empty when the request is no modem's. The interface is a constant. */
    Exchange(std::string modem, std::string_view interface);

    Exchange(const Exchange &) = delete;
    Exchange &operator=(const Exchange &) = delete;

    /** Sends it, and waits as long as what is at hand takes, at most until @p end. 0, or a negative errno. */
    int send(sd_bus *bus, sd_bus_message *call, Time end);
    /** Waits until it is over. 0, or a negative errno: -ETIMEDOUT when it is not over by @p end. */
    int wait(Handset::BusConnection &bus, Time end);

    bool isOver() const { return m_answer || m_isLost; }
    /** No answer will come: the modem is gone or off, or it has lost the interface. */
    bool isLost() const { return m_isLost; }

    const Message &answer() const { return m_answer; }
    const std::string &modem() const { return m_modem; }
    std::string_view interface() const { return m_interface; }

private:
    struct FreeSlot {
        void operator()(sd_bus_slot *slot) const;
    };
    using Slot = std::unique_ptr<sd_bus_slot, FreeSlot>;

    void listen(sd_bus *bus);
    void watchModem(sd_bus *bus);
    void match(sd_bus *bus, const std::string &rule, sd_bus_message_handler_t handler);
    void hearChange(sd_bus_message *signal);
    void judge(std::optional<bool> powered, const std::optional<std::vector<std::string>> &interfaces);

    const std::string m_modem;
    const std::string_view m_interface;
    std::uint64_t m_cookie = 0; ///< by which the answer is known
    bool m_isLost = false;
    Message m_answer;
    std::vector<Slot> m_slots; ///< what is still to come; the first is the answer
};

} // namespace Ofono
