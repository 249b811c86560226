// What the platform headers declare, and whether a library defines it.
#pragma once

#include <string>
#include <vector>

namespace PortCheck {

/** What a look at a library found. */
struct Findings {
    std::string error; ///< why it could not be loaded; nothing else is known then
    int declared = 0;
    std::vector<std::string> missing;  ///< a name and its header each
    std::vector<std::string> mistakes; ///< what would go wrong when the engine loads it
};

Findings examine(const char *library);

} // namespace PortCheck
