// The telephony client, whose link is the connection to the system bus, and the log library.
#include "Daemon.h"

#include "LogStream.h"

#include "LogModule.h"
#include "TAPI_CLIENT.h"

std::FILE *libaplog_to_module_ptr = openLogStream(); // set when the library is loaded, before the first line

/** The daemon serves every client with all there is, so the service classes make no difference. */
_TAPI_RESULT_E TAPI_CLIENT_Init(_TAPI_CLIENT_SERVICE_S *, int)
{
    return Ofono::Daemon::instance().open();
}

int TAPI_CLIENT_GetSyncSocketFd()
{
    return Ofono::Daemon::instance().linkDescriptor();
}
