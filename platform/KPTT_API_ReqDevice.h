// Request channel to the push-to-talk service.
#pragma once

#include "TAPI_VOICE.h"

#include <cstddef>

struct _KPTT_RELEASE_CALL_REQ_S {
    unsigned char callId;
    unsigned char reserved[3];
    _TAPI_VOICE_DROP_CALL_TYPE_E dropType;
};
static_assert(sizeof(_KPTT_RELEASE_CALL_REQ_S) == 8);
static_assert(offsetof(_KPTT_RELEASE_CALL_REQ_S, dropType) == 4);

struct _KPTT_SWITCH_CALL_REQ_S {
    unsigned char firstCallId;
    unsigned char secondCallId;
};
static_assert(sizeof(_KPTT_SWITCH_CALL_REQ_S) == 2);

struct _KPTT_REJECT_CALL_REQ_S {
    unsigned char callId;
    unsigned char reserved[3];
    _TAPI_VOICE_REJECT_CALL_TYPE_E rejectType;
};
static_assert(sizeof(_KPTT_REJECT_CALL_REQ_S) == 8);
static_assert(offsetof(_KPTT_REJECT_CALL_REQ_S, rejectType) == 4);

/**
 * Every request answers 0 when the service accepted it.
 *
 * The engine makes these objects itself, so their size never changes: what a platform keeps for one goes into its
 * room, or behind a pointer in it. The engine does not look into the room.
 */
class KPTT_API_ReqDevice {
public:
    KPTT_API_ReqDevice();
    ~KPTT_API_ReqDevice();

    KPTT_API_ReqDevice(const KPTT_API_ReqDevice &) = delete;
    KPTT_API_ReqDevice &operator=(const KPTT_API_ReqDevice &) = delete;

    int holdCallReq(unsigned char callId);
    int releaseCallReq(_KPTT_RELEASE_CALL_REQ_S *request);
    int switchCallReq(_KPTT_SWITCH_CALL_REQ_S *request);
    int rejectCallReq(_KPTT_REJECT_CALL_REQ_S *request);
    int linkCallReq();
    int transferCallReq();
    int conferenceCallReq();

private:
    [[maybe_unused]] void *m_room[4]; ///< the platform's own, see above
};

static_assert(sizeof(KPTT_API_ReqDevice) == 4 * sizeof(void *));
