// The phone state that all programs of the user share.
#include "SharedState.h"

#include <cerrno>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <string>

#include <fcntl.h>
#include <sys/mman.h>
#include <sys/stat.h>
#include <unistd.h>

namespace Handset {

namespace {

/** Changes whenever the layout does. */
constexpr std::uint32_t layoutMark = 0x4B565102;

/** Closes the descriptor when it goes. */
class Descriptor {
public:
    explicit Descriptor(int descriptor)
        : m_descriptor(descriptor)
    {
    }
    ~Descriptor()
    {
        if (m_descriptor >= 0)
            close(m_descriptor);
    }

    Descriptor(const Descriptor &) = delete;
    Descriptor &operator=(const Descriptor &) = delete;

    int get() const { return m_descriptor; }

private:
    const int m_descriptor;
};

/** Null with the reason when the file cannot serve. */
SharedState *mapFile(const char *directory, std::string &reason)
{
    const std::string folder = std::string(directory) + "/kvq";
    if (mkdir(folder.c_str(), 0700) != 0 && errno != EEXIST) {
        reason = folder + ": " + std::strerror(errno);
        return nullptr;
    }
    const std::string path = folder + "/phone-state";
    const Descriptor file(open(path.c_str(), O_RDWR | O_CREAT | O_NOFOLLOW | O_CLOEXEC, 0600));
    struct stat status = {};
    if (file.get() < 0 || fstat(file.get(), &status) != 0) {
        reason = path + ": " + std::strerror(errno);
        return nullptr;
    }
    if (!S_ISREG(status.st_mode) || status.st_uid != geteuid() || (status.st_mode & 077) != 0) {
        reason = path + " is not a file that this user alone may use";
        return nullptr;
    }
    // Whoever comes first gives it its size; the others find it there, or give it the same.
    if (status.st_size == 0 && ftruncate(file.get(), sizeof(SharedState)) == 0)
        fstat(file.get(), &status);
    if (status.st_size != sizeof(SharedState)) {
        reason = path + " has another size than this version uses";
        return nullptr;
    }
    void *const memory =
        mmap(nullptr, sizeof(SharedState), PROT_READ | PROT_WRITE, MAP_SHARED, file.get(), 0);
    if (memory == MAP_FAILED) {
        reason = path + ": " + std::strerror(errno);
        return nullptr;
    }
    auto *const state = static_cast<SharedState *>(memory);
    std::uint32_t mark = 0;
    if (!state->layout.compare_exchange_strong(mark, layoutMark) && mark != layoutMark) {
        munmap(memory, sizeof(SharedState));
        reason = path + " has another layout than this version uses";
        return nullptr;
    }
    return state;
}

SharedState &openState()
{
    static SharedState ownState = {};
    std::string reason = "XDG_RUNTIME_DIR is not set";
    const char *const directory = std::getenv("XDG_RUNTIME_DIR");
    SharedState *const state = directory && *directory ? mapFile(directory, reason) : nullptr;
    if (state)
        return *state;
    std::fprintf(stderr, "shared phone state: %s; this program keeps its own\n", reason.c_str());
    return ownState;
}

} // namespace

SharedState &sharedState()
{
    static SharedState &state = openState();
    return state;
}

} // namespace Handset
