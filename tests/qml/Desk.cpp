// The phone belongs to the worker's thread while requests run, so tests reach its state by requests of their own.
#include "Desk.h"

#include "CallSetupWorker.h"

#include <QFile>
#include <QLocale>
#include <QQmlComponent>
#include <QQmlEngine>
#include <QTemporaryDir>

#include <algorithm>
#include <memory>
#include <thread>

namespace {

template <typename Use>
auto withPhone(Use use)
{
    auto future = Kvq::CallSetupWorker::instance().run(
        [use](Kvq::Engine &) { return use(SimulatedPhone::instance()); });
    future.waitForFinished();
    return future.result();
}

QString settingsFile()
{
    static const QTemporaryDir folder;
    return folder.filePath(QStringLiteral("settings.cbor"));
}

} // namespace

void Desk::reset()
{
    letGo();
    {
        const std::lock_guard lock(m_mutex);
        m_answers.clear();
        m_delay = 0;
    }
    withPhone([this](SimulatedPhone &phone) {
        phone.reset();
        phone.openLink();
        QFile::remove(settingsFile());
        phone.settings().setFile(settingsFile());
        phone.setJournalEnabled(true);
        phone.setAnswerer([this](std::string_view function) { return answerer(function); });
        return true;
    });
}

void Desk::answer(const QString &function, int result, int times, int error)
{
    const auto &known = SimulatedPhone::functionNames();
    Q_ASSERT(std::find(known.begin(), known.end(), function.toStdString()) != known.end());
    const std::lock_guard lock(m_mutex);
    m_answers[function.toStdString()] = {{result, {}, error, -1}, times};
}

void Desk::delay(int milliseconds)
{
    const std::lock_guard lock(m_mutex);
    m_delay = milliseconds;
}

void Desk::hold(const QString &function)
{
    const std::lock_guard lock(m_mutex);
    m_held.insert(function.toStdString());
}

void Desk::letGo()
{
    const std::lock_guard lock(m_mutex);
    m_held.clear();
    m_change.notify_all();
}

bool Desk::isHeld()
{
    const std::lock_guard lock(m_mutex);
    return m_waiting > 0;
}

QStringList Desk::calls(const QString &function)
{
    const QString prefix = function + QLatin1Char('(');
    QStringList calls;
    for (const std::string &call : withPhone([](SimulatedPhone &phone) { return phone.takeJournal(); })) {
        const QString text = QString::fromStdString(call);
        if (text.startsWith(prefix))
            calls.append(text.mid(prefix.size()).chopped(1));
    }
    return calls;
}

QStringList Desk::order()
{
    QStringList functions;
    for (const std::string &call : withPhone([](SimulatedPhone &phone) { return phone.takeJournal(); }))
        functions.append(QString::fromStdString(call).section(QLatin1Char('('), 0, 0));
    return functions;
}

void Desk::forgetCalls()
{
    calls({});
}

int Desk::ring(const QString &number)
{
    return withPhone([number](SimulatedPhone &phone) { return phone.ring(number.toStdString()); });
}

bool Desk::remoteAnswers(int callId)
{
    return withPhone(
        [callId](SimulatedPhone &phone) { return phone.remoteAnswers(static_cast<unsigned char>(callId)); });
}

void Desk::endCall(int callId)
{
    withPhone([callId](SimulatedPhone &phone) {
        _TAPI_CALL_SESSION_TABLE_S &table = phone.state().calls.table;
        _TAPI_CALL_SESSION_S *const end = table.sessions + table.count;
        table.count = static_cast<unsigned int>(
            std::remove_if(table.sessions, end, [callId](const auto &call) { return call.callId == callId; })
            - table.sessions);
        return true;
    });
}

void Desk::forgetWhoCalled(int callId)
{
    withPhone([callId](SimulatedPhone &phone) {
        for (_TAPI_CALL_SESSION_S &call : phone.state().calls.table.sessions) {
            if (call.callId == callId)
                call.incoming = 0;
        }
        return true;
    });
}

void Desk::lackFeature(int feature)
{
    withPhone([feature](SimulatedPhone &phone) {
        phone.product().missingFeatures.insert(static_cast<unsigned short>(feature));
        return true;
    });
}

void Desk::preferNetworks(const QStringList &ids)
{
    withPhone([ids](SimulatedPhone &phone) {
        auto &preferred = phone.state().network.preferred;
        preferred.clear();
        for (const QString &id : ids)
            preferred.emplace(static_cast<unsigned int>(preferred.size()), id.toStdString());
        return true;
    });
}

void Desk::findNetworks(const QStringList &ids)
{
    withPhone([ids](SimulatedPhone &phone) {
        for (Network &network : phone.state().network.networks)
            network.known = ids.contains(QString::fromStdString(network.id));
        return true;
    });
}

void Desk::useAnotherEngine(const QString &item)
{
    QQmlEngine engine;
    engine.addImportPath(QStringLiteral(KVQ_QML_DIR));
    QQmlComponent component(&engine);
    component.setData("import Kvq.CallSetup\n" + item.toUtf8(), QUrl());
    const std::unique_ptr<QObject> made(component.create());
    Q_ASSERT(made);
}

void Desk::speak(const QString &language)
{
    QLocale::setDefault(QLocale(language));
}

const ScriptedAnswer *Desk::answerer(std::string_view function)
{
    std::unique_lock lock(m_mutex);
    if (m_held.count(function) != 0) {
        ++m_waiting;
        m_change.wait(lock, [&] { return m_held.count(function) == 0; });
        --m_waiting;
    }
    if (m_delay > 0) {
        const auto until = std::chrono::steady_clock::now() + std::chrono::milliseconds(m_delay);
        m_change.wait_until(lock, until, [this] { return m_delay == 0; });
    }
    const auto found = m_answers.find(function);
    if (found == m_answers.end())
        return nullptr;
    m_given = found->second.scripted;
    if (found->second.timesLeft > 0 && --found->second.timesLeft == 0)
        m_answers.erase(found);
    return &m_given;
}
