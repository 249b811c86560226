// A verified PIN2 in locked memory.
#include "KeptPin2.h"

#include <csignal>
#include <cstdint>
#include <cstring>
#include <ctime>
#include <new>
#include <system_error>

#include <pthread.h>
#include <sys/mman.h>
#include <sys/timerfd.h>
#include <unistd.h>

namespace Ofono {

namespace {

constexpr long keptFor = 60; // seconds

std::size_t pageSize()
{
    return static_cast<std::size_t>(sysconf(_SC_PAGESIZE));
}

/** Null when the system does not give all that is asked of it. */
char *lockedPage()
{
    void *const page = mmap(nullptr, pageSize(), PROT_READ | PROT_WRITE, MAP_PRIVATE | MAP_ANONYMOUS, -1, 0);
    if (page == MAP_FAILED)
        return nullptr;
    if (mlock(page, pageSize()) == 0 && madvise(page, pageSize(), MADV_DONTDUMP) == 0
        && madvise(page, pageSize(), MADV_WIPEONFORK) == 0)
        return static_cast<char *>(page);
    munmap(page, pageSize());
    return nullptr;
}

/** A minute goes on while the phone sleeps. */
long now()
{
    timespec time = {};
    clock_gettime(CLOCK_BOOTTIME, &time);
    return time.tv_sec;
}

void setTimer(int timer, long second)
{
    itimerspec time = {};
    time.it_value.tv_sec = second;
    timerfd_settime(timer, TFD_TIMER_ABSTIME, &time, nullptr);
}

} // namespace

KeptPin2 &KeptPin2::instance()
{
    // Never destroyed: an application may use the engine until the process is gone, also in other threads.
    static auto *const kept = new KeptPin2;
    static const struct AtExit {
        ~AtExit() { kept->keepNoMore(); }
    } atExit;
    return *kept;
}

KeptPin2::KeptPin2()
    : m_page(lockedPage())
{
    pthread_atfork(nullptr, nullptr, [] { instance().leaveToParent(); });
}

/** At exit, or when the library is unloaded; no thread may stay behind then. */
void KeptPin2::keepNoMore()
{
    m_ended = true;
    erase(); // in whose hands it may be: exit must not wait for the daemon
    if (m_watcher.joinable()) {
        setTimer(m_timer, 1); // long ago, so at once
        m_watcher.join();
        close(m_timer);
    }
}

void KeptPin2::keep(std::string_view pin2, const Card::Stay &stay)
{
    const std::scoped_lock lock(m_mutex);
    erase();
    if (m_ended || !m_page || pin2.size() >= pageSize() || !startWatch())
        return;
    std::memcpy(m_page, pin2.data(), pin2.size());
    if (m_ended) // just now
        erase();
    m_stay = stay;
    m_end = now() + keptFor;
    setTimer(m_timer, m_end);
}

void KeptPin2::wipe()
{
    const std::scoped_lock lock(m_mutex);
    erase();
}

bool KeptPin2::isKept(const Card::Stay &stay)
{
    const std::unique_lock lock(m_mutex, std::try_to_lock); // one that is being used is as good as gone
    return lock && isFresh(stay);
}

/** False when the system has no thread or timer left. */
bool KeptPin2::startWatch()
{
    if (m_watcher.joinable())
        return true;
    m_timer = timerfd_create(CLOCK_BOOTTIME, TFD_CLOEXEC);
    if (m_timer < 0)
        return false;
    sigset_t all;
    sigset_t before;
    sigfillset(&all);
    pthread_sigmask(SIG_SETMASK, &all, &before); // signals are for the threads of the application
    try {
        m_watcher = std::thread([this] { watch(); });
    } catch (const std::system_error &) {
        close(m_timer);
    }
    pthread_sigmask(SIG_SETMASK, &before, nullptr);
    return m_watcher.joinable();
}

void KeptPin2::watch()
{
    std::uint64_t expirations = 0;
    while (read(m_timer, &expirations, sizeof expirations) == sizeof expirations && !m_ended) {
        // Whoever holds the lock now uses the PIN2, wipes it or keeps another one.
        if (const std::unique_lock lock(m_mutex, std::try_to_lock); lock)
            isFresh();
    }
}

/** In a forked child, where the page is empty and only this thread lives on. */
void KeptPin2::leaveToParent() noexcept
{
    new (&m_mutex) std::mutex;
    if (!m_watcher.joinable())
        return;
    new (&m_watcher) std::thread;
    close(m_timer);
}

bool KeptPin2::isFresh()
{
    if (!m_page || m_page[0] == '\0')
        return false;
    if (now() < m_end)
        return true;
    erase();
    return false;
}

bool KeptPin2::isFresh(const Card::Stay &stay)
{
    if (!isFresh())
        return false;
    if (m_stay == stay)
        return true;
    erase();
    return false;
}

void KeptPin2::erase()
{
    if (m_page)
        explicit_bzero(m_page, pageSize());
}

} // namespace Ofono
