// Writes the skeleton of a port, with the headers that it implements.
#include "Skeleton.h"

#include <QDir>
#include <QFile>

namespace PortCheck {

namespace {

struct Source {
    const char *name;
    const char *text;
};

constexpr Source sources[] = {
#include "skeleton.inc"
};

} // namespace

QString writeSkeleton(const QString &folder)
{
    const QDir directory(folder);
    if (directory.exists() && !directory.isEmpty())
        return QStringLiteral("%1 is not empty").arg(folder);
    if (!directory.mkpath(QStringLiteral("platform")))
        return QStringLiteral("cannot make %1").arg(folder);
    for (const Source &source : sources) {
        QFile file(directory.filePath(QString::fromLatin1(source.name)));
        const QByteArray text(source.text);
        if (!file.open(QIODevice::WriteOnly) || file.write(text) != text.size() || !file.flush())
            return QStringLiteral("cannot write %1: %2").arg(file.fileName(), file.errorString());
    }
    return {};
}

} // namespace PortCheck
