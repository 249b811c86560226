// The two lines of a CPHS SIM.
#pragma once

#include "Subject.h"

namespace Kvq {

class Lines : public Kvq::Subject {
    Q_OBJECT
    QML_ELEMENT
    Q_PROPERTY(Kvq::IntSetting *current MEMBER m_current CONSTANT)
    Q_PROPERTY(Kvq::BoolSetting *locked MEMBER m_locked CONSTANT)
    Q_PROPERTY(Kvq::BoolSetting *voiceMailHotKeys MEMBER m_voiceMailHotKeys CONSTANT)

public:
    explicit Lines(QObject *parent = nullptr)
        : Subject(parent)
    {
        m_current->setUrgency(Urgency::CallControl); // a call that is made afterwards goes out on it
    }

private:
    using Setup = PHONE_ENG_Setup;

    IntSetting *const m_current = m_activity->setting<IntSetting>(&Setup::currentLineNo, &Setup::setLineNo);
    BoolSetting *const m_locked =
        m_activity->setting<BoolSetting>(&Setup::curLineLockStatus, &Setup::setLineLockStatus);
    BoolSetting *const m_voiceMailHotKeys = m_activity->custom<BoolSetting>([](Engine &engine) {
        return Answer{TAPI_RESULT_SUCC, engine.setup.isVmHotKeysAvailable()};
    });
};

} // namespace Kvq
