// The lines typed at the prompt, from one run to the next.
#pragma once

#include "Descriptor.h"

#include <QString>
#include <QStringList>

#include <functional>

namespace Console {

/**
 * A file of lines that only its user may read.
 *
 * A line is in the file as soon as it was added, so what ends the console takes no history with it. A file that others
 * may read is narrowed; a link, and a file of somebody else, are left alone, and lines are not kept then.
 */
class History {
public:
    /** @param mayBeKept which lines belong into a file; others are dropped from one that has them */
    History(QString file, std::function<bool(const QString &line)> mayBeKept);

    const QStringList &lines() const { return m_lines; }
    void add(const QString &line);

private:
    void write(const QStringList &lines, bool anew);
    Descriptor open(int flags) const;

    QString m_file;
    std::function<bool(const QString &line)> m_mayBeKept;
    QStringList m_lines;
};

} // namespace Console
