// The settings library: the store, and what the product offers.
#include "PhoneSettings.h"

#include "Product.h"
#include "Room.h"
#include "SettingsAccess.h"

#include "SETUP_SET_Manager.h"
#include "SETUP_Utility.h"
#include "ZKbConfig.h"

namespace {

SettingsAccess &accessIn(void *(&room)[6])
{
    return inRoom<SettingsAccess>(room);
}

} // namespace

SETUP_SET_Manager::SETUP_SET_Manager(AM_Global::Apps app, bool commitEachWrite)
{
    makeInRoom<SettingsAccess>(m_room, Ofono::PhoneSettings::store(), app, commitEachWrite);
}

SETUP_SET_Manager::~SETUP_SET_Manager()
{
    leaveRoom<SettingsAccess>(m_room);
}

bool SETUP_SET_Manager::getSettingInfo(QString group, QString key, bool &value, bool defaultValue)
{
    return accessIn(m_room).read(group, key, value, defaultValue);
}

bool SETUP_SET_Manager::getSettingInfo(QString group, QString key, int &value, int defaultValue)
{
    return accessIn(m_room).read(group, key, value, defaultValue);
}

bool SETUP_SET_Manager::getSettingInfo(QString group, QString key, QString &value, QString defaultValue,
                                       bool encrypted)
{
    return accessIn(m_room).read(group, key, value, defaultValue, encrypted);
}

bool SETUP_SET_Manager::setSettingInfo(QString group, QString key, bool value)
{
    return accessIn(m_room).write(group, key, value);
}

bool SETUP_SET_Manager::setSettingInfo(QString group, QString key, int value)
{
    return accessIn(m_room).write(group, key, value);
}

bool SETUP_SET_Manager::setSettingInfo(QString group, QString key, QString value, bool encrypted)
{
    return accessIn(m_room).write(group, key, value, encrypted);
}

bool SETUP_SET_Manager::flush()
{
    return accessIn(m_room).flush();
}

SETUP_Utility::SETUP_Utility() = default;
SETUP_Utility::~SETUP_Utility() = default;

bool SETUP_Utility::isFeatureAvailable(unsigned short featureId)
{
    return Handset::Product::instance().hasFeature(featureId);
}

bool SETUP_Utility::getFlexBit(unsigned short flexBitId, bool &value)
{
    const auto bit = Handset::Product::instance().flexBit(flexBitId);
    value = bit.value_or(value);
    return bit.has_value();
}

bool ZKbConfig::isInputModeSupported(const QUuid &inputMode)
{
    return Handset::Product::instance().hasInputMethod(inputMode);
}
