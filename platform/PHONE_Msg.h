// Messages between the phone's call programs.
#pragma once

#include <QObject>

class PHONE_Msg : public QObject {
public:
    enum PHONE_MSG_TYPE_T : unsigned int {
        PHONE_MSG_LINE_CHANGED = 66, ///< the selected line has changed
    };

    PHONE_Msg(QObject *parent, const char *name);
    ~PHONE_Msg() override;

    bool send(PHONE_MSG_TYPE_T type);
};
