// The phone state that all programs of the user share.
#include "SharedState.h"

#include "Descriptor.h"

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
constexpr std::uint32_t layoutMark = 0x4B565104;

/** Why what stands there under this name must not be used, or nothing. */
std::string objection(const std::string &path, const Descriptor &place, mode_t kind, const char *wanted)
{
    struct stat status = {};
    if (!place || fstat(place.number(), &status) != 0)
        return path + ": " + std::strerror(errno);
    if ((status.st_mode & S_IFMT) != kind || status.st_uid != geteuid() || (status.st_mode & 077) != 0)
        return path + " is not a " + wanted + " that this user alone may use";
    return {};
}

/**
 * Gives the file its size and all its space. A page of the file without space would kill the process that writes to it
 * first, also in the middle of a call, when somebody has filled the disk in between.
 */
std::string reserve(const std::string &path, const Descriptor &file)
{
    struct stat status = {};
    if (fstat(file.number(), &status) != 0)
        return path + ": " + std::strerror(errno);
    if (status.st_size != 0 && status.st_size != sizeof(SharedState))
        return path + " has another size than this version uses";
    int result = 0;
    do {
        result = fallocate(file.number(), 0, 0, sizeof(SharedState));
    } while (result != 0 && errno == EINTR);
    return result == 0 ? std::string() : path + ": " + std::strerror(errno);
}

/** Null with the reason when the file cannot serve. */
SharedState *mapFile(const char *directory, std::string &reason)
{
    const std::string folderPath = std::string(directory) + "/kvq";
    const std::string path = folderPath + "/phone-state";
    if (mkdir(folderPath.c_str(), S_IRWXU) != 0 && errno != EEXIST) {
        reason = folderPath + ": " + std::strerror(errno);
        return nullptr;
    }
    const Descriptor folder(open(folderPath.c_str(), O_RDONLY | O_DIRECTORY | O_NOFOLLOW | O_CLOEXEC));
    reason = objection(folderPath, folder, S_IFDIR, "folder");
    if (!reason.empty())
        return nullptr;
    const Descriptor file(openat(folder.number(), "phone-state",
                                 O_RDWR | O_CREAT | O_NOFOLLOW | O_NONBLOCK | O_CLOEXEC, S_IRUSR | S_IWUSR));
    reason = objection(path, file, S_IFREG, "file");
    if (reason.empty())
        reason = reserve(path, file);
    if (!reason.empty())
        return nullptr;
    void *const memory =
        mmap(nullptr, sizeof(SharedState), PROT_READ | PROT_WRITE, MAP_SHARED, file.number(), 0);
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
    const char *const directory = secure_getenv("XDG_RUNTIME_DIR");
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
