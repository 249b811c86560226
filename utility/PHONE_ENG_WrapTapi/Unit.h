// What every file of this unit begins with.
#pragma once

namespace {

/** The path that the unit's log lines carry. */
constexpr char unitPath[] = "utility/PHONE_ENG_WrapTapi";

} // namespace

#include "../Log.h"
