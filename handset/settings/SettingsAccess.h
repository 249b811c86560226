// One access to the settings store: reads with a default, single writes, and collections.
#pragma once

#include "SettingsStore.h"

#include <QString>

#include <memory>
#include <optional>

/**
 * What stands behind a SETUP_SET_Manager, for every platform library: each makes one in its room, and passes each call on.
 *
 * A collection with one failed write is given up as a whole: nothing more goes into it, and flush() answers false
 * with the reason of that failure. What has been collected when the object goes is made durable then.
 * Every false leaves its reason in errno.
 */
class SettingsAccess {
public:
    /** @param commitEachWrite false collects the writes until flush() or until the object goes */
    SettingsAccess(SettingsStore &store, unsigned int app, bool commitEachWrite);
    ~SettingsAccess();

    /** True when a value of this type is stored; else the default is given. */
    template <typename Type>
    bool read(const QString &group, const QString &key, Type &value, const Type &defaultValue,
              bool encrypted = false);

    /** There is no encryption here: asked for it, this refuses (ENOTSUP), and read() finds nothing. */
    bool write(const QString &group, const QString &key, const SettingsStore::Value &value,
               bool encrypted = false);

    /** Makes the collected writes durable, all or none. */
    bool flush();

    /** Gives the collection up as a failed write does, for the reason in errno. */
    void refuse();
    /** Forgets the collection; a new one may begin. */
    void discard();

private:
    bool store(const SettingsStore::Name &name, const SettingsStore::Value &value);
    bool isOfParent() const { return m_collection && m_collection->isOfParent(); }

    SettingsStore &m_store;
    const unsigned int m_app;
    const bool m_commitEachWrite;
    std::optional<int> m_failure; ///< errno of the collected write that failed
    std::unique_ptr<SettingsStore::Collection> m_collection;
};

template <typename Type>
bool SettingsAccess::read(const QString &group, const QString &key, Type &value, const Type &defaultValue,
                          bool encrypted)
{
    const auto name = SettingsDocument::keyOf<Type>({m_app, group, key});
    const bool isCollecting = m_collection && !isOfParent();
    const auto stored = isCollecting ? m_collection->find(name) : m_store.find(name);
    const bool found = stored && !encrypted;
    value = found ? std::get<Type>(*stored) : defaultValue;
    return found;
}
