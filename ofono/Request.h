// What the daemon is asked.
#pragma once

#include "Deadline.h"
#include "Properties.h"

#include <cstdint>
#include <functional>
#include <string>
#include <string_view>
#include <variant>
#include <vector>

namespace Ofono {

class LeftRequest;

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
    /** What is done, by a thread of its own, when nobody waits for the answer any more; see LeftRequest. */
    std::function<void(LeftRequest &)> afterwards = {};
};

/** The message of a request to an object. Null when a text is no text or a path no path, or the bus is gone. */
Message messageOf(const Request &request, sd_bus *bus, const std::string &path);

} // namespace Ofono
