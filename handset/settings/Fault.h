// Why something could not be done.
#pragma once

#include <cerrno>
#include <cstring>
#include <string>

struct Fault {
    int error = 0; ///< as in errno, 0 for no fault
    std::string reason;

    explicit operator bool() const { return error != 0; }

    /** Of a call to the system. A disk quota that is used up is a full disk to whoever cannot store. */
    static Fault ofSystem(const char *what, int error = errno)
    {
        return {error == EDQUOT ? ENOSPC : error, std::string(what) + ": " + std::strerror(error)};
    }
};
