// The lines typed at the prompt.
#include "History.h"

#include <QFile>
#include <QTextStream>

#include <cerrno>
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
    const Descriptor there = open(O_RDONLY);
    QFile kept;
    if (!there && errno != ENOENT)
        QTextStream(stderr) << "history: " << m_file
                            << " is not a file that this user alone may use; no line is kept\n";
    if (!there || !kept.open(there.number(), QIODevice::ReadOnly))
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
    const Descriptor file = open(O_WRONLY | O_CREAT | O_APPEND);
    if (!file || (anew && ftruncate(file.number(), 0) != 0))
        return; // the line was run all the same
    const QByteArray text = (lines.join(QLatin1Char('\n')) + QLatin1Char('\n')).toUtf8();
    QFile output;
    if (output.open(file.number(), QIODevice::WriteOnly | QIODevice::Unbuffered))
        output.write(text);
}

/** Nothing when what stands there is no file of this user's own. Nobody else may read it from then on. */
Descriptor History::open(int flags) const
{
    Descriptor file(::open(QFile::encodeName(m_file).constData(),
                           flags | O_NOFOLLOW | O_NONBLOCK | O_NOCTTY | O_CLOEXEC, S_IRUSR | S_IWUSR));
    struct stat status = {};
    if (!file || fstat(file.number(), &status) != 0)
        return Descriptor();
    const bool isOwn = S_ISREG(status.st_mode) && status.st_uid == geteuid() && status.st_nlink == 1;
    const bool isNarrow = (status.st_mode & (S_IRWXG | S_IRWXO)) == 0;
    if (!isOwn || (!isNarrow && fchmod(file.number(), S_IRUSR | S_IWUSR) != 0)) {
        errno = EPERM;
        return Descriptor();
    }
    return file;
}

} // namespace Console
