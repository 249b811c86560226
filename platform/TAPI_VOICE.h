// Voice call requests.
#pragma once

#include "TAPI_RESULT.h"

// The numbers of these enumerations are this boundary's: applications are compiled with them, and a port translates them
// to its own. The engine hands them on as it receives them; only the drop type 1 has a meaning to it.

/** Kind of a call that a SIM toolkit command asks for. The numbers are this boundary's; a port translates them. */
enum _TAPI_VOICE_DIAL_CALL_TYPE_E : unsigned int {
    TAPI_VOICE_DIAL_VOICE = 0,
    TAPI_VOICE_DIAL_EMERGENCY = 1,
};

/** Whether such a call may be dialled again. The numbers are this boundary's; a port translates them. */
enum _TAPI_CALL_STK_REDIAL_E : unsigned int {
    TAPI_CALL_STK_REDIAL_NONE = 0,
    TAPI_CALL_STK_REDIAL_ALLOWED = 1,
};

/** What becomes of the active call. The numbers are this boundary's; a port translates them. */
enum _TAPI_VOICE_ANSWER_CALL_TYPE_E : unsigned int {
    TAPI_VOICE_ANSWER_HOLD_ACTIVE = 0,
    TAPI_VOICE_ANSWER_RELEASE_ACTIVE = 1,
};

/** Which calls are released. The numbers are this boundary's; a port translates them. */
enum _TAPI_VOICE_DROP_CALL_TYPE_E : unsigned int {
    TAPI_VOICE_DROP_ONE = 0,
    TAPI_VOICE_DROP_ALL = 1, ///< while a push-to-talk call is in line, the push-to-talk service gets it
    TAPI_VOICE_DROP_ALL_ACTIVE = 2,
    TAPI_VOICE_DROP_ALL_HELD = 3,
};

/** What the caller hears. The numbers are this boundary's; a port translates them. */
enum _TAPI_VOICE_REJECT_CALL_TYPE_E : unsigned int {
    TAPI_VOICE_REJECT_DECLINE = 0,
    TAPI_VOICE_REJECT_BUSY = 1,
};

/** A tone lasts while its key is pressed. The numbers are this boundary's; a port translates them. */
enum _TAPI_VOICE_DTMF_KEY_STATUS_E : unsigned int {
    TAPI_VOICE_DTMF_KEY_RELEASED = 0,
    TAPI_VOICE_DTMF_KEY_PRESSED = 1,
};

extern "C" {

/** Dials @p dialString; the platform writes the id of the new call to @p callId. */
_TAPI_RESULT_E TAPI_VOICE_MakeCall(signed char option, unsigned char *dialString, unsigned char *callId);
_TAPI_RESULT_E TAPI_VOICE_MakeStkCall(unsigned char *dialString, _TAPI_VOICE_DIAL_CALL_TYPE_E dialType,
                                      unsigned char redialMode, unsigned int duration, unsigned char *callId);
_TAPI_RESULT_E TAPI_VOICE_AnswerCall(unsigned char callId, _TAPI_VOICE_ANSWER_CALL_TYPE_E answerType);
_TAPI_RESULT_E TAPI_VOICE_DropCall(unsigned char callId, _TAPI_VOICE_DROP_CALL_TYPE_E dropType);
_TAPI_RESULT_E TAPI_VOICE_HoldCall(unsigned char callId);
_TAPI_RESULT_E TAPI_VOICE_RetrieveCall(unsigned char callId);
_TAPI_RESULT_E TAPI_VOICE_SwitchCall(unsigned char firstCallId, unsigned char secondCallId);
_TAPI_RESULT_E TAPI_VOICE_CancelCall(unsigned char callId);
_TAPI_RESULT_E TAPI_VOICE_LinkCall(unsigned char firstCallId, unsigned char secondCallId);
/** Transfers a call to @p dialString; the platform may write one byte to @p transferId. */
_TAPI_RESULT_E TAPI_VOICE_TransferCall(unsigned char callId, unsigned char *dialString,
                                       unsigned char *transferId);
_TAPI_RESULT_E TAPI_VOICE_JoinCall(unsigned char firstCallId, unsigned char secondCallId);
_TAPI_RESULT_E TAPI_VOICE_SplitCall(unsigned char callId);
_TAPI_RESULT_E TAPI_VOICE_RejectCall(unsigned char callId, _TAPI_VOICE_REJECT_CALL_TYPE_E rejectType);
_TAPI_RESULT_E TAPI_VOICE_MuteCall(unsigned char mute);
_TAPI_RESULT_E TAPI_VOICE_MakeDtmfTone(char key, _TAPI_VOICE_DTMF_KEY_STATUS_E keyStatus);
_TAPI_RESULT_E TAPI_VOICE_DTMFStringReq(unsigned char callId, unsigned char *digits);
_TAPI_RESULT_E TAPI_VOICE_MuteBeep();
}
