// The settings library: the store, and what the product offers.
#include "PlatformCall.h"
#include "Room.h"
#include "SettingsAccess.h"

#include "SETUP_SET_Manager.h"
#include "SETUP_Utility.h"
#include "ZKbConfig.h"

using Simulator::Out;
using Simulator::platformCall;

namespace {

template <typename Value, typename... Rest>
bool readSetting(SettingsAccess &settings, const QString &group, const QString &key, Value &value,
                 const Value &defaultValue, const Rest &...encrypted)
{
    return platformCall(
        "SETUP_SET_Manager::getSettingInfo", {Out(&value)},
        [&] { return settings.read(group, key, value, defaultValue, encrypted...); }, group, key,
        defaultValue, encrypted...);
}

template <typename Value, typename... Rest>
bool writeSetting(SettingsAccess &settings, const QString &group, const QString &key, const Value &value,
                  const Rest &...encrypted)
{
    const bool written = platformCall(
        "SETUP_SET_Manager::setSettingInfo", {},
        [&] { return settings.write(group, key, value, encrypted...); }, group, key, value, encrypted...);
    if (!written)
        settings.refuse(); // also when the answer was scripted
    return written;
}

} // namespace

SETUP_SET_Manager::SETUP_SET_Manager(AM_Global::Apps app, bool commitEachWrite)
{
    makeInRoom<SettingsAccess>(m_room, SimulatedPhone::instance().settings(), app, commitEachWrite);
    platformCall(
        "SETUP_SET_Manager", {}, [] {}, app, commitEachWrite);
}

SETUP_SET_Manager::~SETUP_SET_Manager()
{
    platformCall("~SETUP_SET_Manager", {}, [] {});
    leaveRoom<SettingsAccess>(m_room);
}

bool SETUP_SET_Manager::getSettingInfo(QString group, QString key, bool &value, bool defaultValue)
{
    return readSetting(inRoom<SettingsAccess>(m_room), group, key, value, defaultValue);
}

bool SETUP_SET_Manager::getSettingInfo(QString group, QString key, int &value, int defaultValue)
{
    return readSetting(inRoom<SettingsAccess>(m_room), group, key, value, defaultValue);
}

bool SETUP_SET_Manager::getSettingInfo(QString group, QString key, QString &value, QString defaultValue,
                                       bool encrypted)
{
    return readSetting(inRoom<SettingsAccess>(m_room), group, key, value, defaultValue, encrypted);
}

bool SETUP_SET_Manager::setSettingInfo(QString group, QString key, bool value)
{
    return writeSetting(inRoom<SettingsAccess>(m_room), group, key, value);
}

bool SETUP_SET_Manager::setSettingInfo(QString group, QString key, int value)
{
    return writeSetting(inRoom<SettingsAccess>(m_room), group, key, value);
}

bool SETUP_SET_Manager::setSettingInfo(QString group, QString key, QString value, bool encrypted)
{
    return writeSetting(inRoom<SettingsAccess>(m_room), group, key, value, encrypted);
}

bool SETUP_SET_Manager::flush()
{
    auto &settings = inRoom<SettingsAccess>(m_room);
    const bool flushed =
        platformCall("SETUP_SET_Manager::flush", {}, [&settings] { return settings.flush(); });
    if (!flushed) {
        const int reason = errno;
        settings.discard(); // also when the answer was scripted
        errno = reason;
    }
    return flushed;
}

SETUP_Utility::SETUP_Utility()
{
    platformCall("SETUP_Utility", {}, [](PhoneState &) {});
}

SETUP_Utility::~SETUP_Utility()
{
    platformCall("~SETUP_Utility", {}, [](PhoneState &) {});
}

bool SETUP_Utility::isFeatureAvailable(unsigned short featureId)
{
    return platformCall(
        "SETUP_Utility::isFeatureAvailable", {},
        [featureId](PhoneState &) { return SimulatedPhone::instance().product().hasFeature(featureId); },
        featureId);
}

bool SETUP_Utility::getFlexBit(unsigned short flexBitId, bool &value)
{
    return platformCall(
        "SETUP_Utility::getFlexBit", {Out(&value)},
        [&](PhoneState &) {
            const auto bit = SimulatedPhone::instance().product().flexBit(flexBitId);
            value = bit.value_or(value);
            return bit.has_value();
        },
        flexBitId, value);
}

bool ZKbConfig::isInputModeSupported(const QUuid &inputMode)
{
    return platformCall(
        "ZKbConfig::isInputModeSupported", {},
        [&](PhoneState &) { return SimulatedPhone::instance().product().hasInputMethod(inputMode); },
        inputMode.toString());
}
