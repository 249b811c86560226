// Video calls: the camera, its stand-in picture, and what happens when a video call fails.
#pragma once

#include "Subject.h"

namespace Kvq {

class VideoCallSettings : public Kvq::Subject {
    Q_OBJECT
    QML_ELEMENT
    Q_PROPERTY(Kvq::BoolSetting *cameraMuted MEMBER m_cameraMuted CONSTANT)
    Q_PROPERTY(Kvq::BoolSetting *fallBackToVoice MEMBER m_fallBackToVoice CONSTANT)
    Q_PROPERTY(Kvq::BoolSetting *capabilityAlert MEMBER m_capabilityAlert CONSTANT)
    Q_PROPERTY(Kvq::TextSetting *cameraOffImage MEMBER m_cameraOffImage CONSTANT)
    Q_PROPERTY(Kvq::TextSetting *defaultImage MEMBER m_defaultImage CONSTANT)
    Q_PROPERTY(Kvq::IntSetting *invitationTimeout MEMBER m_invitationTimeout CONSTANT)

public:
    explicit VideoCallSettings(QObject *parent = nullptr);

    /** These write cameraOffImage, which then shows the picture in use. */
    Q_INVOKABLE void useDefaultImage();
    Q_INVOKABLE void useNoImage();

private:
    using Setup = PHONE_ENG_Setup;

    BoolSetting *const m_cameraMuted =
        m_activity->setting<BoolSetting>(&Setup::getCameraMute, &Setup::setCameraMute);
    BoolSetting *const m_fallBackToVoice =
        m_activity->setting<BoolSetting>(&Setup::isAutoFallbackVoiceCall, &Setup::setAutoFallbackVoiceCall);
    BoolSetting *const m_capabilityAlert =
        m_activity->setting<BoolSetting>(&Setup::getRVCAlertType, &Setup::setRVCAlertType);
    TextSetting *const m_cameraOffImage;
    TextSetting *const m_defaultImage = m_activity->setting<TextSetting>(&Setup::getDefaultCameraOffImage);
    IntSetting *const m_invitationTimeout = m_activity->setting<IntSetting>(&Setup::getRVCInvitationTimer);
};

} // namespace Kvq
