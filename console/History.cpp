// The lines typed at the prompt.
#include "History.h"

#include <QFile>

#include <utility>

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

namespace Console {

namespace {

constexpr int mostLines = 1000;

} // namespace

History::History(QString file, std::function<bool(const QString &line)> mayBeKept)
    : m_file(std::move(file))
    , m_mayBeKept(std::move(mayBeKept))
{
    QFile kept(m_file);
    if (!kept.open(QIODevice::ReadOnly))
        return;
    const QStringList all = QString::fromUtf8(kept.readAll()).split(QLatin1Char('\n'), Qt::SkipEmptyParts);
    for (const QString &line : all) {
        if (m_mayBeKept(line))
            m_lines += line;
    }
    m_lines = m_lines.mid(std::max(0, static_cast<int>(m_lines.size()) - mostLines));
    if (m_lines.size() != all.size())
        write(m_lines, true);
}

void History::add(const QString &line)
{
    if (!m_mayBeKept(line) || (!m_lines.isEmpty() && m_lines.last() == line))
        return;
    m_lines += line;
    write({line}, false);
}

void History::write(const QStringList &lines, bool anew)
{
    const int file = open(QFile::encodeName(m_file).constData(),
                          O_WRONLY | O_CREAT | O_CLOEXEC | (anew ? O_TRUNC : O_APPEND), S_IRUSR | S_IWUSR);
    if (file < 0)
        return; // the line was run all the same
    const QByteArray text = (lines.join(QLatin1Char('\n')) + QLatin1Char('\n')).toUtf8();
    QFile output;
    if (output.open(file, QIODevice::WriteOnly | QIODevice::Unbuffered, QFile::AutoCloseHandle))
        output.write(text);
}

} // namespace Console
