// A request on its way.
#include "Exchange.h"
#include "Interfaces.h"

#include <algorithm>
#include <cerrno>
#include <cstdint>

namespace Ofono {

using std::chrono::duration_cast;
using std::chrono::microseconds;
using std::chrono::milliseconds;
using std::chrono::steady_clock;

namespace {

/** The interface of the modem on which that of a part of it depends. */
std::string_view listed(std::string_view interface)
{
    if (interface == voiceCall)
        return voiceCallManager;
    return interface == networkOperator ? networkRegistration : interface;
}

/** What is at hand is answered long before, so that only slow requests pay for the watch. */
constexpr microseconds patience = milliseconds(100);

} // namespace

void Exchange::FreeSlot::operator()(sd_bus_slot *slot) const
{
    sd_bus_slot_unref(slot);
}

Exchange::Exchange(std::string modem, std::string_view interface)
    : m_modem(std::move(modem))
    , m_interface(listed(interface))
{
}

int Exchange::send(sd_bus *bus, sd_bus_message *call, Time end)
{
    const auto left = std::min(duration_cast<microseconds>(end - steady_clock::now()), patience);
    const auto limit = static_cast<std::uint64_t>(std::max(left, microseconds(1)).count());
    sd_bus_error error = {nullptr, nullptr, 0};
    sd_bus_message *message = nullptr;
    int result = sd_bus_call(bus, call, limit, &error, &message);
    if (result == -ETIMEDOUT && sd_bus_error_has_name(&error, SD_BUS_ERROR_TIMEOUT) > 0) {
        result = sd_bus_message_get_cookie(call, &m_cookie);
        listen(bus);
    } else if (result < 0 && sd_bus_is_open(bus) > 0) {
        result = sd_bus_message_new_method_error(call, &message, &error);
    }
    m_answer.reset(message);
    sd_bus_error_free(&error);
    return std::min(result, 0);
}

/** The bus's library has given the call up, so that a later answer belongs to no call there. It is known by its number. */
void Exchange::listen(sd_bus *bus)
{
    sd_bus_slot *slot = nullptr;
    const auto keepAnswer = [](sd_bus_message *message, void *place, sd_bus_error *) {
        auto *const exchange = static_cast<Exchange *>(place);
        std::uint64_t cookie = 0;
        if (sd_bus_message_get_reply_cookie(message, &cookie) < 0 || cookie != exchange->m_cookie)
            return 0;
        exchange->m_answer.reset(sd_bus_message_ref(message));
        return 1;
    };
    if (sd_bus_add_filter(bus, &slot, keepAnswer, this) >= 0)
        m_slots.emplace_back(slot);
}

int Exchange::wait(Handset::BusConnection &bus, Time end)
{
    if (isOver())
        return 0;
    if (m_slots.size() == 1 && !m_modem.empty())
        watchModem(bus.get());
    return bus.serveUntil([this] { return isOver(); }, end);
}

/** From the rules on everything is heard; what has happened before is asked for. */
void Exchange::watchModem(sd_bus *bus)
{
    const std::string fromDaemon = std::string("type='signal',sender='") + service + "',";
    match(bus,
          fromDaemon + "path='" + m_modem + "',interface='" + modemInterface + "',member='PropertyChanged'",
          [](sd_bus_message *signal, void *exchange, sd_bus_error *) {
              static_cast<Exchange *>(exchange)->hearChange(signal);
              return 0;
          });
    match(bus, fromDaemon + "path='/',interface='" + manager + "',member='ModemRemoved'",
          [](sd_bus_message *signal, void *place, sd_bus_error *) {
              auto *const exchange = static_cast<Exchange *>(place);
              const char *path = nullptr;
              if (sd_bus_message_read_basic(signal, SD_BUS_TYPE_OBJECT_PATH, &path) > 0)
                  exchange->m_isLost = exchange->m_isLost || exchange->m_modem == path;
              return 0;
          });
    sd_bus_slot *slot = nullptr;
    const auto look = [](sd_bus_message *answer, void *exchange, sd_bus_error *) {
        if (sd_bus_message_enter_container(answer, SD_BUS_TYPE_ARRAY, "{sv}") > 0) {
            const Properties state(answer);
            static_cast<Exchange *>(exchange)->judge(state.flag("Powered"), state.texts("Interfaces"));
        }
        return 0;
    };
    if (sd_bus_call_method_async(bus, &slot, service, m_modem.c_str(), modemInterface, "GetProperties", look,
                                 this, "")
        >= 0)
        m_slots.emplace_back(slot);
}

void Exchange::match(sd_bus *bus, const std::string &rule, sd_bus_message_handler_t handler)
{
    sd_bus_slot *slot = nullptr;
    if (sd_bus_add_match_async(bus, &slot, rule.c_str(), handler, nullptr, this) >= 0)
        m_slots.emplace_back(slot);
}

void Exchange::hearChange(sd_bus_message *signal)
{
    const char *name = nullptr;
    if (sd_bus_message_read_basic(signal, SD_BUS_TYPE_STRING, &name) <= 0)
        return;
    int flag = 0;
    if (name == std::string_view("Powered") && sd_bus_message_read(signal, "v", "b", &flag) > 0)
        judge(flag != 0, std::nullopt);
    if (name != std::string_view("Interfaces")
        || sd_bus_message_enter_container(signal, SD_BUS_TYPE_VARIANT, "as") <= 0
        || sd_bus_message_enter_container(signal, SD_BUS_TYPE_ARRAY, "s") <= 0)
        return;
    std::vector<std::string> interfaces;
    const char *interface = nullptr;
    while (sd_bus_message_read_basic(signal, SD_BUS_TYPE_STRING, &interface) > 0)
        interfaces.emplace_back(interface);
    judge(std::nullopt, std::move(interfaces));
}

void Exchange::judge(std::optional<bool> powered, const std::optional<std::vector<std::string>> &interfaces)
{
    const bool hasInterface = !interfaces || m_interface == modemInterface
        || std::find(interfaces->begin(), interfaces->end(), m_interface) != interfaces->end();
    m_isLost = m_isLost || !powered.value_or(true) || !hasInterface;
}

} // namespace Ofono
