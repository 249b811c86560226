// A lock beside a file, between processes and between the threads of each.
#pragma once

#include "Descriptor.h"
#include "Fault.h"

#include <chrono>
#include <string>

/**
 * The kernel ends the lock with the process that has it, however that ends. Who comes next is not said, but a thread
 * that takes a lock again at once leaves the others a millisecond to take it first.
 *
 * The lock is a file of its own, which stays when the lock ends. Whoever has the lock may leave a note in it.
 */
class FileLock {
public:
    ~FileLock() { release(); }

    /** @return EBUSY when somebody else has had the lock all that time */
    Fault take(const std::string &file, std::chrono::milliseconds patience);
    void release();
    /** For the child of a fork: the lock is the parent's. */
    void abandon() { m_file.reset(); }

    std::string note() const;
    /** The note of before may stay when the disk fails. */
    void setNote(const std::string &note) const;

private:
    Descriptor m_file;
};
