// The caller-id restriction (3GPP TS 22.081).
#pragma once

#include "Subject.h"

namespace Kvq {

class CallerId : public Kvq::Subject {
    Q_OBJECT
    QML_ELEMENT
    Q_PROPERTY(Kvq::IntSetting *restriction MEMBER m_restriction CONSTANT)
    Q_PROPERTY(Kvq::IntSetting *nextCall MEMBER m_nextCall CONSTANT)

public:
    enum Restriction {
        Network = TAPI_CALL_RESTRICT_ID_NETWORK,   ///< as the network has it
        Invoke = TAPI_CALL_RESTRICT_ID_INVOKE,     ///< hide the number
        Suppress = TAPI_CALL_RESTRICT_ID_SUPPRESS, ///< show the number
    };
    Q_ENUM(Restriction)

    explicit CallerId(QObject *parent = nullptr)
        : Subject(parent)
    {
        // A call that is made afterwards must find them set.
        for (Setting *const setting : {m_restriction, m_nextCall})
            setting->setUrgency(Urgency::CallControl);
    }

private:
    using Setup = PHONE_ENG_Setup;

    IntSetting *const m_restriction = m_activity->setting<IntSetting>(&Setup::getCLIR, &Setup::setCLIR);
    IntSetting *const m_nextCall = m_activity->setting<IntSetting>(&Setup::getNextCLIR, &Setup::setNextCLIR);
};

} // namespace Kvq
