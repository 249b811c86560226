// The content of the settings file in Qt's own CBOR.
#include "SettingsDocument.h"

#include <QCborArray>
#include <QCborMap>
#include <QCborStreamReader>
#include <QCborValue>
#include <QCryptographicHash>

#include <cerrno>
#include <limits>
#include <optional>

namespace {

constexpr qint64 presentVersion = 1;

const QLatin1String formatEntry("format");
const QLatin1String versionEntry("version");
const QLatin1String checksumEntry("checksum");
const QLatin1String valuesEntry("values");
const QLatin1String formatName("kvq-phone settings");

Fault damaged(const char *why)
{
    return {EUCLEAN, std::string("is damaged (") + why + ")"};
}

QByteArray checksumOf(const QByteArray &bytes)
{
    return QCryptographicHash::hash(bytes, QCryptographicHash::Sha256);
}

/** Nothing for bytes that are not one CBOR item from the first to the last. */
std::optional<QCborValue> parse(const QByteArray &bytes)
{
    QCborStreamReader reader(bytes);
    const QCborValue value = QCborValue::fromCbor(reader);
    const bool isWhole = reader.lastError() == QCborError::NoError && reader.currentOffset() == bytes.size();
    return isWhole ? std::optional(value) : std::nullopt;
}

std::optional<SettingsDocument::Value> valueOf(const QCborValue &item)
{
    using Limits = std::numeric_limits<int>;
    if (item.isBool())
        return item.toBool();
    if (item.isString())
        return item.toString();
    if (item.isInteger() && item.toInteger() >= Limits::min() && item.toInteger() <= Limits::max())
        return static_cast<int>(item.toInteger());
    return std::nullopt;
}

bool addTo(SettingsDocument::Values &values, const QCborArray &entry)
{
    const qint64 app = entry.at(0).toInteger(-1);
    const auto value = valueOf(entry.at(3));
    if (entry.size() != 4 || app < 0 || app > std::numeric_limits<unsigned int>::max()
        || !entry.at(1).isString() || !entry.at(2).isString() || !value)
        return false;
    SettingsDocument::Key key = {
        {static_cast<unsigned int>(app), entry.at(1).toString(), entry.at(2).toString()}, value->index()};
    return values.emplace(std::move(key), *value).second;
}

} // namespace

QByteArray SettingsDocument::write(const Values &values)
{
    QCborArray entries;
    for (const auto &[key, value] : values) {
        const auto item = std::visit([](const auto &held) { return QCborValue(held); }, value);
        entries.append(QCborArray{qint64{key.name.app}, key.name.group, key.name.key, item});
    }
    const QByteArray encoded = QCborValue(entries).toCbor();
    const QCborMap document = {{formatEntry, formatName},
                               {versionEntry, presentVersion},
                               {checksumEntry, checksumOf(encoded)},
                               {valuesEntry, encoded}};
    return document.toCborValue().toCbor();
}

Fault SettingsDocument::read(const QByteArray &bytes, Values &values)
{
    values.clear();
    if (bytes.isEmpty())
        return {};
    const auto document = parse(bytes);
    if (!document)
        return damaged("not a whole document");
    const QCborMap map = document->toMap();
    if (map.value(formatEntry) != QCborValue(formatName))
        return {EMEDIUMTYPE, "is not a settings file of this phone"};
    const qint64 version = map.value(versionEntry).toInteger();
    if (version > presentVersion)
        return {EMEDIUMTYPE, "is of version " + std::to_string(version) + ", newer than this program"};
    const QByteArray encoded = map.value(valuesEntry).toByteArray();
    if (version != presentVersion || map.size() != 4
        || map.value(checksumEntry).toByteArray() != checksumOf(encoded))
        return damaged("its checksum is another one");
    const auto entries = parse(encoded);
    bool good = entries && entries->isArray();
    if (good) {
        for (const auto &entry : entries->toArray())
            good = good && addTo(values, entry.toArray());
    }
    if (good)
        return {};
    values.clear();
    return damaged("an entry that is none");
}
