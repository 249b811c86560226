// Numbers and names as a card writes them.
#include "CardText.h"

#include <algorithm>
#include <array>

namespace AtModem {

namespace {

constexpr std::uint8_t filler = 0xFF;
constexpr std::uint8_t halfFiller = 0xF;
constexpr std::uint8_t ucs2Mark = 0x80;
constexpr std::string_view digitCharacters = "0123456789*#abc"; // 51.011, table 12

/** The default alphabet (3GPP TS 23.038), by code; the extension is not used on cards. */
const QString &defaultAlphabet()
{
    static const QString alphabet =
        QString::fromUtf8("@£$¥èéùìòÇ\nØø\rÅåΔ_ΦΓΛΩΠΨΣΘΞ\u00A0ÆæßÉ !\"#¤%&'()*+,-./0123456789:;<=>?"
                          "¡ABCDEFGHIJKLMNOPQRSTUVWXYZÄÖÑÜ§¿abcdefghijklmnopqrstuvwxyzäöñüà");
    return alphabet;
}

int hexValue(char digit)
{
    constexpr int ten = 10;
    if (digit >= '0' && digit <= '9')
        return digit - '0';
    if (digit >= 'a' && digit <= 'f')
        return digit - 'a' + ten;
    if (digit >= 'A' && digit <= 'F')
        return digit - 'A' + ten;
    return -1;
}

} // namespace

std::string toHex(const Bytes &bytes)
{
    constexpr std::string_view digits = "0123456789ABCDEF";
    std::string text;
    for (const std::uint8_t byte : bytes)
        text += {digits[byte >> 4], digits[byte & halfFiller]};
    return text;
}

std::optional<Bytes> fromHex(std::string_view text)
{
    if (text.size() % 2 != 0)
        return std::nullopt;
    Bytes bytes;
    for (std::size_t position = 0; position < text.size(); position += 2) {
        const int high = hexValue(text[position]);
        const int low = hexValue(text[position + 1]);
        if (high < 0 || low < 0)
            return std::nullopt;
        bytes.push_back(static_cast<std::uint8_t>(high << 4 | low));
    }
    return bytes;
}

Bytes packDigits(const std::string &digits)
{
    Bytes bytes;
    for (std::size_t position = 0; position < digits.size(); ++position) {
        const std::size_t found = digitCharacters.find(digits[position]);
        const auto value = found == std::string_view::npos ? halfFiller : static_cast<std::uint8_t>(found);
        if (position % 2 == 0)
            bytes.push_back(static_cast<std::uint8_t>(halfFiller << 4 | value));
        else
            bytes.back() = static_cast<std::uint8_t>((bytes.back() & halfFiller) | value << 4);
    }
    return bytes;
}

std::string unpackDigits(const Bytes &bytes)
{
    std::string digits;
    for (const std::uint8_t byte : bytes) {
        for (const int half : {byte & halfFiller, byte >> 4}) {
            if (half == halfFiller)
                return digits;
            digits += digitCharacters[static_cast<std::size_t>(half)];
        }
    }
    return digits;
}

Bytes packName(const QString &name, std::size_t size)
{
    Bytes bytes;
    const bool inDefaultAlphabet = std::all_of(
        name.begin(), name.end(), [](QChar character) { return defaultAlphabet().contains(character); });
    if (inDefaultAlphabet) {
        for (const QChar character : name.left(static_cast<int>(size)))
            bytes.push_back(static_cast<std::uint8_t>(defaultAlphabet().indexOf(character)));
    } else if (size > 2) {
        bytes.push_back(ucs2Mark);
        for (const QChar character : name.left(static_cast<int>((size - 1) / 2))) {
            bytes.push_back(static_cast<std::uint8_t>(character.unicode() >> 8));
            bytes.push_back(static_cast<std::uint8_t>(character.unicode() & filler));
        }
    }
    bytes.resize(size, filler);
    return bytes;
}

QString unpackName(const Bytes &bytes)
{
    QString name;
    if (!bytes.empty() && bytes.front() == ucs2Mark) {
        for (std::size_t position = 1; position + 1 < bytes.size(); position += 2) {
            const auto unit = static_cast<ushort>(bytes[position] << 8 | bytes[position + 1]);
            if (unit == 0xFFFF)
                break;
            name.append(QChar(unit));
        }
        return name;
    }
    for (const std::uint8_t byte : bytes) {
        if (byte >= static_cast<std::uint8_t>(defaultAlphabet().size()))
            break;
        name.append(defaultAlphabet().at(byte));
    }
    return name;
}

Bytes packNetwork(const std::string &networkId)
{
    constexpr std::size_t withShortNetworkCode = 5;
    std::array<std::uint8_t, 6> digits = {};
    for (std::size_t position = 0; position < digits.size(); ++position)
        digits[position] =
            position < networkId.size() ? static_cast<std::uint8_t>(networkId[position] - '0') : halfFiller;
    const std::uint8_t third = networkId.size() > withShortNetworkCode ? digits[5] : halfFiller;
    return {static_cast<std::uint8_t>(digits[1] << 4 | digits[0]),
            static_cast<std::uint8_t>(third << 4 | digits[2]),
            static_cast<std::uint8_t>(digits[4] << 4 | digits[3])};
}

} // namespace AtModem
