// The worker as seen from QML.
#include "CallSetup.h"

namespace Kvq {

CallSetup::CallSetup(QObject *parent)
    : QObject(parent)
{
    const CallSetupWorker *const worker = &CallSetupWorker::instance();
    connect(worker, &CallSetupWorker::requestsInFlightChanged, this, &CallSetup::requestsInFlightChanged);
    connect(worker, &CallSetupWorker::connectionChanged, this, &CallSetup::connectionChanged);
    connect(worker, &CallSetupWorker::quitTimeoutChanged, this, &CallSetup::quitTimeoutChanged);
    connect(worker, &CallSetupWorker::flashFull, this, &CallSetup::flashFull);
    connect(worker, &CallSetupWorker::operationNotAllowed, this, &CallSetup::operationNotAllowed);
}

int CallSetup::requestsInFlight() const
{
    return CallSetupWorker::instance().requestsInFlight();
}

bool CallSetup::isConnected() const
{
    return CallSetupWorker::instance().isConnected();
}

int CallSetup::connectionResult() const
{
    return static_cast<int>(CallSetupWorker::instance().connectionResult());
}

QString CallSetup::connectionError() const
{
    return Results::text(connectionResult());
}

int CallSetup::quitTimeout() const
{
    return static_cast<int>(CallSetupWorker::instance().quitTimeout().count());
}

void CallSetup::setQuitTimeout(int milliseconds)
{
    CallSetupWorker::instance().setQuitTimeout(std::chrono::milliseconds(std::max(0, milliseconds)));
}

void CallSetup::connectTelephony()
{
    CallSetupWorker::instance().connectTelephony();
}

QString CallSetup::resultText(int result) const
{
    return Results::text(result);
}

QString CallSetup::resultAdvice(int result) const
{
    return Results::advice(result);
}

} // namespace Kvq
