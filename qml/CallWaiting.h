// Call waiting (3GPP TS 22.083).
#pragma once

#include "Subject.h"

namespace Kvq {

class CallWaiting : public Kvq::Subject {
    Q_OBJECT
    QML_ELEMENT
    Q_PROPERTY(Kvq::BoolSetting *enabled MEMBER m_enabled CONSTANT)

public:
    explicit CallWaiting(QObject *parent = nullptr)
        : Subject(parent)
    {
    }

private:
    BoolSetting *const m_enabled =
        m_activity->setting<BoolSetting>(&PHONE_ENG_Setup::isCallWaiting, &PHONE_ENG_Setup::setCallWaiting);
};

} // namespace Kvq
