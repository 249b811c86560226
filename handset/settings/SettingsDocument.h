// The content of the settings file: values as a CBOR document with a version and a checksum.
#pragma once

#include "Fault.h"

#include <QByteArray>
#include <QString>

#include <cstddef>
#include <map>
#include <tuple>
#include <utility>
#include <variant>

/**
 * The document is a map of four entries: "format" names it, "version" is 1, "values" holds the encoded values, and
 * "checksum" is the SHA-256 of that. The values are an array with an array for each: application, group, key, value.
 */
namespace SettingsDocument {

using Value = std::variant<bool, int, QString>;

struct Name {
    unsigned int app;
    QString group;
    QString key;
};

/** Values of different types may stand under one name. */
struct Key {
    Name name;
    std::size_t type; ///< the index of its type in Value

    bool operator<(const Key &other) const
    {
        return std::tie(name.app, type, name.key, name.group)
            < std::tie(other.name.app, other.type, other.name.key, other.name.group);
    }
};

using Values = std::map<Key, Value>;

template <typename Type>
Key keyOf(Name name)
{
    return {std::move(name), Value(Type()).index()};
}

QByteArray write(const Values &values);

/**
 * Takes the values out of a document; no bytes stand for no values. A fault leaves no values: EUCLEAN for a document
 * with a single wrong bit, EMEDIUMTYPE for one that is not ours or is newer than this program.
 */
Fault read(const QByteArray &bytes, Values &values);

} // namespace SettingsDocument
