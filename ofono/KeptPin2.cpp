// A verified PIN2 in locked memory.
#include "KeptPin2.h"

#include <cstring>
#include <new>

#include <pthread.h>
#include <sys/mman.h>
#include <unistd.h>

namespace Ofono {

namespace {

constexpr std::chrono::seconds keptFor(60);

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

} // namespace

KeptPin2 &KeptPin2::instance()
{
    static KeptPin2 kept;
    return kept;
}

KeptPin2::KeptPin2()
    : m_page(lockedPage())
{
    pthread_atfork(nullptr, nullptr, [] { new (&instance().m_mutex) std::recursive_mutex; });
}

KeptPin2::~KeptPin2()
{
    if (!m_page)
        return;
    erase();
    munmap(m_page, pageSize());
}

void KeptPin2::keep(std::string_view pin2)
{
    const std::scoped_lock lock(m_mutex);
    if (!m_page || pin2.size() >= pageSize())
        return;
    erase();
    std::memcpy(m_page, pin2.data(), pin2.size());
    m_end = std::chrono::steady_clock::now() + keptFor;
}

void KeptPin2::wipe()
{
    const std::scoped_lock lock(m_mutex);
    erase();
}

bool KeptPin2::isKept()
{
    const std::scoped_lock lock(m_mutex);
    return isFresh();
}

bool KeptPin2::isFresh()
{
    if (!m_page || m_page[0] == '\0')
        return false;
    if (std::chrono::steady_clock::now() < m_end)
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
