// What all types share: names of states and results, and the worker as seen from QML.
#pragma once

#include "CallSetupWorker.h"
#include "Results.h"

#include <QtQml/qqmlregistration.h>

namespace Kvq {

/** The singleton of the module. */
class CallSetup : public QObject {
    Q_OBJECT
    QML_ELEMENT
    QML_SINGLETON
    Q_PROPERTY(int requestsInFlight READ requestsInFlight NOTIFY requestsInFlightChanged)
    Q_PROPERTY(bool busy READ isBusy NOTIFY requestsInFlightChanged)
    Q_PROPERTY(bool connected READ isConnected NOTIFY connectionChanged)
    Q_PROPERTY(int connectionResult READ connectionResult NOTIFY connectionChanged)
    Q_PROPERTY(QString connectionError READ connectionError NOTIFY connectionChanged)
    Q_PROPERTY(int quitTimeout READ quitTimeout WRITE setQuitTimeout NOTIFY quitTimeoutChanged)

public:
    /** Of a value, an item or a request. */
    enum State {
        Unknown, ///< nothing was asked yet
        Busy,    ///< a request waits or runs
        Ready,   ///< the last request succeeded
        Failed,  ///< the last request failed
    };
    Q_ENUM(State)

    enum Result {
        Success = TAPI_RESULT_SUCC,
        InvalidParameter = TAPI_RESULT_INVALID_PARAM,
        CallRequestFailed = TAPI_RESULT_CALL_REQ_FAIL,
        NoNumber = TAPI_RESULT_CALL_NO_NUMBER,
        InvalidCall = TAPI_RESULT_CALL_INVALID_ID,
        Refused = TAPI_RESULT_FAIL,
        SimUnavailable = TAPI_RESULT_SIM_UNAVAILABLE,
        PinRejected = TAPI_RESULT_PIN_REJECTED,
        PinBlocked = TAPI_RESULT_PIN_REJECTED_FINAL,
        NotSupported = TAPI_RESULT_NOT_SUPPORTED,
        TimedOut = TAPI_RESULT_TIMED_OUT,
        ServiceBusy = TAPI_RESULT_BUSY,
        ServiceDown = TAPI_RESULT_SERVICE_DOWN,
        ModemOffline = TAPI_RESULT_MODEM_OFFLINE,
        LinkLost = TAPI_RESULT_LINK_LOST,
        AccessDenied = TAPI_RESULT_ACCESS_DENIED,
        Pin2Needed = TAPI_RESULT_PIN2_NEEDED,
        NotStored = Results::NotStored,
        DiskFull = Results::DiskFull,
        NotAllowed = Results::NotAllowed,
        Cancelled = Results::Cancelled,
    };
    Q_ENUM(Result)

    explicit CallSetup(QObject *parent = nullptr);

    int requestsInFlight() const;
    bool isBusy() const { return requestsInFlight() > 0; }
    bool isConnected() const;
    int connectionResult() const;
    QString connectionError() const;
    int quitTimeout() const;
    void setQuitTimeout(int milliseconds);

    Q_INVOKABLE void connectTelephony();
    Q_INVOKABLE QString resultText(int result) const;
    Q_INVOKABLE QString resultAdvice(int result) const;

Q_SIGNALS:
    void requestsInFlightChanged();
    void connectionChanged();
    void quitTimeoutChanged();
    void flashFull();
    void operationNotAllowed();
};

} // namespace Kvq
