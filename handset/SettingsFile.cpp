// The settings file: read as a whole, replaced as a whole.
#include "SettingsFile.h"

#include <array>
#include <cerrno>
#include <chrono>
#include <climits>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <memory>
#include <tuple>

#include <sqlite3.h>

#include <fcntl.h>
#include <unistd.h>

using namespace std::chrono_literals;

namespace {

/** A file of settings is some kilobytes; what is larger than this is something else. */
constexpr off_t largestImage = off_t{64} * 1024 * 1024;
constexpr int attemptsToRead = 100;
constexpr int waitForOthers = 1000; // milliseconds

/** The reason of a failed system call. A disk quota that is used up is a full disk to whoever cannot store. */
Fault systemFault(const char *what, int error = errno)
{
    return {error == EDQUOT ? ENOSPC : error, std::string(what) + ": " + std::strerror(error)};
}

Fault unreadable(int error = errno)
{
    return systemFault("cannot be read", error);
}

Fault unwritable(int error = errno)
{
    return systemFault("cannot be written", error);
}

Fault notAFile()
{
    return {EMEDIUMTYPE, "is not a settings file of this phone (not a regular file)"};
}

bool isLater(const timespec &time, const timespec &other)
{
    return std::tie(time.tv_sec, time.tv_nsec) > std::tie(other.tv_sec, other.tv_nsec);
}

bool differ(const timespec &time, const timespec &other)
{
    return isLater(time, other) || isLater(other, time);
}

template <typename Call>
auto untilNotInterrupted(Call call)
{
    auto result = call();
    while (result < 0 && errno == EINTR)
        result = call();
    return result;
}

std::string folderOf(const std::string &path)
{
    const std::size_t slash = path.rfind('/');
    if (slash == std::string::npos)
        return ".";
    return slash == 0 ? "/" : path.substr(0, slash);
}

/** Whether another program's journal of either kind stands beside the file and is not over. */
bool hasJournal(const std::string &path)
{
    for (const char *suffix : {"-journal", "-wal"}) {
        const std::string name = path + suffix;
        struct stat status = {};
        if (stat(name.c_str(), &status) != 0 || !S_ISREG(status.st_mode) || status.st_size == 0)
            continue;
        // A journal that is over but kept begins with zeros.
        const Descriptor file(open(name.c_str(), O_RDONLY | O_NONBLOCK | O_NOCTTY | O_CLOEXEC));
        char first = 0;
        if (!file || pread(file.number(), &first, 1, 0) != 1 || first != 0)
            return true;
    }
    return false;
}

Fault readBytes(int file, off_t size, std::string &bytes)
{
    bytes.resize(static_cast<std::size_t>(size));
    std::size_t position = 0;
    while (position < bytes.size()) {
        const ssize_t count = untilNotInterrupted([&] {
            return pread(file, &bytes[position], bytes.size() - position, static_cast<off_t>(position));
        });
        if (count < 0)
            return unreadable();
        if (count == 0)
            break; // it became shorter meanwhile, which the caller sees
        position += static_cast<std::size_t>(count);
    }
    return {};
}

/** A connection to a file that another program has written in place; SQLite minds that program's locks. */
class InPlace {
public:
    explicit InPlace(const std::string &path)
    {
        sqlite3 *opened = nullptr;
        sqlite3_open_v2(path.c_str(), &opened, SQLITE_OPEN_READWRITE, nullptr);
        m_connection.reset(opened);
        sqlite3_busy_timeout(opened, waitForOthers);
    }

    Fault execute(const char *sql)
    {
        return sqlite3_exec(m_connection.get(), sql, nullptr, nullptr, nullptr) == SQLITE_OK ? Fault()
                                                                                             : fault();
    }

    /** Within a transaction, so that the image is of one moment. */
    Fault read(std::string &image)
    {
        if (Fault fault = execute("BEGIN; SELECT count(*) FROM sqlite_schema"))
            return fault;
        sqlite3_int64 size = 0;
        const std::unique_ptr<unsigned char, void (*)(void *)> bytes(
            sqlite3_serialize(m_connection.get(), "main", &size, 0), sqlite3_free);
        if (!bytes)
            return fault();
        image.assign(reinterpret_cast<const char *>(bytes.get()), static_cast<std::size_t>(size));
        return {};
    }

private:
    Fault fault() const
    {
        const std::string why = std::string(" (") + sqlite3_errmsg(m_connection.get()) + ")";
        switch (sqlite3_errcode(m_connection.get()) & 0xFF) {
        case SQLITE_BUSY:
        case SQLITE_LOCKED:
            return {EBUSY, "is locked by a program that writes it in place"};
        case SQLITE_CORRUPT:
        case SQLITE_NOTADB:
            return {EUCLEAN, "is damaged" + why};
        case SQLITE_FULL:
            return {ENOSPC, "has a journal, and there is no space to roll it back"};
        default:
            return {EIO, "has a journal that cannot be rolled back" + why};
        }
    }

    std::unique_ptr<sqlite3, int (*)(sqlite3 *)> m_connection{nullptr, sqlite3_close_v2};
};

Fault sync(int file)
{
    if (untilNotInterrupted([file] { return fsync(file); }) == 0)
        return {};
    return systemFault("cannot be made durable");
}

/** Some file systems have nothing to sync in a folder and say EINVAL. */
Fault syncFolderAt(const std::string &folder)
{
    const Descriptor file(open(folder.c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC));
    if (!file)
        return systemFault("is in a folder that cannot be opened");
    Fault fault = sync(file.number());
    return fault.error == EINVAL ? Fault() : fault;
}

Fault makeFolder(const std::string &folder)
{
    struct stat status = {};
    if (stat(folder.c_str(), &status) == 0)
        return S_ISDIR(status.st_mode) ? Fault() : systemFault("has a path that is no folder", ENOTDIR);
    if (errno != ENOENT)
        return systemFault("is in a folder that cannot be reached");
    if (Fault fault = makeFolder(folderOf(folder)))
        return fault;
    if (mkdir(folder.c_str(), S_IRWXU) != 0) {
        // Another process may have been faster.
        if (errno != EEXIST || stat(folder.c_str(), &status) != 0)
            return systemFault("is in a folder that cannot be made");
    } else if (chmod(folder.c_str(), S_IRWXU) != 0) { // whatever the mask of this process is
        return systemFault("is in a folder that cannot be made");
    }
    return syncFolderAt(folderOf(folder));
}

bool isThere(const std::string &path)
{
    struct stat status = {};
    return lstat(path.c_str(), &status) == 0;
}

} // namespace

namespace SettingsFile {

Version::Version(const struct stat &status)
    : device(status.st_dev)
    , inode(status.st_ino)
    , size(status.st_size)
    , modified(status.st_mtim)
    , changed(status.st_ctim)
{
}

bool Version::operator==(const Version &other) const
{
    return hasContentOf(other) && !differ(changed, other.changed);
}

bool Version::hasContentOf(const Version &other) const
{
    return device == other.device && inode == other.inode && size == other.size
        && !differ(modified, other.modified);
}

bool Version::mayChangeUnnoticed() const
{
    // A write in place sets both times, to the clock's last tick. A version of ours has a time of its own.
    if (differ(modified, changed))
        return false;
    timespec now = {};
    clock_gettime(CLOCK_REALTIME, &now);
    const auto age = std::chrono::seconds(now.tv_sec - changed.tv_sec)
        + std::chrono::nanoseconds(now.tv_nsec - changed.tv_nsec);
    const bool wholeSeconds = changed.tv_nsec == 0;
    return std::chrono::abs(age) < (wholeSeconds ? 2s : std::chrono::nanoseconds(20ms));
}

Fault look(const std::string &path, Version &version)
{
    struct stat status = {};
    if (stat(path.c_str(), &status) == 0) {
        version = Version(status);
        return {};
    }
    version = Version();
    if (errno != ENOENT)
        return unreadable();
    return isThere(path) ? Fault{ENOENT, "is a link that leads nowhere"} : Fault();
}

Fault read(const std::string &path, Content &content)
{
    for (int attempt = 0; attempt < attemptsToRead; ++attempt) {
        content = Content();
        // Not to wait for a writer where a pipe stands in the file's place.
        const Descriptor file(open(path.c_str(), O_RDONLY | O_NONBLOCK | O_NOCTTY | O_CLOEXEC));
        if (!file)
            return errno == ENOENT && !isThere(path) ? Fault() : unreadable();
        struct stat status = {};
        if (fstat(file.number(), &status) != 0)
            return unreadable();
        content.version = Version(status);
        if (!S_ISREG(status.st_mode) || status.st_size > largestImage)
            return notAFile();
        const bool journal = hasJournal(path);
        content.standsAlone = !journal;
        if (journal && status.st_size == 0)
            return {EUCLEAN, "is damaged (empty, with a journal beside it)"};
        if (Fault fault = journal ? InPlace(path).read(content.image)
                                  : readBytes(file.number(), status.st_size, content.image))
            return fault;
        if (SettingsImage::endWriteAheadMode(content.image))
            content.standsAlone = false;
        // Nothing must have been written in place meanwhile. A journal that was rolled back is gone now, and what
        // it left is read the next time round.
        if (fstat(file.number(), &status) != 0)
            return unreadable();
        if (content.version.hasContentOf(Version(status)) && hasJournal(path) == journal) {
            content.version = Version(status);
            return {};
        }
    }
    return {EBUSY, "is written in place without a pause"};
}

Fault endJournals(const std::string &resolved)
{
    if (Fault fault = InPlace(resolved).execute("PRAGMA journal_mode = DELETE"))
        return fault;
    return hasJournal(resolved) ? Fault{EBUSY, "is being written by a program in place"} : Fault();
}

Fault resolve(const std::string &path, std::string &resolved)
{
    if (Fault fault = makeFolder(folderOf(path)))
        return fault;
    const std::unique_ptr<char, void (*)(void *)> real(realpath(path.c_str(), nullptr), std::free);
    if (real) {
        resolved = real.get();
        return {};
    }
    if (errno != ENOENT || isThere(path))
        return unwritable();
    const std::unique_ptr<char, void (*)(void *)> folder(realpath(folderOf(path).c_str(), nullptr),
                                                         std::free);
    if (!folder)
        return unwritable();
    resolved = std::string(folder.get()) + path.substr(path.rfind('/'));
    return {};
}

Fault mayReplace(const std::string &resolved)
{
    struct stat status = {};
    if (stat(resolved.c_str(), &status) != 0)
        return errno == ENOENT ? Fault() : unwritable();
    if ((status.st_mode & (S_IWUSR | S_IWGRP | S_IWOTH)) == 0)
        return unwritable(EROFS); // also when this is the superuser
    return faccessat(AT_FDCWD, resolved.c_str(), W_OK, AT_EACCESS) == 0 ? Fault() : unwritable();
}

Replacement::Replacement(std::string resolved, const Version &base)
    : m_path(std::move(resolved))
    , m_folder(folderOf(m_path))
    , m_next(m_path + "-new")
    , m_baseModified(base.modified)
{
}

Replacement::~Replacement()
{
    if (m_file)
        unlink(m_next.c_str());
}

Fault Replacement::write(const std::string &image)
{
    if (Fault fault = m_file ? Fault() : create())
        return fault;
    std::size_t position = 0;
    while (position < image.size()) {
        const ssize_t count = untilNotInterrupted([&] {
            return pwrite(m_file.number(), &image[position], image.size() - position,
                          static_cast<off_t>(position));
        });
        if (count <= 0)
            return unwritable(count == 0 ? ENOSPC : errno);
        position += static_cast<std::size_t>(count);
    }
    if (untilNotInterrupted([&] { return ftruncate(m_file.number(), static_cast<off_t>(image.size())); })
        != 0)
        return unwritable();
    if (Fault fault = setTime())
        return fault;
    return sync(m_file.number());
}

Fault Replacement::publish(Version &version)
{
    // Both names change places, so that the old version is still at hand when the disk fails now.
    bool exchanged = isThere(m_path)
        && renameat2(AT_FDCWD, m_next.c_str(), AT_FDCWD, m_path.c_str(), RENAME_EXCHANGE) == 0;
    if (!exchanged && rename(m_next.c_str(), m_path.c_str()) != 0)
        return unwritable();
    if (Fault fault = syncFolder()) {
        if (exchanged && renameat2(AT_FDCWD, m_next.c_str(), AT_FDCWD, m_path.c_str(), RENAME_EXCHANGE) == 0)
            syncFolder();
        else
            m_file.reset(); // the new version stands there; it is only not certain to survive a power cut
        return fault;
    }
    if (exchanged)
        unlink(m_next.c_str());
    struct stat status = {};
    version = fstat(m_file.number(), &status) == 0 ? Version(status) : Version();
    return {};
}

void Replacement::abandon()
{
    m_file.reset();
}

/** A file left by a process that was killed goes first: it may be a version that is still being read. */
Fault Replacement::create()
{
    if (unlink(m_next.c_str()) != 0 && errno != ENOENT)
        return unwritable();
    struct stat old = {};
    const bool replaces = stat(m_path.c_str(), &old) == 0;
    m_file.reset(open(m_next.c_str(), O_RDWR | O_CREAT | O_EXCL | O_NOFOLLOW | O_CLOEXEC, S_IRUSR | S_IWUSR));
    if (!m_file)
        return unwritable();
    if (replaces) // as far as this process may: who replaces a file of a group leaves it to the group
        std::ignore = fchown(m_file.number(), old.st_uid, old.st_gid);
    const mode_t mode = replaces ? old.st_mode & 07777 : S_IRUSR | S_IWUSR;
    return fchmod(m_file.number(), mode) == 0 ? Fault() : unwritable();
}

/** Makes the next version later than the present one by the file's own time, whatever the clock has done. */
Fault Replacement::setTime() const
{
    timespec now = {};
    clock_gettime(CLOCK_REALTIME, &now);
    timespec time = m_baseModified;
    time.tv_nsec = (time.tv_nsec + 1) % 1'000'000'000;
    time.tv_sec += time.tv_nsec == 0 ? 1 : 0;
    if (isLater(now, time))
        time = now;
    // Some file systems keep whole seconds only, or every second one.
    for (int attempt = 0; attempt < 3; ++attempt, ++time.tv_sec) {
        const timespec times[] = {{0, UTIME_OMIT}, time};
        struct stat status = {};
        if (futimens(m_file.number(), times) != 0 || fstat(m_file.number(), &status) != 0)
            return unwritable();
        if (isLater(status.st_mtim, m_baseModified))
            break;
    }
    return {};
}

Fault Replacement::syncFolder() const
{
    return syncFolderAt(m_folder);
}

} // namespace SettingsFile
