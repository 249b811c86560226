// The stream of the log library.
#pragma once

#include <cstdio>

extern "C" {

/** Null while no log module is attached; log lines then go to standard output. */
extern std::FILE *libaplog_to_module_ptr;
}
