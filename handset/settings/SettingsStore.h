// The phone's settings store: one file, shared safely between processes and threads.
#pragma once

#include "FileLock.h"
#include "SettingsDocument.h"
#include "SettingsFile.h"

#include <QString>

#include <chrono>
#include <mutex>
#include <optional>
#include <set>
#include <string>
#include <thread>

/**
 * Values by application, group, key and type. docs/settings.md tells what is promised to whoever uses a phone.
 *
 * Reads take no lock between processes: the file is never changed, it is replaced as a whole, and a process reads it
 * anew when another version stands there. A file that cannot be read gives nothing, and the reason is reported on
 * standard error, once a reason; while the process lacks memory or descriptors it gives what was read before.
 *
 * What was answered with true survives a crash of the process and of the phone. A value that stands there durably
 * already is not written again. False leaves the old value in place and a reason in errno: ENOSPC for a full disk,
 * EROFS or EACCES for a file that may not be written, EBUSY when the lock did not come free in time, EUCLEAN for a
 * damaged file and EMEDIUMTYPE for one that is not ours, EIO and others for a disk that fails. When the disk fails
 * while it is to confirm the last step, the new value stands there and may be lost with the power.
 *
 * In a forked child the store starts afresh: a collection that was open stays the parent's.
 */
class SettingsStore {
public:
    using Name = SettingsDocument::Name;
    using Key = SettingsDocument::Key;
    using Value = SettingsDocument::Value;
    class Collection;

    SettingsStore() = default;

    SettingsStore(const SettingsStore &) = delete;
    SettingsStore &operator=(const SettingsStore &) = delete;

    /** Where the settings are kept; an empty path stands for the user's data directory as it is at the first use. */
    void setFile(const QString &path);
    QString file() const;

    /** How long a write waits for the lock: 5 seconds when nothing is said. */
    void setPatience(std::chrono::milliseconds patience);

    /** Nothing when nothing is stored under this name and type, or it cannot be read. */
    std::optional<Value> find(const Key &key);
    /** Writes durably. */
    bool write(const Name &name, const Value &value);

    /** Sets errno and reports when there is something to report. True for no fault. */
    bool answer(const Fault &fault);

private:
    using Values = SettingsDocument::Values;
    struct Process;

    /** A version of the file as this process knows it. */
    struct Snapshot {
        SettingsFile::Version version;
        Values values;
        Fault fault;
        bool known = false;
    };

    const Snapshot &present();
    const std::string &path() const;
    void report(const Fault &fault, const char *consequence);

    Process &m_process = process(); ///< has the mutex for all of this
    QString m_file;
    mutable std::string m_path; ///< the same for the system, empty until it is needed
    Snapshot m_snapshot;
    std::set<std::string> m_reported;
    std::chrono::milliseconds m_patience{5000};

    static Process &process();
};

/**
 * Several writes that become durable together: the next version of the file, until it is published.
 *
 * It has the lock from its first write on, and the space for what was written. What can still make the commit fail is a
 * disk that fails, a file that somebody else has put there meanwhile, which stays, and a file system that copies on
 * write when it is full to the last block.
 */
class SettingsStore::Collection {
public:
    explicit Collection(SettingsStore &store);
    /** Gives up what has not been committed. */
    ~Collection();

    /** A collection with a failed write is of no use any more. */
    Fault write(const Name &name, const Value &value);
    Fault commit();

    /** What is collected, else what was stored when the collection began. */
    std::optional<Value> find(const Key &key) const;

    /** In a child of a fork: this one is the parent's. */
    bool isOfParent() const { return m_isOfParent; }

private:
    friend Process;

    Fault begin();

    SettingsStore &m_store;
    const std::thread::id m_thread = std::this_thread::get_id();
    std::string m_path; ///< empty until the first write
    std::string m_resolved;
    SettingsFile::Version m_base;
    Values m_values;
    QByteArray m_bytes;
    bool m_isChanged = false;
    bool m_isOfParent = false;
    FileLock m_lock;
    SettingsFile::Replacement m_replacement;
};
