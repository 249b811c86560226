// What can go wrong around the settings store, done to it on purpose.
#pragma once

#include <functional>
#include <string>
#include <vector>

namespace Torture {

struct Outcome {
    long tries = 0;
    long faults = 0;
    std::string firstFault;
    std::string remark;        ///< what was seen besides
    std::string cannotRunHere; ///< why it was left out, when it was

    void check(bool good, const std::string &what);
    void add(const Outcome &other);
};

/** Writers are killed at any moment: what was answered with true is there, a collection as a whole or not at all. */
Outcome killedWriters(const std::string &folder, int rounds);

/** Writers are stopped at any moment: reads go on as ever, writes are answered. */
Outcome stoppedWriters(const std::string &folder, int rounds);

/** Small file systems of their own, in @p folder, at many levels of fill. */
Outcome fullMemoryDisks(const std::string &folder, int step);
Outcome fullLoopDisks(const std::string &folder, int step);
/** A file system without a free inode. */
Outcome noInodes(const std::string &folder);

/** The same through the engine: false, and the signal flashFull() once for each. */
Outcome signalsOfFullDisks(const std::string &folder, int step);

/** Versions of the same size, sooner after each other than the file system can tell; every other one is read. */
Outcome coarseTimes(const std::string &folder);

/** Each call to the system fails once, and from then on, with each of several errors. */
Outcome failingDisk(const std::string &folder);

/** Files with flipped, missing, zeroed and added bytes. */
Outcome damagedFiles(const std::string &folder, int files);

/** One bit after another flips in the file: no wrong value is read, and nothing is written over it. */
Outcome flippedBits(const std::string &folder, int step);

/** Pipes, folders, links and files of others in the file's place. */
Outcome oddFiles(const std::string &folder);

struct Crowd {
    Outcome outcome;
    struct Row {
        long answers = 0;
        double median = 0; ///< microseconds
        double longest = 0;
    };
    Row reads;
    Row asleep;   ///< those of the reads that waited for anything but a processor
    Row spinning; ///< what the readers did in between: nothing, for as much of a processor as the read had
    Row writes;
};

/**
 * Processes that read and write without pause. @p read says whether it got a value.
 *
 * So many processes keep each other from the processor. What the readers do between their reads shows for how long,
 * at the same time and in the same processes.
 */
Crowd crowd(int writers, int readers, double seconds, const std::function<bool()> &read,
            const std::function<bool(int)> &write);

/** Everything at once for a while: processes come and go, collect, are stopped and killed; threads read and write. */
Outcome soak(const std::string &folder, double seconds);

} // namespace Torture
