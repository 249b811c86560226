// A service code, taken apart as it was typed (3GPP TS 22.030).
#pragma once

#include <QStringView>

#include <array>
#include <optional>

namespace Kvq {

/** Views of the text that was parsed, which must outlive it: the text may hold a PIN, and no copy of it is made. */
struct ServiceCode {
    enum class Procedure {
        Activate,    ///< *
        Deactivate,  ///< #
        Interrogate, ///< *#
        Register,    ///< **
        Erase,       ///< ##
    };

    Procedure procedure = Procedure::Activate;
    QStringView service;
    std::array<QStringView, 3> information; ///< empty where there is none; the last has all that is left
    QStringView rest;                       ///< what follows the code, such as a number

    /** Nothing for a text that does not begin with a code. */
    static std::optional<ServiceCode> parse(QStringView typed);
};

} // namespace Kvq
