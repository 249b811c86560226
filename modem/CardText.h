// How the files of a card write numbers and names (3GPP TS 51.011, 31.102, 31.101 annex A).
#pragma once

#include <QString>

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace AtModem {

using Bytes = std::vector<std::uint8_t>;

std::string toHex(const Bytes &bytes);
/** Nothing when the text is no hexadecimal. */
std::optional<Bytes> fromHex(std::string_view text);

/** Two digits a byte, the first one low; filled with F. */
Bytes packDigits(const std::string &digits);
std::string unpackDigits(const Bytes &bytes);

/**
 * A name in a field of a given size: in the default alphabet where that can write it, else in UCS-2; filled
 * with FF, cut to whole characters.
 */
Bytes packName(const QString &name, std::size_t size);
QString unpackName(const Bytes &bytes);

/** A network id as EF PLMN and its likes write it: three bytes. */
Bytes packNetwork(const std::string &networkId);

} // namespace AtModem
