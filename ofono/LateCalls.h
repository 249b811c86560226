// Calls that come into being when nobody waits for them any more.
#pragma once

#include "LeftRequest.h"

namespace Ofono::LateCalls {

/** Follows a call that was dialled, and hangs it up the moment that it comes into being. */
void hangUp(LeftRequest &dialled);

/**
 * Follows a call that is sent on, or two that are connected with each other. They are no calls of this phone any more
 * then, so nobody can end them here; that it has happened is told on standard error.
 */
void tell(LeftRequest &sentOn);

} // namespace Ofono::LateCalls
