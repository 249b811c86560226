// Texts on their way between the daemon and the platform's records.
#pragma once

#include <cstddef>
#include <cstring>
#include <string>
#include <string_view>

namespace Ofono {

/** Fills a field of that many bytes with Latin-1, cut to leave its last byte 0. */
void fillLatin1(void *field, std::size_t size, std::string_view utf8);

template <typename Byte, std::size_t Size>
void fillLatin1(Byte (&field)[Size], std::string_view utf8)
{
    static_assert(sizeof(Byte) == 1);
    fillLatin1(static_cast<void *>(field), Size, utf8);
}

/** Fills a field of UCS-2 units; a text as long as the field, or longer, leaves no terminator. */
void fillUnits(unsigned short *field, std::size_t units, std::string_view utf8);

/** A field's text up to its terminator, or to its end when there is none. */
std::string_view textOf(const void *field, std::size_t size);

std::string utf8FromLatin1(std::string_view latin1);

bool isDigits(std::string_view text);

/** A number as the daemon takes it: digits, and a plus before them. */
bool isPhoneNumber(std::string_view text, std::size_t mostDigits);

/** Leaves out what people write between the digits of a number. */
std::string withoutPunctuation(std::string_view number);

/** Wipes a text that may carry a PIN when it goes itself. */
class Wiper {
public:
    explicit Wiper(std::string &text)
        : m_text(text)
    {
    }
    ~Wiper() { explicit_bzero(m_text.data(), m_text.size()); }

    Wiper(const Wiper &) = delete;
    Wiper &operator=(const Wiper &) = delete;

private:
    std::string &m_text;
};

} // namespace Ofono
