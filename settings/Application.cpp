// The settings application: what its command line says, and the window that follows from it.
#include "Application.h"

#include "Desk.h"

#include <QCommandLineParser>
#include <QDir>
#include <QGuiApplication>
#include <QLocale>
#include <QQuickItem>
#include <QQuickWindow>
#include <QScreen>
#include <QSettings>
#include <QStandardPaths>
#include <QTimer>

#include <algorithm>
#include <cstdio>
#include <cstdlib>

namespace {

/** How often the window is looked at, and how often in a row it must have settled. */
constexpr int lookInterval = 50;
constexpr int settledLooks = 4;
/** After so many looks a window counts as settled whatever it waits for. */
constexpr int patience = 400;

[[noreturn]] void refuse(const QString &message)
{
    std::fprintf(stderr, "error: %s\n", qPrintable(message));
    std::exit(2);
}

/** Whether the desktop asks for less movement. */
bool systemIsCalm()
{
    const QString folder = QStandardPaths::writableLocation(QStandardPaths::GenericConfigLocation);
    const QSettings gtk(folder + QStringLiteral("/gtk-4.0/settings.ini"), QSettings::IniFormat);
    const QSettings plasma(folder + QStringLiteral("/kdeglobals"), QSettings::IniFormat);
    return !gtk.value(QStringLiteral("Settings/gtk-enable-animations"), true).toBool()
        || qFuzzyIsNull(plasma.value(QStringLiteral("KDE/AnimationDurationFactor"), 1.0).toDouble());
}

QSize sizeOf(const QString &text)
{
    const QStringList sides = text.split(QLatin1Char('x'));
    const QSize size = sides.size() == 2 ? QSize(sides[0].toInt(), sides[1].toInt()) : QSize();
    if (size.width() < 320 || size.height() < 320 || size.width() > 8192 || size.height() > 8192)
        refuse(QStringLiteral("a size is WIDTHxHEIGHT, from 320x320 to 8192x8192, not \"%1\"").arg(text));
    return size;
}

} // namespace

Options Options::ofCommandLine()
{
    const QCommandLineOption page(QStringLiteral("page"), QStringLiteral("Page to begin with."),
                                  QStringLiteral("name"));
    const QCommandLineOption theme(QStringLiteral("theme"), QStringLiteral("\"light\" or \"dark\"."),
                                   QStringLiteral("theme"));
    const QCommandLineOption size(QStringLiteral("size"), QStringLiteral("Size of the window."),
                                  QStringLiteral("WxH"));
    const QCommandLineOption language(
        QStringLiteral("language"), QStringLiteral("Language, \"de\" for example."), QStringLiteral("code"));
    const QCommandLineOption calm(QStringLiteral("reduced-motion"),
                                  QStringLiteral("Nothing slides or fades."));
    const QCommandLineOption noDesk(QStringLiteral("no-desk"),
                                    QStringLiteral("No panel for the desk beside the simulated phone."));
    const QCommandLineOption phone(
        QStringLiteral("phone"),
        QStringLiteral("What happens to the simulated phone first; may be repeated: ") + Desk::commandHelp(),
        QStringLiteral("command"));
    const QCommandLineOption press(QStringLiteral("press"), QStringLiteral("Presses an item by its name."),
                                   QStringLiteral("name"));
    const QCommandLineOption screenshot(QStringLiteral("screenshot"),
                                        QStringLiteral("Draws the window into a file and leaves."),
                                        QStringLiteral("file"));
    const QCommandLineOption of(QStringLiteral("screenshot-of"), QStringLiteral("\"phone\" or \"desk\"."),
                                QStringLiteral("window"), QStringLiteral("phone"));
    const QCommandLineOption after(QStringLiteral("screenshot-after"),
                                   QStringLiteral("Draws so many milliseconds after the start."),
                                   QStringLiteral("ms"), QStringLiteral("-1"));

    QCommandLineParser parser;
    parser.setApplicationDescription(
        QStringLiteral("Calls, call settings, SIM security and network selection."));
    parser.addHelpOption();
    parser.addVersionOption();
    parser.addOptions({page, theme, size, language, calm, noDesk, phone, press, screenshot, of, after});
    parser.addPositionalArgument(QStringLiteral("address"),
                                 QStringLiteral("Number to dial, tel:+493012345 for example."),
                                 QStringLiteral("[address]"));
    parser.process(*QCoreApplication::instance());

    Options options;
    options.page = parser.value(page);
    options.theme = parser.value(theme);
    if (parser.isSet(theme) && options.theme != QLatin1String("light")
        && options.theme != QLatin1String("dark"))
        refuse(QStringLiteral("a theme is \"light\" or \"dark\", not \"%1\"").arg(options.theme));
    options.language = parser.value(language);
    if (parser.isSet(size))
        options.size = sizeOf(parser.value(size));
    options.calm = parser.isSet(calm);
    options.desk = !parser.isSet(noDesk);
    options.phoneCommands = parser.values(phone);
    options.presses = parser.values(press);
    options.screenshot = parser.value(screenshot);
    options.screenshotOf = parser.value(of);
    bool isNumber = false;
    options.screenshotAfter = parser.value(after).toInt(&isNumber);
    if (!isNumber)
        refuse(QStringLiteral("milliseconds are a number, not \"%1\"").arg(parser.value(after)));
    const QStringList addresses = parser.positionalArguments();
    if (addresses.size() > 1)
        refuse(QStringLiteral("unexpected argument \"%1\"").arg(addresses[1]));
    if (!addresses.isEmpty())
        options.number = SingleInstance::numberOf(addresses[0]);
    if (!addresses.isEmpty() && options.number.isEmpty())
        refuse(QStringLiteral("an address is tel: and a number, not \"%1\"").arg(addresses[0]));
    return options;
}

Application::Application(const Options &options)
    : m_options(options)
{
    const QLocale locale = options.language.isEmpty() ? QLocale() : QLocale(options.language);
    QLocale::setDefault(locale);
    QGuiApplication::setLayoutDirection(locale.textDirection());
    if (m_translator.load(locale, QStringLiteral("kvq-settings"), QStringLiteral("_"),
                          QStringLiteral(":/i18n")))
        QCoreApplication::installTranslator(&m_translator);

    for (const QString &command : options.phoneCommands) {
        QString error;
        if (!Desk::run(command, &error))
            refuse(error);
    }

    QVariantMap properties{{QStringLiteral("firstPage"), options.page},
                           {QStringLiteral("theme"), options.theme},
                           {QStringLiteral("calm"), options.calm || systemIsCalm()}};
    if (options.size.isValid()) {
        properties[QStringLiteral("width")] = options.size.width();
        properties[QStringLiteral("height")] = options.size.height();
    }
    // An installed module is where Qt's own are; a module that was only built stands beside the program. What is part
    // of the program comes first.
    m_engine.addImportPath(QCoreApplication::applicationDirPath() + QStringLiteral("/../qml_modules"));
    m_engine.addImportPath(QStringLiteral("qrc:/qt/qml"));
    m_engine.setInitialProperties(properties);
    m_engine.load(QUrl(QStringLiteral("qrc:/qt/qml/Kvq/Settings/Main.qml")));
    if (!isGood())
        return;

    if (!options.page.isEmpty() && window()->property("page").toString() != options.page)
        refuse(QStringLiteral("there is no page \"%1\"").arg(options.page));
    if (!options.number.isEmpty())
        QMetaObject::invokeMethod(window(), "prepare", Q_ARG(QString, options.number));
    if (options.desk && Desk::isPresent())
        showDesk();
    if (!options.presses.isEmpty() || !options.screenshot.isEmpty()) {
        auto *const timer = new QTimer(this);
        connect(timer, &QTimer::timeout, this, &Application::proceed);
        timer->start(lookInterval);
    }
}

Application::~Application()
{
    QCoreApplication::removeTranslator(&m_translator);
}

bool Application::isGood() const
{
    return !m_engine.rootObjects().isEmpty();
}

QQuickWindow *Application::window() const
{
    return isGood() ? qobject_cast<QQuickWindow *>(m_engine.rootObjects().constFirst()) : nullptr;
}

bool Application::show(const SingleInstance::Wish &wish) const
{
    QQuickWindow *const phone = window();
    bool isThere = true;
    if (!wish.page.isEmpty())
        QMetaObject::invokeMethod(phone, "open", Q_RETURN_ARG(bool, isThere), Q_ARG(QString, wish.page));
    if (!wish.number.isEmpty())
        QMetaObject::invokeMethod(phone, "prepare", Q_ARG(QString, wish.number));
    phone->setWindowStates(phone->windowStates() & ~Qt::WindowMinimized);
    phone->show();
    phone->raise();
    phone->requestActivate();
    return isThere;
}

QQuickItem *Application::find(QQuickItem *below, const QString &name)
{
    if (below->objectName() == name && below->isVisible())
        return below;
    const QList<QQuickItem *> children = below->childItems();
    for (QQuickItem *const child : children) {
        if (QQuickItem *const found = find(child, name))
            return found;
    }
    return nullptr;
}

void Application::showDesk()
{
    QQmlComponent component(&m_engine, QUrl(QStringLiteral("qrc:/qt/qml/Kvq/Desk/DeskWindow.qml")));
    QVariantMap properties;
    if (m_options.screenshotOf == QLatin1String("desk") && m_options.size.isValid()) {
        properties[QStringLiteral("width")] = m_options.size.width();
        properties[QStringLiteral("height")] = m_options.size.height();
    }
    m_desk.reset(qobject_cast<QQuickWindow *>(component.createWithInitialProperties(properties)));
    if (!m_desk) {
        qWarning("%s", qPrintable(component.errorString()));
        return;
    }
    standSideBySide();
    connect(m_desk.get(), SIGNAL(productChanged()), window(), SLOT(lookAgain()));
    // The phone's window is the application: the panel goes with it.
    connect(window(), &QWindow::visibleChanged, m_desk.get(), [this](bool visible) {
        if (!visible)
            m_desk->close();
    });
}

/** Where there is room on the screen, so that the panel does not cover the phone. */
void Application::standSideBySide()
{
    constexpr int gap = 24;
    const QRect room = window()->screen()->availableGeometry();
    const int width = window()->width() + gap + m_desk->width();
    if (width > room.width())
        return;
    const int left = room.left() + (room.width() - width) / 2;
    const int top = room.top() + std::max(gap, (room.height() - window()->height()) / 2);
    window()->setPosition(left, top);
    m_desk->setPosition(left + window()->width() + gap, top);
    window()->requestActivate();
}

bool Application::isSettled() const
{
    return window()->property("settled").toBool();
}

void Application::proceed()
{
    ++m_looks;
    m_settledFor = isSettled() ? m_settledFor + 1 : 0;
    const bool waited = m_options.screenshotAfter >= 0 ? m_looks * lookInterval >= m_options.screenshotAfter
                                                       : m_settledFor >= settledLooks || m_looks > patience;
    if (!m_options.presses.isEmpty()) {
        if (m_settledFor < settledLooks && m_looks <= patience)
            return;
        const QString name = m_options.presses.takeFirst();
        QQuickItem *const item = find(window()->contentItem(), name);
        if (!item || !QMetaObject::invokeMethod(item, "click"))
            refuse(QStringLiteral("there is nothing to press that is called \"%1\"").arg(name));
        m_settledFor = 0;
        m_looks = 0;
        return;
    }
    if (m_options.screenshot.isEmpty() || !waited)
        return;
    QQuickWindow *const subject = m_options.screenshotOf == QLatin1String("desk") ? m_desk.get() : window();
    if (!subject)
        refuse(QStringLiteral("there is no panel for the desk"));
    if (!subject->grabWindow().save(m_options.screenshot))
        refuse(QStringLiteral("cannot write \"%1\"").arg(m_options.screenshot));
    m_options.screenshot.clear();
    QCoreApplication::quit();
}
