// One access to the settings store.
#include "SettingsAccess.h"

#include <cerrno>
#include <cstdio>
#include <cstring>

#include <unistd.h>

SettingsAccess::SettingsAccess(SettingsStore &store, unsigned int app, bool commitEachWrite)
    : m_store(store)
    , m_app(app)
    , m_commitEachWrite(commitEachWrite)
{
}

SettingsAccess::~SettingsAccess()
{
    if (isOfParent())
        return;
    if (m_collection == Collection::Open && !m_store.commit(this))
        std::fprintf(stderr, "settings store: collected writes are lost: %s\n", std::strerror(errno));
    else if (m_collection == Collection::Failed)
        m_store.rollback(this);
}

bool SettingsAccess::read(const QString &group, const QString &key, bool &value, bool defaultValue)
{
    const auto stored = m_store.readInteger({m_app, group, key}, SettingsStore::Type::Bool, collector());
    value = stored ? *stored != 0 : defaultValue;
    return stored.has_value();
}

bool SettingsAccess::read(const QString &group, const QString &key, int &value, int defaultValue)
{
    const auto stored = m_store.readInteger({m_app, group, key}, SettingsStore::Type::Int, collector());
    value = stored.value_or(defaultValue);
    return stored.has_value();
}

bool SettingsAccess::read(const QString &group, const QString &key, QString &value,
                          const QString &defaultValue, bool encrypted)
{
    const auto stored = encrypted ? std::nullopt : m_store.readText({m_app, group, key}, collector());
    value = stored.value_or(defaultValue);
    return stored.has_value();
}

bool SettingsAccess::write(const QString &group, const QString &key, bool value)
{
    return write([&](const void *collector) {
        return m_store.writeInteger({m_app, group, key}, SettingsStore::Type::Bool, value ? 1 : 0, collector);
    });
}

bool SettingsAccess::write(const QString &group, const QString &key, int value)
{
    return write([&](const void *collector) {
        return m_store.writeInteger({m_app, group, key}, SettingsStore::Type::Int, value, collector);
    });
}

bool SettingsAccess::write(const QString &group, const QString &key, const QString &value, bool encrypted)
{
    return write([&](const void *collector) {
        if (encrypted)
            errno = ENOTSUP;
        return !encrypted && m_store.writeText({m_app, group, key}, value, collector);
    });
}

bool SettingsAccess::flush()
{
    bool flushed = m_collection == Collection::Empty;
    if (isOfParent())
        errno = EPERM;
    else if (m_collection == Collection::Open)
        flushed = m_store.commit(this);
    else if (m_collection == Collection::Failed)
        errno = m_failure;
    if (!flushed) {
        const int reason = errno;
        discard();
        errno = reason;
    }
    m_collection = Collection::Empty;
    return flushed;
}

void SettingsAccess::refuse()
{
    if (m_commitEachWrite || m_collection == Collection::Failed)
        return;
    m_collection = Collection::Failed;
    m_failure = errno;
}

void SettingsAccess::discard()
{
    m_store.rollback(this);
    m_collection = Collection::Empty;
}

template <typename Store>
bool SettingsAccess::write(Store store)
{
    if (m_commitEachWrite)
        return store(nullptr);
    if (isOfParent())
        m_collection = Collection::Empty;
    if (m_collection == Collection::Failed) {
        errno = m_failure;
        return false;
    }
    const bool written = store(this);
    if (written) {
        m_collection = Collection::Open;
        m_process = getpid();
    } else {
        refuse();
    }
    return written;
}

/** A collection that was open at a fork is the parent's; its child has none. */
bool SettingsAccess::isOfParent() const
{
    return m_collection == Collection::Open && m_process != getpid();
}

const void *SettingsAccess::collector() const
{
    return m_collection == Collection::Open ? this : nullptr;
}
