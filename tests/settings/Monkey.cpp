// A monkey at the settings application: it taps, types and turns at random, while the phone refuses, delays, loses its card
// and rings at random. It fails on a warning of a page, on a page that stays busy when all is quiet again, and on a
// call that was dialled, answered or ended without a tap or a key on a control that had said so for 300 ms.
//
// settings_monkey [--steps N | --seconds S] [--seed N]
#include "Application.h"
#include "SimulatedPhoneControl.h"

#include <QAccessible>
#include <QCommandLineParser>
#include <QElapsedTimer>
#include <QGuiApplication>
#include <QMutex>
#include <QPointingDevice>
#include <QQuickItem>
#include <QQuickWindow>
#include <QRegularExpression>
#include <QTemporaryDir>
#include <QTest>

#include <algorithm>
#include <array>
#include <cstdio>
#include <iterator>
#include <map>
#include <mutex>
#include <random>
#include <string>
#include <vector>

namespace {

using namespace std::chrono_literals;

/** What nobody may do by mistake: the platform's requests, and the words of the controls that ask for them. */
struct Act {
    const char *name;
    std::vector<std::string_view> requests;
    QRegularExpression words;
    bool several = false; ///< one tap may ask for it several times
};

const std::array<Act, 3> &acts()
{
    static const std::array<Act, 3> all = {{
        {"dialled",
         {"TAPI_VOICE_MakeCall", "TAPI_VOICE_MakeStkCall"},
         QRegularExpression(QStringLiteral("^(Call|Number|Call .*|[0-9])$"))},
        {"answered", {"TAPI_VOICE_AnswerCall"}, QRegularExpression(QStringLiteral("\\b[Aa]nswer\\b"))},
        {"ended",
         {"TAPI_VOICE_DropCall", "TAPI_VOICE_RejectCall", "TAPI_VOICE_CancelCall"},
         QRegularExpression(QStringLiteral("^(Hang up|Reject|End|End all|End .*)$")),
         true},
    }};
    return all;
}

/** What the finger is on says what it does, in its text or in that of the control that it belongs to. */
QString wordsOf(QQuickItem *item)
{
    for (; item; item = item->parentItem()) {
        const QString text = item->property("text").toString();
        if (!text.isEmpty())
            return text;
        QAccessibleInterface *const accessible = QAccessible::queryAccessibleInterface(item);
        if (accessible && !accessible->text(QAccessible::Name).isEmpty())
            return accessible->text(QAccessible::Name);
    }
    return {};
}

QMutex mistakesMutex;
QStringList mistakes;

void hear(QtMsgType type, const QMessageLogContext &, const QString &message)
{
    std::fprintf(stderr, "%s\n", qPrintable(message));
    if (type == QtDebugMsg || type == QtInfoMsg || !message.startsWith(QLatin1String("qrc:")))
        return;
    const QMutexLocker locker(&mistakesMutex);
    mistakes << message;
}

class Monkey {
public:
    Monkey(Application &application, unsigned int seed)
        : m_window(*application.window())
        , m_random(seed)
    {
        m_clock.start();
        m_phone.setObserver([this](const std::string &call, const std::string &) {
            const std::scoped_lock lock(m_requestsMutex);
            m_requests.push_back(call.substr(0, call.find('(')));
        });
        QObject::connect(&m_window, &QQuickWindow::afterAnimating, &m_window, [this] { notePlaces(); });
    }
    ~Monkey() { m_phone.setObserver(nullptr); }

    Monkey(const Monkey &) = delete;
    Monkey &operator=(const Monkey &) = delete;

    void step()
    {
        static constexpr std::array<void (Monkey::*)(), 12> deeds = {
            &Monkey::tap,    &Monkey::tap,    &Monkey::tap,   &Monkey::tap,
            &Monkey::hold,   &Monkey::key,    &Monkey::type,  &Monkey::visit,
            &Monkey::resize, &Monkey::refuse, &Monkey::delay, &Monkey::callComesOrGoes,
        };
        switch (below(40)) {
        case 0:
            m_phone.setSimReady(below(2) == 0);
            break;
        case 1:
            m_phone.setDiskFull(below(2) == 0);
            break;
        default:
            (this->*deeds[below(deeds.size())])();
        }
        QTest::qWait(static_cast<int>(below(4) == 0 ? below(800) : below(60)));
        judge();
    }

    /** Everything is as it should be again; then nothing may stay busy. */
    bool becomesQuiet()
    {
        m_phone.clearAnswer("*");
        m_phone.setDelay("*", 0ms);
        m_phone.setSimReady(true);
        m_phone.setDiskFull(false);
        m_phone.setLink(true);
        const bool settled = QTest::qWaitFor(
            [this] {
                for (int call = 1; call < 255; ++call)
                    m_phone.remoteHangsUp(static_cast<unsigned char>(call));
                return m_window.property("settled").toBool();
            },
            60'000);
        judge();
        return settled;
    }

private:
    struct Place {
        QString words;
        QPointF origin;
        qint64 since = 0;
        bool seen = false;
    };

    std::size_t below(std::size_t limit) { return m_random() % limit; }

    static void collect(QQuickItem *item, std::vector<QQuickItem *> &controls)
    {
        if (!item->isVisible() || qFuzzyIsNull(item->opacity()))
            return;
        // The layer of the sheets covers the window, and passes on what is not for a sheet.
        if (item->isEnabled() && !item->inherits("QQuickOverlay")
            && (item->acceptedMouseButtons() != Qt::NoButton || item->acceptTouchEvents()))
            controls.push_back(item);
        QList<QQuickItem *> children = item->childItems();
        std::stable_sort(
            children.begin(), children.end(),
            [](const QQuickItem *one, const QQuickItem *other) { return one->z() < other->z(); });
        for (QQuickItem *const child : std::as_const(children))
            collect(child, controls);
    }
    std::vector<QQuickItem *> controls() const
    {
        std::vector<QQuickItem *> found;
        collect(m_window.contentItem(), found);
        return found;
    }

    void notePlaces()
    {
        for (auto &[item, place] : m_places)
            place.seen = false;
        for (QQuickItem *const item : controls()) {
            const QString words = wordsOf(item);
            const QPointF origin = item->mapToScene(QPointF());
            const auto [found, isNew] = m_places.try_emplace(item);
            Place &place = found->second;
            if (isNew || place.words != words || (place.origin - origin).manhattanLength() > 2)
                place = {words, origin, m_clock.elapsed()};
            place.seen = true;
        }
        std::erase_if(m_places, [](const auto &entry) { return !entry.second.seen; });
    }

    /** A tap or key on a control allows what the control says, when it has said so long enough. */
    void allow(const QQuickItem *item)
    {
        const auto found = m_places.find(item);
        if (found == m_places.end())
            return;
        const qint64 age = m_clock.elapsed() - found->second.since;
        note(QStringLiteral("on \"%1\", there for %2 ms").arg(found->second.words).arg(age));
        if (age < 300)
            return;
        for (std::size_t act = 0; act < acts().size(); ++act) {
            if (acts()[act].words.match(found->second.words).hasMatch())
                ++m_allowed[act];
        }
    }
    void allowAt(QPointF point)
    {
        const std::vector<QQuickItem *> all = controls();
        for (auto item = all.rbegin(); item != all.rend(); ++item) {
            if ((*item)->mapRectToScene((*item)->boundingRect()).contains(point))
                return allow(*item);
        }
    }

    QPoint somewhere()
    {
        const std::vector<QQuickItem *> all = controls();
        if (all.empty() || below(10) == 0)
            return {static_cast<int>(below(static_cast<std::size_t>(m_window.width()))),
                    static_cast<int>(below(static_cast<std::size_t>(m_window.height())))};
        QQuickItem *const item = all[below(all.size())];
        m_lastWords = wordsOf(item);
        return item->mapToScene(item->boundingRect().center()).toPoint();
    }

    void touch(int milliseconds)
    {
        const QPoint place = somewhere();
        allowAt(place);
        note(QStringLiteral("tap on \"%1\"").arg(m_lastWords));
        if (below(2) == 0) {
            QTest::mousePress(&m_window, Qt::LeftButton, {}, place);
            QTest::qWait(milliseconds);
            QTest::mouseRelease(&m_window, Qt::LeftButton, {}, place);
        } else {
            QTest::touchEvent(&m_window, m_finger.get()).press(0, place);
            QTest::qWait(milliseconds);
            QTest::touchEvent(&m_window, m_finger.get()).release(0, place);
        }
    }
    void tap() { touch(static_cast<int>(below(80))); }
    void hold() { touch(900); }

    void key()
    {
        static constexpr std::array<Qt::Key, 12> keys = {
            Qt::Key_Tab,  Qt::Key_Backtab, Qt::Key_Return, Qt::Key_Space, Qt::Key_Escape, Qt::Key_Back,
            Qt::Key_Down, Qt::Key_Up,      Qt::Key_Left,   Qt::Key_Right, Qt::Key_F6,     Qt::Key_Backspace};
        const Qt::Key key = keys[below(keys.size())];
        for (QQuickItem *item = m_window.activeFocusItem(); item; item = item->parentItem())
            allow(item);
        note(QStringLiteral("key %1").arg(key));
        QTest::keyClick(&m_window, key);
    }
    void type()
    {
        static constexpr std::string_view signs = "0123456789+*#,ax";
        for (std::size_t count = 1 + below(5); count > 0; --count)
            QTest::keyClick(&m_window, signs[below(signs.size())]);
    }
    void visit()
    {
        const QVariantList pages =
            m_window.property("pages").value<QObject *>()->property("offered").toList();
        if (pages.isEmpty())
            return;
        const QString name = pages[static_cast<qsizetype>(below(static_cast<std::size_t>(pages.size())))]
                                 .value<QObject *>()
                                 ->property("name")
                                 .toString();
        note(QStringLiteral("page %1").arg(name));
        QMetaObject::invokeMethod(&m_window, "open", Q_ARG(QString, name));
    }
    void resize()
    {
        static constexpr std::array<QSize, 6> sizes = {
            {{320, 568}, {568, 320}, {320, 480}, {400, 800}, {800, 400}, {1000, 700}}};
        m_window.resize(sizes[below(sizes.size())]);
    }

    void refuse()
    {
        static constexpr std::array<long long, 5> results = {0x8000, 0x9000, 0x9001, 7, 1};
        const auto &functions = m_phone.functions();
        ScriptedAnswer answer;
        answer.result = results[below(results.size())];
        answer.times = static_cast<int>(1 + below(3));
        m_phone.setAnswer(std::string(functions[below(functions.size())]), answer);
    }
    void delay()
    {
        static constexpr std::array<const char *, 6> functions = {
            "TAPI_CS_*", "TAPI_VOICE_*", "TAPI_SECURITY_*", "TAPI_NETWORK_*", "TAPI_CALL_*", "*"};
        m_phone.setDelay(functions[below(functions.size())],
                         std::chrono::milliseconds(below(3) == 0 ? below(1500) : 0));
    }
    void callComesOrGoes()
    {
        switch (below(3)) {
        case 0:
            note(QStringLiteral("a call comes in"));
            m_phone.ring(below(4) == 0 ? "" : "+4917155501" + std::to_string(10 + below(90)));
            break;
        case 1:
            m_phone.remoteAnswers(static_cast<unsigned char>(1 + below(4)));
            break;
        default:
            m_phone.remoteHangsUp(static_cast<unsigned char>(1 + below(4)));
        }
    }

    void judge()
    {
        std::vector<std::string> requests;
        {
            const std::scoped_lock lock(m_requestsMutex);
            requests.swap(m_requests);
        }
        for (const std::string &request : requests) {
            for (std::size_t act = 0; act < acts().size(); ++act) {
                const auto &names = acts()[act].requests;
                if (std::find(names.begin(), names.end(), request) == names.end())
                    continue;
                if (m_allowed[act] > 0) {
                    m_allowed[act] -= acts()[act].several ? 0 : 1;
                    continue;
                }
                const QMutexLocker locker(&mistakesMutex);
                mistakes << QStringLiteral("a call was %1 and nobody had asked for it; before: %2")
                                .arg(QLatin1String(acts()[act].name), m_last.join(QStringLiteral(", ")));
            }
        }
        // What was tapped has been done by now, or was refused.
        if (m_window.property("settled").toBool())
            m_allowed.clear();
    }

    void note(const QString &deed)
    {
        m_last << deed;
        while (m_last.size() > 8)
            m_last.removeFirst();
    }

    QQuickWindow &m_window;
    SimulatedPhoneControl &m_phone = *findSimulatedPhone();
    const std::unique_ptr<QPointingDevice> m_finger{QTest::createTouchDevice()};
    std::mt19937 m_random;
    QElapsedTimer m_clock;
    std::map<const QQuickItem *, Place> m_places;
    std::map<std::size_t, int> m_allowed;
    QString m_lastWords;
    QStringList m_last;
    std::mutex m_requestsMutex;
    std::vector<std::string> m_requests;
};

} // namespace

int main(int argc, char **argv)
{
    qputenv("QT_QPA_PLATFORM", "offscreen");
    qputenv("QT_QUICK_BACKEND", "software");
    qInstallMessageHandler(hear);
    QGuiApplication gui(argc, argv);
    QAccessible::setActive(true);

    QCommandLineParser parser;
    const QCommandLineOption steps(QStringLiteral("steps"), {}, QStringLiteral("N"), QStringLiteral("1000"));
    const QCommandLineOption seconds(QStringLiteral("seconds"), {}, QStringLiteral("S"));
    const QCommandLineOption seed(QStringLiteral("seed"), {}, QStringLiteral("N"), QStringLiteral("1"));
    parser.addOptions({steps, seconds, seed});
    parser.process(gui);

    const QTemporaryDir folder;
    findSimulatedPhone()->setSettingsFile(folder.filePath(QStringLiteral("settings.cbor")).toStdString());
    Options options;
    options.desk = false;
    options.language = QStringLiteral("en");
    Application application(options);
    if (!application.isGood() || !QTest::qWaitForWindowActive(application.window(), 60'000))
        return 1;
    Monkey monkey(application, parser.value(seed).toUInt());
    QElapsedTimer clock;
    clock.start();
    const auto isOver = [&](int step) {
        return parser.isSet(seconds) ? clock.elapsed() > 1000 * parser.value(seconds).toLongLong()
                                     : step >= parser.value(steps).toInt();
    };
    int step = 0;
    bool quiet = true;
    for (; mistakes.isEmpty() && quiet && !isOver(step); ++step) {
        monkey.step();
        if (step % 200 == 199)
            quiet = monkey.becomesQuiet();
    }
    quiet = quiet && monkey.becomesQuiet();
    if (!quiet)
        mistakes << QStringLiteral("something stays busy while all is quiet");
    for (const QString &mistake : std::as_const(mistakes))
        std::fprintf(stderr, "FAULT at step %d with seed %s: %s\n", step, qPrintable(parser.value(seed)),
                     qPrintable(mistake));
    std::printf("%d steps with seed %s: %s\n", step, qPrintable(parser.value(seed)),
                mistakes.isEmpty() ? "no fault" : "a fault");
    return mistakes.isEmpty() ? 0 : 1;
}
