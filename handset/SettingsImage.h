// The image of the settings file: an SQLite database with one table, so that any tool can look into it.
#pragma once

#include <QString>

#include <map>
#include <string>
#include <tuple>
#include <variant>

/** Why something could not be done; error 0 for no fault. */
struct Fault {
    int error = 0; ///< as in errno
    std::string reason;

    explicit operator bool() const { return error != 0; }
};

namespace SettingsImage {

enum class Type { Bool = 0, Int = 1, Text = 2 };

struct Key {
    unsigned int app;
    QString group;
    QString key;
    Type type;

    bool operator<(const Key &other) const
    {
        return std::tie(app, type, key, group) < std::tie(other.app, other.type, other.key, other.group);
    }
};

using Value = std::variant<int, QString>;
using Values = std::map<Key, Value>;

/**
 * Takes the values out of an image. An image of the time before the file had a version is understood too.
 *
 * A value that is not of the type it is stored under is left out. EUCLEAN is given for a damaged image, EMEDIUMTYPE
 * for one that is not ours or is newer than this program.
 */
Fault read(const std::string &image, Values &values);

/**
 * Stores a value in an image, which may be empty; the rest of the image stays as it is. An image that read() has
 * understood becomes one of the present version.
 */
Fault write(std::string &image, const Key &key, const Value &value);

/** Makes an image of what another program has left in write-ahead mode one that stands for itself; false if it did. */
bool endWriteAheadMode(std::string &image);

} // namespace SettingsImage
