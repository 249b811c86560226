// Enumerations and records of the call setup engine.
#pragma once

#include <QString>

/** Marks what the library offers; everything else in it is hidden. */
#define PHONE_ENG_API __attribute__((visibility("default")))

/**
 * How numbers are hyphenated on the screens.
 *
 * The engine stores the values as they are. All but the ones named here belong to the applications,
 * and a stored value outside the enumerators is returned as it is.
 */
enum PHONE_SETUP_HYPHENATION_T : int {
    PHONE_SETUP_HYPHENATION_DEFAULT = 0,
    PHONE_SETUP_HYPHENATION_NOT_SUPPORTED = 2, ///< the product has no hyphenation (feature 266)
};

/**
 * How the applications search their lists. The engine stores the values as they are; a stored value
 * outside the enumerators is returned as it is.
 */
enum PHONE_SETUP_SEARCH_MODE_T : int {
    PHONE_SETUP_SEARCH_MODE_DEFAULT = 0,
};

/**
 * Whether a video call starts with the camera muted. The engine stores the values as they are; a
 * stored value outside the enumerators is returned as it is.
 */
enum PHONE_SETUP_CAMERA_MUTE_T : int {
    PHONE_SETUP_CAMERA_MUTE_OFF = 0,
    PHONE_SETUP_CAMERA_MUTE_ON = 1,
};

/** Version strings of the baseband processor: single-byte characters, each NUL-terminated. */
struct PHONE_BP_VERSION_INFO_S {
    char bpVer[48];      ///< baseband processor version
    char bpFlexVer[48];  ///< baseband flex version
    char dspVer[48];     ///< DSP version
    char technology[48]; ///< radio technology
};
static_assert(sizeof(PHONE_BP_VERSION_INFO_S) == 192);

/** The service provider name of the SIM (EF SPN, 3GPP TS 31.102). */
struct PHONE_SERVICE_PROVIDER_S {
    unsigned char displayCondition; ///< the display-condition byte of the SIM; 0 when it could not be read
    QString name;                   ///< empty when it could not be read or the SIM holds none
};
