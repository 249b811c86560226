// What is dialled to change, unblock or use a PIN or a network password.
#pragma once

#include <array>
#include <cstddef>
#include <string_view>

namespace Handset {

/**
 * Whether a dial string, a service request or a line that holds one carries a PIN, a PUK or a network password, as
 * `**04*OLD*NEW*NEW#` does. Spaces and what else people write between keys do not count. A procedure that was mistyped
 * a little is taken for one: to keep a line too few does less harm than to keep a PIN.
 *
 * This is a header by itself, so that the console and the simulated modem, which know nothing else of this folder, mean
 * the same by it as the platform.
 */
constexpr bool carriesSecret(std::string_view text)
{
    // Network password; PIN and PIN2; their PUKs; barring of calls, which takes the password.
    constexpr std::array<std::string_view, 13> procedures = {
        "03*", "04*", "042*", "05*", "052*", "33*", "330*", "331*", "332*", "333*", "35*", "351*", "353*"};
    constexpr auto isKey = [](char character) {
        return (character >= '0' && character <= '9') || character == '*' || character == '#';
    };
    for (std::size_t begin = 0; begin < text.size(); ++begin) {
        if (text[begin] != '*' && text[begin] != '#')
            continue;
        for (const std::string_view procedure : procedures) {
            std::size_t matched = 0;
            for (std::size_t at = begin + 1; at < text.size() && matched < procedure.size(); ++at) {
                if (!isKey(text[at]))
                    continue;
                if (text[at] != procedure[matched])
                    break;
                ++matched;
            }
            if (matched == procedure.size())
                return true;
        }
    }
    return false;
}

} // namespace Handset
