// Lets tests start programs under the emulator of user programs. The toolkit asks the kernel once whether a process
// can be had as a file descriptor; the host's kernel answers yes, but the emulator cannot make such a process. Here
// the answer is no, and the toolkit starts processes in its older way.
#include <array>
#include <cerrno>
#include <cstdarg>

#include <dlfcn.h>
#include <sys/syscall.h>
#include <unistd.h>

namespace {

constexpr long idOfProcessDescriptor = 3; // P_PIDFD, which only newer C libraries declare

} // namespace

// Found before the C library's own, for the program's symbols come first.
extern "C" [[gnu::visibility("default")]] long syscall(long number, ...) noexcept
{
    std::array<long, 6> words = {};
    va_list arguments;
    va_start(arguments, number);
    for (long &word : words)
        word = va_arg(arguments, long);
    va_end(arguments);
    if (number == SYS_waitid && words[0] == idOfProcessDescriptor) {
        errno = EINVAL;
        return -1;
    }
    static const auto next = reinterpret_cast<long (*)(long, ...)>(dlsym(RTLD_NEXT, "syscall"));
    return next(number, words[0], words[1], words[2], words[3], words[4], words[5]);
}
