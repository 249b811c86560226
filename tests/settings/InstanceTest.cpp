// A second start of the program shows the window of the first.
#include "SettingsTest.h"

#include <QProcess>

namespace {

/** A session bus of its own. */
class InstanceTest : public SettingsTest {
protected:
    InstanceTest()
    {
        m_bus.start(QStringLiteral("dbus-daemon"),
                    {QStringLiteral("--session"), QStringLiteral("--nofork"), QStringLiteral("--nopidfile"),
                     QStringLiteral("--print-address")});
        EXPECT_TRUE(waitFor([this] { return m_bus.canReadLine(); }));
        qputenv("DBUS_SESSION_BUS_ADDRESS", m_bus.readLine().trimmed());
    }
    ~InstanceTest() override
    {
        close();
        qunsetenv("DBUS_SESSION_BUS_ADDRESS");
        m_bus.kill();
        m_bus.waitForFinished();
    }

    struct Ended {
        int status = -1;
        QString said;
    };
    /** Starts the program, and waits for its end while the first one goes on. */
    static Ended start(const QStringList &arguments)
    {
        QProcess program;
        // One that refuses its arguments leaves at once, with what it has.
        QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
        environment.insert(QStringLiteral("ASAN_OPTIONS"), QStringLiteral("detect_leaks=0"));
        program.setProcessEnvironment(environment);
        program.start(QStringLiteral(KVQ_SETTINGS_PROGRAM), arguments);
        if (!waitFor([&] { return program.state() == QProcess::NotRunning; })) {
            program.kill();
            program.waitForFinished();
            return {};
        }
        return {program.exitCode(), QString::fromUtf8(program.readAllStandardError())};
    }

    QString shownPage() const { return window().property("shownPage").toString(); }

private:
    QProcess m_bus;
};

TEST_F(InstanceTest, ASecondStartIsShownByTheFirst)
{
    const auto none = start({QStringLiteral("--page"), QStringLiteral("nonsense")});
    EXPECT_EQ(none.status, 2) << "the first shows its own window, which has no such page";

    SingleInstance instance;
    ASSERT_FALSE(instance.handOver({}).has_value());
    open(QStringLiteral("about"), {.calm = true});
    instance.serve([this](const SingleInstance::Wish &wish) { return application().show(wish); });
    ASSERT_TRUE(settle());

    window().showMinimized();
    EXPECT_EQ(start({}).status, 0);
    EXPECT_FALSE(window().windowStates() & Qt::WindowMinimized);
    EXPECT_EQ(shownPage(), QStringLiteral("about"));

    EXPECT_EQ(start({QStringLiteral("--page"), QStringLiteral("costs")}).status, 0);
    EXPECT_EQ(shownPage(), QStringLiteral("costs"));

    const auto refused = start({QStringLiteral("--page"), QStringLiteral("nonsense")});
    EXPECT_EQ(refused.status, 2);
    EXPECT_TRUE(refused.said.contains(QLatin1String("there is no page \"nonsense\"")))
        << refused.said.toStdString();
    EXPECT_EQ(shownPage(), QStringLiteral("costs"));

    // A number is shown and not called.
    EXPECT_EQ(start({QStringLiteral("tel:+49-30-12345")}).status, 0);
    EXPECT_EQ(shownPage(), QStringLiteral("calls"));
    EXPECT_TRUE(waitFor([&] {
        const QQuickItem *const number = find(QStringLiteral("number"));
        return number && number->property("text").toString() == QLatin1String("+493012345");
    }));
    ASSERT_TRUE(settle());
    EXPECT_EQ(find(QStringLiteral("hang-up")), nullptr);
}

TEST(TelAddress, GivesWhatCanBeTypedOnly)
{
    const struct {
        const char *address;
        const char *number;
    } cases[] = {{"tel:110", "110"},
                 {"tel:+49(30)123.45;ext=7", "+493012345"},
                 {"tel:*%2306%23", "*#06#"},
                 {"tel:", ""},
                 {"tel:1%0A2", ""},
                 {"tel:alice", ""},
                 {"sip:110", ""},
                 {"110", ""}};
    for (const auto &[address, number] : cases)
        EXPECT_EQ(SingleInstance::numberOf(QLatin1String(address)), QLatin1String(number)) << address;
}

} // namespace
