// The network object: life cycle, meta-object, the rule that turns platform results into success or failure.
#include "EngineTest.h"

#include <QMetaMethod>
#include <QPointer>

using testing::ElementsAre;

namespace {

class NetworkInterfaceTest : public EngineTest { };

TEST_F(NetworkInterfaceTest, LivesFromFirstUseUntilDestroyed)
{
    int signalCount = 0;
    QObject::connect(&network(), &PHONE_ENG_NtInterface::preferredChanged, [&] { ++signalCount; });
    PHONE_ENG_NtInterface::destroy();
    EXPECT_EQ(PHONE_ENG_NtInterface::m_pInstance, nullptr);
    PHONE_ENG_NtInterface::destroy();

    PHONE_ENG_NtInterface &fresh = network();
    EXPECT_EQ(PHONE_ENG_NtInterface::instance(), &fresh);
    EXPECT_TRUE(!fresh.parent() && fresh.objectName().isEmpty());
    EXPECT_EQ(events(),
              (Events{R"("in PHONE_ENG_NtInterface::PHONE_ENG_NtInterface\n")",
                      R"("out PHONE_ENG_NtInterface::PHONE_ENG_NtInterface\n")"}));
    EXPECT_THAT(locations(), ElementsAre("utility/PHONE_ENG_NtInterface PHONE_ENG_NtInterface"));

    EXPECT_TRUE(fresh.delAllPreferredNetwork());
    EXPECT_EQ(signalCount, 0) << "connections end with the object that they were made to";
}

TEST_F(NetworkInterfaceTest, DestructionDeletesTheOneObjectWhicheverItIsCalledOn)
{
    QPointer<PHONE_ENG_NtInterface> one = PHONE_ENG_NtInterface::instance();
    PHONE_ENG_NtInterface other;
    other.destruction();
    EXPECT_TRUE(one.isNull());
    one = PHONE_ENG_NtInterface::instance();
    network().destruction();
    EXPECT_TRUE(one.isNull());
    EXPECT_EQ(PHONE_ENG_NtInterface::m_pInstance, nullptr);
}

TEST_F(NetworkInterfaceTest, MetaObjectHasOneSignalAndNothingElse)
{
    const QMetaObject *const meta = network().metaObject();
    EXPECT_STREQ(meta->className(), "PHONE_ENG_NtInterface");
    EXPECT_STREQ(network().className(), meta->className());
    EXPECT_EQ(meta->superClass(), &QObject::staticMetaObject);
    ASSERT_EQ(meta->methodCount() - meta->methodOffset(), 1);
    const QMetaMethod method = meta->method(meta->methodOffset());
    EXPECT_EQ(method.methodType(), QMetaMethod::Signal);
    EXPECT_EQ(method.methodSignature(), "preferredChanged()");
    EXPECT_EQ(meta->propertyCount(), meta->propertyOffset());
    EXPECT_EQ(meta->classInfoCount(), meta->classInfoOffset());

    PHONE_ENG_NtInterface::metaObj = nullptr;
    network().initMetaObject();
    EXPECT_EQ(PHONE_ENG_NtInterface::metaObj, meta);
    PHONE_ENG_NtInterface::metaObj = nullptr;
    const PHONE_ENG_NtInterface other;
    EXPECT_EQ(PHONE_ENG_NtInterface::metaObj, meta);
}

TEST_F(NetworkInterfaceTest, OnlyZeroIsSuccessAndOnlyFailureIsLogged)
{
    EXPECT_TRUE(network().result(TAPI_RESULT_SUCC));
    const std::pair<unsigned int, std::string> failures[] = {{1, "1"}, {0x8000, "32768"}, {0xFFFFFFFF, "-1"}};
    for (const auto &[code, text] : failures) {
        EXPECT_FALSE(network().result(static_cast<_TAPI_RESULT_E>(code)));
        EXPECT_EQ(messages(), Events{"Failed to call tapi function ret = " + text + R"(!\n)"});
    }
    EXPECT_THAT(locations(), ElementsAre("utility/PHONE_ENG_NtInterface result"));
}

} // namespace
