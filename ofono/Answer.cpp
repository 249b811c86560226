// What a request was answered with.
#include "Answer.h"

#include <systemd/sd-bus.h>

namespace Ofono {

std::optional<std::string_view> Answer::path() const
{
    const char *path = nullptr;
    if (sd_bus_message_rewind(m_message.get(), 1) < 0
        || sd_bus_message_read_basic(m_message.get(), SD_BUS_TYPE_OBJECT_PATH, &path) <= 0)
        return std::nullopt;
    return path;
}

Properties Answer::properties() const
{
    sd_bus_message *const message = m_message.get();
    if (sd_bus_message_rewind(message, 1) < 0
        || sd_bus_message_enter_container(message, SD_BUS_TYPE_ARRAY, "{sv}") <= 0)
        return {};
    return Properties(message);
}

void Answer::objects(const std::function<bool(std::string_view path, const Properties &)> &visit) const
{
    sd_bus_message *const message = m_message.get();
    if (sd_bus_message_rewind(message, 1) < 0
        || sd_bus_message_enter_container(message, SD_BUS_TYPE_ARRAY, "(oa{sv})") <= 0)
        return;
    while (sd_bus_message_enter_container(message, SD_BUS_TYPE_STRUCT, "oa{sv}") > 0) {
        const char *path = nullptr;
        if (sd_bus_message_read_basic(message, SD_BUS_TYPE_OBJECT_PATH, &path) <= 0
            || sd_bus_message_enter_container(message, SD_BUS_TYPE_ARRAY, "{sv}") <= 0)
            return;
        if (!visit(path, Properties(message)))
            return;
        while (sd_bus_message_at_end(message, 0) == 0) {
            if (sd_bus_message_skip(message, "{sv}") < 0)
                return;
        }
        for (int container = 0; container < 2; ++container) { // the properties, the modem
            if (sd_bus_message_exit_container(message) < 0)
                return;
        }
    }
}

Properties Answer::forwardingRules() const
{
    sd_bus_message *const message = m_message.get();
    if (sd_bus_message_rewind(message, 1) < 0 || sd_bus_message_skip(message, "s") < 0
        || sd_bus_message_enter_container(message, SD_BUS_TYPE_VARIANT, "(ssa{sv})") <= 0
        || sd_bus_message_enter_container(message, SD_BUS_TYPE_STRUCT, "ssa{sv}") <= 0
        || sd_bus_message_skip(message, "ss") < 0
        || sd_bus_message_enter_container(message, SD_BUS_TYPE_ARRAY, "{sv}") <= 0)
        return {};
    return Properties(message);
}

} // namespace Ofono
