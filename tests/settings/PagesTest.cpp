// What the pages show when the phone is slow, lacks something or fails.
#include "SettingsTest.h"

#include <QTemporaryDir>

namespace {

using namespace std::chrono_literals;

constexpr int notSupported = 0x9000;
constexpr int timedOut = 0x9001;
constexpr int refused = 0x8000;
constexpr int simUnavailable = 0x800A;

class PagesTest : public SettingsTest {
protected:
    /** The reasons that the page shows. */
    QStringList failures() const { return valuesOf("reason"); }

    /** As a tap in the list does, and on the arrow back. */
    void enter(const QString &name)
    {
        QMetaObject::invokeMethod(&window(), "open", Qt::QueuedConnection, Q_ARG(QString, name));
        EXPECT_TRUE(waitFor([&] {
            return window().property("shownPage").toString() == name && window().property("loaded").toBool();
        }));
    }
    void leave()
    {
        QMetaObject::invokeMethod(&window(), "back", Qt::QueuedConnection);
        EXPECT_TRUE(waitFor([&] { return !page(); })); // has slid away
    }
    /** Lets a page read what it shows. */
    void look(const QString &name, const QString &failure = {})
    {
        enter(name);
        EXPECT_TRUE(settle());
        EXPECT_EQ(failures().join(QLatin1Char('|')), failure);
        leave();
    }
};

/** While no request is answered, a page that waited for one would hang. */
TEST_F(PagesTest, NoPageWaitsForAnAnswer)
{
    open(QString(), {.size = QSize(400, 800)});
    ASSERT_TRUE(settle());
    const QStringList pages = offeredPages();
    phone().setDelay("*", 24h);
    for (const QString &name : pages) {
        enter(name);
        leave();
    }
    EXPECT_FALSE(window().property("settled").toBool());
    phone().setDelay("*", 0s);
    EXPECT_TRUE(settle());
}

TEST_F(PagesTest, WhatTheProductLacksIsNotShown)
{
    const struct {
        const char *request;
        const char *page;
    } lacks[] = {
        {"TAPI_CS_GetChargeDisplay", "costs"},
        {"TAPI_CS_GetLine", "lines"},
        {"TAPI_NETWORK_GetSearchMode", "networks"},
        {"TAPI_NETWORK_GetTotalPreferredOperatorNumber", "preferred"},
    };
    open(QString());
    ASSERT_TRUE(settle());
    const QStringList all = offeredPages();
    for (const auto &lack : lacks) {
        ASSERT_TRUE(phone().setAnswer(lack.request, {.result = notSupported, .out = {}}));
        QMetaObject::invokeMethod(&window(), "lookAgain");
        QStringList expected = all;
        EXPECT_EQ(expected.removeAll(QString::fromLatin1(lack.page)), 1);
        EXPECT_TRUE(waitFor([&] { return offeredPages() == expected; })) << lack.page;
        ASSERT_TRUE(settle());
        EXPECT_EQ(find(QStringLiteral("page:%1").arg(QLatin1String(lack.page))), nullptr);
        phone().clearAnswer(lack.request);
    }
    // What only the network can tell is learnt when it was asked. A page for two things stays for one of them.
    const auto lack = [](std::initializer_list<const char *> requests) {
        for (const char *const request : requests)
            ASSERT_TRUE(phone().setAnswer(request, {.result = notSupported, .out = {}}));
    };
    QMetaObject::invokeMethod(&window(), "lookAgain");
    EXPECT_TRUE(waitFor([&] { return offeredPages() == all; }));
    lack({"TAPI_CS_GetDivertStatus", "TAPI_CS_GetVoiceWaitingStatus"});
    const QString lacking =
        QStringLiteral("This phone or its network does not offer this. Ask your provider whether it can.");
    look(QStringLiteral("forwarding"), lacking);
    look(QStringLiteral("caller-id"));
    QStringList expected = all;
    expected.removeAll(QStringLiteral("forwarding"));
    EXPECT_EQ(offeredPages(), expected);
    lack({"TAPI_FTRDB_GetState", "TAPI_CS_GetRestrictNextCallID"});
    look(QStringLiteral("caller-id"), lacking);
    expected.removeAll(QStringLiteral("caller-id"));
    EXPECT_EQ(offeredPages(), expected);
    QMetaObject::invokeMethod(&window(), "lookAgain");
    EXPECT_TRUE(waitFor([&] { return offeredPages() == all; }));
}

TEST_F(PagesTest, WhatCannotBeReadIsToldOnceAboveTheRows)
{
    phone().setAnswer("TAPI_CS_GetDivertStatus", {.result = refused, .out = {}, .times = -1});
    open(QStringLiteral("forwarding"));
    ASSERT_TRUE(settle());
    EXPECT_EQ(failures().size(), 1);
    EXPECT_TRUE(failures().constFirst().startsWith(QStringLiteral("The request was refused")));
    ASSERT_NE(find(QStringLiteral("commonFailure")), nullptr);
    EXPECT_TRUE(find(QStringLiteral("always"))->property("toldAbove").toBool());

    // One row can be read again by itself, and all that are left at once.
    phone().clearAnswer("TAPI_CS_GetDivertStatus");
    ASSERT_TRUE(QMetaObject::invokeMethod(find(QStringLiteral("always")), "retry"));
    ASSERT_TRUE(settle());
    EXPECT_EQ(find(QStringLiteral("always"))->property("value").toString(), QStringLiteral("Off"));
    EXPECT_TRUE(find(QStringLiteral("no-reply"))->property("toldAbove").toBool());
    ASSERT_TRUE(QMetaObject::invokeMethod(page(), "readAgain", Q_ARG(bool, true)));
    ASSERT_TRUE(settle());
    EXPECT_TRUE(waitFor([&] { return failures().isEmpty(); }));
    EXPECT_EQ(find(QStringLiteral("commonFailure")), nullptr);

    // Another reason is the row's own.
    phone().setAnswer("TAPI_FTRDB_GetState", {.result = refused, .out = {}});
    phone().setAnswer("TAPI_CS_GetVoiceWaitingStatus", {.result = timedOut, .out = {}});
    open(QStringLiteral("caller-id"));
    ASSERT_TRUE(settle());
    EXPECT_EQ(find(QStringLiteral("commonFailure")), nullptr);
    EXPECT_EQ(failures().size(), 2);
}

TEST_F(PagesTest, WhatWasLastKnownIsShownUntilItIsReadAgain)
{
    const struct {
        QString page;
        QString row;
        const char *request;
    } pages[] = {
        {QStringLiteral("forwarding"), QStringLiteral("always"), "TAPI_CS_GetDivertStatus"},
        {QStringLiteral("caller-id"), QStringLiteral("waiting"), "TAPI_CS_GetVoiceWaitingStatus"},
        {QStringLiteral("own-numbers"), QStringLiteral("number1"), "TAPI_OWNNUMBER_GetEntry"},
    };
    const auto shown = [this](const QString &row, const char *property) {
        const QQuickItem *const item = find(row);
        return item ? item->property(property) : QVariant();
    };
    open(QString());
    ASSERT_TRUE(settle());
    for (const auto &[name, row, request] : pages) {
        enter(name);
        ASSERT_TRUE(settle());
        const QVariant value = shown(row, "value");
        EXPECT_EQ(shown(row, "dim"), false);
        leave();
        phone().setDelay(request, 24h);
        ASSERT_TRUE(phone().setAnswer(request, {.result = timedOut, .out = {}}));
        enter(name);
        ASSERT_TRUE(waitForItem(row));
        EXPECT_EQ(shown(row, "dim"), true);
        EXPECT_EQ(shown(row, "value"), value);
        EXPECT_EQ(failures(), QStringList());
        phone().setDelay(request, 0s);
        ASSERT_TRUE(settle());
        EXPECT_EQ(shown(row, "dim"), true);
        EXPECT_EQ(shown(row, "value"), value);
        EXPECT_TRUE(waitFor([&] { return failures().size() == 1; })) << request;
        phone().clearAnswer(request);
        leave();
        look(name);
    }
}

TEST_F(PagesTest, CallsThatCannotBeReadAreTold)
{
    phone().setAnswer("TAPI_CALL_GetAllCallSessions", {.result = refused, .out = {}});
    open(QStringLiteral("calls"));
    ASSERT_TRUE(settle());
    ASSERT_EQ(failures().size(), 1);
    EXPECT_TRUE(failures().constFirst().startsWith(QStringLiteral("The calls cannot be read.")));
    phone().clearAnswer("TAPI_CALL_GetAllCallSessions");
    EXPECT_TRUE(waitFor([&] { return failures().isEmpty(); })) << "they are read again by themselves";
}

TEST_F(PagesTest, ASwitchGoesBackWhenTheDiskIsFull)
{
    open(QStringLiteral("preferences"));
    ASSERT_TRUE(settle());
    QQuickItem *const row = find(QStringLiteral("roaming"));
    ASSERT_NE(row, nullptr);
    const bool before = row->property("checked").toBool();
    phone().setDiskFull(true);
    ASSERT_TRUE(QMetaObject::invokeMethod(row, "click"));
    EXPECT_NE(row->property("checked").toBool(), before);
    ASSERT_TRUE(settle());
    EXPECT_EQ(row->property("checked").toBool(), before);
    ASSERT_EQ(failures().size(), 1);
    EXPECT_TRUE(failures().constFirst().startsWith(QStringLiteral("The disk is full")));

    phone().setDiskFull(false);
    ASSERT_TRUE(QMetaObject::invokeMethod(row, "retry"));
    ASSERT_TRUE(settle());
    EXPECT_NE(row->property("checked").toBool(), before);
    EXPECT_TRUE(failures().isEmpty());
}

TEST_F(PagesTest, AmountsOfAMeterThatDoesNotAnswerAreNotZero)
{
    open(QString());
    ASSERT_TRUE(settle());
    // The second time with what was read before.
    for (int time = 0; time < 2; ++time) {
        phone().setAnswer("TAPI_CS_*", {.result = refused, .out = {}});
        enter(QStringLiteral("costs"));
        ASSERT_TRUE(settle());
        const QQuickItem *const spent = find(QStringLiteral("spent"));
        EXPECT_EQ(spent->property("value").toString(), QStringLiteral("Not known"));
        phone().clearAnswer("TAPI_CS_*");
        ASSERT_TRUE(QMetaObject::invokeMethod(page(), "readAgain", Q_ARG(bool, true)));
        EXPECT_TRUE(
            waitFor([&] { return spent->property("value").toString() == QLatin1String("3.20 EUR"); }));
        ASSERT_TRUE(settle());
        leave();
    }
}

TEST_F(PagesTest, ANetworkIsChosenByHandOnly)
{
    open(QStringLiteral("networks"), {.calm = true});
    ASSERT_TRUE(settle());
    ASSERT_TRUE(QMetaObject::invokeMethod(find(QStringLiteral("search")), "click"));
    ASSERT_TRUE(settle());
    const auto networks = [&](bool pressable, int status) {
        QList<QQuickItem *> found;
        visit(page(), [&](QQuickItem &item) {
            if (item.objectName().startsWith(QLatin1String("found:"))
                && item.property("pressable") == pressable && item.property("status") == status)
                found << &item;
        });
        return found;
    };
    constexpr int available = 1;
    constexpr int registered = 2;
    constexpr int forbidden = 3;
    QQuickItem *const automatic = find(QStringLiteral("automatic"));
    ASSERT_TRUE(automatic->property("checked").toBool());
    ASSERT_EQ(networks(false, registered).size(), 1);
    ASSERT_FALSE(networks(false, available).isEmpty());
    ASSERT_FALSE(networks(false, forbidden).isEmpty());
    EXPECT_TRUE(networks(true, available).isEmpty());

    ASSERT_TRUE(QMetaObject::invokeMethod(automatic, "click"));
    ASSERT_TRUE(settle());
    ASSERT_TRUE(waitFor([&] { return !networks(true, available).isEmpty(); }));
    ASSERT_FALSE(automatic->property("checked").toBool());
    EXPECT_TRUE(networks(true, registered).isEmpty());
    EXPECT_TRUE(networks(true, forbidden).isEmpty());

    // The home network is left after a question.
    QQuickItem *const other = networks(true, available).constFirst();
    const QString name = other->objectName();
    ASSERT_TRUE(QMetaObject::invokeMethod(other, "click"));
    ASSERT_TRUE(waitFor([&] { return find(QStringLiteral("confirm")) != nullptr; }));
    EXPECT_NE(networks(true, available).size(), 0) << "nothing is asked of the network yet";
    ASSERT_TRUE(QMetaObject::invokeMethod(find(QStringLiteral("confirm")), "click"));
    EXPECT_TRUE(waitFor([&] {
        const QQuickItem *const row = find(name);
        return row != nullptr && row->property("status").toInt() == registered;
    }));
    ASSERT_TRUE(settle());
    EXPECT_FALSE(automatic->property("checked").toBool());
}

TEST_F(PagesTest, ForwardingOfAllCallsOverrulesTheOthers)
{
    open(QStringLiteral("forwarding"), {.calm = true});
    ASSERT_TRUE(settle());
    const QQuickItem *const busy = find(QStringLiteral("when-busy"));
    EXPECT_EQ(busy->property("description").toString(), QString());
    auto *const rule = find(QStringLiteral("always"))->property("rule").value<QObject *>();
    ASSERT_TRUE(QMetaObject::invokeMethod(rule, "activate", Q_ARG(QString, QStringLiteral("+4930123")),
                                          Q_ARG(int, 0)));
    EXPECT_TRUE(waitFor([&] {
        return busy->property("description").toString()
            == QStringLiteral("Has no effect while “Always” is on");
    }));
}

TEST_F(PagesTest, ThePinIsEnteredWhereTheSimAsksForIt)
{
    for (const bool asks : {true, false}) {
        phone().setAnswer("TAPI_SECURITY_GetPin1Status",
                          {.result = 0, .out = {std::string(1, asks ? '\1' : '\0')}});
        open(QStringLiteral("security"));
        ASSERT_TRUE(settle());
        EXPECT_EQ(find(QStringLiteral("enter-pin")) != nullptr, asks);
        EXPECT_EQ(find(QStringLiteral("lock"))->property("pressable").toBool(), !asks);
    }
}

TEST_F(PagesTest, AmountsAreShownAndTypedAsInTheLanguage)
{
    open(QStringLiteral("costs"), {.language = QStringLiteral("de"), .calm = true});
    ASSERT_TRUE(settle());
    const auto value = [this](const char *row) {
        return find(QLatin1String(row))->property("value").toString();
    };
    EXPECT_EQ(value("spent"), QStringLiteral("3,20 €"));
    EXPECT_EQ(value("price"), QStringLiteral("0,12 €"));
    EXPECT_EQ(value("limit"), QStringLiteral("50,00 €"));
    ASSERT_TRUE(click(QStringLiteral("limit")));
    ASSERT_TRUE(waitFor([&] { return window().activeFocusItem()->inherits("QQuickTextInput"); }));
    QQuickItem *const field = window().activeFocusItem();
    EXPECT_EQ(field->property("text").toString(), QStringLiteral("50,00"));
    press(Qt::Key_A, Qt::ControlModifier);
    type(QStringLiteral("12."));
    ASSERT_TRUE(click(QStringLiteral("key:,")));
    ASSERT_TRUE(click(QStringLiteral("key:5")));
    EXPECT_EQ(field->property("text").toString(), QStringLiteral("12,5"));
    press(Qt::Key_Return);
    ASSERT_TRUE(settle());
    EXPECT_TRUE(waitFor([&] { return value("limit") == QStringLiteral("12,5 €"); }));
}

TEST_F(PagesTest, FoundNetworksHaveNamesAreAddedAndRemovalIsUndone)
{
    phone().setPreferredNetworks({"26201", "00102"});
    open(QStringLiteral("networks"), {.calm = true});
    ASSERT_TRUE(click(QStringLiteral("search")));
    ASSERT_TRUE(settle());
    enter(QStringLiteral("preferred"));
    ASSERT_TRUE(settle());
    const auto order = [this] { return valuesOf("networkId").join(QLatin1Char(' ')); };
    EXPECT_EQ(find(QStringLiteral("network:00102"))->property("shownName").toString(),
              QStringLiteral("Second Network"));

    ASSERT_TRUE(click(QStringLiteral("add")));
    ASSERT_TRUE(waitForItem(QStringLiteral("candidate:00101")));
    EXPECT_EQ(find(QStringLiteral("candidate:00102")), nullptr) << "it is there";
    EXPECT_EQ(find(QStringLiteral("candidate:00103")), nullptr) << "it is not allowed";
    ASSERT_TRUE(click(QStringLiteral("candidate:00101")));
    ASSERT_TRUE(settle());
    EXPECT_EQ(order(), QStringLiteral("26201 00102 00101"));

    ASSERT_TRUE(click(QStringLiteral("remove:00102")));
    ASSERT_TRUE(settle());
    EXPECT_EQ(order(), QStringLiteral("26201 00101"));
    ASSERT_TRUE(click(QStringLiteral("undo")));
    ASSERT_TRUE(settle());
    EXPECT_EQ(order(), QStringLiteral("26201 00102 00101"));
    EXPECT_TRUE(waitForNo(QStringLiteral("undo")));

    // What could not be removed need not be undone.
    phone().setAnswer("TAPI_NETWORK_*", {.result = refused, .out = {}});
    ASSERT_TRUE(click(QStringLiteral("remove:00102")));
    ASSERT_TRUE(settle());
    EXPECT_EQ(failures().size(), 1);
    EXPECT_EQ(find(QStringLiteral("undo")), nullptr);
    phone().clearAnswer("TAPI_NETWORK_*");
}

TEST_F(PagesTest, WhatItsMakerSaysThatThePhoneLacksIsNotShown)
{
    const QTemporaryDir folder;
    QFile file(folder.filePath(QStringLiteral("kvq-settings.conf")));
    ASSERT_TRUE(file.open(QIODevice::WriteOnly));
    file.write("[product]\nflip = no\nany-key = yes\nfax = no\nvideo = no\n");
    file.close();
    const QByteArray before = qgetenv("XDG_CONFIG_HOME");
    for (const bool lacks : {false, true}) {
        SCOPED_TRACE(lacks);
        qputenv("XDG_CONFIG_HOME", lacks ? folder.path().toUtf8() : QByteArray("/nowhere"));
        open(QStringLiteral("preferences"));
        ASSERT_TRUE(settle());
        EXPECT_EQ(find(QStringLiteral("flip")) == nullptr, lacks);
        EXPECT_NE(find(QStringLiteral("any-key")), nullptr);
        EXPECT_EQ(offeredPages().contains(QStringLiteral("video")), !lacks);
        enter(QStringLiteral("forwarding"));
        ASSERT_TRUE(settle());
        EXPECT_EQ(valuesOf("words").contains(QStringLiteral("Fax")), !lacks);
    }
    qputenv("XDG_CONFIG_HOME", before);
}

TEST_F(PagesTest, TheListTellsWhatMattersAtAGlanceWithoutAsking)
{
    open(QString(), {.calm = true});
    ASSERT_TRUE(settle());
    const auto glance = [this](const char *name) {
        const QQuickItem *const row = find(QStringLiteral("page:") + QLatin1String(name));
        return row ? row->property("description").toString() : QStringLiteral("no row");
    };
    for (const char *const name : {"forwarding", "security", "costs", "networks"})
        EXPECT_EQ(glance(name), QString()) << name << ": nothing was read yet";

    phone().setAnswer("TAPI_SECURITY_GetPin1Status", {.result = 0, .out = {std::string(1, '\1')}});
    for (const char *const name : {"forwarding", "security", "costs", "caller-id"})
        look(QLatin1String(name));
    EXPECT_EQ(glance("forwarding"), QStringLiteral("Off"));
    EXPECT_EQ(glance("security"), QStringLiteral("PIN asked for"));
    EXPECT_EQ(glance("costs"), QStringLiteral("3.20 of 50.00 spent"));
    EXPECT_EQ(glance("caller-id"), QStringLiteral("Call waiting on"));

    // What is changed on a page is told at once.
    enter(QStringLiteral("forwarding"));
    ASSERT_TRUE(settle());
    auto *const rule = find(QStringLiteral("when-busy"))->property("rule").value<QObject *>();
    ASSERT_TRUE(QMetaObject::invokeMethod(rule, "activate", Q_ARG(QString, QStringLiteral("+4930123")),
                                          Q_ARG(int, 0)));
    ASSERT_TRUE(settle());
    leave();
    EXPECT_EQ(glance("forwarding"), QStringLiteral("When busy"));

    close();
    phone().setAnswer("TAPI_SECURITY_*", {.result = simUnavailable, .out = {}, .times = -1});
    open(QString(), {.calm = true});
    ASSERT_TRUE(settle());
    EXPECT_EQ(glance("security"), QStringLiteral("No SIM"));
    phone().clearAnswer("TAPI_SECURITY_*");
}

TEST_F(PagesTest, PagesAndSettingsAreFoundByTheirWords)
{
    for (const char *const language : {"en", "de"}) {
        open(QString(), {.language = QLatin1String(language), .calm = true});
        ASSERT_TRUE(settle());
        ASSERT_TRUE(QMetaObject::invokeMethod(find(QStringLiteral("search-pages")), "type",
                                              Q_ARG(QString, QStringLiteral("zzz"))));
        EXPECT_TRUE(waitForItem(QStringLiteral("no-hit")));
        EXPECT_EQ(find(QStringLiteral("page:calls")), nullptr);
        ASSERT_TRUE(click(QStringLiteral("clear-search")));
        EXPECT_TRUE(waitForItem(QStringLiteral("page:calls")));

        // Every setting that can be found is where the search says, and every setting can be found.
        const QVariantList pages =
            window().property("pages").value<QObject *>()->property("offered").toList();
        for (const QVariant &entry : pages) {
            const auto *const entered = entry.value<QObject *>();
            const QString name = entered->property("name").toString();
            const QStringList settings = entered->property("settings").toStringList();
            if (settings.isEmpty())
                continue;
            QMetaObject::invokeMethod(find(QStringLiteral("search-pages")), "type",
                                      Q_ARG(QString, settings.constLast()));
            ASSERT_TRUE(click(QStringLiteral("hit:") + name + QLatin1Char(':') + settings.constLast()))
                << settings.constLast().toStdString();
            ASSERT_TRUE(waitFor([&] { return page() != nullptr; }));
            EXPECT_TRUE(waitFor([&] {
                const QQuickItem *row = window().activeFocusItem();
                while (row && row->property("label").toString() != settings.constLast())
                    row = row->parentItem();
                return row != nullptr;
            })) << settings.constLast().toStdString();
            ASSERT_TRUE(settle());
            const QStringList labels = valuesOf("label");
            for (const QString &setting : settings)
                EXPECT_TRUE(labels.contains(setting)) << setting.toStdString();
            visit(page(), [&](QQuickItem &item) {
                if (item.property("setting").isValid()) {
                    EXPECT_TRUE(settings.contains(item.property("label").toString()))
                        << item.property("label").toString().toStdString();
                }
            });
            leave();
            ASSERT_TRUE(click(QStringLiteral("clear-search")));
        }
    }
}

TEST_F(PagesTest, ALimitIsRemoved)
{
    open(QStringLiteral("costs"), {.calm = true});
    ASSERT_TRUE(settle());
    ASSERT_TRUE(QMetaObject::invokeMethod(find(QStringLiteral("limit")), "click"));
    ASSERT_TRUE(waitFor([&] { return find(QStringLiteral("remove-limit")) != nullptr; }));
    ASSERT_TRUE(QMetaObject::invokeMethod(find(QStringLiteral("remove-limit")), "click"));
    EXPECT_TRUE(waitFor([&] { return find(QStringLiteral("remove-limit")) == nullptr; }));
    ASSERT_TRUE(settle());
    EXPECT_EQ(find(QStringLiteral("limit"))->property("value").toString(), QStringLiteral("No limit"));
}

TEST_F(PagesTest, ListAndPageStandSideBySideWhereThereIsRoom)
{
    open(QStringLiteral("about"), {.size = QSize(719, 600)});
    ASSERT_TRUE(settle());
    EXPECT_EQ(find(QStringLiteral("page:calls")), nullptr);
    window().setWidth(720);
    ASSERT_TRUE(settle());
    EXPECT_NE(find(QStringLiteral("page:calls")), nullptr);
    EXPECT_EQ(window().property("shownPage").toString(), QStringLiteral("about"));
}

} // namespace
