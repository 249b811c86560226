// Fixed text fields of platform records: Latin-1, NUL-terminated.
#pragma once

#include <QByteArray>
#include <QString>

#include <algorithm>
#include <cstddef>
#include <cstring>

namespace TextField {

/** Zero-fills the field and copies as much of the text as leaves its last byte 0. */
template <typename Byte, std::size_t Size>
void fill(Byte (&field)[Size], const QByteArray &latin1)
{
    static_assert(sizeof(Byte) == 1);
    std::memset(field, 0, Size);
    std::memcpy(field, latin1.constData(), std::min(static_cast<std::size_t>(latin1.size()), Size - 1));
}

template <typename Byte, std::size_t Size>
void fill(Byte (&field)[Size], const QString &text)
{
    fill(field, text.toLatin1());
}

/** Copies the text and a terminator into the field; what stands behind them stays. */
template <typename Byte, std::size_t Size>
void copy(Byte (&field)[Size], const QByteArray &latin1)
{
    static_assert(sizeof(Byte) == 1);
    const std::size_t length = std::min(static_cast<std::size_t>(latin1.size()), Size - 1);
    std::memcpy(field, latin1.constData(), length);
    field[length] = 0;
}

/** Reads the field to its terminator, or to its end when the platform left the terminator out. */
template <typename Byte, std::size_t Size>
QByteArray bytes(const Byte (&field)[Size])
{
    static_assert(sizeof(Byte) == 1);
    const char *const begin = reinterpret_cast<const char *>(field);
    return {begin, static_cast<int>(strnlen(begin, Size))};
}

template <typename Byte, std::size_t Size>
QString read(const Byte (&field)[Size])
{
    return QString::fromLatin1(bytes(field));
}

} // namespace TextField
