// A disk that fails when it is told to. The functions here are found before those of the system.
#undef _FILE_OFFSET_BITS // both kinds of functions are defined here
#include "FailingDisk.h"

#include <atomic>
#include <cerrno>
#include <cstdarg>
#include <cstdio>

#include <dlfcn.h>
#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

namespace {

std::atomic<bool> armed = false;
std::atomic<int> calls = 0;
std::atomic<int> syncs = 0;
const char *failed = "";
int failingCall = 0;
int failure = 0;
bool failsForGood = false;
std::atomic<int> readFailure = 0;

bool fails(const char *function)
{
    if (!armed)
        return false;
    const int call = ++calls;
    if (call != failingCall && !(failsForGood && call > failingCall))
        return false;
    if (call == failingCall)
        failed = function;
    errno = failure;
    return true;
}

bool failsToRead()
{
    if (readFailure != 0)
        errno = readFailure;
    return readFailure != 0;
}

template <typename Function>
Function *system(const char *name)
{
    return reinterpret_cast<Function *>(dlsym(RTLD_NEXT, name));
}

int openNext(const char *name, const char *path, int flags, mode_t mode)
{
    if ((flags & (O_CREAT | O_DIRECTORY)) != 0 && fails(name))
        return -1;
    return system<int(const char *, int, ...)>(name)(path, flags, mode);
}

mode_t modeOf(int flags, va_list arguments)
{
    return (flags & O_CREAT) != 0 ? static_cast<mode_t>(va_arg(arguments, unsigned int)) : 0;
}

} // namespace

// Seen by the libraries of the program as well.
#pragma GCC visibility push(default)

extern "C" {

int open(const char *path, int flags, ...)
{
    va_list arguments;
    va_start(arguments, flags);
    const mode_t mode = modeOf(flags, arguments);
    va_end(arguments);
    return openNext("open", path, flags, mode);
}

int open64(const char *path, int flags, ...)
{
    va_list arguments;
    va_start(arguments, flags);
    const mode_t mode = modeOf(flags, arguments);
    va_end(arguments);
    return openNext("open64", path, flags, mode);
}

int fsync(int file)
{
    ++syncs;
    return fails("fsync") ? -1 : system<int(int)>("fsync")(file);
}

ssize_t pread(int file, void *bytes, size_t count, off_t position)
{
    return failsToRead() ? -1
                         : system<ssize_t(int, void *, size_t, off_t)>("pread")(file, bytes, count, position);
}

ssize_t pread64(int file, void *bytes, size_t count, off64_t position)
{
    return failsToRead()
        ? -1
        : system<ssize_t(int, void *, size_t, off64_t)>("pread64")(file, bytes, count, position);
}

ssize_t pwrite(int file, const void *bytes, size_t count, off_t position)
{
    return fails("pwrite")
        ? -1
        : system<ssize_t(int, const void *, size_t, off_t)>("pwrite")(file, bytes, count, position);
}

ssize_t pwrite64(int file, const void *bytes, size_t count, off64_t position)
{
    return fails("pwrite")
        ? -1
        : system<ssize_t(int, const void *, size_t, off64_t)>("pwrite64")(file, bytes, count, position);
}

int posix_fallocate(int file, off_t offset, off_t length)
{
    return fails("posix_fallocate") ? errno
                                    : system<int(int, off_t, off_t)>("posix_fallocate")(file, offset, length);
}

int posix_fallocate64(int file, off64_t offset, off64_t length)
{
    return fails("posix_fallocate")
        ? errno
        : system<int(int, off64_t, off64_t)>("posix_fallocate64")(file, offset, length);
}

int ftruncate(int file, off_t length) noexcept
{
    return fails("ftruncate") ? -1 : system<int(int, off_t)>("ftruncate")(file, length);
}

int ftruncate64(int file, off64_t length) noexcept
{
    return fails("ftruncate") ? -1 : system<int(int, off64_t)>("ftruncate64")(file, length);
}

int fchmod(int file, mode_t mode) noexcept
{
    return fails("fchmod") ? -1 : system<int(int, mode_t)>("fchmod")(file, mode);
}

int futimens(int file, const timespec times[2]) noexcept
{
    return fails("futimens") ? -1 : system<int(int, const timespec *)>("futimens")(file, times);
}

int mkdir(const char *path, mode_t mode) noexcept
{
    return fails("mkdir") ? -1 : system<int(const char *, mode_t)>("mkdir")(path, mode);
}

int rename(const char *from, const char *to) noexcept
{
    return fails("rename") ? -1 : system<int(const char *, const char *)>("rename")(from, to);
}

int unlink(const char *path) noexcept
{
    return fails("unlink") ? -1 : system<int(const char *)>("unlink")(path);
}
}

#pragma GCC visibility pop

void FailingDisk::failAt(int call, int error, bool forGood)
{
    failingCall = call;
    failure = error;
    failsForGood = forGood;
    calls = 0;
    failed = "";
    armed = true;
}

std::string FailingDisk::failedFunction()
{
    return failed;
}

int FailingDisk::takeSyncs()
{
    return syncs.exchange(0);
}

void FailingDisk::failReads(int error)
{
    readFailure = error;
}

int FailingDisk::repair()
{
    armed = false;
    readFailure = 0;
    return calls;
}
