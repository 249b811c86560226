// Taking turns with locks on bytes of a file.
#include "WriterTurn.h"

#include <algorithm>
#include <cerrno>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <thread>
#include <tuple>
#include <utility>

#include <fcntl.h>
#include <sys/stat.h>

using namespace std::chrono_literals;

namespace {

constexpr off_t turn = 0;
constexpr off_t firstPlace = 1;
constexpr auto longestRound = 100ms;
/** How long the turn lies there before those who do not take it are taken for stopped. */
constexpr auto patienceWithTheFront = 100ms;

struct flock lockOf(short type, off_t begin, off_t end)
{
    struct flock lock = {};
    lock.l_type = type;
    lock.l_whence = SEEK_SET;
    lock.l_start = begin;
    lock.l_len = end - begin;
    return lock;
}

bool setLock(int file, off_t byte, short type)
{
    struct flock lock = lockOf(type, byte, byte + 1);
    return fcntl(file, F_OFD_SETLK, &lock) == 0;
}

/** The first byte of these that somebody else has locked, or the end. */
off_t firstLocked(int file, off_t begin, off_t end)
{
    while (begin < end) {
        // The kernel tells of any of them.
        struct flock lock = lockOf(F_WRLCK, begin, end);
        if (fcntl(file, F_OFD_GETLK, &lock) != 0 || lock.l_type == F_UNLCK)
            break;
        end = std::max(begin, lock.l_start);
    }
    return end;
}

/** Places are numbered by the time since the machine was started, which all its processes see alike. */
off_t standInLine(int file)
{
    const auto uptime = WriterTurn::Clock::now().time_since_epoch();
    off_t place = firstPlace + std::chrono::duration_cast<std::chrono::microseconds>(uptime).count();
    // Others may have come in the same moment.
    for (int attempt = 0; attempt < 100 && !setLock(file, place, F_WRLCK); ++attempt)
        ++place;
    return place;
}

/** Whoever may write the file may stand in line for it, whatever the mask of the process that was first. */
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
bool standsUnder(const std::string &path, int file)
{
    struct stat there = {};
    struct stat here = {};
    return stat(path.c_str(), &there) == 0 && fstat(file, &here) == 0 && there.st_dev == here.st_dev
        && there.st_ino == here.st_ino;
}

/** Whoever has the turn writes its number into the file, for a report only; 0 when it could not. */
int holder(int file)
{
    char number[16] = {};
    return pread(file, number, sizeof number - 1, 0) > 0 ? std::atoi(number) : 0;
}

void noteHolder(int file)
{
    const int self = static_cast<int>(getpid());
    if (holder(file) == self)
        return;
    char number[16] = {};
    const int length = std::snprintf(number, sizeof number, "%-10d\n", self);
    if (pwrite(file, number, static_cast<std::size_t>(length), 0) != length)
        return; // a full disk, say: the report will be less exact
}

/** Looking often costs the one that writes its processor, and is of use to the next in line only. */
std::chrono::microseconds pauseAfter(WriterTurn::Clock::duration waited, bool isNext)
{
    const auto quarter = std::chrono::duration_cast<std::chrono::microseconds>(waited / 4);
    return std::clamp<std::chrono::microseconds>(quarter, 500us, isNext ? 4ms : 20ms);
}

} // namespace

Fault WriterTurn::begin(const std::string &path, std::chrono::milliseconds patience)
{
    const std::string name = path + "-lock";
    const auto started = Clock::now();
    bool goesOn = started - m_roundBegan < longestRound;
    off_t front = firstPlace; // of the line; those before it are stopped
    auto lastTaken = started;
    for (;;) {
        if (Fault fault = openFile(path, name))
            return fault;
        if (std::exchange(goesOn, false)) {
            if (take(name))
                return {};
            continue;
        }
        if (m_place == 0)
            m_place = standInLine(m_file.number());
        const off_t next = firstLocked(m_file.number(), front, m_place);
        if (next == m_place && take(name)) {
            m_roundBegan = Clock::now();
            return {};
        }
        if (!m_file)
            continue;
        const auto now = Clock::now();
        if (firstLocked(m_file.number(), turn, turn + 1) == turn) {
            lastTaken = now;
        } else if (next != m_place && now - lastTaken > patienceWithTheFront) {
            front = next + 1;
            continue;
        }
        const auto waited = now - started;
        if (waited >= patience) {
            const int process = holder(m_file.number());
            end();
            return {EBUSY,
                    "is kept locked by "
                        + (process > 0 ? "process " + std::to_string(process) : "another process")
                        + ", so a value was not stored"};
        }
        std::this_thread::sleep_for(pauseAfter(waited, next == m_place));
    }
}

void WriterTurn::end()
{
    if (!m_file)
        return;
    // Closing would not do while a child of a fork has the file open as well.
    setLock(m_file.number(), turn, F_UNLCK);
    if (m_place != 0)
        setLock(m_file.number(), m_place, F_UNLCK);
    m_place = 0;
    m_file.reset();
}

void WriterTurn::abandon()
{
    m_file.reset();
    m_place = 0;
    m_roundBegan = {};
}

Fault WriterTurn::openFile(const std::string &path, const std::string &name)
{
    if (m_file)
        return {};
    m_file.reset(
        open(name.c_str(), O_RDWR | O_CREAT | O_NOFOLLOW | O_NONBLOCK | O_CLOEXEC, S_IRUSR | S_IWUSR));
    if (!m_file) {
        const int error = errno;
        return {error == EDQUOT ? ENOSPC : error,
                std::string("has a lock that cannot be opened: ") + std::strerror(error)};
    }
    shareLike(path, m_file.number());
    return {};
}

/** False without a file when that is no longer the one that the others know. */
bool WriterTurn::take(const std::string &name)
{
    if (!setLock(m_file.number(), turn, F_WRLCK))
        return false;
    if (!standsUnder(name, m_file.number())) {
        m_file.reset();
        m_place = 0;
        return false;
    }
    if (m_place != 0)
        setLock(m_file.number(), m_place, F_UNLCK);
    m_place = 0;
    noteHolder(m_file.number());
    return true;
}
