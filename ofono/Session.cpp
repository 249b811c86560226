// The telephony client: its link is the connection to the system bus.
#include "Daemon.h"

#include "TAPI_CLIENT.h"

/** The daemon serves every client with all there is, so the service classes make no difference. */
_TAPI_RESULT_E TAPI_CLIENT_Init(_TAPI_CLIENT_SERVICE_S *, int)
{
    return Ofono::Daemon::instance().open();
}

int TAPI_CLIENT_GetSyncSocketFd()
{
    return Ofono::Daemon::instance().linkDescriptor();
}
