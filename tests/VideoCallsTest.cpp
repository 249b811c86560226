// Video call preferences and the default picture.
#include "EngineTest.h"

#include <QCoreApplication>
#include <QDir>
#include <QFile>
#include <QSignalSpy>

#include "SETUP_SET_Manager.h"

#include <cerrno>

namespace {

const QString pictureDirectory = QStringLiteral("/usr/data_resource/picture");

class VideoCallsTest : public EngineTest { };

/** The phone's picture directory, which a desk does not have: made for a test and taken away again. */
class VideoPictureTest : public VideoCallsTest {
protected:
    void SetUp() override
    {
        if (QFile::exists(pictureDirectory))
            GTEST_SKIP() << "this machine has a picture directory of its own";
        if (!QDir().mkpath(pictureDirectory))
            GTEST_SKIP() << "only root can make the picture directory";
        m_made = true;
    }
    void TearDown() override
    {
        if (m_made)
            QDir(QStringLiteral("/usr/data_resource")).removeRecursively();
    }
    static void touch(const QString &name)
    {
        QFile file(pictureDirectory + QLatin1Char('/') + name);
        ASSERT_TRUE(file.open(QIODevice::WriteOnly));
    }

private:
    bool m_made = false;
};

TEST_F(VideoPictureTest, TheDefaultIsTheFirstVisibleFileByNameIgnoringCase)
{
    EXPECT_EQ(setup().getDefaultCameraOffImage(), QStringLiteral("")) << "an empty directory";
    QDir(pictureDirectory).mkdir(QStringLiteral("0"));
    for (const char *name : {"B1.jpg", "a2.png", ".hidden.png"})
        touch(QLatin1String(name));
    EXPECT_EQ(setup().getCameraOffImage(), pictureDirectory + QStringLiteral("/a2.png"));
    ASSERT_TRUE(setup().setCameraOffImage(QString()));
    // The settings stay open while the pictures are listed: what happens when they close comes too late to matter.
    phone.setObserver([](const std::string &call, const std::string &) {
        if (call == "~SETUP_SET_Manager()")
            QDir(pictureDirectory).removeRecursively();
    });
    EXPECT_EQ(PHONE_GetCameraOffImage(), pictureDirectory + QStringLiteral("/a2.png"));
    phone.setObserver(nullptr);
    EXPECT_EQ(setup().getDefaultCameraOffImage(), QStringLiteral("")) << "no directory";
}

TEST_F(VideoCallsTest, ThePictureIsTheStoredOneNoneOrTheDefault)
{
    const struct {
        const char *stored;
        const char *picture;
    } rows[] = {{"black", ""}, {"Black", "Black"}, {"/no/such/file.png", "/no/such/file.png"}};
    for (const auto &row : rows) {
        SCOPED_TRACE(row.stored);
        ASSERT_TRUE(setup().setCameraOffImage(QLatin1String(row.stored)));
        EXPECT_EQ(setup().getCameraOffImage(), QLatin1String(row.picture));
    }
}

TEST_F(VideoCallsTest, SettingThePictureIsLoggedEitherWay)
{
    EXPECT_TRUE(setup().setCameraOffImage(QStringLiteral("/a.png")));
    EXPECT_EQ(events(),
              (Events{"SETUP_SET_Manager(4, true)",
                      R"(SETUP_SET_Manager::setSettingInfo("Setup", "cameraOffImage", "/a.png", false))",
                      R"("setCameraOffImage to /a.png successfully\n")", "~SETUP_SET_Manager()"}));
    EXPECT_EQ(locations(), std::set<std::string>{"utility/PHONE_ENG_Setup setCameraOffImage"});
    QSignalSpy flashFull(&setup(), SIGNAL(flashFull()));
    ScriptedAnswer full;
    full.error = ENOSPC;
    phone.script("SETUP_SET_Manager::setSettingInfo", full);
    EXPECT_FALSE(setup().setCameraOffImage(QStringLiteral("/b.png")));
    EXPECT_EQ(messages(), (Events{R"(setCameraOffImage to /b.png failed\n)"}));
    QCoreApplication::sendPostedEvents();
    EXPECT_EQ(flashFull.count(), 1);
}

TEST_F(VideoCallsTest, MuteAlertAndTimer)
{
    auto mute = PHONE_SETUP_CAMERA_MUTE_ON;
    bool alert = true;
    int timeout = 0;
    EXPECT_TRUE(setup().getCameraMute(mute));
    EXPECT_TRUE(setup().getRVCAlertType(alert));
    EXPECT_TRUE(setup().getRVCInvitationTimer(timeout));
    EXPECT_EQ(mute, PHONE_SETUP_CAMERA_MUTE_OFF);
    EXPECT_FALSE(alert);
    EXPECT_EQ(timeout, 10000000);
    events();
    EXPECT_TRUE(setup().setCameraMute(static_cast<PHONE_SETUP_CAMERA_MUTE_T>(42)));
    EXPECT_TRUE(setup().setRVCAlertType(true));
    const Events written = calls();
    EXPECT_EQ(written.at(1), R"(SETUP_SET_Manager::setSettingInfo("Setup", "VTCameraMute", 42))");
    EXPECT_EQ(written.at(4), R"(SETUP_SET_Manager::setSettingInfo("RVCSetting", "CapableAlert", true))");
    EXPECT_TRUE(PHONE_GetCameraMute(mute));
    EXPECT_TRUE(setup().getRVCAlertType(alert));
    EXPECT_EQ(mute, 42);
    EXPECT_TRUE(alert);
    const struct {
        int stored;
        int timeout;
    } rows[] = {{30, 30000}, {0, 0}, {-1, -1000}, {2147483647, 2147483647}, {-2147483647, -2147483647 - 1}};
    for (const auto &row : rows) {
        SETUP_SET_Manager settings(AM_Global::CallSetup, true);
        settings.setSettingInfo(QStringLiteral("RVCSetting"), QStringLiteral("InvitationTimeOut"),
                                row.stored);
        setup().getRVCInvitationTimer(timeout);
        EXPECT_EQ(timeout, row.timeout);
    }
}

TEST_F(VideoCallsTest, ARefusingHookStopsEverySetter)
{
    refuse();
    EXPECT_FALSE(setup().setCameraMute(PHONE_SETUP_CAMERA_MUTE_ON));
    EXPECT_FALSE(setup().setCameraOffImage(QStringLiteral("/a.png")));
    EXPECT_FALSE(setup().setRVCAlertType(true));
    EXPECT_TRUE(events().empty());
}

} // namespace
