// The telephony session and call control.
#pragma once

#include "PHONE_SETUP_Types.h"

#include "TAPI_ACCE.h"
#include "TAPI_CALL.h"
#include "TAPI_RESULT.h"
#include "TAPI_USSD.h"
#include "TAPI_VOICE.h"

/**
 * @file
 * The telephony session and call control.
 *
 * Every function is synchronous and runs on the caller's thread; none keeps state but the link probe. Use them, and
 * the objects of the other faces, from one thread of a process.
 *
 * @par Call ids
 * A call id names one call of the platform's call table. 0 and 255 never name a call.
 *
 * @par Dial strings
 * A dial string is a NUL-terminated byte string, the number as typed. Its pointer must not be null.
 *
 * @par Push-to-talk
 * A handset may carry push-to-talk calls, which a service of their own manages. Where a function says
 * that it routes, the request for such a call goes to that service instead of the modem. The answer is
 * then #TAPI_RESULT_SUCC when the service accepted the request and #TAPI_RESULT_CALL_REQ_FAIL when it
 * refused.
 *
 * @par Results
 * Whatever the telephony library answers is returned unchanged. The other results are listed with each
 * function; arguments are tested in the order in which they are listed, and a refused request asks
 * nothing of the platform.
 */

extern "C" {

/** @name The telephony session
 * @{ */

/**
 * Opens the telephony client. A host calls it once, before any other telephony request.
 *
 * @return the platform's result.
 * @platform `TAPI_CLIENT_Init` with the 13 service classes of the engine.
 */
PHONE_ENG_API _TAPI_RESULT_E PHONE_ENG_TAPI_initiation();

/**
 * Tells whether the telephony link answers.
 *
 * The first descriptor that the platform reports is kept for the life of the process. Once that
 * descriptor has failed the link counts as lost for good: every later call gives false.
 *
 * @return true while the link is alive; false before the client has a socket, and after it was lost.
 * @platform `TAPI_CLIENT_GetSyncSocketFd`, and `ioctl` with `FIONREAD` on the kept descriptor.
 */
PHONE_ENG_API bool PHONE_ENG_IsTapiDeviceActive();

/** @} */
/** @name Voice calls
 * @{ */

/**
 * Dials a voice call.
 *
 * @param option handed to the platform, sign included
 * @param dialString the number to dial
 * @param[out] callId where the platform writes the id of the new call
 * @return #TAPI_RESULT_INVALID_PARAM when @p callId is null or the dial string is empty, else the
 *         platform's result.
 * @platform `TAPI_VOICE_MakeCall`.
 */
PHONE_ENG_API _TAPI_RESULT_E PHONE_ENG_TAPI_CALL_VOICECALL_MakeReq(signed char option,
                                                                   unsigned char *dialString,
                                                                   unsigned char *callId);

/**
 * Dials a call that the SIM toolkit asked for (3GPP TS 31.111, SET UP CALL).
 *
 * @param dialString the number to dial
 * @param dialType handed to the platform
 * @param redial redial mode; the platform receives its low 8 bits
 * @param duration handed to the platform
 * @param[out] callId where the platform writes the id of the new call
 * @return #TAPI_RESULT_CALL_NO_NUMBER when the dial string is empty, #TAPI_RESULT_INVALID_PARAM when
 *         @p callId is null, else the platform's result.
 * @platform `TAPI_VOICE_MakeStkCall`.
 */
PHONE_ENG_API _TAPI_RESULT_E PHONE_ENG_TAPI_CALL_VOICECALL_STK_MakeReq(unsigned char *dialString,
                                                                       _TAPI_VOICE_DIAL_CALL_TYPE_E dialType,
                                                                       _TAPI_CALL_STK_REDIAL_E redial,
                                                                       unsigned int duration,
                                                                       unsigned char *callId);

/**
 * Answers a voice call, or makes room for it: while a push-to-talk call is active whose audio buffer is
 * not complete, that call is put on hold instead and the voice call keeps ringing.
 *
 * @param callId the call to answer; not tested
 * @param answerType handed to the platform
 * @return when the push-to-talk call was to be held, #TAPI_RESULT_SUCC or #TAPI_RESULT_CALL_REQ_FAIL;
 *         else the platform's result.
 * @platform `TAPI_VOICE_AnswerCall`, or `holdCallReq` of the push-to-talk service for the active
 *           push-to-talk call; when that is accepted, the state of the push-to-talk call manager becomes 2.
 */
PHONE_ENG_API _TAPI_RESULT_E
PHONE_ENG_TAPI_CALL_VOICECALL_AnswerReq(unsigned char callId, _TAPI_VOICE_ANSWER_CALL_TYPE_E answerType);

/**
 * Ends a call. Routes when @p callId is a push-to-talk call, and also when @p dropType is
 * #TAPI_VOICE_DROP_ALL while any push-to-talk call is in line.
 *
 * @param callId the call to end
 * @param dropType which calls go with it
 * @return #TAPI_RESULT_INVALID_PARAM for a call id of 0 or 255, else the result of the request.
 * @platform `TAPI_VOICE_DropCall`, or `releaseCallReq` of the push-to-talk service.
 */
PHONE_ENG_API _TAPI_RESULT_E PHONE_ENG_TAPI_CALL_VOICECALL_ReleaseReq(unsigned char callId,
                                                                      _TAPI_VOICE_DROP_CALL_TYPE_E dropType);

/**
 * Holds a call or retrieves it. Routes the hold of a push-to-talk call; a retrieve always goes to the
 * telephony library.
 *
 * @param callId the call
 * @param hold 1 holds the call, every other value retrieves it
 * @return #TAPI_RESULT_CALL_INVALID_ID for a call id of 0 or 255, else the result of the request.
 * @platform `TAPI_VOICE_HoldCall` or `TAPI_VOICE_RetrieveCall`, or `holdCallReq` of the push-to-talk
 *           service.
 */
PHONE_ENG_API _TAPI_RESULT_E PHONE_ENG_TAPI_CALL_VOICECALL_HoldReq(unsigned char callId, unsigned char hold);

/**
 * Swaps the active and the held call. Routes when the first call is a push-to-talk call.
 *
 * @return #TAPI_RESULT_CALL_INVALID_ID when either id is 0 or 255, else the result of the request.
 * @platform `TAPI_VOICE_SwitchCall`, or `switchCallReq` of the push-to-talk service.
 */
PHONE_ENG_API _TAPI_RESULT_E PHONE_ENG_TAPI_CALL_VOICECALL_SwitchReq(unsigned char firstCallId,
                                                                     unsigned char secondCallId);

/**
 * Gives up a call that is being dialled. Routes for a push-to-talk call.
 *
 * @return #TAPI_RESULT_CALL_INVALID_ID for a call id of 0 or 255, else the result of the request.
 * @platform `TAPI_VOICE_CancelCall`, or `releaseCallReq` of the push-to-talk service with drop type 0.
 */
PHONE_ENG_API _TAPI_RESULT_E PHONE_ENG_TAPI_CALL_VOICECALL_CancelReq(unsigned char callId);

/**
 * Connects two calls with each other and leaves them. Routes when either is a push-to-talk call.
 *
 * @return #TAPI_RESULT_CALL_INVALID_ID when either id is 0 or 255, else the result of the request.
 * @platform `TAPI_VOICE_LinkCall`, or `linkCallReq` of the push-to-talk service.
 */
PHONE_ENG_API _TAPI_RESULT_E PHONE_ENG_TAPI_CALL_VOICECALL_LinkReq(unsigned char firstCallId,
                                                                   unsigned char secondCallId);

/**
 * Transfers a call to another number. Routes for a push-to-talk call.
 *
 * @return #TAPI_RESULT_CALL_INVALID_ID for a call id of 0 or 255, #TAPI_RESULT_CALL_NO_NUMBER when the
 *         dial string is empty, else the result of the request.
 * @platform `TAPI_VOICE_TransferCall`, or `transferCallReq` of the push-to-talk service.
 */
PHONE_ENG_API _TAPI_RESULT_E PHONE_ENG_TAPI_CALL_VOICECALL_TransferReq(unsigned char callId,
                                                                       unsigned char *dialString);

/**
 * Joins two calls into a conference. Routes when either is a push-to-talk call.
 *
 * @return #TAPI_RESULT_CALL_INVALID_ID when either id is 0 or 255, else the result of the request.
 * @platform `TAPI_VOICE_JoinCall`, or `conferenceCallReq` of the push-to-talk service.
 */
PHONE_ENG_API _TAPI_RESULT_E PHONE_ENG_TAPI_CALL_VOICECALL_ConferenceReq(unsigned char firstCallId,
                                                                         unsigned char secondCallId);

/**
 * Splits a call off a conference. The name is spelt so. Never routes.
 *
 * @return #TAPI_RESULT_CALL_INVALID_ID for a call id of 0 or 255, else the platform's result.
 * @platform `TAPI_VOICE_SplitCall`.
 */
PHONE_ENG_API _TAPI_RESULT_E POHONE_ENG_TAPI_CALL_VOICECALL_UnconferenceReq(unsigned char callId);

/**
 * Rejects an incoming call. Routes for a push-to-talk call.
 *
 * @return #TAPI_RESULT_INVALID_PARAM for a call id of 0 or 255, else the result of the request.
 * @platform `TAPI_VOICE_RejectCall`, or `rejectCallReq` of the push-to-talk service.
 */
PHONE_ENG_API _TAPI_RESULT_E
PHONE_ENG_TAPI_CALL_VOICECALL_RejectReq(unsigned char callId, _TAPI_VOICE_REJECT_CALL_TYPE_E rejectType);

/**
 * Mutes the microphone of the call, or opens it again.
 *
 * @param mute handed to the platform untested
 * @return the platform's result.
 * @platform `TAPI_VOICE_MuteCall`.
 */
PHONE_ENG_API _TAPI_RESULT_E PHONE_ENG_TAPI_CALL_VOICECALL_MuteReq(unsigned char mute);

/** @} */
/** @name During a call
 * @{ */

/**
 * Sends a supplementary service string (3GPP TS 24.090).
 *
 * @return #TAPI_RESULT_INVALID_PARAM for a null record, else the platform's result.
 * @platform `TAPI_USSD_MakeRequest`.
 */
PHONE_ENG_API _TAPI_RESULT_E PHONE_ENG_TAPI_USSD_Make_Req(_TAPI_USSD_REQ_APP_MSG_S *request);

/**
 * Presses or releases a DTMF key. Withheld while any push-to-talk call is active, whatever call the
 * tone is meant for.
 *
 * @param key the key character
 * @param keyStatus handed to the platform
 * @return #TAPI_RESULT_SUCC when withheld, else the platform's result.
 * @platform `TAPI_VOICE_MakeDtmfTone`.
 */
PHONE_ENG_API _TAPI_RESULT_E PHONE_ENG_TAPI_CALL_VOICECALL_DtmfReq(char key,
                                                                   _TAPI_VOICE_DTMF_KEY_STATUS_E keyStatus);

/**
 * Sends a string of DTMF tones to a call. Withheld when that call is a push-to-talk call.
 *
 * @param callId the call; not tested for 0 or 255
 * @param digits NUL-terminated; handed to the platform untested
 * @return #TAPI_RESULT_SUCC when withheld, else the platform's result.
 * @platform `TAPI_VOICE_DTMFStringReq`.
 */
PHONE_ENG_API _TAPI_RESULT_E PHONE_ENG_TAPI_CALL_VOICECALL_DtmfStringReq(unsigned char callId,
                                                                         unsigned char *digits);

/**
 * Reads the call table.
 *
 * @param[out] table filled by the platform
 * @return #TAPI_RESULT_INVALID_PARAM for a null record, else the platform's result.
 * @platform `TAPI_CALL_GetAllCallSessions`.
 */
PHONE_ENG_API _TAPI_RESULT_E PHONE_ENG_TAPI_CALL_GetCallStatus(_TAPI_CALL_SESSION_TABLE_S *table);

/**
 * Sounds the beep of a muted call.
 *
 * @return the platform's result.
 * @platform `TAPI_VOICE_MuteBeep`.
 */
PHONE_ENG_API _TAPI_RESULT_E PHONE_ENG_TAPI_CALL_VOICECALL_Mute_Beep();

/** @} */
/** @name Device controls
 * @{ */

/**
 * Sets the speaker volume, in the platform's unit.
 *
 * @return the platform's result.
 * @platform `TAPI_ACCE_SetSpeakerVolume`.
 */
PHONE_ENG_API _TAPI_RESULT_E PHONE_ENG_TAPI_set_speaker_volume(int volume);

/**
 * Tells the modem which audio accessories are attached, as the platform numbers them.
 *
 * @return the platform's result.
 * @platform `TAPI_ACCE_NotifyAudioAccessoryStatus`.
 */
PHONE_ENG_API _TAPI_RESULT_E PHONE_ENG_TAPI_audio_accessory_status(unsigned short status);

/**
 * Reads the text telephone mode.
 *
 * @param[out] mode 0 to 3. Left as it was when the platform fails, and when it reports a mode that is
 *             not one of its four.
 * @return the platform's result.
 * @platform `TAPI_TTY_GetTtyMode`; its modes 0, 1, 2, 3 are this function's 3, 0, 1, 2.
 */
PHONE_ENG_API _TAPI_RESULT_E PHONE_ENG_TAPI_GetTTYMode(int &mode);

/**
 * Sets the text telephone mode.
 *
 * @param mode 0 to 3; every other value counts as 3
 * @return the platform's result.
 * @platform `TAPI_TTY_SetTtyMode`; the modes 0, 1, 2, 3 are the platform's 1, 2, 3, 0.
 */
PHONE_ENG_API _TAPI_RESULT_E PHONE_ENG_TAPI_SetTTYMode(int mode);

/**
 * Tells the modem about the USB cable and whether the phone charges through it.
 *
 * @return the platform's result.
 * @platform `TAPI_ACCE_SetUsbCableStatus`.
 */
PHONE_ENG_API _TAPI_RESULT_E PHONE_ENG_TAPI_SetUSBDriverMode(_TAPI_USB_CABLE_STATUS_E cable,
                                                             _TAPI_USB_CHARGING_E charging);

/** @} */
}
