// The engine's log: one line a call, in one of two shapes. unitPath, which its lines carry, is defined before.
#pragma once

#include "LogModule.h"

#include <cstdarg>
#include <cstdio>

#include <sys/stat.h>
#include <sys/sysmacros.h>

namespace {

constexpr int engineLogLevel = 3;
constexpr int highestPrintedLevel = 7;

std::FILE *logStream()
{
    return libaplog_to_module_ptr ? libaplog_to_module_ptr : stdout;
}

/** Whether the log goes to the null device. */
[[maybe_unused]] bool isLogDiscarded()
{
    constexpr unsigned int memoryDevices = 1;
    constexpr unsigned int null = 3;
    struct stat status = {};
    return fstat(fileno(logStream()), &status) == 0 && S_ISCHR(status.st_mode)
        && status.st_rdev == makedev(memoryDevices, null);
}

/** Internal linkage: a unit logs through its own copy and exports nothing for it. */
[[maybe_unused]] [[gnu::format(printf, 2, 3)]] void PHONE_ENG_Log(int level, const char *format, ...)
{
    if (level > highestPrintedLevel)
        return;
    va_list arguments;
    va_start(arguments, format);
    std::vfprintf(logStream(), format, arguments);
    va_end(arguments);
}

/** Out of line, since most calls of the engine to the platform stand between two of them. */
[[maybe_unused]] [[gnu::noinline]] void logTrace(const char *function, int line)
{
    PHONE_ENG_Log(engineLogLevel, "%s,%s,%d \n", unitPath, function, line);
}

} // namespace

// Macros, since a line names the function and the line that it stands in.

/** The bare location trace that brackets most platform calls. */
#define LOG_TRACE() logTrace(__func__, __LINE__)

/** A message. Write the text as a raw string literal: a backslash in it is printed as a backslash. */
#define LOG_MESSAGE(text, ...)                                                                               \
    PHONE_ENG_Log(engineLogLevel, "\n%s, %s, %d: \"" text "\"\n", unitPath, __func__,                        \
                  __LINE__ __VA_OPT__(, ) __VA_ARGS__)

/** A message that shows a PIN or PUK. Not even formatted where nobody sees it, lest the stream's buffer keeps it. */
#define LOG_SECRET(text, ...)                                                                                \
    do {                                                                                                     \
        if (!isLogDiscarded())                                                                               \
            LOG_MESSAGE(text, __VA_ARGS__);                                                                  \
    } while (false)
