// Fixed dialling numbers (3GPP TS 22.101).
#pragma once

#include "Subject.h"

namespace Kvq {

class FixedDialling : public Kvq::Subject {
    Q_OBJECT
    QML_ELEMENT
    Q_PROPERTY(Kvq::BoolSetting *supported MEMBER m_supported CONSTANT)
    Q_PROPERTY(Kvq::BoolSetting *enabled MEMBER m_enabled CONSTANT)

public:
    explicit FixedDialling(QObject *parent = nullptr)
        : Subject(parent)
    {
    }

    /** Asks for PIN2, so it is no property that could be bound. */
    Q_INVOKABLE Kvq::Request *setEnabled(bool on, const QString &pin2);

private:
    using Setup = PHONE_ENG_Setup;

    BoolSetting *const m_supported = m_activity->setting<BoolSetting>(&Setup::isFixedDialingAvailable);
    BoolSetting *const m_enabled = m_activity->setting<BoolSetting>(&Setup::isFixedDialing);
};

} // namespace Kvq
