// Opens the stream of the log with the care that PINs in clear need.
#include "LogStream.h"

#include <cerrno>
#include <cstdlib>
#include <cstring>
#include <string_view>

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

namespace {

/** Why @p file is no place for a log, or null when it is one. */
const char *objection(int file)
{
    struct stat status = {};
    if (fstat(file, &status) != 0)
        return std::strerror(errno);
    if (!S_ISREG(status.st_mode))
        return "not a regular file";
    if (status.st_uid != geteuid())
        return "it belongs to another user";
    if ((status.st_mode & (S_IRWXG | S_IRWXO)) != 0)
        return "others may read or write it";
    if (status.st_nlink != 1)
        return "it has a second name";
    return nullptr;
}

std::FILE *openDiscardingStream()
{
    if (std::FILE *const stream = std::fopen("/dev/null", "we"))
        return stream;
    // A program may be confined to a place without devices.
    return fopencookie(nullptr, "w", {nullptr, nullptr, nullptr, nullptr});
}

std::FILE *openFile(const char *path)
{
    // Without O_NONBLOCK a pipe would keep the program waiting for a reader.
    const int file =
        open(path, O_WRONLY | O_APPEND | O_CREAT | O_NOFOLLOW | O_NONBLOCK | O_NOCTTY | O_CLOEXEC,
             S_IRUSR | S_IWUSR);
    const char *reason = nullptr;
    if (file < 0)
        reason = errno == ELOOP ? "it is a link" : std::strerror(errno);
    else
        reason = objection(file);
    std::FILE *const stream = reason ? nullptr : fdopen(file, "a");
    if (stream) {
        // Whole lines: programs may share the file, and one that crashes leaves its last words.
        std::setvbuf(stream, nullptr, _IOLBF, BUFSIZ);
        return stream;
    }
    std::fprintf(stderr, "log: \"%s\" is not used: %s; the log is off\n", path,
                 reason ? reason : std::strerror(errno));
    if (file >= 0)
        close(file);
    return openDiscardingStream();
}

} // namespace

std::FILE *openLogStream()
{
    const char *const destination = secure_getenv("KVQ_LOG");
    if (!destination || *destination == '\0')
        return nullptr;
    if (destination == std::string_view("off"))
        return openDiscardingStream();
    if (destination == std::string_view("stderr"))
        return stderr;
    return openFile(destination);
}
