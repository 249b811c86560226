// Accessories, tones, text telephone, and the identity of the device and its subscriber.
#include "Card.h"
#include "Interfaces.h"
#include "PhoneSettings.h"
#include "Text.h"

#include "TAPI_ACCE.h"
#include "TAPI_TTY.h"

using namespace Ofono;

namespace {

constexpr int loudest = 100;

constexpr unsigned char textTelephoneOff = 0;
constexpr unsigned char textTelephoneOn = 1;
constexpr unsigned char lastTextTelephoneMode = 3; ///< the others carry voice over one way

constexpr char serviceToneKey[] = "serviceTone";

_TAPI_RESULT_E readModem(Properties &modem)
{
    return Daemon::instance().properties(modemInterface, Deadline::AtHand, modem);
}

/** The modem tells who it is once it has been switched on. */
template <typename Byte, std::size_t Size>
_TAPI_RESULT_E readIdentity(const char *name, Byte (&field)[Size])
{
    Properties modem;
    const _TAPI_RESULT_E result = readModem(modem);
    if (result != TAPI_RESULT_SUCC)
        return result;
    const auto text = modem.text(name);
    if (!text)
        return modem.flag("Powered").value_or(false) ? TAPI_RESULT_FAIL : TAPI_RESULT_MODEM_OFFLINE;
    fillLatin1(field, *text);
    return TAPI_RESULT_SUCC;
}

} // namespace

_TAPI_RESULT_E TAPI_TTY_GetTtyMode(unsigned char *mode)
{
    Properties telephone;
    const _TAPI_RESULT_E result = Daemon::instance().properties(textTelephony, Deadline::Network, telephone);
    if (result != TAPI_RESULT_SUCC)
        return result;
    const auto enabled = telephone.flag("Enabled");
    if (!enabled)
        return TAPI_RESULT_FAIL;
    *mode = *enabled ? textTelephoneOn : textTelephoneOff;
    return TAPI_RESULT_SUCC;
}

_TAPI_RESULT_E TAPI_TTY_SetTtyMode(unsigned char mode)
{
    if (mode > lastTextTelephoneMode)
        return TAPI_RESULT_INVALID_PARAM;
    if (mode > textTelephoneOn)
        return TAPI_RESULT_NOT_SUPPORTED;
    return Daemon::instance().setProperty(textTelephony, "Enabled", mode == textTelephoneOn);
}

_TAPI_RESULT_E TAPI_ACCE_SetSpeakerVolume(int volume)
{
    if (volume < 0 || volume > loudest)
        return TAPI_RESULT_INVALID_PARAM;
    return Daemon::instance().setProperty(callVolume, "SpeakerVolume", static_cast<std::uint8_t>(volume));
}

_TAPI_RESULT_E TAPI_ACCE_NotifyAudioAccessoryStatus(unsigned short)
{
    return TAPI_RESULT_NOT_SUPPORTED;
}

_TAPI_RESULT_E TAPI_ACCE_SetUsbCableStatus(_TAPI_USB_CABLE_STATUS_E, _TAPI_USB_CHARGING_E)
{
    return TAPI_RESULT_NOT_SUPPORTED;
}

_TAPI_RESULT_E TAPI_ACCE_GetServiceTone(unsigned char *on)
{
    return PhoneSettings::readByte(serviceToneKey, on);
}

_TAPI_RESULT_E TAPI_ACCE_SetServiceTone(unsigned char on)
{
    return PhoneSettings::write(serviceToneKey, on);
}

_TAPI_RESULT_E TAPI_ACCE_GetImei(TAPI_IMEI_A imei)
{
    TAPI_IMEI_A number;
    const _TAPI_RESULT_E result = readIdentity("Serial", number);
    if (result == TAPI_RESULT_SUCC)
        std::copy(std::begin(number), std::end(number), imei);
    return result;
}

_TAPI_RESULT_E TAPI_ACCE_GetImsi(TAPI_IMSI_A imsi)
{
    Properties card;
    const _TAPI_RESULT_E result = Card::read(card);
    if (result != TAPI_RESULT_SUCC)
        return result;
    const auto identity = card.text("SubscriberIdentity");
    if (!identity) // not before the PIN was entered
        return TAPI_RESULT_SIM_UNAVAILABLE;
    fillLatin1(imsi, sizeof(TAPI_IMSI_A), *identity);
    return TAPI_RESULT_SUCC;
}

/** The daemon knows no version of the signal processor, and none of the product's own settings. */
_TAPI_RESULT_E TAPI_ACCE_GetBpVersionInfo(_TAPI_ACCE_BP_VERSION_INFO_S *info)
{
    _TAPI_ACCE_BP_VERSION_INFO_S versions = {};
    const _TAPI_RESULT_E result = readIdentity("Revision", versions.bpVer);
    if (result != TAPI_RESULT_SUCC)
        return result;
    Properties network;
    if (Daemon::instance().properties(networkRegistration, Deadline::AtHand, network) == TAPI_RESULT_SUCC)
        fillLatin1(versions.technology, network.text("Technology").value_or(""));
    *info = versions;
    return TAPI_RESULT_SUCC;
}

_TAPI_RESULT_E TAPI_ACCE_GetBpVersion(TAPI_BP_VER_A version)
{
    TAPI_BP_VER_A revision;
    const _TAPI_RESULT_E result = readIdentity("Revision", revision);
    if (result == TAPI_RESULT_SUCC)
        std::copy(std::begin(revision), std::end(revision), version);
    return result;
}
