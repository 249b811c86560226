// The stream that the user chose for the engine's log.
#pragma once

#include <cstdio>

/**
 * Opens the stream that the environment variable KVQ_LOG names.
 *
 * A path opens that file for appending, "stderr" is standard error, and "off" is a stream on the null device. The file
 * must be a regular file of the user's that nobody else may read or write, under its only name; a missing one is made
 * so. A destination that is none of these is reported on standard error, and the log is then off: it must not appear
 * where the user did not send it.
 *
 * Null when the variable is not set or empty, and in a program that runs with another user's rights.
 */
std::FILE *openLogStream();
