// The properties that the daemon answers, read by name and type.
#pragma once

#include <cstdint>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

struct sd_bus;
struct sd_bus_message;

namespace Ofono {

struct Unreference {
    void operator()(sd_bus_message *message) const;
};
using Message = std::unique_ptr<sd_bus_message, Unreference>;

/**
 * A list of names with values, as it stands in a message.
 *
 * Nothing is copied until it is asked for. A property that is absent, or of another type than asked for, is
 * nothing: the daemon leaves out what it does not know. The texts are valid as long as the object.
 */
class Properties {
public:
    Properties() = default;
    /** Shares the message, which stands at the beginning of its list of properties. */
    explicit Properties(sd_bus_message *message);

    std::optional<bool> flag(const char *name) const;
    std::optional<std::uint8_t> byte(const char *name) const;
    std::optional<std::uint16_t> shortNumber(const char *name) const;
    std::optional<std::uint32_t> number(const char *name) const;
    std::optional<double> real(const char *name) const;
    std::optional<std::string_view> text(const char *name) const;
    std::optional<std::vector<std::string>> texts(const char *name) const;
    /** One entry of a property that is itself a list of names with bytes. */
    std::optional<std::uint8_t> byteOf(const char *name, const char *entry) const;

    bool has(const char *name, std::string_view text) const;

private:
    template <typename Read>
    bool find(const char *name, const char *type, Read read) const;
    template <typename Raw>
    std::optional<Raw> basic(const char *name, char type) const;

    Message m_message;
    mutable bool m_broken = false;
};

} // namespace Ofono
