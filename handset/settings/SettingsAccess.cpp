// One access to the settings store.
#include "SettingsAccess.h"

#include <cerrno>
#include <cstdio>
#include <cstring>

SettingsAccess::SettingsAccess(SettingsStore &store, unsigned int app, bool commitEachWrite)
    : m_store(store)
    , m_app(app)
    , m_commitEachWrite(commitEachWrite)
{
}

SettingsAccess::~SettingsAccess()
{
    if (m_collection && !isOfParent() && !flush())
        std::fprintf(stderr, "settings store: collected writes are lost: %s\n", std::strerror(errno));
}

bool SettingsAccess::write(const QString &group, const QString &key, const SettingsStore::Value &value,
                           bool encrypted)
{
    if (isOfParent())
        m_collection.reset();
    if (m_failure)
        errno = *m_failure;
    else if (encrypted)
        errno = ENOTSUP;
    const bool written = !m_failure && !encrypted && store({m_app, group, key}, value);
    if (!written)
        refuse();
    return written;
}

bool SettingsAccess::flush()
{
    bool flushed = !m_failure && !isOfParent();
    if (isOfParent())
        errno = EPERM;
    else if (m_failure)
        errno = *m_failure;
    else if (m_collection)
        flushed = m_store.answer(m_collection->commit());
    const int reason = errno;
    discard();
    errno = reason;
    return flushed;
}

void SettingsAccess::refuse()
{
    if (m_commitEachWrite || m_failure)
        return;
    m_failure = errno;
    m_collection.reset();
    errno = *m_failure;
}

void SettingsAccess::discard()
{
    m_collection.reset();
    m_failure.reset();
}

bool SettingsAccess::store(const SettingsStore::Name &name, const SettingsStore::Value &value)
{
    if (m_commitEachWrite)
        return m_store.write(name, value);
    if (!m_collection)
        m_collection = std::make_unique<SettingsStore::Collection>(m_store);
    return m_store.answer(m_collection->write(name, value));
}
