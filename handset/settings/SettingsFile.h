// The settings file as the file system sees it: which version of it stands there, and how it is replaced.
#pragma once

#include "Descriptor.h"
#include "Fault.h"

#include <QByteArray>

#include <cstdint>
#include <string>

#include <sys/types.h>

namespace SettingsFile {

/** No file of settings is larger: what is larger is something else. */
constexpr std::int64_t largestSize = std::int64_t{4} * 1024 * 1024;

/** The file in the user's data directory as that is now. */
std::string ofTheUser();

/**
 * Tells one version of the file from any other: each is modified later than the one it replaces, see Replacement.
 * Its inode alone would not do, for it is given to another file when the version is gone.
 */
struct Version {
    bool operator==(const Version &) const = default;

    dev_t device = 0;
    ino_t inode = 0; ///< 0 for no file
    off_t size = 0;
    std::int64_t modified = 0; ///< microseconds since 1970
};

/** The version that stands under a path now; no file is no fault. The cheapest question there is: one system call. */
Fault look(const std::string &path, Version &version);

/** Reads the whole file without a lock, for a version never changes. No file is an empty one. */
Fault read(const std::string &path, Version &version, QByteArray &bytes);

/** The path without links, its folder made durably when it is not there (mode 0700). */
Fault resolve(const std::string &path, std::string &resolved);

/** Whether the file may be replaced by this process. A file without any write permission is meant to stay. */
Fault mayReplace(const std::string &resolved);

/** The next version of the file, beside it until it takes its place. Only who has the lock may make one. */
class Replacement {
public:
    /** Takes the file away unless it has been published. */
    ~Replacement();

    /** Takes the space for a content of that size. The path is one from resolve(). */
    Fault reserve(const std::string &path, std::int64_t size);
    /**
     * Puts the version after @p base in place, durably, in the space that was reserved. When the disk does not confirm
     * the last step, it stands there and may be lost with the power.
     */
    Fault publish(const QByteArray &bytes, const Version &base, Version &version);
    /** For the child of a fork: the file is the parent's. */
    void abandon();

private:
    Fault create();
    Fault write(const QByteArray &bytes, const Version &base, Version &version) const;

    std::string m_path;
    std::string m_next;
    Descriptor m_folder;
    Descriptor m_file;
};

} // namespace SettingsFile
