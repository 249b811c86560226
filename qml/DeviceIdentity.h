// What the phone says of itself.
#pragma once

#include "Subject.h"

namespace Kvq {

class DeviceIdentity : public Kvq::Subject {
    Q_OBJECT
    QML_ELEMENT
    Q_PROPERTY(Kvq::TextSetting *imei MEMBER m_imei CONSTANT)
    Q_PROPERTY(Kvq::TextSetting *basebandVersion MEMBER m_basebandVersion CONSTANT)
    Q_PROPERTY(Kvq::TextSetting *flexVersion MEMBER m_flexVersion CONSTANT)
    Q_PROPERTY(Kvq::TextSetting *dspVersion MEMBER m_dspVersion CONSTANT)
    Q_PROPERTY(Kvq::TextSetting *technology MEMBER m_technology CONSTANT)

public:
    explicit DeviceIdentity(QObject *parent = nullptr);

private:
    TextSetting *const m_imei = m_activity->setting<TextSetting>(&PHONE_ENG_Setup::readIMEISerialNumber);
    TextSetting *m_basebandVersion = nullptr;
    TextSetting *m_flexVersion = nullptr;
    TextSetting *m_dspVersion = nullptr;
    TextSetting *m_technology = nullptr;
};

} // namespace Kvq
