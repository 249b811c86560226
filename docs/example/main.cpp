// A settings screen in small: it shows a preference, changes it, and hears when the disk is full.
#include <LogModule.h>
#include <PHONE_ENG_Setup.h>
#include <PHONE_ENG_WrapTapi.h>

#include <QCoreApplication>
#include <QDebug>

#include <cstdio>

int main(int argc, char **argv)
{
    QCoreApplication application(argc, argv);

    // The engine's log shows numbers and PINs in clear. It goes where KVQ_LOG says, and nowhere without it: left null,
    // the stream is standard output.
    if (!libaplog_to_module_ptr)
        libaplog_to_module_ptr = std::fopen("/dev/null", "we");

    // Once a process, before any telephony request.
    if (PHONE_ENG_TAPI_initiation() != TAPI_RESULT_SUCC)
        qWarning() << "no telephony";

    PHONE_ENG_Setup *const setup = PHONE_ENG_Setup::instance();
    QObject::connect(setup, &PHONE_ENG_Setup::flashFull, [] { qWarning() << "the disk is full"; });

    // A local preference: it never fails to read, and false says that it was not stored.
    qInfo() << "alert when roaming:" << setup->isRoamAlert();
    if (!setup->setRoamAlert(true))
        qWarning() << "not stored";

    // A setting of the network: a result code, and values that are written on success only.
    bool active = false;
    QString number;
    const _TAPI_RESULT_E result = setup->getVoiceCallsDivert(active, number, TAPI_CS_DIVERT_NO_REPLY);
    if (result == TAPI_RESULT_SUCC)
        qInfo() << "forwarded on no reply:" << active << number;
    else
        qWarning() << "the network refused:" << result;

    QCoreApplication::processEvents(); // flashFull() comes from the event loop
    PHONE_ENG_Setup::destruction();
    return 0;
}
