// The simulated phone's state in words.
#pragma once

#include "SimulatedPhone.h"

namespace Simulator {

std::vector<SimulatedPhoneControl::Fact> facts(const SimulatedPhone &phone);

} // namespace Simulator
