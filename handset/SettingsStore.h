// The phone's settings store: one file, shared safely between processes and threads.
#pragma once

#include "SettingsFile.h"
#include "SettingsImage.h"
#include "WriterTurn.h"

#include <QString>

#include <chrono>
#include <condition_variable>
#include <memory>
#include <mutex>
#include <optional>
#include <set>
#include <string>
#include <thread>

/**
 * Values by application, group, key and type.
 *
 * Reads take no lock: the file is never changed, it is replaced as a whole, and a process reads it anew when another
 * version stands there. So no process, whether it writes without pause, hangs, is stopped or killed, can make a read
 * wait or keep its value from it. When the file cannot be read (no permission, damage, not a settings file, newer
 * than this program), reads find nothing and the reason is reported on standard error, once a reason and process;
 * while the process lacks memory or descriptors they find what it has read before.
 *
 * Writers take turns. What a write without a collector, or commit(), answered with true survives a crash of the
 * process and of the phone: the new version and the folder have been synced. A write that answered false left the old
 * value in place and its reason in errno: ENOSPC for a full disk or a quota that is used up, EROFS or EACCES for a file
 * that may not be written, EBUSY when the turn did not come in time, EUCLEAN for a damaged file and EMEDIUMTYPE
 * for one that is not ours, both never overwritten, EIO and others for a disk that fails. When such a disk fails while
 * it is to confirm the last step, the old version is put back; only where the file system cannot exchange two names
 * (or the disk refuses that as well), or the file was new, false can stand for a value that is there and may be lost
 * with the power.
 *
 * A collection has the turn from its first write until commit() or rollback(). A collected write has put all that
 * it needs on the disk when it answers true; the commit renames a file, which needs no space. What can still make a
 * commit fail: a disk that fails, a file that somebody else replaced meanwhile (the file of somebody else stays), and
 * a file system that needs space to rename (those that copy on write, when not even their reserve is left).
 *
 * In a forked child the store starts afresh: a collection that was open stays the parent's.
 */
class SettingsStore {
public:
    using Type = SettingsImage::Type;

    SettingsStore();
    ~SettingsStore();

    SettingsStore(const SettingsStore &) = delete;
    SettingsStore &operator=(const SettingsStore &) = delete;

    /** Where the settings are kept; an empty path stands for the user's data directory as it is at the first use. */
    void setFile(const QString &path);
    QString file() const;

    /** Makes the store full at that many pages of 4 KiB; 0 lifts the limit. */
    void limitPages(int pages);
    /** How long a write waits for its turn. */
    void setBusyTimeout(int milliseconds);

    struct Name {
        unsigned int app;
        QString group;
        QString key;
    };

    /**
     * Nothing when nothing is stored under this name and type, or it cannot be read.
     * @param collector sees what it has collected itself; everybody else sees what is stored
     */
    std::optional<int> readInteger(const Name &name, Type type, const void *collector = nullptr);
    std::optional<QString> readText(const Name &name, const void *collector = nullptr);

    /** Writes durably when @p collector is null, else into the collection of that collector. */
    bool writeInteger(const Name &name, Type type, int value, const void *collector);
    bool writeText(const Name &name, const QString &value, const void *collector);

    /** Makes a collection that has been written to durable, all or nothing. */
    bool commit(const void *collector);
    /** Gives a collection up. */
    void rollback(const void *collector);

private:
    using Value = SettingsImage::Value;
    using Values = SettingsImage::Values;
    struct Registry;

    /** A version of the file as this process knows it. */
    struct Snapshot {
        SettingsFile::Content content;
        Values values;
        Fault fault;
        bool known = false;
    };

    /** The version that is being made; the turn is ours as long as there is one. */
    struct Draft {
        std::string path; ///< without links
        SettingsFile::Version base;
        std::string image;
        Values values;
        std::optional<SettingsFile::Replacement> replacement;
    };

    std::optional<Value> read(const SettingsImage::Key &key, const void *collector);
    bool write(const SettingsImage::Key &key, const Value &value, const void *collector);

    const Snapshot &present();
    void load(const SettingsFile::Version &version);
    const std::string &path() const;

    bool claim(const void *owner);
    void release();
    Fault begin();
    Fault takeBase();
    Fault put(const SettingsImage::Key &key, const Value &value);
    Fault publish();
    bool answer(const Fault &fault);
    void report(const Fault &fault, const char *consequence);

    void lockForFork();
    void unlockAfterFork();
    void startAfreshInChild();

    /** What readers need; held for moments only. */
    mutable std::mutex m_mutex;
    QString m_file;
    mutable std::string m_path; ///< the same for the system, empty until it is needed
    Snapshot m_snapshot;
    std::set<std::string> m_reported;
    int m_pageLimit = 0;
    std::chrono::milliseconds m_patience{5000};

    /** Which object of this process may write; the mutex is held for moments, the claim for as long as it takes. */
    std::mutex m_claimMutex;
    std::condition_variable m_claimEnded;
    const void *m_owner = nullptr;
    std::thread::id m_ownerThread;
    bool m_parentCollects = false; ///< in a child of a fork, as long as the turn was not ours once

    WriterTurn m_turn; ///< belongs to the owner
    /** Belongs to the owner; what the mutex above guards may look at it with both in hand. */
    std::unique_ptr<Draft> m_draft;
};
