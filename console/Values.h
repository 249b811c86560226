// Values as words: how arguments are read and results are shown.
#pragma once

#include "PHONE_SETUP_Types.h"

#include "TAPI_ACCE.h"
#include "TAPI_CALL.h"
#include "TAPI_CS.h"
#include "TAPI_NETWORK.h"
#include "TAPI_RESULT.h"
#include "TAPI_SECURITY.h"
#include "TAPI_VOICE.h"

#include <QString>
#include <QStringList>
#include <QUuid>

#include <limits>
#include <optional>
#include <type_traits>
#include <vector>

namespace Console {

/** A value of an enumeration and the word for it. */
struct Enumerator {
    const char *name;
    long long value;
};
using Enumerators = std::vector<Enumerator>;

/** The words of an enumeration; an enumeration without any is typed as a number. */
template <typename Enumeration>
const Enumerators &enumeratorsOf()
{
    static const Enumerators none;
    return none;
}

template <>
const Enumerators &enumeratorsOf<_TAPI_RESULT_E>();
template <>
const Enumerators &enumeratorsOf<_TAPI_CS_DIVERT_WHEN_E>();
template <>
const Enumerators &enumeratorsOf<_TAPI_CALL_RESTRICT_ID_E>();
template <>
const Enumerators &enumeratorsOf<_TAPI_CALL_STATE_E>();
template <>
const Enumerators &enumeratorsOf<_TAPI_SECURITY_PIN_STATUS_E>();
template <>
const Enumerators &enumeratorsOf<_TAPI_NETWORK_SEARCH_MODE_E>();
template <>
const Enumerators &enumeratorsOf<_TAPI_NETWORK_SEARCH_SPEED_E>();
template <>
const Enumerators &enumeratorsOf<_TAPI_NETWORK_BAND_E>();
template <>
const Enumerators &enumeratorsOf<PHONE_SETUP_HYPHENATION_T>();
template <>
const Enumerators &enumeratorsOf<PHONE_SETUP_CAMERA_MUTE_T>();

std::optional<long long> parseNumber(const QString &word, long long lowest, long long highest,
                                     const Enumerators &names);
QString expectedNumber(long long lowest, long long highest, const Enumerators &names);
QString quoted(const QString &text);
QString assignment(const QString &name, const QString &value);
QString named(long long value, const Enumerators &names);

/** How a type is read and shown: numbers and enumerations here, the others below. */
template <typename Type>
struct Value {
    static constexpr auto underlying()
    {
        if constexpr (std::is_enum_v<Type>)
            return std::underlying_type_t<Type>();
        else
            return Type();
    }
    using Number = std::numeric_limits<decltype(underlying())>;

    static std::optional<Type> parse(const QString &word)
    {
        const auto number = parseNumber(word, Number::min(), Number::max(), enumeratorsOf<Type>());
        return number ? std::optional<Type>(static_cast<Type>(*number)) : std::nullopt;
    }
    static QString expected() { return expectedNumber(Number::min(), Number::max(), enumeratorsOf<Type>()); }
    static QString show(Type value) { return named(static_cast<long long>(value), enumeratorsOf<Type>()); }
};

template <>
struct Value<bool> {
    static std::optional<bool> parse(const QString &word);
    static QString expected();
    static QString show(bool value);
};

/** The words that a value may be typed as, when they can be listed. */
template <typename Type>
QStringList choicesOf()
{
    QStringList words;
    if constexpr (std::is_same_v<Type, bool>)
        words = QStringList{QStringLiteral("on"), QStringLiteral("off"), QStringLiteral("true"),
                            QStringLiteral("false")};
    else if constexpr (std::is_enum_v<Type>)
        for (const Enumerator &enumerator : enumeratorsOf<Type>())
            words += QString::fromLatin1(enumerator.name);
    return words;
}

template <>
struct Value<char> {
    static std::optional<char> parse(const QString &word);
    static QString expected();
};

template <>
struct Value<QString> {
    static std::optional<QString> parse(const QString &word) { return word; }
    static QString expected() { return QStringLiteral("a text"); }
    static QString show(const QString &value) { return quoted(value); }
};

template <>
struct Value<QUuid> {
    static std::optional<QUuid> parse(const QString &word);
    static QString expected();
};

template <>
struct Value<QStringList> {
    static QString show(const QStringList &list);
};

template <>
struct Value<const char *> {
    static QString show(const char *value) { return quoted(QString::fromLatin1(value)); }
};

template <>
struct Value<PHONE_SERVICE_PROVIDER_S> {
    static QString show(const PHONE_SERVICE_PROVIDER_S &provider);
};

template <>
struct Value<PHONE_BP_VERSION_INFO_S> {
    static QString show(const PHONE_BP_VERSION_INFO_S &versions);
};

template <>
struct Value<_TAPI_CALL_SESSION_TABLE_S> {
    static QString show(const _TAPI_CALL_SESSION_TABLE_S &table);
};

template <>
struct Value<_TAPI_NETWORK_PREFERRED_S> {
    static QString show(const _TAPI_NETWORK_PREFERRED_S &list);
};

} // namespace Console
