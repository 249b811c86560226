// The settings store: snapshots for readers, drafts for writers.
#include "SettingsStore.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QStandardPaths>

#include <algorithm>
#include <cerrno>
#include <cstdio>
#include <new>
#include <tuple>
#include <vector>

#include <pthread.h>

namespace {

constexpr std::size_t bytesOfPage = 4096;

/** What a value is when it is read again: a text that is no text in UTF-8 is stored as near to it as can be. */
SettingsImage::Value stored(const SettingsImage::Value &value)
{
    if (const auto *const text = std::get_if<QString>(&value))
        return QString::fromUtf8(text->toUtf8());
    return value;
}

} // namespace

/** All stores of the process, so that a fork finds them in a state that its child can use. */
struct SettingsStore::Registry {
    static Registry &instance()
    {
        // Never destroyed: a store may be used when the process is already on its way out.
        static auto *const registry = new Registry;
        return *registry;
    }

    std::mutex mutex;
    std::vector<SettingsStore *> stores;

private:
    Registry() { pthread_atfork(prepare, parent, child); }

    static void prepare()
    {
        instance().mutex.lock();
        for (SettingsStore *const store : instance().stores)
            store->lockForFork();
    }
    static void parent()
    {
        for (SettingsStore *const store : instance().stores)
            store->unlockAfterFork();
        instance().mutex.unlock();
    }
    static void child()
    {
        for (SettingsStore *const store : instance().stores)
            store->startAfreshInChild();
        instance().mutex.unlock();
    }
};

SettingsStore::SettingsStore()
{
    Registry &registry = Registry::instance();
    const std::lock_guard lock(registry.mutex);
    registry.stores.push_back(this);
}

SettingsStore::~SettingsStore()
{
    Registry &registry = Registry::instance();
    const std::lock_guard lock(registry.mutex);
    registry.stores.erase(std::find(registry.stores.begin(), registry.stores.end(), this));
}

void SettingsStore::setFile(const QString &path)
{
    const std::lock_guard lock(m_mutex);
    m_file = path.isEmpty() ? QString() : QFileInfo(path).absoluteFilePath();
    m_path.clear();
    m_snapshot = {};
    m_reported.clear();
}

QString SettingsStore::file() const
{
    const std::lock_guard lock(m_mutex);
    return QFile::decodeName(path().c_str());
}

void SettingsStore::limitPages(int pages)
{
    const std::lock_guard lock(m_mutex);
    m_pageLimit = pages;
}

void SettingsStore::setBusyTimeout(int milliseconds)
{
    const std::lock_guard lock(m_mutex);
    m_patience = std::chrono::milliseconds(milliseconds);
}

std::optional<int> SettingsStore::readInteger(const Name &name, Type type, const void *collector)
{
    const auto value = read({name.app, name.group, name.key, type}, collector);
    return value ? std::optional(std::get<int>(*value)) : std::nullopt;
}

std::optional<QString> SettingsStore::readText(const Name &name, const void *collector)
{
    const auto value = read({name.app, name.group, name.key, Type::Text}, collector);
    return value ? std::optional(std::get<QString>(*value)) : std::nullopt;
}

bool SettingsStore::writeInteger(const Name &name, Type type, int value, const void *collector)
{
    return write({name.app, name.group, name.key, type}, value, collector);
}

bool SettingsStore::writeText(const Name &name, const QString &value, const void *collector)
{
    return write({name.app, name.group, name.key, Type::Text}, value, collector);
}

bool SettingsStore::commit(const void *collector)
{
    {
        const std::lock_guard lock(m_claimMutex);
        if (!m_draft || m_owner != collector) {
            errno = EPERM; // begun in the process that this one was forked from, or ended by a failed write
            return false;
        }
    }
    const Fault fault = publish();
    release();
    return answer(fault);
}

void SettingsStore::rollback(const void *collector)
{
    {
        const std::lock_guard lock(m_claimMutex);
        if (!m_draft || m_owner != collector)
            return;
    }
    release();
}

std::optional<SettingsStore::Value> SettingsStore::read(const SettingsImage::Key &key, const void *collector)
{
    const auto find = [&key](const Values &values) -> std::optional<Value> {
        const auto found = values.find(key);
        return found == values.end() ? std::nullopt : std::optional(found->second);
    };
    if (collector) {
        const std::lock_guard lock(m_claimMutex);
        if (m_draft && m_owner == collector)
            return find(m_draft->values);
    }
    const std::lock_guard lock(m_mutex);
    return find(present().values);
}

bool SettingsStore::write(const SettingsImage::Key &key, const Value &value, const void *collector)
{
    // A write by itself is a collection of one.
    const void *const owner = collector ? collector : &key;
    if (!claim(owner))
        return answer({EBUSY, "is kept by a collection of this process, so a value was not stored"});
    Fault fault = m_draft ? Fault() : begin();
    if (!fault)
        fault = put(key, value);
    if (!fault && !collector)
        fault = publish();
    if (fault || !collector)
        release();
    return answer(fault);
}

/** The version that stands under the path now. */
const SettingsStore::Snapshot &SettingsStore::present()
{
    SettingsFile::Version version;
    if (const Fault fault = SettingsFile::look(path(), version)) {
        m_snapshot = {};
        m_snapshot.fault = fault;
        report(fault, "reads give defaults");
    } else if (!m_snapshot.known || !(version == m_snapshot.content.version)) {
        load(version);
    }
    return m_snapshot;
}

void SettingsStore::load(const SettingsFile::Version &version)
{
    Values last = std::move(m_snapshot.values);
    m_snapshot = {};
    if (version.inode != 0)
        m_snapshot.fault = SettingsFile::read(path(), m_snapshot.content);
    if (!m_snapshot.fault)
        m_snapshot.fault = SettingsImage::read(m_snapshot.content.image, m_snapshot.values);
    const int error = m_snapshot.fault.error;
    // What was read once is worth more than a default while somebody writes the file in place, or while the process
    // lacks what it takes to read it anew.
    const bool passes = error == EBUSY || error == EMFILE || error == ENFILE || error == ENOMEM;
    if (passes)
        m_snapshot.values = std::move(last);
    // The same content is the same tomorrow; a disk that failed is asked again.
    m_snapshot.known = m_snapshot.content.standsAlone && !m_snapshot.content.version.mayChangeUnnoticed()
        && (error == 0 || error == EUCLEAN || error == EMEDIUMTYPE);
    if (error != 0)
        report(m_snapshot.fault,
               passes ? "reads give what was read before" : "reads give defaults, nothing is written");
}

const std::string &SettingsStore::path() const
{
    if (m_path.empty()) {
        const QString file = !m_file.isEmpty()
            ? m_file
            : QStandardPaths::writableLocation(QStandardPaths::GenericDataLocation)
                + QStringLiteral("/kvq-phone/settings.db");
        m_path = QFile::encodeName(file).toStdString();
    }
    return m_path;
}

/** Takes the right to write within this process. Nobody waits for a collection of his own thread. */
bool SettingsStore::claim(const void *owner)
{
    std::chrono::milliseconds patience{};
    {
        const std::lock_guard lock(m_mutex);
        patience = m_patience;
    }
    std::unique_lock lock(m_claimMutex);
    if (m_owner && m_owner == owner)
        return true;
    if (m_owner && m_ownerThread == std::this_thread::get_id())
        return false;
    if (!m_claimEnded.wait_for(lock, patience, [this] { return !m_owner; }))
        return false;
    m_owner = owner;
    m_ownerThread = std::this_thread::get_id();
    return true;
}

/** Ends the draft, whether it was published or not, and everything that it held. */
void SettingsStore::release()
{
    const int reason = errno;
    {
        const std::lock_guard lock(m_claimMutex);
        m_draft.reset();
        m_turn.end();
        m_owner = nullptr;
    }
    m_claimEnded.notify_one();
    errno = reason;
}

/** Begins a draft when the turn has come. */
Fault SettingsStore::begin()
{
    std::string given;
    std::chrono::milliseconds patience{};
    {
        const std::lock_guard lock(m_mutex);
        given = path();
        if (!m_parentCollects) // else the parent may be waiting for this process
            patience = m_patience;
    }
    std::string resolved;
    if (Fault fault = SettingsFile::resolve(given, resolved))
        return fault;
    if (Fault fault = m_turn.begin(resolved, patience))
        return fault;
    {
        const std::lock_guard lock(m_claimMutex);
        m_draft = std::make_unique<Draft>();
        m_draft->path = resolved;
        m_parentCollects = false;
    }
    return takeBase();
}

/** Starts the draft from the version that stands there now. */
Fault SettingsStore::takeBase()
{
    const std::string &resolved = m_draft->path;
    if (Fault fault = SettingsFile::mayReplace(resolved))
        return fault;
    std::unique_lock lock(m_mutex);
    const Snapshot *now = &present();
    if (!now->fault && !now->content.standsAlone) {
        if (Fault fault = SettingsFile::endJournals(resolved))
            return fault;
        now = &present();
    }
    if (now->fault)
        return now->fault;
    m_draft->base = now->content.version;
    m_draft->image = now->content.image;
    m_draft->values = now->values;
    m_draft->replacement.emplace(resolved, m_draft->base);
    return {};
}

Fault SettingsStore::put(const SettingsImage::Key &key, const Value &value)
{
    {
        // A fork must not find SQLite at work, for its child could not use it any more.
        const std::lock_guard lock(m_mutex);
        if (Fault fault = SettingsImage::write(m_draft->image, key, value))
            return fault;
        if (m_pageLimit > 0 && m_draft->image.size() > static_cast<std::size_t>(m_pageLimit) * bytesOfPage)
            return {ENOSPC, "has reached its limit"};
    }
    if (Fault fault = m_draft->replacement->write(m_draft->image))
        return fault;
    m_draft->values.insert_or_assign(key, stored(value));
    return {};
}

Fault SettingsStore::publish()
{
    SettingsFile::Version version;
    if (Fault fault = SettingsFile::look(path(), version))
        return fault;
    if (!version.hasContentOf(m_draft->base))
        return {EIO, "was replaced by others while values were collected, and stays as it is"};
    if (Fault fault = m_draft->replacement->publish(version))
        return fault;
    const std::lock_guard lock(m_mutex);
    if (m_draft->path != m_path)
        return {}; // the next read follows the links, or goes to another file
    m_snapshot.content.version = version;
    m_snapshot.content.image = std::move(m_draft->image);
    m_snapshot.content.standsAlone = true;
    m_snapshot.values = std::move(m_draft->values);
    m_snapshot.fault = {};
    m_snapshot.known = version.inode != 0;
    return {};
}

/** Sets errno to the reason of a fault. A full or a protected file has its own way to the user. */
bool SettingsStore::answer(const Fault &fault)
{
    if (!fault)
        return true;
    if (fault.error != ENOSPC && fault.error != EROFS && fault.error != EACCES) {
        const std::lock_guard lock(m_mutex);
        report(fault, "nothing is written");
    }
    errno = fault.error;
    return false;
}

void SettingsStore::report(const Fault &fault, const char *consequence)
{
    // Numbers in a reason, as that of another process, do not make it another one.
    std::string kind = fault.reason;
    std::erase_if(kind, [](char character) { return character >= '0' && character <= '9'; });
    if (m_reported.insert(kind).second)
        std::fprintf(stderr, "settings store: %s %s; %s\n", path().c_str(), fault.reason.c_str(),
                     consequence);
}

void SettingsStore::lockForFork()
{
    m_claimMutex.lock();
    m_mutex.lock();
}

void SettingsStore::unlockAfterFork()
{
    m_mutex.unlock();
    m_claimMutex.unlock();
}

void SettingsStore::startAfreshInChild()
{
    m_turn.abandon();
    if (m_draft) {
        const bool ofThisThread = m_ownerThread == std::this_thread::get_id();
        m_parentCollects = m_parentCollects || ofThisThread; // another thread goes on meanwhile
        if (m_draft->replacement)
            m_draft->replacement->abandon();
        // What another thread was working at may be half done, and must not even be destroyed.
        static const void *half = nullptr;
        if (ofThisThread)
            m_draft.reset();
        else
            half = m_draft.release();
        std::ignore = half;
    }
    m_owner = nullptr;
    m_reported.clear();
    new (&m_claimEnded) std::condition_variable; // threads that waited are the parent's
    unlockAfterFork();
}
