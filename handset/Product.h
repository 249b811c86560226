// What the product offers, from the file that its maker edits.
#pragma once

#include <QUuid>

#include <map>
#include <optional>
#include <set>
#include <string>

namespace Handset {

/**
 * Optional features, flex bits, feature database, input methods and the modem of a product.
 *
 * The file is /etc/kvq/product.conf, or the one that KVQ_PRODUCT names; handset/product.conf describes every key.
 * What it does not name is as in that description, and so is everything when there is no such file. A line that
 * says nothing sensible is reported on standard error with its number and has no effect. So is what is no regular file.
 */
struct Product {
    /** The product of this phone, read once. */
    static const Product &instance();

    Product();

    /** Reads a file over what is known. False, with the reason told, when it cannot be read. */
    bool read(const std::string &path);
    /** Reads the file that KVQ_PRODUCT names. False when it names none. */
    bool readNamed();

    bool hasFeature(unsigned short id) const { return missingFeatures.count(id) == 0; }
    /** Nothing when the product does not know the bit. */
    std::optional<bool> flexBit(unsigned short id) const;
    bool hasDatabaseFeature(unsigned short id) const { return databaseFeatures.count(id) != 0; }
    bool hasInputMethod(const QUuid &method) const { return inputMethods.count(method) != 0; }

    std::set<unsigned short> missingFeatures;
    std::set<unsigned short> databaseFeatures;
    std::map<unsigned short, bool> flexBits;
    std::set<QUuid> inputMethods;
    std::string modem; ///< the path of the modem that the phone uses; empty when it may choose

private:
    bool set(const std::string &section, const std::string &key, bool value);
};

} // namespace Handset
