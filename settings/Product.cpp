// Reading what the product has.
#include "Product.h"

#include "Desk.h"

#include <QSettings>
#include <QStandardPaths>

namespace {

bool has(const QSettings &file, const QString &key)
{
    const bool usual = Desk::isPresent();
    const QString value = file.value(key).toString().trimmed();
    const bool isYes = value == QLatin1String("yes");
    if (!isYes && !value.isEmpty() && value != QLatin1String("no"))
        qWarning(R"(%s: %s is "yes" or "no", not "%s")", qPrintable(file.fileName()), qPrintable(key),
                 qPrintable(value));
    return isYes || (value != QLatin1String("no") && usual);
}

} // namespace

Product::Product(QObject *parent)
    : QObject(parent)
{
    QSettings file(
        QStandardPaths::locate(QStandardPaths::GenericConfigLocation, QStringLiteral("kvq-settings.conf")),
        QSettings::IniFormat);
    file.beginGroup(QStringLiteral("product"));
    m_flip = has(file, QStringLiteral("flip"));
    m_anyKey = has(file, QStringLiteral("any-key"));
    m_fax = has(file, QStringLiteral("fax"));
    m_video = has(file, QStringLiteral("video"));
}
