// A request on its way.
#include "Exchange.h"
#include "Interfaces.h"

#include <algorithm>
#include <cerrno>
#include <cstdint>

namespace Ofono {

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
constexpr milliseconds patience(100);

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

int Exchange::send(sd_bus *bus, sd_bus_message *call)
{
    const auto keepAnswer = [](sd_bus_message *answer, void *exchange, sd_bus_error *) {
        static_cast<Exchange *>(exchange)->m_answer.reset(sd_bus_message_ref(answer));
        return 0;
    };
    sd_bus_slot *slot = nullptr;
    const int result = sd_bus_call_async(bus, &slot, call, keepAnswer, this, UINT64_MAX);
    if (result >= 0)
        m_slots.emplace_back(slot);
    return result;
}

int Exchange::wait(Handset::BusConnection &bus, Time end)
{
    const auto isOver = [this] { return this->isOver(); };
    const bool isWatching = m_slots.size() > 1;
    if (isWatching || m_modem.empty())
        return bus.serveUntil(isOver, end);
    const int result = bus.serveUntil(isOver, std::min(end, steady_clock::now() + patience));
    if (result != -ETIMEDOUT || steady_clock::now() >= end)
        return result;
    watchModem(bus.get());
    return bus.serveUntil(isOver, end);
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
