// The settings file: read as a whole, replaced as a whole.
#include "SettingsFile.h"

#include <QFile>
#include <QStandardPaths>

#include <algorithm>
#include <chrono>
#include <filesystem>
#include <tuple>
#include <utility>

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

namespace fs = std::filesystem;

namespace {

constexpr std::int64_t second = 1'000'000; // microseconds

Fault unreadable(int error = errno)
{
    return Fault::ofSystem("cannot be read", error);
}

Fault unwritable(int error = errno)
{
    return Fault::ofSystem("cannot be written", error);
}

template <typename Call>
auto untilNotInterrupted(Call call)
{
    auto result = call();
    while (result < 0 && errno == EINTR)
        result = call();
    return result;
}

bool isThere(const std::string &path)
{
    struct stat status = {};
    return lstat(path.c_str(), &status) == 0;
}

SettingsFile::Version versionOf(const struct stat &status)
{
    const std::int64_t modified = status.st_mtim.tv_sec * second + status.st_mtim.tv_nsec / 1000;
    return {status.st_dev, status.st_ino, status.st_size, modified};
}

Fault sync(const Descriptor &file)
{
    return untilNotInterrupted([&] { return fsync(file.number()); }) == 0
        ? Fault()
        : Fault::ofSystem("cannot be made durable");
}

Descriptor openFolder(const fs::path &folder)
{
    return Descriptor(open(folder.c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC));
}

Fault syncFolder(const Descriptor &folder)
{
    Fault fault = folder ? sync(folder) : Fault::ofSystem("is in a folder that cannot be opened");
    return fault.error == EINVAL ? Fault() : fault; // some file systems have nothing to sync in a folder
}

Fault makeFolder(const fs::path &folder)
{
    std::error_code error;
    if (fs::is_directory(folder, error))
        return {};
    if (Fault fault = makeFolder(folder.parent_path()))
        return fault;
    if (fs::create_directory(folder, error))                  // else another process may have been faster
        fs::permissions(folder, fs::perms::owner_all, error); // whatever the mask of this process is
    return error ? Fault::ofSystem("is in a folder that cannot be made", error.value())
                 : syncFolder(openFolder(folder.parent_path()));
}

} // namespace

namespace SettingsFile {

std::string ofTheUser()
{
    const QString data = QStandardPaths::writableLocation(QStandardPaths::GenericDataLocation);
    return QFile::encodeName(data + QStringLiteral("/kvq-phone/settings.cbor")).toStdString();
}

Fault look(const std::string &path, Version &version)
{
    struct stat status = {};
    const bool found = stat(path.c_str(), &status) == 0;
    version = found ? versionOf(status) : Version();
    if (found)
        return {};
    if (errno != ENOENT)
        return unreadable();
    return isThere(path) ? Fault{ENOENT, "is a link that leads nowhere"} : Fault();
}

Fault read(const std::string &path, Version &version, QByteArray &bytes)
{
    version = Version();
    bytes.clear();
    // Not to wait for a writer where a pipe stands in the file's place.
    const Descriptor file(open(path.c_str(), O_RDONLY | O_NONBLOCK | O_NOCTTY | O_CLOEXEC));
    if (!file)
        return errno == ENOENT && !isThere(path) ? Fault() : unreadable();
    struct stat status = {};
    if (fstat(file.number(), &status) != 0)
        return unreadable();
    version = versionOf(status);
    if (!S_ISREG(status.st_mode) || status.st_size > largestSize)
        return {EMEDIUMTYPE, "is not a settings file of this phone (no regular file, or too large)"};
    const auto size = static_cast<std::size_t>(status.st_size);
    bytes.resize(static_cast<int>(size));
    const ssize_t count = untilNotInterrupted([&] { return pread(file.number(), bytes.data(), size, 0); });
    if (count != status.st_size)
        return unreadable(count < 0 ? errno : EIO);
    return {};
}

Fault resolve(const std::string &path, std::string &resolved)
{
    if (Fault fault = makeFolder(fs::path(path).parent_path()))
        return fault;
    std::error_code error;
    resolved = fs::weakly_canonical(path, error).string();
    if (error)
        return unwritable(error.value());
    struct stat status = {};
    const bool leadsNowhere = isThere(resolved) && stat(resolved.c_str(), &status) != 0;
    return leadsNowhere ? unwritable() : Fault();
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

Replacement::~Replacement()
{
    if (m_file)
        unlink(m_next.c_str());
}

Fault Replacement::reserve(const std::string &path, std::int64_t size)
{
    m_path = path;
    m_next = path + "-new";
    if (Fault fault = m_file ? Fault() : create())
        return fault;
    int error = EINTR;
    while (error == EINTR)
        error = posix_fallocate(m_file.number(), 0, size);
    return error == 0 ? Fault() : unwritable(error);
}

Fault Replacement::publish(const QByteArray &bytes, const Version &base, Version &version)
{
    if (Fault fault = write(bytes, base, version))
        return fault;
    if (rename(m_next.c_str(), m_path.c_str()) != 0)
        return unwritable();
    m_file.reset();
    return syncFolder(m_folder);
}

void Replacement::abandon()
{
    m_folder.reset();
    m_file.reset();
}

/** A file left by a process that was killed goes first: it may be a version that is still being read. */
Fault Replacement::create()
{
    m_folder = openFolder(fs::path(m_path).parent_path());
    if (!m_folder)
        return Fault::ofSystem("is in a folder that cannot be opened");
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

/** Makes the version later than the present one by the file's own time, whatever the clock has done. */
Fault Replacement::write(const QByteArray &bytes, const Version &base, Version &version) const
{
    const int file = m_file.number();
    const auto size = static_cast<std::size_t>(bytes.size());
    const ssize_t count = untilNotInterrupted([&] { return pwrite(file, bytes.constData(), size, 0); });
    if (count != static_cast<ssize_t>(size))
        return unwritable(count < 0 ? errno : ENOSPC);
    if (untilNotInterrupted([&] { return ftruncate(file, bytes.size()); }) != 0)
        return unwritable();
    const auto now = std::chrono::system_clock::now().time_since_epoch() / std::chrono::microseconds(1);
    std::int64_t time = std::max<std::int64_t>(now, base.modified + 1);
    do { // some file systems keep whole seconds only, or every second one
        const timespec times[] = {
            {0, UTIME_OMIT}, {static_cast<time_t>(time / second), static_cast<long>(time % second * 1000)}};
        struct stat status = {};
        if (futimens(file, times) != 0 || fstat(file, &status) != 0)
            return unwritable();
        version = versionOf(status);
        time += second;
    } while (version.modified <= base.modified && time < base.modified + 4 * second);
    return sync(m_file);
}

} // namespace SettingsFile
