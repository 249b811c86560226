// Messages between the phone's call programs.
#pragma once

#include <QObject>

/**
 * The engine makes these objects itself, so their size never changes: what a platform keeps for one goes into its
 * room, or behind a pointer in it. The engine does not look into the room.
 */
class PHONE_Msg : public QObject {
public:
    /** The numbers are this boundary's; a port translates them. */
    enum PHONE_MSG_TYPE_T : unsigned int {
        PHONE_MSG_LINE_CHANGED = 66, ///< the selected line has changed
    };

    PHONE_Msg(QObject *parent, const char *name);
    ~PHONE_Msg() override;

    bool send(PHONE_MSG_TYPE_T type);

private:
    [[maybe_unused]] void *m_room[4]; ///< the platform's own, see above
};

static_assert(sizeof(PHONE_Msg) == sizeof(QObject) + 4 * sizeof(void *));
