// Network selection.
#pragma once

#include "PHONE_SETUP_Types.h"

#include "TAPI_NETWORK.h"
#include "TAPI_RESULT.h"

#include <QObject>
#include <QString>

/**
 * Network selection: how the modem looks for networks, which ones it finds and which it prefers.
 *
 * One object a process, from instance() until destroy() or destruction(); it keeps no state. Every
 * operation is synchronous. Use the object from one thread.
 *
 * @par Results
 * An operation that returns bool gives true when the platform answered 0. Otherwise it gives false, and
 * unless it says otherwise its out-parameters keep their values and the platform's code goes to the log.
 *
 * @par Network ids
 * A network id is the network's numeric code: country code and network code, as digits. An id that is
 * too long for the platform's field is refused with false before anything is asked of the platform, since
 * a cut id would name another network.
 *
 * @par Language of names
 * Names come in one of two languages: the platform is asked for the second one when the system language
 * is 20 or 22.
 */
class PHONE_ENG_API PHONE_ENG_NtInterface : public QObject {
    Q_OBJECT

public:
    /** @name The object
     * @{ */

    /** The one object, created on first use. */
    static PHONE_ENG_NtInterface *instance();
    /** Deletes the one object, if there is one; connections to it are lost. */
    static void destroy();

    PHONE_ENG_NtInterface();
    ~PHONE_ENG_NtInterface() override;

    /** "PHONE_ENG_NtInterface". */
    virtual const char *className() const;
    /** Sets #metaObj; the constructor has done so already. */
    virtual void initMetaObject();
    /** The same as destroy(): deletes the one object, whatever object it is called on. */
    virtual void destruction();

    /** The one object, null while there is none. */
    static PHONE_ENG_NtInterface *m_pInstance;
    /** The class's meta-object, null until the first object was made. */
    static const QMetaObject *metaObj;

    /** Turns a platform result into success or failure and logs the code of a failure. */
    bool result(_TAPI_RESULT_E code);

    /** @} */
    /** @name Search settings
     * @{ */

    /**
     * How the modem selects a network.
     * @param[out] mode filled by the platform
     * @return false, with nothing asked, for a null pointer.
     * @platform `TAPI_NETWORK_GetSearchMode`.
     */
    bool getSearchMode(_TAPI_NETWORK_SEARCH_MODE_E *mode);
    /** @platform `TAPI_NETWORK_SetSearchMode`. */
    bool setSearchMode(_TAPI_NETWORK_SEARCH_MODE_E mode);

    /**
     * How often the modem searches. The name is spelt so.
     * @param[out] speed filled by the platform
     * @return false, with nothing asked, for a null pointer.
     * @platform `TAPI_NETWORK_GetSearchFrequency`.
     */
    bool getSearchFreqency(_TAPI_NETWORK_SEARCH_SPEED_E *speed);
    /** @platform `TAPI_NETWORK_SetSearchFrequency`. */
    bool setSearchFreqency(_TAPI_NETWORK_SEARCH_SPEED_E speed);

    /**
     * The frequency band in use.
     * @param[out] band filled by the platform
     * @return false, with nothing asked, for a null pointer.
     * @platform `TAPI_NETWORK_GetBand`.
     */
    bool getBand(_TAPI_NETWORK_BAND_E *band);

    /**
     * Selects the frequency band. When a call turns out to be coming in, the band that was in use is put
     * back and the answer is false, although the platform accepted the new one. When the band in use
     * could not be read there is nothing known to put back: the new band then stays, and the answer is
     * false all the same.
     * @platform `TAPI_NETWORK_GetBand`, `TAPI_NETWORK_SetBand`, `UTIL_GetIncomingCallStatus`, and
     *           `TAPI_NETWORK_SetBand` once more to put the band back.
     */
    bool setBand(_TAPI_NETWORK_BAND_E band);

    /**
     * Whether a tone sounds when the phone finds or loses service.
     * @param[out] on set on success; true exactly when the platform's byte is 1
     * @platform `TAPI_ACCE_GetServiceTone`.
     */
    bool getServiceTone(bool &on);
    /** @platform `TAPI_ACCE_SetServiceTone` with 1 or 0. */
    bool setServiceTone(bool on);

    /**
     * Whether a tone sounds when a pending call drops.
     * @param[out] on set on success; true exactly when the platform's byte is 1
     * @platform `TAPI_CS_GetPendingCallDropToneStatus`.
     */
    bool getDropTone(bool &on);
    /** @platform `TAPI_CS_SetPendingCallDropToneStatus` with 1 or 0. */
    bool setDropTone(bool on);

    /** @} */
    /** @name Scanning and registration
     * The search requests start or stop the modem's work; the networks found do not come with them.
     * @{ */

    /** Starts a search for networks. @platform `TAPI_NETWORK_FindNewNetworks`. */
    bool findNewNetwork();
    /** Starts the search again. @platform `TAPI_NETWORK_RescanNetwork`. */
    bool rescanNetwork();
    /** Starts a search for the networks that may be used here. @platform `TAPI_NETWORK_GetAvailableNetwork`. */
    bool getAvailableNetworks();
    /** Stops that search. @platform `TAPI_NETWORK_CancelGetAvailableNetworks`. */
    bool cancelGetAvailableNetworks();
    /** Stops the search for networks. @platform `TAPI_NETWORK_CancelFindNewNetworks`. */
    bool cancelFindNewNetworks();

    /**
     * Number of known networks. The name is spelt so.
     * @return the count; 0 when the platform failed without giving one.
     * @platform `TAPI_NETWORK_GetPlmnCount`.
     */
    unsigned short getKwnownNetworksCnt();

    /**
     * Lists the known networks.
     * @param[out] networks room for getKwnownNetworksCnt() records; must not be null
     * @platform `TAPI_NETWORK_GetPlmnList`.
     */
    bool getKnownNetworks(_TAPI_NETWORK_PLMN_INFO_S *networks);

    /**
     * Registers the phone on a network.
     * @param networkId at most 15 characters; a longer one is refused
     * @platform `TAPI_NETWORK_RegisterOperator`.
     */
    bool registerNetwork(const QString &networkId);

    /**
     * Looks up the two names of a network.
     * @param networkId at most 11 characters; a longer one is refused
     * @param[out] shortName set on success; at most 25 characters
     * @param[out] longName set on success; at most 25 characters
     * @platform `TAPI_NETWORK_GetChosenPlmnName`.
     */
    bool getNetworkName(const QString &networkId, QString &shortName, QString &longName);

    /**
     * Fetches operator names in bulk.
     * @param[in,out] names @p count records for the platform to fill
     * @param count number of records
     * @return false, with nothing asked, for a null array or a count of 0.
     * @platform `TAPI_NETWORK_GetOperatorNameList`.
     */
    bool getOperatorNameList(_TAPI_PLMN_INFO_STRUCT_S *names, unsigned short count);

    /**
     * Whether the my-list screen may be offered.
     * @return false exactly when the SIM has both enhanced operator names (feature 2037) and an operator
     *         PLMN list (feature 2144).
     * @platform `TAPI_FTRDB_GetAvailability` for both features.
     */
    bool myListScreenIsAvailable();

    /** @} */
    /** @name The preferred network list
     * The SIM's ordered list of the networks that the modem tries first (EF PLMNwAcT, 3GPP TS 31.102).
     * Positions run from 0 upward and need not be contiguous.
     * @{ */

    /**
     * Reads the list.
     * @param[out] list filled by the platform; room for 100 entries
     * @return false, with nothing asked, for a null pointer.
     * @platform `TAPI_NETWORK_GetPreferredOperator`.
     */
    bool getPreferredNetworks(_TAPI_NETWORK_PREFERRED_S *list);

    /**
     * Adds a network; emits preferredChanged() on success.
     * @param priority position in the list
     * @param networkId at most 15 characters; a longer one is refused
     * @platform `TAPI_NETWORK_SetPreferredOperator`.
     */
    bool addPreferredNetwork(unsigned int priority, const QString &networkId);

    /**
     * Deletes the entry at a position; emits preferredChanged() on success.
     * @platform `TAPI_NETWORK_DeleteSelectedOperator`.
     */
    bool delPreferredNetwork(unsigned int priority);

    /**
     * Clears the list: deletes every position from the highest one in use down to 0 and emits
     * preferredChanged(). Deletions that fail are not reported. No SIM has a position above 13106; should the
     * list name some all the same, just the named ones are deleted there, so that a card that lies costs at
     * most 13,207 requests and no listed entry stays.
     * @return false when the list could not be read; nothing is deleted or emitted then.
     * @platform `TAPI_NETWORK_GetPreferredOperator`, `TAPI_NETWORK_DeleteSelectedOperator` once a position.
     */
    bool delAllPreferredNetwork();

    /**
     * Moves a network to another position.
     * @param oldPriority the network's position
     * @param newPriority where it is to go
     * @param networkId its id, at most 15 characters; a longer one is refused before anything is deleted
     * @return true when both steps succeeded. False without a signal when the entry could not be deleted;
     *         false with preferredChanged() when it was deleted but could not be added again: it is then
     *         gone from the list.
     * @platform `TAPI_NETWORK_DeleteSelectedOperator`, then `TAPI_NETWORK_SetPreferredOperator`.
     */
    bool reorderNetworkPriority(unsigned int oldPriority, unsigned int newPriority, QString &networkId);

    /**
     * Number of entries that the SIM can hold. The name is spelt so.
     * @param[out] capacity filled by the platform
     * @return false, with nothing asked, for a null pointer.
     * @platform `TAPI_NETWORK_GetTotalPreferredOperatorNumber`.
     */
    bool getCapacityPreferedNetwork(unsigned int *capacity);

    /** @} */
    /** @name The service provider
     * @{ */

    /**
     * The service provider name of the SIM and its display condition (EF SPN, 3GPP TS 31.102).
     * @return the name, null when the SIM holds none, empty when it could not be read.
     * @platform `TAPI_NETWORK_GetServiceProviderName`.
     */
    PHONE_SERVICE_PROVIDER_S getServiceProviderName();

    /** @} */

Q_SIGNALS:
    /** The preferred network list has changed, or may have. A receiver may destroy the object. */
    void preferredChanged();
};

/**
 * Converts a UCS-2 name field of the telephony library.
 *
 * @param field units in the processor's byte order
 * @param maxUnits units in the field
 * @return the units before the first 0, at most @p maxUnits; the null string when there are none.
 */
PHONE_ENG_API QString Unicode2QStr(unsigned short *field, unsigned short maxUnits);

/**
 * Whether a network is the subscriber's home network: its id equals the first five digits of the IMSI.
 *
 * @param networkId the network's id; its first "-" is ignored. An id with a three-digit network code
 *        never matches.
 * @return false also when the IMSI could not be read.
 * @platform `TAPI_ACCE_GetImsi`.
 */
PHONE_ENG_API bool PHONE_SET_IsHomeNetwork(const QString &networkId);
