// Shared phone state that several programs read.
#pragma once

extern "C" {

void UTIL_SetDialHyphenation(int mode);

/** The cached charge type, or a negative value when none is cached. */
int UTIL_GetCallChargeType();
void UTIL_SetCallChargeType(int type);

void UTIL_SetRestrictId(int id);
/** Caller-id restriction of the next call; 0 while nothing is known. */
int UTIL_GetRestrictNextId();
void UTIL_SetRestrictNextId(int id);

/** Index of the selected line: 0 for line 1, 1 for line 2. */
int UTIL_GetPhoneLine();
void UTIL_SetPhoneLine(int index);

/** Bit 0 is set while line 1 is forwarded, bit 1 while line 2 is. */
void UTIL_SetCPHSCallForwardStatus(int status);
/** CPHS voice-mail status; 1 when the SIM has a CPHS mailbox. */
int UTIL_GetCphsVMStatus();

/** 1 while the SIM is not to be asked. */
int UTIL_GetSIMPinBatteryStatus();
/** 5 after a rejected PIN, 6 after a final rejection, 7 after an accepted one. */
void UTIL_SetPinStatus(int status);

/** 1 for a card with USIM applications, 0 for one without. */
void UTIL_SetCardType(int type);
/** 1-based position of the active USIM application. */
void UTIL_SetActiveAccount(int position);

/** Non-zero while a call is coming in. */
int UTIL_GetIncomingCallStatus();
}
