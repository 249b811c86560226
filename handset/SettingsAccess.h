// One access to the settings store: reads with a default, single writes, and collections.
#pragma once

#include "SettingsStore.h"

#include <QString>

#include <sys/types.h>

/**
 * What stands behind a SETUP_SET_Manager, for every platform library.
 *
 * A platform makes one in the room of its SETUP_SET_Manager and passes each call on:
 *
 * @code
 * SETUP_SET_Manager::SETUP_SET_Manager(AM_Global::Apps app, bool commitEachWrite)
 * {
 *     makeInRoom<SettingsAccess>(m_room, store, app, commitEachWrite);
 * }
 * bool SETUP_SET_Manager::getSettingInfo(QString group, QString key, bool &value, bool defaultValue)
 * {
 *     return inRoom<SettingsAccess>(m_room).read(group, key, value, defaultValue);
 * }
 * @endcode
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

    SettingsAccess(const SettingsAccess &) = delete;
    SettingsAccess &operator=(const SettingsAccess &) = delete;

    /** True when a value of this type is stored; else the default is given. */
    bool read(const QString &group, const QString &key, bool &value, bool defaultValue);
    bool read(const QString &group, const QString &key, int &value, int defaultValue);
    bool read(const QString &group, const QString &key, QString &value, const QString &defaultValue,
              bool encrypted = false);

    bool write(const QString &group, const QString &key, bool value);
    bool write(const QString &group, const QString &key, int value);
    /** There is no encryption here: asked for it, this refuses (ENOTSUP), and read() finds nothing. */
    bool write(const QString &group, const QString &key, const QString &value, bool encrypted = false);

    /** Makes the collected writes durable, all or none. */
    bool flush();

    /** Gives the collection up as a failed write does, for the reason in errno. */
    void refuse();
    /** Forgets the collection; a new one may begin. */
    void discard();

private:
    enum class Collection : unsigned char { Empty, Open, Failed };

    template <typename Store>
    bool write(Store store);
    bool isOfParent() const;
    const void *collector() const;

    SettingsStore &m_store;
    const unsigned int m_app;
    const bool m_commitEachWrite;
    Collection m_collection = Collection::Empty;
    pid_t m_process = 0; ///< that began the collection
    int m_failure = 0;   ///< errno of the collected write that failed
};
