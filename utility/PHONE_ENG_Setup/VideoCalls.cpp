// Video call preferences and the picture that stands in for the camera.
#include "PHONE_ENG_Setup.h"
#include "Settings.h"
#include "Unit.h"

#include <QDir>
#include <QFileInfo>

#include <algorithm>
#include <array>
#include <cerrno>
#include <limits>

namespace {

constexpr std::array pictureDirectories = {"/usr/data_resource/picture/"};

constexpr int defaultInvitationTimeout = 10000;

QString noPicture()
{
    return QStringLiteral("black");
}

} // namespace

bool PHONE_ENG_Setup::getCameraMute(PHONE_SETUP_CAMERA_MUTE_T &mute)
{
    mute = static_cast<PHONE_SETUP_CAMERA_MUTE_T>(
        Settings::read(Settings::setupGroup, u"VTCameraMute", static_cast<int>(PHONE_SETUP_CAMERA_MUTE_OFF)));
    return true;
}

bool PHONE_ENG_Setup::setCameraMute(PHONE_SETUP_CAMERA_MUTE_T mute)
{
    if (!setupCheckSystemStatus())
        return false;
    return Settings::write(*this, Settings::setupGroup, u"VTCameraMute", static_cast<int>(mute));
}

QString PHONE_ENG_Setup::getCameraOffImage()
{
    SETUP_SET_Manager store(AM_Global::CallSetup, false);
    const QString image = Settings::get(store, Settings::setupGroup, u"cameraOffImage", QStringLiteral(""));
    if (image.isEmpty())
        return getDefaultCameraOffImage();
    if (image == noPicture())
        return QStringLiteral("");
    return image;
}

QString PHONE_ENG_Setup::getDefaultCameraOffImage()
{
    const auto *const directory =
        std::find_if(pictureDirectories.begin(), pictureDirectories.end(),
                     [](const char *path) { return QDir(QString::fromLatin1(path)).exists(); });
    if (directory == pictureDirectories.end())
        return QStringLiteral("");
    QDir pictures(QString::fromLatin1(*directory));
    pictures.setFilter(QDir::Files);
    pictures.setSorting(QDir::Name | QDir::IgnoreCase);
    const QFileInfoList files = pictures.entryInfoList();
    return files.isEmpty() ? QStringLiteral("") : files.first().absoluteFilePath();
}

bool PHONE_ENG_Setup::setCameraOffImage(const QString &path)
{
    if (!setupCheckSystemStatus())
        return false;
    SETUP_SET_Manager store(AM_Global::CallSetup, true);
    const bool stored = Settings::put(store, Settings::setupGroup, u"cameraOffImage", path);
    if (stored) {
        LOG_MESSAGE(R"(setCameraOffImage to %s successfully\n)", path.toLatin1().constData());
    } else {
        const int reason = errno; // writing a log line may change it
        LOG_MESSAGE(R"(setCameraOffImage to %s failed\n)", path.toLatin1().constData());
        errno = reason;
        checkFlashFull();
    }
    return stored;
}

bool PHONE_ENG_Setup::getRVCAlertType(bool &alert)
{
    alert = Settings::read(Settings::videoCallGroup, u"CapableAlert", false);
    return true;
}

bool PHONE_ENG_Setup::setRVCAlertType(bool alert)
{
    if (!setupCheckSystemStatus())
        return false;
    return Settings::write(*this, Settings::videoCallGroup, u"CapableAlert", alert);
}

bool PHONE_ENG_Setup::getRVCInvitationTimer(int &timeout)
{
    const long long stored =
        Settings::read(Settings::videoCallGroup, u"InvitationTimeOut", defaultInvitationTimeout);
    timeout = static_cast<int>(std::clamp<long long>(stored * 1000, std::numeric_limits<int>::min(),
                                                     std::numeric_limits<int>::max()));
    return true;
}

bool PHONE_GetCameraMute(PHONE_SETUP_CAMERA_MUTE_T &mute)
{
    return PHONE_ENG_Setup::instance()->getCameraMute(mute);
}

QString PHONE_GetCameraOffImage()
{
    return PHONE_ENG_Setup::instance()->getCameraOffImage();
}
