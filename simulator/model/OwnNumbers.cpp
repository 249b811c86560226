// Own numbers.
#include "OwnNumbers.h"

namespace Simulator {

OwnNumber *ownNumber(SimState &sim, int record)
{
    if (record < 1 || static_cast<std::size_t>(record) > sim.ownNumbers.size())
        return nullptr;
    return &sim.ownNumbers[static_cast<std::size_t>(record - 1)];
}

} // namespace Simulator
