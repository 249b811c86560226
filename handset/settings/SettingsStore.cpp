// The settings store: snapshots for readers, collections for writers.
#include "SettingsStore.h"

#include <QFile>
#include <QFileInfo>

#include <algorithm>
#include <cerrno>
#include <cstdio>
#include <utility>
#include <vector>

#include <pthread.h>

namespace {

/** What a value is when it is read again: a text that is no text in UTF-8 is stored as near to it as can be. */
SettingsDocument::Value stored(const SettingsDocument::Value &value)
{
    const auto *const text = std::get_if<QString>(&value);
    return text ? QString::fromUtf8(text->toUtf8()) : value;
}

std::optional<SettingsDocument::Value> findIn(const SettingsDocument::Values &values,
                                              const SettingsDocument::Key &key)
{
    const auto found = values.find(key);
    return found == values.end() ? std::nullopt : std::optional(found->second);
}

/** What is noted in the lock of the version that was synced last. */
std::string noteOf(const SettingsFile::Version &version)
{
    return std::to_string(version.inode) + ' ' + std::to_string(version.modified);
}

} // namespace

/** What the stores of a process share, so that a fork finds it in a state that its child can use. */
struct SettingsStore::Process {
    std::mutex mutex;                      ///< held for moments only
    std::vector<Collection *> collections; ///< that have the lock or wait for it
    bool parentCollects = false;           ///< in a child of a fork, until a lock was ours once

    void startAfreshInChild()
    {
        // Those of other threads are half done here, so nothing of them is touched but their descriptors.
        for (Collection *const collection : std::exchange(collections, {})) {
            collection->m_isOfParent = true;
            collection->m_lock.abandon();
            collection->m_replacement.abandon();
            // The parent may wait for this process, so it must not be waited for. Its other threads go on meanwhile.
            parentCollects = parentCollects || collection->m_thread == std::this_thread::get_id();
        }
        mutex.unlock();
    }
};

SettingsStore::Process &SettingsStore::process()
{
    // Never destroyed: a store may be used when the process is already on its way out.
    static auto *const shared = [] {
        pthread_atfork([] { process().mutex.lock(); }, [] { process().mutex.unlock(); },
                       [] { process().startAfreshInChild(); });
        return new Process;
    }();
    return *shared;
}

void SettingsStore::setFile(const QString &path)
{
    const std::lock_guard lock(m_process.mutex);
    m_file = path.isEmpty() ? QString() : QFileInfo(path).absoluteFilePath();
    m_path.clear();
    m_snapshot = {};
    m_reported.clear();
}

QString SettingsStore::file() const
{
    const std::lock_guard lock(m_process.mutex);
    return QFile::decodeName(path().c_str());
}

void SettingsStore::setPatience(std::chrono::milliseconds patience)
{
    const std::lock_guard lock(m_process.mutex);
    m_patience = patience;
}

bool SettingsStore::write(const Name &name, const Value &value)
{
    Fault fault;
    {
        Collection collection(*this); // of one
        fault = collection.write(name, value);
        if (!fault)
            fault = collection.commit();
    }
    return answer(fault);
}

/** A full or a protected file has its own way to the user. */
bool SettingsStore::answer(const Fault &fault)
{
    if (!fault)
        return true;
    if (fault.error != ENOSPC && fault.error != EROFS && fault.error != EACCES) {
        const std::lock_guard lock(m_process.mutex);
        report(fault, "nothing is written");
    }
    errno = fault.error;
    return false;
}

std::optional<SettingsStore::Value> SettingsStore::find(const Key &key)
{
    const std::lock_guard lock(m_process.mutex);
    return findIn(present().values, key);
}

/** The version that stands under the path now. What could not be read is tried again each time. */
const SettingsStore::Snapshot &SettingsStore::present()
{
    SettingsFile::Version version;
    Fault fault = SettingsFile::look(path(), version);
    if (!fault && m_snapshot.known && version == m_snapshot.version)
        return m_snapshot;
    Values values;
    QByteArray bytes;
    if (!fault && version.inode != 0)
        fault = SettingsFile::read(path(), version, bytes);
    if (!fault)
        fault = SettingsDocument::read(bytes, values);
    // What was read once is worth more than a default while the process lacks what it takes to read it anew.
    const bool passes = fault.error == EMFILE || fault.error == ENFILE || fault.error == ENOMEM;
    if (fault)
        report(fault, passes ? "reads give what was read before" : "reads give defaults, nothing is written");
    if (!passes)
        m_snapshot.values = std::move(values);
    m_snapshot.version = version;
    m_snapshot.known = !fault;
    m_snapshot.fault = std::move(fault);
    return m_snapshot;
}

const std::string &SettingsStore::path() const
{
    if (m_path.empty())
        m_path = m_file.isEmpty() ? SettingsFile::ofTheUser() : QFile::encodeName(m_file).toStdString();
    return m_path;
}

void SettingsStore::report(const Fault &fault, const char *consequence)
{
    if (m_reported.insert(fault.reason).second)
        std::fprintf(stderr, "settings store: %s %s; %s\n", path().c_str(), fault.reason.c_str(),
                     consequence);
}

SettingsStore::Collection::Collection(SettingsStore &store)
    : m_store(store)
{
}

SettingsStore::Collection::~Collection()
{
    const std::lock_guard lock(m_store.m_process.mutex);
    std::erase(m_store.m_process.collections, this);
}

Fault SettingsStore::Collection::write(const Name &name, const Value &value)
{
    if (m_path.empty()) {
        if (Fault fault = begin())
            return fault;
    }
    const Value next = stored(value);
    const auto [place, isNew] = m_values.try_emplace({name, value.index()}, next);
    m_isChanged = m_isChanged || isNew || place->second != next;
    if (!m_isChanged)
        return {};
    place->second = next;
    m_bytes = SettingsDocument::write(m_values);
    if (m_bytes.size() > SettingsFile::largestSize)
        return {ENOSPC, "has reached its limit"};
    return m_replacement.reserve(m_resolved, m_bytes.size());
}

std::optional<SettingsStore::Value> SettingsStore::Collection::find(const Key &key) const
{
    return findIn(m_values, key);
}

Fault SettingsStore::Collection::commit()
{
    if (!m_isChanged)
        return {};
    SettingsFile::Version version;
    if (Fault fault = SettingsFile::look(m_path, version))
        return fault;
    if (version != m_base)
        return {EIO, "was replaced by others while values were collected, and stays as it is"};
    if (Fault fault = m_replacement.publish(m_bytes, m_base, version))
        return fault;
    m_lock.setNote(noteOf(version));
    const std::lock_guard lock(m_store.m_process.mutex);
    if (m_path == m_store.path()) // else it was set to another file meanwhile
        m_store.m_snapshot = {version, std::move(m_values), {}, true};
    return {};
}

/** Takes the lock, and the version that stands there then. */
Fault SettingsStore::Collection::begin()
{
    std::chrono::milliseconds patience{};
    Process &process = m_store.m_process;
    {
        const std::lock_guard lock(process.mutex);
        if (std::any_of(process.collections.begin(), process.collections.end(), [this](const auto *other) {
                return &other->m_store == &m_store && other->m_thread == m_thread;
            }))
            return {EBUSY, "is kept by a collection of this thread, so a value was not stored"};
        process.collections.push_back(this);
        m_path = m_store.path();
        patience = process.parentCollects ? std::chrono::milliseconds::zero() : m_store.m_patience;
    }
    if (Fault fault = SettingsFile::resolve(m_path, m_resolved))
        return fault;
    if (Fault fault = m_lock.take(m_resolved, patience))
        return fault;
    if (Fault fault = SettingsFile::mayReplace(m_resolved))
        return fault;
    const std::lock_guard lock(process.mutex);
    process.parentCollects = false;
    const Snapshot &now = m_store.present();
    if (now.fault)
        return now.fault;
    m_base = now.version;
    m_values = now.values;
    // A version of a writer that was killed, or whose disk failed, may not be durable yet.
    m_isChanged = m_lock.note() != noteOf(m_base);
    return {};
}
