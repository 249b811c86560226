// The picture that stands in for the camera.
#include "VideoCallSettings.h"

namespace Kvq {

namespace {

/** What the settings store keeps for no picture; an empty path stands for the default one. */
const QString noImage = QStringLiteral("black");
const QString defaultImage = QStringLiteral("");

/** Stores a picture and gives the one that is in use then. */
Answer writeImage(Engine &engine, const QVariant &value)
{
    const QString path = value.toString();
    Answer answer = Operations::stored(engine.setup, [&] { return engine.setup.setCameraOffImage(path); });
    if (answer.isSuccess())
        answer.value = engine.setup.getCameraOffImage();
    return answer;
}

} // namespace

VideoCallSettings::VideoCallSettings(QObject *parent)
    : Subject(parent)
    , m_cameraOffImage(
          m_activity->custom<TextSetting>(Operations::reader(&Setup::getCameraOffImage), writeImage))
{
}

void VideoCallSettings::useDefaultImage()
{
    m_cameraOffImage->setValue(defaultImage);
}

void VideoCallSettings::useNoImage()
{
    m_cameraOffImage->setValue(noImage);
}

} // namespace Kvq
