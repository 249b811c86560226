// The object: its life cycle, its deferred signals and the hook that guards its operations.
#include "PHONE_ENG_Setup.h"
#include "PHONE_ENG_WrapTapi.h"

#include <QCoreApplication>

#include <cerrno>

namespace {

constexpr int flashFullSignal = 0;
constexpr int operationNotAllowedSignal = 1;

static_assert(QEvent::User == 1000, "the engine's event type is the toolkit's first user type");

} // namespace

PHONE_ENG_Setup *PHONE_ENG_Setup::m_pInstance = nullptr;
const QMetaObject *PHONE_ENG_Setup::metaObj = nullptr;

PHONE_ENG_Setup::SignalEvent::SignalEvent(int id)
    : QEvent(QEvent::User)
    , signalId(id)
{
}

PHONE_ENG_Setup::SignalEvent::~SignalEvent() = default;

PHONE_ENG_Setup *PHONE_ENG_Setup::instance()
{
    if (!m_pInstance)
        m_pInstance = new PHONE_ENG_Setup(nullptr, nullptr);
    return m_pInstance;
}

void PHONE_ENG_Setup::destruction()
{
    delete m_pInstance;
    m_pInstance = nullptr;
}

PHONE_ENG_Setup::PHONE_ENG_Setup(QObject *parent, const char *name)
    : QObject(parent)
{
    PHONE_ENG_Setup::initMetaObject();
    if (name)
        setObjectName(QString::fromLatin1(name));
}

PHONE_ENG_Setup::~PHONE_ENG_Setup() = default;

const char *PHONE_ENG_Setup::className() const
{
    return "PHONE_ENG_Setup";
}

void PHONE_ENG_Setup::initMetaObject()
{
    metaObj = &staticMetaObject;
}

bool PHONE_ENG_Setup::event(QEvent *event)
{
    if (event->type() != QEvent::User)
        return QObject::event(event);
    // Anyone may post an event of this type; only the engine's own carries a signal.
    if (const auto *const signalEvent = dynamic_cast<const SignalEvent *>(event)) {
        if (signalEvent->signalId == flashFullSignal)
            Q_EMIT flashFull();
        else if (signalEvent->signalId == operationNotAllowedSignal)
            Q_EMIT sigSetupOpertionNotAllowed();
    }
    return true;
}

void PHONE_ENG_Setup::checkFlashFull()
{
    if (errno != ENOSPC)
        return;
    const int reason = errno;
    QCoreApplication::postEvent(this, new SignalEvent(flashFullSignal));
    errno = reason;
}

bool PHONE_ENG_Setup::isTapiDeviceActive()
{
    return PHONE_ENG_IsTapiDeviceActive();
}

void PHONE_ENG_Setup::updateCFFlag()
{
    getCallForwardingFlag();
}
