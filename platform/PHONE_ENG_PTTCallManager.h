// Knows which calls are push-to-talk calls.
#pragma once

#include <cstddef>

class PHONE_ENG_PTTCallManager {
public:
    static PHONE_ENG_PTTCallManager *instance();

    /** Id of the active push-to-talk call, 255 when there is none. */
    unsigned char getPTTActiveCallId();
    /** Non-zero when the audio buffer of that push-to-talk call is complete. */
    int isPTTAudioBufComplete(unsigned char callId);
    /** Non-zero while a push-to-talk call is present. */
    int isPTTCallInLine();
    /** Non-zero when the id names a push-to-talk call. */
    int isKodiakPTTCallId(unsigned char callId);

    unsigned char reserved[44]; ///< the manager's own
    unsigned int state;         ///< set to 2 when answering a voice call put a push-to-talk call on hold
};
static_assert(sizeof(unsigned int) == 4);
static_assert(offsetof(PHONE_ENG_PTTCallManager, state) == 44);
