// Call settings and SIM services.
#pragma once

#include "PHONE_SETUP_Types.h"

#include "TAPI_CS.h"
#include "TAPI_RESULT.h"
#include "TAPI_SECURITY.h"

#include <QEvent>
#include <QObject>
#include <QString>
#include <QStringList>
#include <QUuid>

/**
 * The phone's call settings and SIM services.
 *
 * One object a process, from instance() until destruction(); it keeps no state. Every operation is
 * synchronous. Use the object from one thread.
 *
 * @par Preferences
 * Preferences live in the phone's settings store. A getter never fails: it gives the default when nothing
 * is stored. A setter gives true when the value is stored durably and false when it is not; when the file
 * system was full, flashFull() follows once the event loop runs.
 *
 * @par Results
 * An operation on the network, the SIM or the modem returns the platform's result unchanged: 0
 * (#TAPI_RESULT_SUCC) for success. Results that the engine produces itself are listed with each operation.
 * Unless an operation says otherwise its out-parameters are written only when it returns 0.
 *
 * @par The system-status hook
 * An operation marked @e guarded asks setupCheckSystemStatus() first. When that refuses, an operation that
 * returns a result code returns #TAPI_RESULT_FAIL and a setter returns false; nothing is asked of the
 * platform and nothing is written.
 *
 * @par Texts
 * Texts travel to the platform as Latin-1 and are cut to the platform's field where an operation says so;
 * other characters become question marks. Texts that come back are read to the end of their field at most.
 */
class PHONE_ENG_API PHONE_ENG_Setup : public QObject {
    Q_OBJECT

public:
    /** Raises one of the object's signals from the event loop. Heap-allocated, handed to postEvent(). */
    class PHONE_ENG_API SignalEvent : public QEvent {
    public:
        explicit SignalEvent(int signalId);
        ~SignalEvent() override;

        /** 0 raises flashFull(), 1 raises sigSetupOpertionNotAllowed(); other values raise nothing. */
        int signalId;
    };

    /** @name The object
     * @{ */

    /** The one object, created on first use without a parent. */
    static PHONE_ENG_Setup *instance();
    /** Deletes the one object, if there is one. */
    static void destruction();

    /**
     * @param parent parent object, or null
     * @param name object name, or null for none
     */
    PHONE_ENG_Setup(QObject *parent, const char *name);
    ~PHONE_ENG_Setup() override;

    /** Raises the signal of a SignalEvent. Events of type 1000 are always taken. */
    bool event(QEvent *event) override;
    /** "PHONE_ENG_Setup". */
    virtual const char *className() const;
    /** Sets #metaObj; the constructor has done so already. */
    virtual void initMetaObject();

    /** The one object, null while there is none. */
    static PHONE_ENG_Setup *m_pInstance;
    /** The class's meta-object, null until the first object was made. */
    static const QMetaObject *metaObj;

    /** Posts the event that raises flashFull() when errno is ENOSPC. Leaves errno as it is. */
    void checkFlashFull();

    /**
     * Whether the phone is in a state to change settings.
     *
     * Always true as shipped. A host that knows better defines this function itself; the engine then
     * asks the host's.
     */
    static bool setupCheckSystemStatus();

    /** The answer of PHONE_ENG_IsTapiDeviceActive(). */
    static bool isTapiDeviceActive();

    /** @} */
    /** @name Call preferences
     * Kept in group "Setup" unless stated.
     * @{ */

    /** Key "reminder", default true. */
    bool isReminder();
    bool setReminder(bool on);
    /** Answer by opening the flip. Key "flipAnswer", default false. */
    bool isFlipAnswer();
    bool setFlipAnswer(bool on);
    /** Answer with any key. Key "anykeyAnswer", default false. */
    bool isAnykeyAnswer();
    bool setAnykeyAnswer(bool on);
    /** Answer by itself. Key "autoAnswer", default false. */
    bool isAutoAnswer();
    /** Guarded. */
    bool setAutoAnswer(bool on);
    /** Put the national prefix before numbers. Key "prepend", default false. */
    bool isPrepend();
    /** Guarded. */
    bool setPrepend(bool on);
    /** Key "msgAlert", default false. */
    bool isMsgAlert();
    /** Guarded. */
    bool setMsgAlert(bool on);
    /** Alert when roaming. Key "roamAlert", default false. */
    bool isRoamAlert();
    /** Guarded. */
    bool setRoamAlert(bool on);
    /** Fall back to a voice call when a video call fails. Key "AutoFallbackVoiceCall", default false. */
    bool isAutoFallbackVoiceCall();
    /** Guarded. */
    bool setAutoFallbackVoiceCall(bool on);
    /** Hearing-aid setting. Key "HearingAidCapability", default false. Independent of isHACEnabled(). */
    bool isHACOn();
    bool setHAC(bool on);

    /**
     * Whether the product offers the hearing-aid setting: flex bit 408, true when the product does not
     * know that bit.
     * @platform `SETUP_Utility::getFlexBit`.
     */
    bool isHACEnabled();

    /**
     * Interval of the tone that sounds during a call. Key "audibleTimer", default -1; the unit is the
     * applications'.
     * @return true.
     */
    bool getAudibleTimer(int &timer);
    /** Guarded. */
    bool setAudibleTimer(int timer);

    /**
     * Number hyphenation. Key "HyphenSetting", default 0.
     * @param[out] mode the stored value; #PHONE_SETUP_HYPHENATION_NOT_SUPPORTED on a product without
     *             hyphenation
     * @return true when the product has hyphenation (feature 266).
     * @platform `SETUP_Utility::isFeatureAvailable`, and `UTIL_SetDialHyphenation` with the value read.
     */
    bool getHyphenation(PHONE_SETUP_HYPHENATION_T &mode);
    /**
     * Guarded. Does not ask whether the product has hyphenation.
     * @platform `UTIL_SetDialHyphenation` once the value is stored.
     */
    bool setHyphenation(PHONE_SETUP_HYPHENATION_T mode);

    /**
     * Key "SearchMode", default 0.
     * @return true.
     */
    bool getSearchMode(PHONE_SETUP_SEARCH_MODE_T &mode);
    /** Guarded. */
    bool setSearchMode(PHONE_SETUP_SEARCH_MODE_T mode);

    /**
     * How numbers are matched with contacts. Group "matching_indicate", key "MatchNumIndicate", default 3;
     * the meaning is the applications'. The engine has no writer for it.
     * @return true.
     */
    bool getMatchNumIndicate(int &indicate);

    /**
     * National direct dialling prefix. Key "NDDPrefix", default "0". The engine has no writer for it.
     * @return true.
     */
    bool getNddPrefix(QString &prefix);

    /** Whether the phone has an input method. @platform `ZKbConfig::isInputModeSupported`, whose answer this is. */
    bool isSupportedInputMethod(const QUuid &inputMethod);

    /** @} */
    /** @name Turbo dialing
     * Nine speed-dial slots, each with an optional one-touch number that wins over its entry and a location
     * code. Kept in group "Turbo Dialing". An entry may carry a suffix that begins with an at sign.
     * @{ */

    /**
     * The one-touch number of a slot. Key "OneTouchNumber" followed by the slot. The engine has no writer
     * for it.
     * @param slot 0 to 255
     * @param[out] number the stored number, "" when there is none
     * @return true when there is one.
     */
    bool isOneTouchNumber(unsigned char slot, QString &number);

    /**
     * The number that a slot dials: its one-touch number, whole, if there is one, else its entry.
     * @param slot 1 to 9 for the slots of the list; any other number names a slot of its own. The one-touch
     *        number is looked up under the slot number modulo 256.
     * @param full whether to give the whole entry; otherwise it ends before the first at sign
     */
    QString getTurboDialing(int slot, bool full);
    /**
     * All nine slots.
     * @param[out] list exactly nine strings, for slots 1 to 9
     * @param full as in getTurboDialing()
     */
    void getTurboDialingList(QStringList &list, bool full);
    /** Stores the entry of a slot. Guarded. */
    bool setTurboDialing(int slot, const QString &number);
    /**
     * Stores the entries of slots 1, 2 and so on: all of them or, when it fails, none. Guarded.
     * @param list slots beyond its length keep their entries; strings after the ninth are ignored
     */
    bool setTurboDialing(const QStringList &list);

    /** Location code of a slot (0 to 255). Key "SpeedLocation" followed by the slot, default 2. */
    int getTurboDialingLocation(unsigned char slot);
    /**
     * Stores the location code of a slot. Not guarded, and no flashFull() follows a failure.
     * @return the store's answer to the write, which becomes durable when the operation ends.
     */
    bool setTurboDialingLocation(unsigned char slot, int location);

    /** @} */
    /** @name Video calls
     * @{ */

    /**
     * Group "Setup", key "VTCameraMute", default 0.
     * @return true.
     */
    bool getCameraMute(PHONE_SETUP_CAMERA_MUTE_T &mute);
    /** Guarded. */
    bool setCameraMute(PHONE_SETUP_CAMERA_MUTE_T mute);

    /**
     * The picture that stands in for the camera. Group "Setup", key "cameraOffImage".
     * @return "" when "black" is stored; getDefaultCameraOffImage() when nothing is; else the stored path,
     *         whether or not there is such a file.
     */
    QString getCameraOffImage();
    /**
     * The first picture of the phone: the first file, by name ignoring case, of
     * "/usr/data_resource/picture/".
     * @return its absolute path; "" when the directory is missing, empty or cannot be listed.
     */
    QString getDefaultCameraOffImage();
    /**
     * Chooses the picture that stands in for the camera. Guarded.
     * @param path path of the picture, "black" for none, "" for the default one
     */
    bool setCameraOffImage(const QString &path);

    /**
     * Group "RVCSetting", key "CapableAlert", default false; the meaning is the video call application's.
     * @return true.
     */
    bool getRVCAlertType(bool &alert);
    /** Guarded. */
    bool setRVCAlertType(bool alert);

    /**
     * Group "RVCSetting", key "InvitationTimeOut", default 10000. The engine has no writer for it.
     * @param[out] timeout the stored value times 1000, so 10000000 when nothing is stored. A product that
     *             does not fit is held at the nearest value of an int.
     * @return true.
     */
    bool getRVCInvitationTimer(int &timeout);

    /** @} */
    /** @name Call forwarding
     * Supplementary service of 3GPP TS 22.082. Conditions are numbered as in 3GPP TS 27.007 (+CCFC).
     * Numbers are at most 42 characters; a longer one is cut.
     * @{ */

    /**
     * The no-reply timer for forwardings that name none. Group "Setup", key "CallForwardTimer", default 5.
     * @return seconds, rounded up to 5, 10, 15, 20, 25 or 30; 255 for no timer; 20 for a stored value that
     *         is none of these.
     */
    int getDefaultCallForwardTimer();

    /**
     * Whether voice calls are forwarded, and where to. Guarded.
     * @param[out] active whether voice calls are forwarded under that condition
     * @param[out] number the number they are forwarded to
     * @param when the condition
     * @platform `TAPI_CS_GetDivertStatus`, class 1.
     */
    _TAPI_RESULT_E getVoiceCallsDivert(bool &active, QString &number, _TAPI_CS_DIVERT_WHEN_E when);
    /** As getVoiceCallsDivert(), for data calls. @platform `TAPI_CS_GetDivertStatus`, class 2. */
    _TAPI_RESULT_E getDataCallsDivert(bool &active, QString &number, _TAPI_CS_DIVERT_WHEN_E when);
    /** As getVoiceCallsDivert(), for fax calls. @platform `TAPI_CS_GetDivertStatus`, class 4. */
    _TAPI_RESULT_E getFaxCallsDivert(bool &active, QString &number, _TAPI_CS_DIVERT_WHEN_E when);

    /**
     * Forwards voice calls, or no longer. Guarded.
     * @param enable whether to forward voice calls under that condition
     * @param when the condition. Conditions 0, 1 and 3 go without a no-reply timer (255), all others with
     *        getDefaultCallForwardTimer().
     * @param number where to
     * @platform `TAPI_CS_DivertCallToNumber`, class 1.
     */
    _TAPI_RESULT_E divertVoiceCalls(bool enable, _TAPI_CS_DIVERT_WHEN_E when, const QString &number);
    /** As divertVoiceCalls(), for data calls. @platform `TAPI_CS_DivertCallToNumber`, class 2. */
    _TAPI_RESULT_E divertDataCalls(bool enable, _TAPI_CS_DIVERT_WHEN_E when, const QString &number);
    /** As divertVoiceCalls(), for fax calls. @platform `TAPI_CS_DivertCallToNumber`, class 4. */
    _TAPI_RESULT_E divertFaxCalls(bool enable, _TAPI_CS_DIVERT_WHEN_E when, const QString &number);

    /**
     * Forwards voice calls on no reply. Guarded.
     * @param enable whether to forward
     * @param number where to
     * @param time seconds: 5 and 10 are passed on, every other value becomes 20
     * @platform `TAPI_CS_DivertCallToNumber`, class 1, condition 2.
     */
    _TAPI_RESULT_E divertVoiceCallsWithTime(bool enable, const QString &number, unsigned char time);

    /**
     * Cancels every forwarding of voice calls. Guarded. On success "Call_Forward_Not_All" is broadcast on
     * "Call_Forward_Notice".
     * @platform `TAPI_CS_CancelAllVoiceDivert`.
     */
    _TAPI_RESULT_E cancelAllVoiceCallsDiverts();
    /** As cancelAllVoiceCallsDiverts(), for all calls. @platform `TAPI_CS_CancelAllDivert`. */
    _TAPI_RESULT_E cancelAllCallsDiverts();

    /**
     * Refreshes the forwarding indicator of a two-line (CPHS) SIM: publishes which lines are forwarded and
     * broadcasts "UPDATE GNB" on "/KVQ/PHONE/GNB_UPDATE". A failed read counts as no line forwarded. Does
     * nothing on a product without CPHS (feature 2040) and while the SIM is not to be asked.
     * @platform `SETUP_Utility::isFeatureAvailable` for 2040, 2003, 2007, 2258 and 2171,
     *           `UTIL_GetSIMPinBatteryStatus`, `TAPI_CPHS_GetCallDivertStatus`,
     *           `UTIL_SetCPHSCallForwardStatus`.
     */
    void getCallForwardingFlag();

    /** @} */
    /** @name Call metering
     * Advice of charge (3GPP TS 22.024 and 22.086). Amounts are texts composed by the platform. All are
     * guarded.
     * @{ */

    /**
     * The remaining credit.
     * @return "0.00" when the hook refuses, the telephony link is down or the platform fails.
     * @platform `TAPI_CS_GetRemainCredit`.
     */
    QString getAvailableCredit();
    /** The accumulated call meter, with the same default. @platform `TAPI_CS_GetCallMeter`. */
    QString getTotalCallCost();
    /**
     * The remaining call time as hours:minutes:seconds, without leading zeros.
     * @return the null string when the hook refuses, the telephony link is down or the platform fails.
     * @platform `TAPI_CS_GetLeftCallTime`.
     */
    QString getTotalLifeTimer();
    /** The accumulated call time, in the same form. @platform `TAPI_CS_GetTotalCallTime`. */
    QString getTotalCallTime();

    /**
     * The maximum of the call meter.
     * @param[out] max its text
     * @param[out] flag whether there is a maximum: false exactly when the text begins with "0"
     * @platform `TAPI_CS_GetCallMeterMax`.
     */
    _TAPI_RESULT_E getMeterMax(QString &max, bool &flag);
    /**
     * Sets the maximum of the call meter.
     * @param max its text; cut to 100 characters
     * @platform `TAPI_CS_SetCallMeterMax`.
     */
    _TAPI_RESULT_E setMeterMax(const QString &max);
    /** Switches the maximum off: setMeterMax() with "0". */
    _TAPI_RESULT_E disableCMM();

    /**
     * The charge type, from shared state when it is known there; then nothing else is asked, the hook
     * included.
     * @platform `UTIL_GetCallChargeType`; `TAPI_CS_GetChargeType` and `UTIL_SetCallChargeType` when unknown.
     */
    _TAPI_RESULT_E getChargeType(unsigned char &type);
    /** @platform `TAPI_CS_SetChargeType`; `UTIL_SetCallChargeType` on success. */
    _TAPI_RESULT_E setChargeType(unsigned char type);

    /** Whether and how charges are displayed, as the platform numbers it. @platform `TAPI_CS_GetChargeDisplay`. */
    _TAPI_RESULT_E getMeterDisplay(unsigned char &display);
    /** @platform `TAPI_CS_SetChargeDisplay`. */
    _TAPI_RESULT_E setMeterDisplay(unsigned char display);

    /** Sets the call meter to zero. @platform `TAPI_CS_ResetCallMeter`. */
    _TAPI_RESULT_E resetCallMeter();
    /** Sets the call time to zero. @platform `TAPI_CS_ResetCallTime`. */
    _TAPI_RESULT_E resetCallTime();

    /**
     * Sets the price of one charging unit.
     * @param unit the price, cut to 29 characters
     * @param currency cut to 40 characters
     * @platform `TAPI_CS_SetPriceUnit`.
     */
    _TAPI_RESULT_E setPriceUnitCurrency(const QString &unit, const QString &currency);
    /** The price of one charging unit. @platform `TAPI_CS_GetPriceUnit`. */
    _TAPI_RESULT_E getPriceUnitCurrency(QString &unit, QString &currency);

    /** @} */
    /** @name Call restrictions and options
     * All are guarded but isFixedDialingAvailable().
     * @{ */

    /**
     * Whether the SIM has fixed dialling numbers (3GPP TS 22.101).
     * @return false also when the platform fails.
     * @platform `TAPI_FIXDIALING_GetAvailability`.
     */
    bool isFixedDialingAvailable();
    /** Whether only fixed numbers can be dialled. @platform `TAPI_FIXDIALING_GetStatus`. */
    _TAPI_RESULT_E isFixedDialing(bool &on);
    /**
     * Switches fixed dialling.
     * @param on whether only fixed numbers can be dialled
     * @param pin2 checked by the platform; cut to 20 characters
     * @platform `TAPI_FIXDIALING_SetStatus`.
     */
    _TAPI_RESULT_E setFixedDialing(bool on, const QString &pin2);

    /** The DTMF tone type, as the platform numbers it. @platform `TAPI_CS_GetDtmfToneType`. */
    _TAPI_RESULT_E getDTMF(unsigned char &type);
    /** @platform `TAPI_CS_SetDtmfToneType`. */
    _TAPI_RESULT_E setDTMF(unsigned char type);

    /**
     * The caller-id restriction for all calls (3GPP TS 22.081).
     * @param[out] id 0, 1 or 2; 0 also when the platform fails
     * @platform `TAPI_FTRDB_GetState` for feature 2236, whose settings 0, 1 and 2 are the restrictions 0, 2
     *           and 1 and whose others are 0; `UTIL_SetRestrictId` with @p id.
     */
    _TAPI_RESULT_E getCLIR(_TAPI_CALL_RESTRICT_ID_E &id);
    /** @platform `TAPI_CS_SetRestrictId`; `UTIL_SetRestrictId` on success. */
    _TAPI_RESULT_E setCLIR(_TAPI_CALL_RESTRICT_ID_E id);

    /**
     * The caller-id restriction of the next call, from shared state when it is known there.
     * @param[out] id as the platform numbers it; 2 when the platform fails
     * @platform `UTIL_GetRestrictNextId`; when that is 0 `TAPI_CS_GetRestrictNextCallID`, and
     *           `UTIL_SetRestrictNextId` with @p id.
     */
    _TAPI_RESULT_E getNextCLIR(unsigned char &id);
    /** @platform `TAPI_CS_SetRestrictNextCallID`; `UTIL_SetRestrictNextId` with @p id, or 2 on failure. */
    _TAPI_RESULT_E setNextCLIR(unsigned char id);

    /**
     * Whether call waiting is on (3GPP TS 22.083).
     *
     * The network is asked only while the setting "DisCMReq" of group "Setup" is true, its default.
     * @param[out] on also set, to false, when the hook refuses
     * @return 1, with @p on untouched, when the setting forbids to ask.
     * @platform `TAPI_CS_GetVoiceWaitingStatus`.
     */
    _TAPI_RESULT_E isCallWaiting(bool &on);
    /** @platform `TAPI_CS_SetVoiceWaitingStatus`, whatever "DisCMReq" says. */
    _TAPI_RESULT_E setCallWaiting(bool on);

    /**
     * Whether a number is redialled by itself.
     * @param[out] on also set, to false, when the hook refuses
     * @platform `TAPI_CS_GetAutoRedialStatus`.
     */
    _TAPI_RESULT_E isAutoRedial(bool &on);
    /** @platform `TAPI_CS_SetAutoRedialStatus`. */
    _TAPI_RESULT_E setAutoRedial(bool on);

    /**
     * Whether a tone sounds when a call drops.
     * @param[out] on also set, to false, when the hook refuses
     * @platform `TAPI_CS_GetPendingCallDropToneStatus`.
     */
    _TAPI_RESULT_E isCallDropTone(bool &on);
    /** @platform `TAPI_CS_SetPendingCallDropToneStatus`. */
    _TAPI_RESULT_E setCallDropTone(bool on);

    /** @} */
    /** @name Lines
     * The two lines of a CPHS SIM. None of these is guarded.
     * @{ */

    /**
     * The selected line; publishes its index.
     * @param[out] line the platform's index, a signed byte, plus 1: 1 or 2 on a phone with two lines. A platform
     *             that answers another index gives that index plus 1 (-127 to 128), unchanged. 1 also when the
     *             platform fails.
     * @platform `TAPI_CS_GetLine`, `UTIL_SetPhoneLine`.
     */
    _TAPI_RESULT_E currentLineNo(int &line);
    /**
     * Selects a line and tells the phone: broadcasts "Call_Forward_All" or "Call_Forward_Not_All" on
     * "Call_Forward_Notice", publishes the line, broadcasts "UPDATE GNB" on "/KVQ/PHONE/GNB_UPDATE" and
     * sends the phone message 66, in this order. A failed forwarding query counts as not forwarded.
     * @param line 1 or 2
     * @return #TAPI_RESULT_INVALID_PARAM for any other line; the platform's result when it did not select
     *         the line. Nothing is told in either case.
     * @platform `TAPI_CS_SelectLine`, `TAPI_CS_GetDivertStatus`, `UTIL_SetPhoneLine`, `PHONE_Msg::send`.
     */
    _TAPI_RESULT_E setLineNo(int line);

    /**
     * Asks the platform for the line lock without delivering it; curLineLockStatus() delivers it.
     * @return 0 on a product without line lock (feature 2258), else the platform's result code.
     * @platform `SETUP_Utility::isFeatureAvailable`, `TAPI_CPHS_GetLineLockStatus`.
     */
    int getLineLockStatus();
    /**
     * @param lock non-zero locks the line, 0 unlocks it
     * @platform `TAPI_CPHS_SetLineLockStatus` with 1 or 0.
     */
    _TAPI_RESULT_E setLineLockStatus(int lock);
    /**
     * The line lock.
     * @param[out] status the platform's byte; 0 on every failure
     * @return #TAPI_RESULT_SIM_UNAVAILABLE while the SIM is not to be asked.
     * @platform `UTIL_GetSIMPinBatteryStatus`, `TAPI_CPHS_GetLineLockStatus`.
     */
    _TAPI_RESULT_E curLineLockStatus(int &status);

    /**
     * Whether the voice-mail hot keys apply to the selected line.
     * @platform `UTIL_GetPhoneLine`, `UTIL_GetCphsVMStatus`, and `SETUP_Utility::isFeatureAvailable` for
     *           2040 and 160, and for 2168 (line 1) or 2007 and 2189 (line 2).
     */
    bool isVmHotKeysAvailable() const;
    /** Does nothing. @return false: mailbox numbers are not loaded from the SIM. */
    bool loadVoiceMailboxNumberFromSIM();

    /** @} */
    /** @name PINs
     * 3GPP TS 31.101 and 31.102. PINs and PUKs are cut to 20 characters, a null string is sent as an empty
     * one, and the card judges them. None of these is guarded.
     *
     * The PIN1 and UPIN operations that verify, change or unblock publish their outcome: shared PIN status 7
     * and "PIN OK" on "/KVQ/PHONE/SIM" for success, 5 and "PIN ERROR" for #TAPI_RESULT_PIN_REJECTED, 6 and
     * "PIN ERROR" for #TAPI_RESULT_PIN_REJECTED_FINAL, nothing for other results.
     * @{ */

    /** Verifies PIN1. @platform `TAPI_SECURITY_VerifyPinPassword`. */
    static _TAPI_RESULT_E setupVerifySimPin(const QString &pin);
    /** Changes PIN1. The log shows both PINs in clear. @platform `TAPI_SECURITY_ChangePinPassword`. */
    _TAPI_RESULT_E changeSimPin(const QString &oldPin, const QString &newPin);
    /** Unblocks PIN1 with its PUK. The log shows PUK and PIN in clear. @platform `TAPI_SECURITY_UnblockPinPassword`. */
    _TAPI_RESULT_E unblockingPin(const QString &puk, const QString &newPin);
    /** As unblockingPin(), without log messages. @platform `TAPI_SECURITY_UnblockPinPassword`. */
    static _TAPI_RESULT_E setupUnblockSimPin1(const QString &puk, const QString &newPin);
    /** Switches the request for PIN1 on. Publishes nothing. @platform `TAPI_SECURITY_SetPinStatus`. */
    static _TAPI_RESULT_E enablePin1(const QString &pin);
    /**
     * Whether the request for PIN1 is switched on.
     * @return false also when the platform fails.
     * @platform `TAPI_SECURITY_GetPin1Status`.
     */
    bool simPinIsOpen();
    /** Publishes the outcome of a PIN1 request. @platform `UTIL_SetPinStatus`. */
    static void processPIN1ResultError(_TAPI_RESULT_E result);

    /** Verifies PIN2. Publishes nothing. @platform `TAPI_SECURITY_VerifyPin2Password`. */
    _TAPI_RESULT_E verifyPin2Code(const QString &pin2);
    /** Changes PIN2; publishes nothing. The log shows both PINs in clear. @platform `TAPI_SECURITY_ChangePinPassword`. */
    _TAPI_RESULT_E changeSimPin2(const QString &oldPin2, const QString &newPin2);
    /**
     * Unblocks PIN2 with its PUK; publishes nothing. The log shows PUK and PIN in clear.
     * @platform `TAPI_SECURITY_UnblockPinPassword`.
     */
    static _TAPI_RESULT_E unblockingPin2(const QString &puk2, const QString &newPin2);
    /**
     * The state of PIN2.
     * @param[out] status written by the platform
     * @platform `TAPI_SECURITY_GetAnyPinStatus`.
     */
    _TAPI_RESULT_E readPin2Status(_TAPI_SECURITY_PIN_STATUS_E &status);

    /** Verifies the UPIN. @platform `TAPI_SECURITY_VerifyPinPassword`. */
    static _TAPI_RESULT_E setupVerifyUpin(const QString &upin);
    /** Changes the UPIN. The log shows both PINs in clear. @platform `TAPI_SECURITY_ChangePinPassword`. */
    _TAPI_RESULT_E setupChangeUpin(const QString &oldUpin, const QString &newUpin);
    /** Unblocks the UPIN with its PUK. @platform `TAPI_SECURITY_UnblockPinPassword`. */
    static _TAPI_RESULT_E setupUnblockUpin(const QString &puk, const QString &newUpin);
    /**
     * The state of the UPIN.
     * @param[out] status written by the platform; 3 when the card does not use the UPIN, which is also
     *             assumed when the platform does not tell
     * @return #TAPI_RESULT_INVALID_PARAM, with nothing asked, for a null pointer.
     * @platform `TAPI_SECURITY_GetUPINUsageQualifier`, `TAPI_SECURITY_GetAnyPinStatus`.
     */
    _TAPI_RESULT_E getUpinStatus(_TAPI_SECURITY_PIN_STATUS_E *status);
    /** Publishes the outcome of a UPIN request. @platform `UTIL_SetPinStatus`. */
    static void processUPINResultError(_TAPI_RESULT_E result);

    /** @} */
    /** @name Own numbers
     * The subscriber's own numbers on the SIM (EF MSISDN, 3GPP TS 31.102). Guarded but for the limits and
     * the update rule.
     * @{ */

    /**
     * The numbers and names of the two lines. A line whose record the card does not give keeps the
     * caller's strings.
     * @platform `TAPI_OWNNUMBER_GetEntry` for records 1 and 2.
     */
    _TAPI_RESULT_E getMyNumber(QString &number1, QString &name1, QString &number2, QString &name2);
    /**
     * Stores an own number.
     * @param line record of the card, from 1; its low 16 bits are used
     * @param number at most 41 characters, stored in lower case
     * @param name at most 50 characters, any script
     * @return #TAPI_RESULT_INVALID_PARAM, with nothing asked, for a longer number or name.
     * @platform `TAPI_OWNNUMBER_SaveEntry`.
     */
    _TAPI_RESULT_E setMyNumber(int line, const QString &number, const QString &name);
    /**
     * Erases an own number.
     * @param line record of the card, from 1; its low 16 bits are used
     * @platform `TAPI_OWNNUMBER_DeleteEntry`.
     */
    _TAPI_RESULT_E deleteMyNumber(int line);
    /**
     * All own numbers of the card.
     * @param[in,out] list expected empty. Two strings a record are appended: name and number of record 1,
     *                of record 2 and so on, empty where the card gives none. Positions count from the
     *                start of the list.
     * @platform `TAPI_OWNNUMBER_GetCapacity`, `TAPI_OWNNUMBER_GetEntry`.
     */
    _TAPI_RESULT_E getMyNumberList(QStringList &list);
    /**
     * How long a number and a name may be.
     * @param[out] maxNumberLength extended by the card's extension range when it has one; values above 127
     *             read negative
     * @param[out] maxNameLength values above 127 read negative
     * @return the result of the range request when it failed; nothing is written then. Otherwise the
     *         result of the extension request, if the card has extensions.
     * @platform `TAPI_OWNNUMBER_GetRange`, `TAPI_OWNNUMBER_GetExtAvailable`, `TAPI_OWNNUMBER_GetExtRange`.
     */
    _TAPI_RESULT_E getMyNumberLimit(signed char &maxNumberLength, signed char &maxNameLength) const;
    /**
     * The update rule of an elementary file.
     * @param fileId 0 to 228, as the platform numbers the files
     * @param[out] rule the platform's rule, a 7 reported as 6; 6 when the platform fails
     * @return 1, with nothing asked or written, for a file identifier above 228.
     * @platform `TAPI_SIM_GetUSIMFileInfo`.
     */
    TAPI_RESULT_E getEFUpdateRule(unsigned char fileId, unsigned char &rule);

    /** @} */
    /** @name USIM accounts and device identity
     * None of these is guarded.
     * @{ */

    /**
     * The USIM applications of the card by label; publishes the card type and the active application.
     * @param[out] list a string an application; "Subscription  " and its number where the label is empty.
     *             Left as it was on a card without applications and on failure.
     * @param[out] activeIndex 1-based position of the active one, 0 when there are none
     * @param[out] count number of applications; the platform may write it on failure too
     * @return 1 when the platform answered 1 or there was no memory; every other result counts as success.
     * @platform `TAPI_SECURITY_GetNumOfUsim`, `UTIL_SetCardType`, `TAPI_SECURITY_GetUsimList`,
     *           `UTIL_SetActiveAccount`.
     */
    _TAPI_RESULT_E getUSIMAccountList(QStringList &list, unsigned char &activeIndex, unsigned char &count);
    /**
     * The label of the active USIM application.
     * @param[out] title left as it was when there is no such application
     * @param[out] count number of applications
     * @return 1 when getUSIMAccountList() returned 1, else 0.
     */
    _TAPI_RESULT_E getCurrentUSIMAccountTitle(QString &title, unsigned char &count);

    /**
     * The IMEI (3GPP TS 23.003).
     * @param[out] imei always written; empty when the platform gave none
     * @platform `TAPI_ACCE_GetImei`.
     */
    _TAPI_RESULT_E readIMEISerialNumber(QString &imei);
    /**
     * The version strings of the baseband processor.
     * @param[out] info on success the four strings, always terminated; bytes behind a terminator stay as they
     *             were
     * @return #TAPI_RESULT_INVALID_PARAM, with nothing asked, for a null pointer.
     * @platform `TAPI_ACCE_GetBpVersionInfo`.
     */
    TAPI_RESULT_E getBpVersionInfo(PHONE_BP_VERSION_INFO_S *info);
    /**
     * The version of the baseband processor.
     * @param[out] version room for 48 bytes; always terminated. " BP Version is NULL! " when the platform
     *             reports an empty version.
     * @return #TAPI_RESULT_INVALID_PARAM, with nothing asked, for a null pointer.
     * @platform `TAPI_ACCE_GetBpVersion`.
     */
    _TAPI_RESULT_E getBpVersion(unsigned char *version);
    /** Whether a crash of the baseband processor is shown. @return true. */
    bool isShowBpPanic();

    /** @} */

Q_SIGNALS:
    /** A setting could not be stored because the file system is full. */
    void flashFull();
    /** For the applications' use; the engine does not emit it. */
    void sigSetupOpertionNotAllowed();
    /** For the applications' use; the engine does not emit it. */
    void updateCallForwardingFlag();

private Q_SLOTS:
    /** Runs getCallForwardingFlag(). */
    void updateCFFlag();
};

/** PHONE_ENG_Setup::isAutoFallbackVoiceCall() of the one object, which is created if need be. */
PHONE_ENG_API bool PHONE_isAutoFallbackVoiceCall();

/** PHONE_ENG_Setup::getCameraMute() of the one object, which is created if need be. */
PHONE_ENG_API bool PHONE_GetCameraMute(PHONE_SETUP_CAMERA_MUTE_T &mute);

/** PHONE_ENG_Setup::getCameraOffImage() of the one object, which is created if need be. */
PHONE_ENG_API QString PHONE_GetCameraOffImage();
