// The settings application: what its command line says, and the window that follows from it.
#pragma once

#include "SingleInstance.h"

#include <QObject>
#include <QQmlApplicationEngine>
#include <QQuickWindow>
#include <QSize>
#include <QString>
#include <QStringList>
#include <QTranslator>

#include <memory>

class QQuickItem;

/** What the command line says. */
struct Options {
    QString page = {};     ///< the page to begin with, empty for the list
    QString number = {};   ///< to be dialled, empty for none
    QString theme = {};    ///< "light", "dark", or empty for the system's
    QString language = {}; ///< empty for the system's
    QSize size = {};       ///< of the window, invalid for its own
    bool calm = false;
    bool desk = true;               ///< show the panel for the desk where there is a simulated phone
    QStringList phoneCommands = {}; ///< what happens to the simulated phone first
    QStringList presses = {};       ///< names of items to press once the page stands
    QString screenshot = {};        ///< file to draw the window into, then leave
    QString screenshotOf = {};      ///< "phone" or "desk"
    int screenshotAfter = -1; ///< milliseconds to wait before; negative waits until all requests are answered

    /** Whether the window may be one that is open already: not for who watches or scripts a window of its own. */
    bool sharesWindow() const { return phoneCommands.isEmpty() && presses.isEmpty() && screenshot.isEmpty(); }

    /** Reads the application's arguments. Ends the process with a message when they are wrong. */
    static Options ofCommandLine();
};

/** One run of the application. It needs a QGuiApplication. */
class Application : public QObject {
    Q_OBJECT

public:
    explicit Application(const Options &options);
    ~Application() override;

    /** False when the window could not be made; the reason went to standard error. */
    bool isGood() const;
    /** The phone's window, null when it could not be made. */
    QQuickWindow *window() const;
    /** Brings the window to the front, with what is wished. False when there is no such page. */
    bool show(const SingleInstance::Wish &wish) const;
    /** The panel for the desk, null where there is none. */
    QQuickWindow *desk() const { return m_desk.get(); }

    /** The first item below another one with a name. Null when there is none. */
    static QQuickItem *find(QQuickItem *below, const QString &name);

private:
    void showDesk();
    void standSideBySide();
    /** Presses and draws once the window has settled. */
    void proceed();
    bool isSettled() const;

    Options m_options;
    QTranslator m_translator;
    QQmlApplicationEngine m_engine;
    std::unique_ptr<QQuickWindow> m_desk;
    int m_looks = 0;
    int m_settledFor = 0;
};
