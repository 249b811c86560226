// Whose turn it is to replace the settings file: one process at a time, each in its turn.
#pragma once

#include "Descriptor.h"
#include "SettingsImage.h"

#include <chrono>
#include <string>

/**
 * Locks on bytes of a file beside the settings file: one for the turn, and one for each process that waits, whose
 * number says since when.
 *
 * The kernel ends them with the process that has them, however it ends. Who waits longest comes next. It costs more
 * to wake another process than to write, so whoever has come to its turn goes on for a while when it writes again at
 * once; then it has to stand in line, so that nobody waits for long. A process that was stopped while it stood in
 * line is passed by when it leaves the turn lying.
 */
class WriterTurn {
public:
    using Clock = std::chrono::steady_clock;

    WriterTurn() = default;
    ~WriterTurn() { end(); }

    WriterTurn(const WriterTurn &) = delete;
    WriterTurn &operator=(const WriterTurn &) = delete;

    /** EBUSY when the turn has not come within that time. */
    Fault begin(const std::string &path, std::chrono::milliseconds patience);
    void end();
    /** For the child of a fork: turn and place in line are the parent's. */
    void abandon();

private:
    Fault openFile(const std::string &path, const std::string &name);
    bool take(const std::string &name);

    Descriptor m_file;
    off_t m_place = 0;                   ///< in line; 0 for none
    Clock::time_point m_roundBegan = {}; ///< when the line last led to the turn
};
