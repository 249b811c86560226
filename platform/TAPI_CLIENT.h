// The telephony client: opening it, and the socket it talks over.
#pragma once

#include "TAPI_RESULT.h"

/** One service class that a client asks for. */
struct _TAPI_CLIENT_SERVICE_S {
    unsigned char reserved; ///< always 0
    unsigned char serviceClass;
};
static_assert(sizeof(_TAPI_CLIENT_SERVICE_S) == 2);

extern "C" {

/** Opens the client for @p count service classes. The table may be written to during the call. */
_TAPI_RESULT_E TAPI_CLIENT_Init(_TAPI_CLIENT_SERVICE_S *services, int count);

/** Descriptor of the client's synchronous socket, or -1 when there is none. */
int TAPI_CLIENT_GetSyncSocketFd();
}
