// What the daemon is asked, as a message.
#include "Request.h"
#include "Interfaces.h"

#include <systemd/sd-bus.h>

namespace Ofono {

namespace {

int append(sd_bus_message *message, char type, const void *value, bool inVariant)
{
    const char contents[] = {type, '\0'};
    int result = inVariant ? sd_bus_message_open_container(message, SD_BUS_TYPE_VARIANT, contents) : 0;
    if (result >= 0)
        result = sd_bus_message_append_basic(message, type, value);
    return result >= 0 && inVariant ? sd_bus_message_close_container(message) : result;
}

int appendList(sd_bus_message *message, const Texts &texts, bool inVariant)
{
    int result = inVariant ? sd_bus_message_open_container(message, SD_BUS_TYPE_VARIANT, "as") : 0;
    if (result >= 0)
        result = sd_bus_message_open_container(message, SD_BUS_TYPE_ARRAY, "s");
    for (const std::string &text : texts) {
        if (result >= 0)
            result = sd_bus_message_append_basic(message, SD_BUS_TYPE_STRING, text.c_str());
    }
    if (result >= 0)
        result = sd_bus_message_close_container(message);
    return result >= 0 && inVariant ? sd_bus_message_close_container(message) : result;
}

struct Append {
    sd_bus_message *message;
    bool inVariant;

    int operator()(bool value) const
    {
        const int flag = value ? 1 : 0;
        return append(message, SD_BUS_TYPE_BOOLEAN, &flag, inVariant);
    }
    int operator()(std::uint8_t value) const { return append(message, SD_BUS_TYPE_BYTE, &value, inVariant); }
    int operator()(std::uint16_t value) const
    {
        return append(message, SD_BUS_TYPE_UINT16, &value, inVariant);
    }
    int operator()(std::uint32_t value) const
    {
        return append(message, SD_BUS_TYPE_UINT32, &value, inVariant);
    }
    int operator()(double value) const { return append(message, SD_BUS_TYPE_DOUBLE, &value, inVariant); }
    int operator()(const char *value) const { return append(message, SD_BUS_TYPE_STRING, value, inVariant); }
    int operator()(ObjectPath value) const
    {
        return append(message, SD_BUS_TYPE_OBJECT_PATH, value.text, inVariant);
    }
    int operator()(const Texts *value) const { return appendList(message, *value, inVariant); }
};

} // namespace

Message messageOf(const Request &request, sd_bus *bus, const std::string &path)
{
    sd_bus_message *raw = nullptr;
    int result =
        sd_bus_message_new_method_call(bus, &raw, service, path.c_str(), request.interface, request.method);
    Message message(raw);
    if (result >= 0 && request.secret)
        result = sd_bus_message_sensitive(raw);
    for (const Argument &argument : request.arguments) {
        if (result >= 0)
            result = std::visit(Append{raw, argument.inVariant}, argument.value);
    }
    return result >= 0 ? std::move(message) : nullptr;
}

} // namespace Ofono
