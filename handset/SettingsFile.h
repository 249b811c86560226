// The settings file as the file system sees it: which version of it stands there, and how it is replaced.
#pragma once

#include "Descriptor.h"
#include "SettingsImage.h"

#include <string>

#include <sys/stat.h>

namespace SettingsFile {

/**
 * Tells one version of the file from any other: each is modified later than the one it replaces, see Replacement.
 * Its inode alone would not do, for it is given to another file when the version is gone. To keep the version open
 * would keep that from happening, but then the last reader to close it would have to wait for the disk.
 */
struct Version {
    Version() = default;
    explicit Version(const struct stat &status);

    bool operator==(const Version &other) const;
    /** The same, but for permissions and links. */
    bool hasContentOf(const Version &other) const;
    /** Whether another program has written it in place so lately that its next write might leave no trace here. */
    bool mayChangeUnnoticed() const;

    dev_t device = 0;
    ino_t inode = 0; ///< 0 for no file
    off_t size = 0;
    timespec modified = {};
    timespec changed = {};
};

/** The version that stands under a path now; no file is no fault. The cheapest question there is: one system call. */
Fault look(const std::string &path, Version &version);

struct Content {
    Version version;
    std::string image;
    bool standsAlone = true; ///< false while another program's journal belongs to it
};

/**
 * Reads the whole file, without taking any lock.
 *
 * A version never changes once it stands there, for it is replaced as a whole. What other programs write in place,
 * with a journal beside the file, is fetched through SQLite; EBUSY means that they are at it now.
 */
Fault read(const std::string &path, Content &content);

/** Makes a file that does not stand alone do so; EBUSY while the other program is at it. */
Fault endJournals(const std::string &resolved);

/** The path without links, its folder made durably when it is not there (mode 0700). */
Fault resolve(const std::string &path, std::string &resolved);

/** Whether the file may be replaced by this process. A file without any write permission is meant to stay. */
Fault mayReplace(const std::string &resolved);

/**
 * The next version of the file, beside it until it takes its place.
 *
 * When write() has answered, all that was written is on the disk: nothing but a rename is left to do, which needs
 * no space. Only one process at a time may have a replacement, see WriterTurn.
 */
class Replacement {
public:
    /** @param resolved a path from resolve(), where @p base stands now */
    Replacement(std::string resolved, const Version &base);
    /** Takes the file away unless it has been published. */
    ~Replacement();

    Replacement(const Replacement &) = delete;
    Replacement &operator=(const Replacement &) = delete;

    /** Makes this the content of the next version. */
    Fault write(const std::string &image);
    /**
     * Puts the next version in place, durably. When the disk does not confirm that, the old version is put back.
     * @param version receives the version that stands there then
     */
    Fault publish(Version &version);
    /** For the child of a fork: the file is the parent's. */
    void abandon();

private:
    Fault create();
    Fault setTime() const;
    Fault syncFolder() const;

    std::string m_path;
    std::string m_folder;
    std::string m_next;
    timespec m_baseModified;
    Descriptor m_file;
};

} // namespace SettingsFile
