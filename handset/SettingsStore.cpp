// The settings store on SQLite.
#include "SettingsStore.h"

#include <QFile>
#include <QFileInfo>
#include <QStandardPaths>

#include <array>
#include <cerrno>
#include <cstdio>
#include <filesystem>
#include <system_error>

#include <sqlite3.h>
#include <sys/stat.h>
#include <unistd.h>

namespace {

constexpr char createTable[] =
    "CREATE TABLE IF NOT EXISTS settings (app INTEGER NOT NULL, grp TEXT NOT NULL, "
    "key TEXT NOT NULL, type INTEGER NOT NULL, value NOT NULL, "
    "PRIMARY KEY (app, grp, key, type)) WITHOUT ROWID";
constexpr char selectValue[] =
    "SELECT value FROM settings WHERE app = ? AND grp = ? AND key = ? AND type = ?";
constexpr char replaceValue[] = "REPLACE INTO settings (app, grp, key, type, value) VALUES (?, ?, ?, ?, ?)";

/** @p systemError counts only for the codes that the system caused. */
int errnoOf(int code, int systemError)
{
    switch (code & 0xFF) {
    case SQLITE_FULL:
        return ENOSPC;
    case SQLITE_READONLY:
        return EROFS;
    case SQLITE_PERM:
    case SQLITE_AUTH:
        return EACCES;
    case SQLITE_CANTOPEN:
        return systemError != 0 ? systemError : EACCES;
    case SQLITE_BUSY:
    case SQLITE_LOCKED:
        return EBUSY;
    case SQLITE_CORRUPT:
    case SQLITE_NOTADB:
        return EUCLEAN;
    case SQLITE_NOMEM:
        return ENOMEM;
    case SQLITE_IOERR:
        return systemError == ENOSPC ? ENOSPC : EIO;
    default:
        return EIO;
    }
}

/** A file without any write permission is meant to stay as it is, also when root could write it. */
bool isWriteProtected(const struct stat &status)
{
    return (status.st_mode & (S_IWUSR | S_IWGRP | S_IWOTH)) == 0;
}

void bindText(sqlite3_stmt *statement, int position, const QString &text)
{
    const QByteArray utf8 = text.toUtf8();
    sqlite3_bind_text(statement, position, utf8.constData(), static_cast<int>(utf8.size()), SQLITE_TRANSIENT);
}

void bindName(sqlite3_stmt *statement, const SettingsStore::Name &name, SettingsStore::Type type)
{
    sqlite3_bind_int64(statement, 1, name.app);
    bindText(statement, 2, name.group);
    bindText(statement, 3, name.key);
    sqlite3_bind_int(statement, 4, static_cast<int>(type));
}

} // namespace

void SettingsStore::CloseConnection::operator()(sqlite3 *connection) const
{
    sqlite3_close_v2(connection);
}

void SettingsStore::FinalizeStatement::operator()(sqlite3_stmt *statement) const
{
    sqlite3_finalize(statement);
}

SettingsStore::SettingsStore() = default;

SettingsStore::~SettingsStore()
{
    disconnect();
}

void SettingsStore::setFile(const QString &path)
{
    disconnect();
    m_file = path;
    m_damageReported = false;
}

QString SettingsStore::file() const
{
    if (!m_file.isEmpty())
        return m_file;
    return QStandardPaths::writableLocation(QStandardPaths::GenericDataLocation)
        + QStringLiteral("/kvq-phone/settings.db");
}

void SettingsStore::limitPages(int pages)
{
    m_pageLimit = pages;
    disconnect();
}

void SettingsStore::setBusyTimeout(int milliseconds)
{
    m_busyTimeout = milliseconds;
    disconnect();
}

std::optional<int> SettingsStore::readInteger(const Name &name, Type type)
{
    sqlite3_stmt *const statement = readStatement(name, type);
    if (!statement)
        return std::nullopt;
    std::optional<int> value;
    const int code = sqlite3_step(statement);
    if (code == SQLITE_ROW)
        value = sqlite3_column_int(statement, 0);
    else if (code != SQLITE_DONE)
        noteFailure();
    sqlite3_reset(statement);
    return value;
}

std::optional<QString> SettingsStore::readText(const Name &name)
{
    sqlite3_stmt *const statement = readStatement(name, Type::Text);
    if (!statement)
        return std::nullopt;
    std::optional<QString> value;
    const int code = sqlite3_step(statement);
    if (code == SQLITE_ROW)
        value = QString::fromUtf8(reinterpret_cast<const char *>(sqlite3_column_text(statement, 0)),
                                  sqlite3_column_bytes(statement, 0));
    else if (code != SQLITE_DONE)
        noteFailure();
    sqlite3_reset(statement);
    return value;
}

bool SettingsStore::writeInteger(const Name &name, Type type, int value, const void *collector)
{
    sqlite3_stmt *const statement = writeStatement(name, type, collector);
    if (!statement)
        return false;
    sqlite3_bind_int(statement, 5, value);
    return finishWrite();
}

bool SettingsStore::writeText(const Name &name, const QString &value, const void *collector)
{
    sqlite3_stmt *const statement = writeStatement(name, Type::Text, collector);
    if (!statement)
        return false;
    bindText(statement, 5, value);
    return finishWrite();
}

bool SettingsStore::commit(const void *collector)
{
    if (m_collector != collector) {
        errno = EIO; // the file was replaced under the collection
        return false;
    }
    if (execute("COMMIT")) {
        m_collector = nullptr;
        return true;
    }
    const int reason = errno;
    rollback(collector);
    errno = reason;
    return false;
}

void SettingsStore::rollback(const void *collector)
{
    if (!m_collector || m_collector != collector)
        return;
    m_collector = nullptr;
    // A failed statement may have ended the transaction already.
    if (m_connection && sqlite3_get_autocommit(m_connection.get()) == 0)
        execute("ROLLBACK");
}

/** Makes sure that the connection is to the file that stands under the path now. */
bool SettingsStore::connect(bool forWriting)
{
    if (m_process != getpid())
        disconnect();
    const QByteArray path = QFile::encodeName(file());
    struct stat status = {};
    const bool exists = stat(path.constData(), &status) == 0;
    const bool readOnly = exists && isWriteProtected(status);
    if (m_connection && exists && status.st_dev == m_device && status.st_ino == m_inode
        && readOnly == m_readOnly)
        return true;
    if (m_connection) {
        const bool collecting = m_collector != nullptr;
        disconnect();
        m_damageReported = false;
        if (collecting) {
            errno = EIO; // what was collected went with the file
            return false;
        }
    }
    if (!exists) {
        if (!forWriting)
            return false;
        std::error_code failure;
        std::filesystem::create_directories(QFile::encodeName(QFileInfo(file()).absolutePath()).toStdString(),
                                            failure);
        if (failure) {
            errno = failure.value();
            return false;
        }
    }
    m_readOnly = readOnly;
    const int mode = readOnly ? SQLITE_OPEN_READONLY : SQLITE_OPEN_READWRITE | SQLITE_OPEN_CREATE;
    sqlite3 *connection = nullptr;
    const int code = sqlite3_open_v2(path.constData(), &connection, mode, nullptr);
    m_connection.reset(connection);
    if (code != SQLITE_OK) {
        noteFailure();
        const int reason = errno;
        m_connection.reset();
        errno = reason;
        return false;
    }
    sqlite3_busy_timeout(connection, m_busyTimeout);
    execute("PRAGMA synchronous = EXTRA"); // the directory too, or a journal may come back after a power cut
    if (m_pageLimit > 0) {
        const QByteArray limit = "PRAGMA max_page_count = " + QByteArray::number(m_pageLimit);
        execute(limit.constData());
    }
    if (stat(path.constData(), &status) == 0) {
        m_device = status.st_dev;
        m_inode = status.st_ino;
    }
    return true;
}

void SettingsStore::disconnect()
{
    if (m_process != getpid()) {
        // A connection must not be used, nor closed, in a forked child: its locks are the parent's.
        static std::array<void *, 3> abandoned = {};
        abandoned = {m_read.release(), m_write.release(), m_connection.release()};
        m_process = getpid();
    }
    m_read.reset();
    m_write.reset();
    m_connection.reset();
    m_collector = nullptr;
}

sqlite3_stmt *SettingsStore::readStatement(const Name &name, Type type)
{
    if (!connect(false))
        return nullptr;
    if (!m_read) {
        sqlite3_stmt *statement = nullptr;
        const int code = sqlite3_prepare_v2(m_connection.get(), selectValue, -1, &statement, nullptr);
        if (code != SQLITE_OK) {
            // SQLITE_ERROR: the table is not there yet, so nothing is stored.
            if (code != SQLITE_ERROR)
                noteFailure();
            return nullptr;
        }
        m_read.reset(statement);
    }
    bindName(m_read.get(), name, type);
    return m_read.get();
}

sqlite3_stmt *SettingsStore::writeStatement(const Name &name, Type type, const void *collector)
{
    if (m_collector && m_collector != collector && m_process == getpid()) {
        errno = EBUSY; // another object's collection holds the store
        return nullptr;
    }
    if (!connect(true))
        return nullptr;
    if (m_damageReported) {
        errno = EUCLEAN;
        return nullptr;
    }
    if (!m_write) {
        if (!execute(createTable))
            return nullptr;
        sqlite3_stmt *statement = nullptr;
        if (sqlite3_prepare_v2(m_connection.get(), replaceValue, -1, &statement, nullptr) != SQLITE_OK) {
            noteFailure();
            return nullptr;
        }
        m_write.reset(statement);
    }
    if (collector && !m_collector) {
        if (!execute("BEGIN IMMEDIATE"))
            return nullptr;
        m_collector = collector;
    }
    bindName(m_write.get(), name, type);
    return m_write.get();
}

bool SettingsStore::finishWrite()
{
    const bool written = sqlite3_step(m_write.get()) == SQLITE_DONE;
    if (!written)
        noteFailure();
    const int reason = errno;
    sqlite3_reset(m_write.get());
    if (!written)
        m_write.reset(); // the next write looks for its table again
    errno = reason;
    return written;
}

bool SettingsStore::execute(const char *sql)
{
    if (sqlite3_exec(m_connection.get(), sql, nullptr, nullptr, nullptr) == SQLITE_OK)
        return true;
    noteFailure();
    return false;
}

/** Sets errno to the reason of the last failure and reports a damaged file once. */
void SettingsStore::noteFailure()
{
    const int code = sqlite3_errcode(m_connection.get());
    const int reason = errnoOf(code, sqlite3_system_errno(m_connection.get()));
    if (reason == EUCLEAN && !m_damageReported) {
        m_damageReported = true;
        std::fprintf(stderr, "settings store: %s is damaged (%s); reads give defaults, nothing is written\n",
                     QFile::encodeName(file()).constData(), sqlite3_errmsg(m_connection.get()));
    }
    errno = reason;
}
