// The subscriber's own numbers on the card.
#pragma once

#include "PhoneState.h"

namespace Simulator {

/** By record, 1 for the first. Null when the card has no such record. */
OwnNumber *ownNumber(SimState &sim, int record);

} // namespace Simulator
