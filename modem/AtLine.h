// The syntax of AT command lines (ITU-T V.250, 3GPP TS 27.007).
#pragma once

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace AtModem {

/** One parameter of a command. */
struct Parameter {
    std::string text;
    bool quoted = false;
};

/** One command of a line. */
struct Command {
    enum class Form { Execute, Read, Test, Set };

    /** A number of at most nine digits; nothing when the parameter is absent, empty or no number. */
    std::optional<int> number(std::size_t position) const;
    /** The same, with a value for an absent or empty parameter; nothing for one that is no number. */
    std::optional<int> number(std::size_t position, int absent) const;
    /** The text of a parameter; empty when it is absent. */
    const std::string &text(std::size_t position) const;
    bool has(std::size_t position) const { return !text(position).empty(); }

    std::string name; ///< in capitals: +CCFC, D, &C
    Form form = Form::Execute;
    std::vector<Parameter> parameters;
};

/** The commands of a line, in order. Nothing when the line is no command line. */
std::optional<std::vector<Command>> parseLine(std::string_view line);

/** A line as a log may show it: PINs and PUKs masked. */
std::string maskSecrets(std::string_view line);

} // namespace AtModem
