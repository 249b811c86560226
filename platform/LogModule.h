// The stream of the log library: where the engine's log lines go.
#pragma once

#include <cstdio>

extern "C" {

/**
 * The stream that log lines are written to. Null sends them to standard output.
 *
 * An application points it at a stream of its own before it calls the engine, and keeps that stream open as long as it
 * stands here; the variable is the platform library's, so a program that names it links that library too. Lines show
 * PINs, PUKs and own numbers in clear where an operation's documentation says so: choose a stream that nobody else
 * reads. A stream on the null device (/dev/null) discards the log.
 *
 * The platform libraries that come with the engine set the variable when they are loaded, from the environment
 * variable KVQ_LOG: the path of a file, which is appended to, "stderr", or "off". The file must be a regular file that
 * nobody but the user may read or write, and no link; it is made so when it does not exist. Anything else is reported
 * on standard error, and the log is then off.
 */
extern std::FILE *libaplog_to_module_ptr;
}
