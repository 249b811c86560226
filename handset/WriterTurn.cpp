// Taking turns with locks on two bytes of a file.
#include "WriterTurn.h"

#include <cerrno>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <thread>

#include <fcntl.h>
#include <sys/stat.h>

using namespace std::chrono_literals;

namespace {

constexpr off_t turn = 0;
constexpr off_t firstInLine = 1;
constexpr auto longestTurn = 20ms;

bool setLock(int file, off_t byte, short type)
{
    struct flock lock = {};
    lock.l_type = type;
    lock.l_whence = SEEK_SET;
    lock.l_start = byte;
    lock.l_len = 1;
    return fcntl(file, F_OFD_SETLK, &lock) == 0;
}

/** Somebody may have taken the file away, and others may have made a new one. */
bool standsUnder(const std::string &path, int file)
{
    struct stat there = {};
    struct stat here = {};
    return stat(path.c_str(), &there) == 0 && fstat(file, &here) == 0 && there.st_dev == here.st_dev
        && there.st_ino == here.st_ino;
}

/** Whoever has the turn writes its number into the file, for this report only. */
std::string holder(int file)
{
    char number[16] = {};
    if (pread(file, number, sizeof number - 1, 0) <= 0 || std::atoi(number) <= 0)
        return "another process";
    return "process " + std::to_string(std::atoi(number));
}

void noteHolder(int file)
{
    char number[16] = {};
    const int length = std::snprintf(number, sizeof number, "%-10d\n", static_cast<int>(getpid()));
    if (pwrite(file, number, static_cast<std::size_t>(length), 0) != length)
        return; // a full disk, say: the report will be less exact
}

} // namespace

Fault WriterTurn::begin(const std::string &path, std::chrono::milliseconds patience,
                        Clock::time_point &stoodInLine)
{
    const std::string name = path + "-lock";
    const auto started = Clock::now();
    const bool goesOn = started - stoodInLine < longestTurn;
    bool first = false;
    for (unsigned int attempt = 1;; ++attempt) {
        if (!m_file) {
            m_file.reset(open(name.c_str(), O_RDWR | O_CREAT | O_NOFOLLOW | O_NONBLOCK | O_CLOEXEC,
                              S_IRUSR | S_IWUSR));
            if (!m_file)
                return {errno == EDQUOT ? ENOSPC : errno,
                        std::string("has a lock that cannot be opened: ") + std::strerror(errno)};
            first = false;
        }
        const auto waited = Clock::now() - started;
        const bool passes = (goesOn && attempt == 1) || waited > 1s;
        first = first || (!passes && setLock(m_file.number(), firstInLine, F_WRLCK));
        if ((first || passes) && setLock(m_file.number(), turn, F_WRLCK)) {
            if (standsUnder(name, m_file.number())) {
                setLock(m_file.number(), firstInLine, F_UNLCK);
                noteHolder(m_file.number());
                if (first)
                    stoodInLine = Clock::now();
                return {};
            }
            m_file.reset();
            continue;
        }
        if (waited >= patience) {
            const std::string who = holder(m_file.number());
            end();
            return {EBUSY, "is kept locked by " + who + ", so a value was not stored"};
        }
        // Uneven, so that no two processes keep step with each other. Who looks more often is let in later.
        std::this_thread::sleep_for(first ? 400us : 2ms + attempt * 7919 % 5000 * 1us);
    }
}

void WriterTurn::end()
{
    // Closing would not do while a child of a fork has the file open as well.
    if (m_file)
        setLock(m_file.number(), turn, F_UNLCK);
    if (m_file)
        setLock(m_file.number(), firstInLine, F_UNLCK);
    m_file.reset();
}
