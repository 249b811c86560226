// The names of the platform functions that can be scripted: all that the platform's headers declare.
#include "SimulatedPhone.h"

const std::vector<std::string_view> &SimulatedPhone::functionNames()
{
    static const std::vector<std::string_view> names = {
#include "function_names.inc"
    };
    return names;
}
