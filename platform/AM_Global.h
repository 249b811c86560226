// Applications of the phone, by number.
#pragma once

struct AM_Global {
    /** The numbers are this boundary's; a port translates them. */
    enum Apps : unsigned int {
        CallSetup = 4, ///< owns the settings that the engine keeps
    };
};
