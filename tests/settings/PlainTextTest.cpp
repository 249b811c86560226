// What comes from outside is shown as it was written, fetches nothing and cannot reorder itself.
#include "Plain.h"
#include "SettingsTest.h"

#include <QAccessible>
#include <QQmlComponent>
#include <QQmlEngine>
#include <QTcpServer>
#include <QTcpSocket>

#include "TAPI_ACCE.h"
#include "TAPI_CS.h"
#include "TAPI_NETWORK.h"
#include "TAPI_OWNNUMBER.h"
#include "TAPI_SECURITY.h"

#include <cstring>

namespace {

TEST(Plain, ShowsTextsHarmlessly)
{
    const struct {
        const char16_t *text;
        const char16_t *shown;
        Qt::LayoutDirection direction = Qt::LeftToRight;
    } texts[] = {
        {u"", u""},
        {u"Müller & Söhne <b>GmbH</b>", u"Müller & Söhne <b>GmbH</b>"},
        {u"+49 (171) 555-0100", u"+49 (171) 555-0100"},
        {u"a\nb\tc\rd", u"a b c d"},
        {u"a\u2028b\u2029c", u"a b c"},
        {u"bell\a, escape\x1b, delete\x7f, C1\x9b", u"bell\ufffd, escape\ufffd, delete\ufffd, C1\ufffd"},
        {u"\u202e0100555\u202c", u"\ufffd0100555\ufffd"},
        {u"\u2067a\u2069\u200e\u200f\u061c", u"\ufffda\ufffd\ufffd\ufffd\ufffd"},
        {u"soft\u00adhyphen, zero\u200bwidth\ufeff", u"soft\ufffdhyphen, zero\ufffdwidth\ufffd"},
        {u"private \ue000, tag \U000e0041", u"private \ufffd, tag \ufffd"},
        {u"\u0645\u06cc\u200c\u062e\u0648\u0627\u0647\u0645",
         u"\u0645\u06cc\u200c\u062e\u0648\u0627\u0647\u0645"},
        {u"\U0001f4de", u"\U0001f4de"},
        // Beside letters that run from right to left, or in such an application.
        {u"\u05d0 +49 171 555", u"\u05d0 \u2066+49 171 555\u2069"},
        {u"+49 171 555", u"\u2066+49 171 555\u2069", Qt::RightToLeft},
        {u"*#06#", u"\u2066*#06#\u2069", Qt::RightToLeft},
        {u"**21*+49171#", u"\u2066**21*+49171#\u2069", Qt::RightToLeft},
        {u"7", u"7", Qt::RightToLeft},
        {u"Puts +49 before", u"Puts \u2066+49\u2069 before", Qt::RightToLeft},
    };
    for (const auto &text : texts) {
        EXPECT_EQ(Plain::shown(QString::fromUtf16(text.text), text.direction).toStdString(),
                  QString::fromUtf16(text.shown).toStdString());
    }
    const QString half(QChar(0xd83d));
    EXPECT_EQ(Plain::shown(half, Qt::LeftToRight), QString(QChar(QChar::ReplacementCharacter)));
}

template <typename Record>
std::string bytesOf(const Record &record)
{
    return {reinterpret_cast<const char *>(&record), sizeof record};
}

std::size_t bytesOfWords(const QString &words)
{
    return sizeof(QChar) * static_cast<std::size_t>(words.size());
}

/** A place where somebody else's words come to the screen. */
struct Source {
    const char *name;
    const char *page;
    /** Brings the words to their place. */
    void (*arrange)(SimulatedPhoneControl &phone, const QString &words);
    /** How many characters there is room for. */
    int room;
};

class PlainTextTest : public SettingsTest, public testing::WithParamInterface<Source> {
protected:
    /** Whether something on the screen shows a text, and a screen reader is told it. */
    std::pair<int, int> found(const QString &text) const
    {
        int shown = 0;
        int told = 0;
        visit(window().contentItem(), [&](QQuickItem &item) {
            if (item.inherits("QQuickText") && item.property("text").toString().contains(text)) {
                EXPECT_EQ(item.property("textFormat").toInt(), Qt::PlainText);
                ++shown;
            }
            if (QAccessibleInterface *const reader = QAccessible::queryAccessibleInterface(&item)) {
                if ((reader->text(QAccessible::Name) + reader->text(QAccessible::Description)).contains(text))
                    ++told;
            }
        });
        return {shown, told};
    }
};

/** A server of pictures that only notes what it is asked for. */
class Listener {
public:
    Listener()
    {
        EXPECT_TRUE(m_server.listen(QHostAddress::LocalHost));
        QObject::connect(&m_server, &QTcpServer::newConnection, &m_server, [this] {
            while (QTcpSocket *const socket = m_server.nextPendingConnection()) {
                QObject::connect(socket, &QTcpSocket::readyRead, socket,
                                 [this, socket] { m_heard += socket->readAll(); });
            }
        });
    }
    QString markup(const char *path) const
    {
        return QStringLiteral("<img src='http://127.1:%1/%2'>")
            .arg(m_server.serverPort())
            .arg(QLatin1String(path));
    }
    /** The requests, one after the other. */
    const QByteArray &heard() const { return m_heard; }

private:
    QTcpServer m_server;
    QByteArray m_heard;
};

TEST_P(PlainTextTest, IsShownAsItWasWritten)
{
    const Listener listener;
    const QString picture = listener.markup("");
    const QString words = picture.size() <= GetParam().room ? picture : QStringLiteral("<h1>A</h1><b>B</b>");

    GetParam().arrange(phone(), words);
    open(QString::fromLatin1(GetParam().page), {.size = QSize(800, 1600), .calm = true});
    ASSERT_TRUE(settle());
    ASSERT_TRUE(waitFor([&] { return found(words).first > 0; })) << words.toStdString();
    EXPECT_GT(found(words).second, 0);

    // What takes markup asks for its picture, so by then all others would have asked for theirs.
    QQmlComponent component(qmlEngine(&window()));
    component.setData("import QtQuick; Text { textFormat: Text.StyledText }", QUrl());
    const std::unique_ptr<QObject> taker(component.create());
    ASSERT_NE(taker, nullptr);
    qobject_cast<QQuickItem *>(taker.get())->setParentItem(window().contentItem());
    taker->setProperty("text", listener.markup("last"));
    ASSERT_TRUE(waitFor([&] { return listener.heard().contains("GET /last "); }));
    EXPECT_EQ(listener.heard().count("GET "), 1) << listener.heard().toStdString();
}

const Source sources[] = {
    {"Caller", "calls",
     [](SimulatedPhoneControl &phone, const QString &words) { phone.ring(words.toStdString()); }, 43},
    {"CallerOnAnotherPage", "about",
     [](SimulatedPhoneControl &phone, const QString &words) { phone.ring(words.toStdString()); }, 43},
    {"Provider", "networks",
     [](SimulatedPhoneControl &phone, const QString &words) {
         _TAPI_NETWORK_SERVICE_PROVIDER_S provider = {};
         std::copy(words.utf16(), words.utf16() + words.size(), provider.name);
         phone.setAnswer("TAPI_NETWORK_GetServiceProviderName", {.result = 0, .out = {bytesOf(provider)}});
     },
     TAPI_NETWORK_NAME_UNITS - 1},
    {"Operator", "preferred",
     [](SimulatedPhoneControl &phone, const QString &words) {
         _TAPI_NETWORK_PREFERRED_S list = {};
         list.count = 1;
         std::strcpy(list.entries[0].networkId, "26299");
         std::copy(words.utf16(), words.utf16() + words.size(), list.entries[0].name);
         phone.setAnswer("TAPI_NETWORK_GetPreferredOperator", {.result = 0, .out = {bytesOf(list)}});
     },
     TAPI_NETWORK_NAME_UNITS - 1},
    {"ForwardedTo", "forwarding",
     [](SimulatedPhoneControl &phone, const QString &words) {
         _TAPI_CS_DIVERT_STATUS_S status = {};
         status.status = 1;
         words.toLatin1().toStdString().copy(status.number, sizeof status.number - 1);
         phone.setAnswer("TAPI_CS_GetDivertStatus", {.result = 0, .out = {bytesOf(status)}});
     },
     69},
    {"Currency", "costs",
     [](SimulatedPhoneControl &phone, const QString &words) {
         _TAPI_CS_PRICE_UNIT_S price = {};
         words.toLatin1().toStdString().copy(price.currency, sizeof price.currency - 1);
         std::strcpy(price.price, "0.12");
         phone.setAnswer("TAPI_CS_GetPriceUnit", {.result = 0, .out = {bytesOf(price)}});
     },
     40},
    {"ModemVersion", "about",
     [](SimulatedPhoneControl &phone, const QString &words) {
         _TAPI_ACCE_BP_VERSION_INFO_S versions = {};
         words.toLatin1().toStdString().copy(versions.bpVer, sizeof versions.bpVer - 1);
         phone.setAnswer("TAPI_ACCE_GetBpVersionInfo", {.result = 0, .out = {bytesOf(versions)}});
     },
     47},
    {"OwnName", "own-numbers",
     [](SimulatedPhoneControl &phone, const QString &words) {
         _TAPI_OWNNUMBER_CAPACITY_S capacity = {};
         capacity.total = 1;
         _TAPI_OWNNUMBER_ENTRY_S entry = {};
         entry.index = 1;
         std::memcpy(entry.name, words.utf16(), bytesOfWords(words)); // low byte first, as here
         phone.setAnswer("TAPI_OWNNUMBER_GetCapacity", {.result = 0, .out = {bytesOf(capacity)}});
         phone.setAnswer("TAPI_OWNNUMBER_GetEntry", {.result = 0, .out = {bytesOf(entry)}});
     },
     50},
    {"Account", "own-numbers",
     [](SimulatedPhoneControl &phone, const QString &words) {
         _TAPI_SECURITY_ADF_INFO_S account = {};
         account.adfIndex = 1;
         account.labelLength = static_cast<unsigned char>(bytesOfWords(words));
         std::memcpy(account.label, words.utf16(), bytesOfWords(words)); // low byte first, as here
         phone.setAnswer("TAPI_SECURITY_GetNumOfUsim", {.result = 0, .out = {std::string(1, '\1')}});
         phone.setAnswer("TAPI_SECURITY_GetUsimList",
                         {.result = 0, .out = {std::string(1, '\1'), bytesOf(account)}});
     },
     32},
};

INSTANTIATE_TEST_SUITE_P(Sources, PlainTextTest, testing::ValuesIn(sources),
                         [](const auto &source) { return std::string(source.param.name); });

} // namespace
