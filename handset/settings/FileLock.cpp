// A lock beside a file.
#include "FileLock.h"

#include <array>
#include <thread>
#include <tuple>

#include <fcntl.h>
#include <sys/file.h>
#include <sys/stat.h>

namespace {

/** Short enough to find the moment between two writes of somebody who writes without pause. */
constexpr std::chrono::microseconds pauseBetweenTries(500);
/** Long enough for everybody who waits to try once. */
constexpr std::chrono::microseconds pauseAfterRelease = 2 * pauseBetweenTries;

thread_local std::chrono::steady_clock::time_point lastRelease;

/** Whoever may write the file may lock it, whatever the mask of the process that was first. */
void shareLike(const std::string &path, int lockFile)
{
    struct stat file = {};
    struct stat lock = {};
    const bool isThere = stat(path.c_str(), &file) == 0;
    if (fstat(lockFile, &lock) != 0)
        return;
    if (isThere && lock.st_gid != file.st_gid)
        std::ignore = fchown(lockFile, lock.st_uid, file.st_gid);
    const mode_t mode = S_IRUSR | S_IWUSR | (file.st_mode & 0666);
    if ((lock.st_mode & 0777) != mode)
        fchmod(lockFile, mode); // which is for its owner to do
}

/** Somebody may have taken the file away, and others may have made a new one. */
bool standsUnder(const std::string &name, int file)
{
    struct stat there = {};
    struct stat here = {};
    return stat(name.c_str(), &there) == 0 && fstat(file, &here) == 0 && there.st_dev == here.st_dev
        && there.st_ino == here.st_ino;
}

} // namespace

Fault FileLock::take(const std::string &file, std::chrono::milliseconds patience)
{
    const std::string name = file + "-lock";
    std::this_thread::sleep_until(lastRelease + pauseAfterRelease); // the past, unless it was just now
    const auto end = std::chrono::steady_clock::now() + patience;
    for (;;) {
        m_file.reset(
            open(name.c_str(), O_RDWR | O_CREAT | O_NOFOLLOW | O_NONBLOCK | O_CLOEXEC, S_IRUSR | S_IWUSR));
        if (!m_file)
            return Fault::ofSystem("has a lock that cannot be opened");
        shareLike(file, m_file.number());
        if (flock(m_file.number(), LOCK_EX | LOCK_NB) == 0) {
            if (standsUnder(name, m_file.number()))
                return {};
        } else if (errno != EWOULDBLOCK && errno != EINTR) {
            return Fault::ofSystem("has a lock that cannot be taken");
        }
        m_file.reset();
        if (std::chrono::steady_clock::now() >= end)
            return {EBUSY, "is kept locked by others, so a value was not stored"};
        std::this_thread::sleep_for(pauseBetweenTries);
    }
}

void FileLock::release()
{
    if (!m_file)
        return;
    // Closing would not do while a child of a fork has the file open as well.
    flock(m_file.number(), LOCK_UN);
    m_file.reset();
    lastRelease = std::chrono::steady_clock::now();
}

std::string FileLock::note() const
{
    std::array<char, 128> text = {};
    const ssize_t length = pread(m_file.number(), text.data(), text.size() - 1, 0);
    const std::string note = length > 0 ? text.data() : "";
    return note.substr(0, note.find('\n'));
}

void FileLock::setNote(const std::string &note) const
{
    const std::string line = note + '\n';
    std::ignore = pwrite(m_file.number(), line.data(), line.size(), 0);
}
