// Runs the Qt Quick tests of the module on the phone on the desk.
#include "Desk.h"

#include "LogModule.h"

#include <QQmlContext>
#include <QQmlEngine>
#include <QtQuickTest>

namespace {

/** What tests wait for takes longer only when it hangs, in milliseconds. */
constexpr int patience = 60'000;

} // namespace

class Setup : public QObject {
    Q_OBJECT

public Q_SLOTS:
    void applicationAvailable()
    {
        libaplog_to_module_ptr = std::fopen("/dev/null", "w");
        m_desk.reset();
    }

    void qmlEngineAvailable(QQmlEngine *engine)
    {
        engine->addImportPath(QStringLiteral(KVQ_QML_DIR));
        engine->rootContext()->setContextProperty(QStringLiteral("desk"), &m_desk);
        engine->rootContext()->setContextProperty(QStringLiteral("hang"), patience);
    }

private:
    Desk m_desk;
};

QUICK_TEST_MAIN_WITH_SETUP(callsetup, Setup)

#include "main.moc"
