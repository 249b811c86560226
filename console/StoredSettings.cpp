// What a settings file holds, in words.
#include "StoredSettings.h"
#include "Values.h"

#include "SettingsDocument.h"
#include "SettingsFile.h"

#include <QFile>

namespace Console {

QString listSettings(const QString &file, QStringList &lines)
{
    const std::string path =
        file.isEmpty() ? SettingsFile::ofTheUser() : QFile::encodeName(file).toStdString();
    const QString name = QFile::decodeName(path.c_str());
    SettingsFile::Version version;
    QByteArray bytes;
    SettingsDocument::Values values;
    Fault fault = SettingsFile::read(path, version, bytes);
    if (!fault)
        fault = SettingsDocument::read(bytes, values);
    if (fault)
        return name + QLatin1Char(' ') + QString::fromStdString(fault.reason);
    lines += QStringLiteral("settings = ") + name;
    if (values.empty())
        lines += version.inode == 0 ? QStringLiteral("there is no such file yet")
                                    : QStringLiteral("nothing is stored");
    for (const auto &[key, value] : values) {
        const QString shown = std::visit(
            [](const auto &held) { return Value<std::decay_t<decltype(held)>>::show(held); }, value);
        lines += QStringLiteral("%1/%2/%3 = %4")
                     .arg(QString::number(key.name.app), key.name.group, key.name.key, shown);
    }
    return {};
}

} // namespace Console
