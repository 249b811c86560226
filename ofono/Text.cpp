// Texts on their way between the daemon and the platform's records.
#include "Text.h"

#include <QString>

#include <algorithm>
#include <cstring>

namespace Ofono {

namespace {

QString decoded(std::string_view utf8)
{
    return QString::fromUtf8(utf8.data(), static_cast<int>(utf8.size()));
}

} // namespace

void fillLatin1(void *field, std::size_t size, std::string_view utf8)
{
    const QByteArray latin1 = decoded(utf8).toLatin1();
    std::memset(field, 0, size);
    std::memcpy(field, latin1.constData(), std::min(static_cast<std::size_t>(latin1.size()), size - 1));
}

void fillUnits(unsigned short *field, std::size_t units, std::string_view utf8)
{
    const QString text = decoded(utf8);
    const std::size_t length = std::min(static_cast<std::size_t>(text.size()), units);
    std::fill_n(field, units, static_cast<unsigned short>(0));
    std::copy_n(text.utf16(), length, field);
}

std::string_view textOf(const void *field, std::size_t size)
{
    const char *const begin = static_cast<const char *>(field);
    return {begin, strnlen(begin, size)};
}

std::string utf8FromLatin1(std::string_view latin1)
{
    return QString::fromLatin1(latin1.data(), static_cast<int>(latin1.size())).toStdString();
}

bool isDigits(std::string_view text)
{
    return !text.empty() && text.find_first_not_of("0123456789") == std::string_view::npos;
}

bool isPhoneNumber(std::string_view text, std::size_t mostDigits)
{
    if (!text.empty() && text.front() == '+')
        text.remove_prefix(1);
    return isDigits(text) && text.size() <= mostDigits;
}

std::string withoutPunctuation(std::string_view number)
{
    std::string bare;
    bare.reserve(number.size()); // a text that grows leaves its beginnings behind
    for (const char character : number) {
        if (!std::strchr(" -./()", character))
            bare += character;
    }
    return bare;
}

} // namespace Ofono
