// Applications of the phone, by number.
#pragma once

struct AM_Global {
    enum Apps : unsigned int {
        CallSetup = 4, ///< owns the settings that the engine keeps
    };
};
