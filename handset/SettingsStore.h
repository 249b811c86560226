// The phone's settings store: one SQLite file, shared safely between processes.
#pragma once

#include <QString>

#include <memory>
#include <optional>

#include <sys/types.h>

struct sqlite3;
struct sqlite3_stmt;

/**
 * Values by application, group, key and type.
 *
 * What a write without a collector, or commit(), answered with true survives a crash of the process and of
 * the phone: the transaction has been synced to the disk. A failure leaves the reason in errno: ENOSPC for a full disk,
 * EROFS for a file that may not be written, EBUSY for a store that others keep locked, EUCLEAN for a
 * damaged file. A damaged file is reported once on standard error and never overwritten.
 *
 * A process keeps one connection. It is made anew when the file was replaced and in a forked child.
 */
class SettingsStore {
public:
    enum class Type { Bool = 0, Int = 1, Text = 2 };

    SettingsStore();
    ~SettingsStore();

    SettingsStore(const SettingsStore &) = delete;
    SettingsStore &operator=(const SettingsStore &) = delete;

    /** Where the settings are kept; an empty path stands for the user's data directory. */
    void setFile(const QString &path);
    QString file() const;

    /** Makes the store full at that many pages of 4 KiB; 0 lifts the limit. */
    void limitPages(int pages);
    /** How long a write waits for other processes. */
    void setBusyTimeout(int milliseconds);

    struct Name {
        unsigned int app;
        QString group;
        QString key;
    };

    /** Nothing when nothing is stored under this name and type, or it cannot be read. */
    std::optional<int> readInteger(const Name &name, Type type);
    std::optional<QString> readText(const Name &name);

    /** Writes durably when @p collector is null, else into the collection of that collector. */
    bool writeInteger(const Name &name, Type type, int value, const void *collector);
    bool writeText(const Name &name, const QString &value, const void *collector);

    /** Makes a collection that has been written to durable, all or nothing. */
    bool commit(const void *collector);
    /** Gives a collection up. */
    void rollback(const void *collector);

private:
    struct CloseConnection {
        void operator()(sqlite3 *connection) const;
    };
    struct FinalizeStatement {
        void operator()(sqlite3_stmt *statement) const;
    };
    using Statement = std::unique_ptr<sqlite3_stmt, FinalizeStatement>;

    bool connect(bool forWriting);
    void disconnect();
    sqlite3_stmt *readStatement(const Name &name, Type type);
    sqlite3_stmt *writeStatement(const Name &name, Type type, const void *collector);
    bool finishWrite();
    bool execute(const char *sql);
    void noteFailure();

    QString m_file;
    int m_pageLimit = 0;
    int m_busyTimeout = 5000;
    std::unique_ptr<sqlite3, CloseConnection> m_connection;
    Statement m_read;
    Statement m_write;
    const void *m_collector = nullptr;
    bool m_damageReported = false;
    pid_t m_process = 0;
    dev_t m_device = 0;
    ino_t m_inode = 0;
    bool m_readOnly = false;
};
