// The settings object: life cycle, meta-object, deferred signals.
#include "EngineTest.h"

#include <QCoreApplication>
#include <QMetaMethod>
#include <QSignalSpy>
#include <QTranslator>

#include <cerrno>

namespace {

class SetupObjectTest : public EngineTest { };

/** A translator that shows what it was asked. */
class EchoTranslator : public QTranslator {
public:
    QString translate(const char *context, const char *text, const char *comment, int) const override
    {
        return QStringLiteral("%1/%2/%3")
            .arg(QLatin1String(context), QLatin1String(text), QLatin1String(comment ? comment : "none"));
    }
    bool isEmpty() const override { return false; }
};

TEST_F(SetupObjectTest, ThereIsOneObjectAtATime)
{
    PHONE_ENG_Setup *const first = PHONE_ENG_Setup::instance();
    EXPECT_EQ(PHONE_ENG_Setup::instance(), first);
    EXPECT_EQ(PHONE_ENG_Setup::m_pInstance, first);
    EXPECT_EQ(first->parent(), nullptr);
    bool deleted = false;
    QObject::connect(first, &QObject::destroyed, [&] { deleted = true; });
    PHONE_ENG_Setup::destruction();
    EXPECT_TRUE(deleted);
    EXPECT_EQ(PHONE_ENG_Setup::m_pInstance, nullptr);
    PHONE_ENG_Setup::destruction();
    EXPECT_FALSE(PHONE_isAutoFallbackVoiceCall()); // makes the object
    EXPECT_NE(PHONE_ENG_Setup::m_pInstance, nullptr);
}

TEST_F(SetupObjectTest, ParentNameAndClassName)
{
    QObject parent;
    PHONE_ENG_Setup::metaObj = nullptr;
    auto *const named = new PHONE_ENG_Setup(&parent, "settings");
    EXPECT_EQ(PHONE_ENG_Setup::metaObj, named->metaObject());
    EXPECT_EQ(named->parent(), &parent);
    EXPECT_EQ(named->objectName(), QStringLiteral("settings"));
    EXPECT_TRUE(setup().objectName().isEmpty());
    EXPECT_STREQ(named->className(), "PHONE_ENG_Setup");
    PHONE_ENG_Setup::metaObj = nullptr;
    named->initMetaObject();
    EXPECT_EQ(PHONE_ENG_Setup::metaObj, named->metaObject());
}

TEST_F(SetupObjectTest, TheMetaObjectListsSignalsAndTheSlot)
{
    const QMetaObject *const meta = PHONE_ENG_Setup::metaObj;
    EXPECT_STREQ(meta->className(), "PHONE_ENG_Setup");
    EXPECT_STREQ(meta->superClass()->className(), "QObject");
    std::vector<std::string> methods;
    for (int method = meta->methodOffset(); method < meta->methodCount(); ++method) {
        const QMetaMethod entry = meta->method(method);
        methods.push_back(std::string(entry.methodType() == QMetaMethod::Signal ? "signal " : "slot ")
                          + (entry.access() == QMetaMethod::Private ? "private " : "")
                          + entry.methodSignature().constData());
    }
    EXPECT_EQ(methods,
              (std::vector<std::string>{"signal flashFull()", "signal sigSetupOpertionNotAllowed()",
                                        "signal updateCallForwardingFlag()", "slot private updateCFFlag()"}));
    EXPECT_EQ(meta->propertyCount(), QObject::staticMetaObject.propertyCount());
    EXPECT_EQ(meta->classInfoCount(), 0);
}

TEST_F(SetupObjectTest, TextsAreTranslatedInTheContextOfTheClass)
{
    EchoTranslator translator;
    QCoreApplication::installTranslator(&translator);
    EXPECT_EQ(PHONE_ENG_Setup::tr("Line"), QStringLiteral("PHONE_ENG_Setup/Line/none"));
    EXPECT_EQ(PHONE_ENG_Setup::tr("Line", "of two"), QStringLiteral("PHONE_ENG_Setup/Line/of two"));
    EXPECT_EQ(PHONE_ENG_NtInterface::tr("Band"), QStringLiteral("PHONE_ENG_NtInterface/Band/none"));
    QCoreApplication::removeTranslator(&translator);
}

TEST_F(SetupObjectTest, EventsOfTheEngineBecomeSignals)
{
    QSignalSpy flashFull(&setup(), SIGNAL(flashFull()));
    QSignalSpy notAllowed(&setup(), SIGNAL(sigSetupOpertionNotAllowed()));
    for (const int signal : {0, 1, 5, -1}) {
        PHONE_ENG_Setup::SignalEvent event(signal);
        EXPECT_EQ(event.type(), 1000);
        EXPECT_TRUE(setup().event(&event));
    }
    QEvent foreign(QEvent::User);
    EXPECT_TRUE(setup().event(&foreign)) << "an event of that type is taken whoever sent it";
    QEvent other(QEvent::WindowActivate);
    EXPECT_FALSE(setup().event(&other));
    EXPECT_EQ(flashFull.count(), 1);
    EXPECT_EQ(notAllowed.count(), 1);
}

TEST_F(SetupObjectTest, OnlyAFullDiskRaisesTheSignalAndOnlyLater)
{
    QSignalSpy flashFull(&setup(), SIGNAL(flashFull()));
    errno = EACCES;
    setup().checkFlashFull();
    QCoreApplication::sendPostedEvents();
    EXPECT_EQ(flashFull.count(), 0);
    errno = ENOSPC;
    setup().checkFlashFull();
    setup().checkFlashFull();
    EXPECT_EQ(errno, ENOSPC);
    EXPECT_EQ(flashFull.count(), 0);
    QCoreApplication::sendPostedEvents();
    EXPECT_EQ(flashFull.count(), 2);
}

} // namespace
