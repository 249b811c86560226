// The properties that the daemon answers.
#include "Properties.h"

#include <algorithm>

#include <systemd/sd-bus.h>

namespace Ofono {

namespace {

/** Most values are texts, and to try for one costs less than to ask what it is. */
bool skipValue(sd_bus_message *message)
{
    if (sd_bus_message_enter_container(message, SD_BUS_TYPE_VARIANT, "s") <= 0)
        return sd_bus_message_skip(message, "v") >= 0;
    const char *text = nullptr;
    return sd_bus_message_read_basic(message, SD_BUS_TYPE_STRING, &text) > 0
        && sd_bus_message_exit_container(message) >= 0;
}

} // namespace

void Unreference::operator()(sd_bus_message *message) const
{
    sd_bus_message_unref(message);
}

Properties::Properties(sd_bus_message *message)
    : m_message(sd_bus_message_ref(message))
{
}

/** Calls @p read inside the variant of that name. False when it is absent or of another type. */
template <typename Read>
bool Properties::find(const char *name, const char *type, Read read) const
{
    sd_bus_message *const message = m_message.get();
    if (!message || m_broken || sd_bus_message_rewind(message, 0) < 0)
        return false;
    m_broken = true; // until the message stands between two entries again
    while (sd_bus_message_enter_container(message, SD_BUS_TYPE_DICT_ENTRY, "sv") > 0) {
        const char *key = nullptr;
        if (sd_bus_message_read_basic(message, SD_BUS_TYPE_STRING, &key) <= 0)
            return false;
        const bool found = std::string_view(key) == name;
        const char *contents = nullptr;
        bool good = false;
        if (found && sd_bus_message_peek_type(message, nullptr, &contents) > 0
            && std::string_view(contents) == type) {
            if (sd_bus_message_enter_container(message, SD_BUS_TYPE_VARIANT, type) <= 0 || !read(message)
                || sd_bus_message_exit_container(message) < 0)
                return false;
            good = true;
        } else if (!skipValue(message)) {
            return false;
        }
        if (sd_bus_message_exit_container(message) < 0)
            return false;
        if (found) {
            m_broken = false;
            return good;
        }
    }
    m_broken = false;
    return false;
}

template <typename Raw>
std::optional<Raw> Properties::basic(const char *name, char type) const
{
    Raw value = {};
    const char signature[] = {type, '\0'};
    const bool found = find(name, signature, [&](sd_bus_message *message) {
        return sd_bus_message_read_basic(message, type, &value) > 0;
    });
    return found ? std::optional(value) : std::nullopt;
}

std::optional<bool> Properties::flag(const char *name) const
{
    const auto value = basic<int>(name, SD_BUS_TYPE_BOOLEAN);
    return value ? std::optional(*value != 0) : std::nullopt;
}

std::optional<std::uint8_t> Properties::byte(const char *name) const
{
    return basic<std::uint8_t>(name, SD_BUS_TYPE_BYTE);
}

std::optional<std::uint16_t> Properties::shortNumber(const char *name) const
{
    return basic<std::uint16_t>(name, SD_BUS_TYPE_UINT16);
}

std::optional<std::uint32_t> Properties::number(const char *name) const
{
    return basic<std::uint32_t>(name, SD_BUS_TYPE_UINT32);
}

std::optional<double> Properties::real(const char *name) const
{
    return basic<double>(name, SD_BUS_TYPE_DOUBLE);
}

std::optional<std::string_view> Properties::text(const char *name) const
{
    const auto value = basic<const char *>(name, SD_BUS_TYPE_STRING);
    return value ? std::optional<std::string_view>(*value) : std::nullopt;
}

std::optional<std::vector<std::string>> Properties::texts(const char *name) const
{
    std::vector<std::string> list;
    const bool found = find(name, "as", [&](sd_bus_message *message) {
        if (sd_bus_message_enter_container(message, SD_BUS_TYPE_ARRAY, "s") <= 0)
            return false;
        const char *text = nullptr;
        while (sd_bus_message_read_basic(message, SD_BUS_TYPE_STRING, &text) > 0)
            list.emplace_back(text);
        return sd_bus_message_exit_container(message) >= 0;
    });
    return found ? std::optional(std::move(list)) : std::nullopt;
}

std::optional<std::uint8_t> Properties::byteOf(const char *name, const char *entry) const
{
    std::optional<std::uint8_t> value;
    find(name, "a{sy}", [&](sd_bus_message *message) {
        if (sd_bus_message_enter_container(message, SD_BUS_TYPE_ARRAY, "{sy}") <= 0)
            return false;
        const char *key = nullptr;
        std::uint8_t byte = 0;
        while (sd_bus_message_read(message, "{sy}", &key, &byte) > 0) {
            if (std::string_view(key) == entry)
                value = byte;
        }
        return sd_bus_message_exit_container(message) >= 0;
    });
    return value;
}

bool Properties::has(const char *name, std::string_view text) const
{
    const auto list = texts(name);
    return list && std::find(list->begin(), list->end(), text) != list->end();
}

} // namespace Ofono
