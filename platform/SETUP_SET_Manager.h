// The settings store: values kept by group, key and type.
#pragma once

#include "AM_Global.h"

#include <QString>

/**
 * One access to the settings of an application.
 *
 * A read sets the out value to the stored value, or to the default when nothing is stored under this
 * group, key and type. A write or flush() that answers false leaves the reason in errno: ENOSPC when
 * the file system is full. errno must survive until the caller has looked at it.
 *
 * With @p encrypted true a platform owes a text that cannot be read off the storage: stored encrypted, with a key that
 * is not kept beside it, and readable again through the same flag only. The engine passes false always. A platform
 * that cannot do so answers a write with true false, as the platforms here do (errno ENOTSUP), and finds nothing.
 *
 * The engine makes these objects itself, so their size never changes: what a platform keeps for one goes into its
 * room, or behind a pointer in it. The engine does not look into the room.
 */
class SETUP_SET_Manager {
public:
    /**
     * @param app the application whose settings are accessed
     * @param commitEachWrite true: a write that answered true is durable. false: writes are collected
     *        and become durable, all or none, with flush() or when the object goes.
     */
    SETUP_SET_Manager(AM_Global::Apps app, bool commitEachWrite);
    ~SETUP_SET_Manager();

    SETUP_SET_Manager(const SETUP_SET_Manager &) = delete;
    SETUP_SET_Manager &operator=(const SETUP_SET_Manager &) = delete;

    bool getSettingInfo(QString group, QString key, bool &value, bool defaultValue);
    bool getSettingInfo(QString group, QString key, int &value, int defaultValue);
    bool getSettingInfo(QString group, QString key, QString &value, QString defaultValue, bool encrypted);

    bool setSettingInfo(QString group, QString key, bool value);
    bool setSettingInfo(QString group, QString key, int value);
    bool setSettingInfo(QString group, QString key, QString value, bool encrypted);

    /** Makes the collected writes durable, all or none. */
    bool flush();

private:
    void *m_room[6]; ///< the platform's own, see above
};

static_assert(sizeof(SETUP_SET_Manager) == 6 * sizeof(void *));
