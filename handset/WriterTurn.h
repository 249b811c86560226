// Whose turn it is to replace the settings file: one process at a time, each in its turn.
#pragma once

#include "Descriptor.h"
#include "SettingsImage.h"

#include <chrono>
#include <string>

/**
 * A lock on a file beside the settings file.
 *
 * The kernel ends it with the process that has it, however that process ends. Who waits stands first in line or
 * tries to get there. Whoever comes back at once goes on for a short while, for it costs more to wake another process
 * than to write; then it has to stand in line again, so that nobody is passed over for long. A process that was
 * stopped while it stood first in line is passed by after a second.
 */
class WriterTurn {
public:
    using Clock = std::chrono::steady_clock;

    WriterTurn() = default;
    ~WriterTurn() { end(); }

    WriterTurn(const WriterTurn &) = delete;
    WriterTurn &operator=(const WriterTurn &) = delete;

    /**
     * EBUSY when the turn has not come within that time.
     * @param stoodInLine when this process has last come to its turn by standing in line; kept by the caller
     */
    Fault begin(const std::string &path, std::chrono::milliseconds patience, Clock::time_point &stoodInLine);
    void end();
    /** For the child of a fork: the turn is the parent's. */
    void abandon() { m_file.reset(); }

    explicit operator bool() const { return static_cast<bool>(m_file); }

private:
    Descriptor m_file;
};
