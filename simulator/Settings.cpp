// The settings library: the store, and what the product offers.
#include "PlatformCall.h"

#include "SETUP_SET_Manager.h"
#include "SETUP_Utility.h"
#include "ZKbConfig.h"

#include <cstdio>
#include <cstring>

using Simulator::Out;
using Simulator::platformCall;

namespace {

SettingsStore &store()
{
    return SimulatedPhone::instance().settings();
}

} // namespace

SETUP_SET_Manager::SETUP_SET_Manager(AM_Global::Apps app, bool commitEachWrite)
    : m_app(app)
    , m_commitEachWrite(commitEachWrite)
{
    platformCall(
        "SETUP_SET_Manager", {}, [](PhoneState &) {}, app, commitEachWrite);
}

SETUP_SET_Manager::~SETUP_SET_Manager()
{
    platformCall("~SETUP_SET_Manager", {}, [](PhoneState &) {});
    if (m_collection == Collection::Open && !store().commit(this))
        std::fprintf(stderr, "settings store: collected writes are lost: %s\n", std::strerror(errno));
    else if (m_collection == Collection::Failed)
        store().rollback(this);
}

bool SETUP_SET_Manager::getSettingInfo(QString group, QString key, bool &value, bool defaultValue)
{
    return platformCall(
        "SETUP_SET_Manager::getSettingInfo", {Out(&value)},
        [&] {
            const auto stored = store().readInteger({m_app, group, key}, SettingsStore::Type::Bool);
            value = stored ? *stored != 0 : defaultValue;
            return stored.has_value();
        },
        group, key, defaultValue);
}

bool SETUP_SET_Manager::getSettingInfo(QString group, QString key, int &value, int defaultValue)
{
    return platformCall(
        "SETUP_SET_Manager::getSettingInfo", {Out(&value)},
        [&] {
            const auto stored = store().readInteger({m_app, group, key}, SettingsStore::Type::Int);
            value = stored.value_or(defaultValue);
            return stored.has_value();
        },
        group, key, defaultValue);
}

bool SETUP_SET_Manager::getSettingInfo(QString group, QString key, QString &value, QString defaultValue,
                                       bool encrypted)
{
    return platformCall(
        "SETUP_SET_Manager::getSettingInfo", {Out(&value)},
        [&] {
            const auto stored = store().readText({m_app, group, key});
            value = stored.value_or(defaultValue);
            return stored.has_value();
        },
        group, key, defaultValue, encrypted);
}

bool SETUP_SET_Manager::setSettingInfo(QString group, QString key, bool value)
{
    return keep(platformCall(
        "SETUP_SET_Manager::setSettingInfo", {},
        [&] {
            return mayWrite()
                && store().writeInteger({m_app, group, key}, SettingsStore::Type::Bool, value ? 1 : 0,
                                        m_commitEachWrite ? nullptr : this);
        },
        group, key, value));
}

bool SETUP_SET_Manager::setSettingInfo(QString group, QString key, int value)
{
    return keep(platformCall(
        "SETUP_SET_Manager::setSettingInfo", {},
        [&] {
            return mayWrite()
                && store().writeInteger({m_app, group, key}, SettingsStore::Type::Int, value,
                                        m_commitEachWrite ? nullptr : this);
        },
        group, key, value));
}

bool SETUP_SET_Manager::setSettingInfo(QString group, QString key, QString value, bool encrypted)
{
    return keep(platformCall(
        "SETUP_SET_Manager::setSettingInfo", {},
        [&] {
            return mayWrite()
                && store().writeText({m_app, group, key}, value, m_commitEachWrite ? nullptr : this);
        },
        group, key, value, encrypted));
}

bool SETUP_SET_Manager::flush()
{
    const bool flushed = platformCall("SETUP_SET_Manager::flush", {}, [this] {
        if (m_collection == Collection::Failed)
            errno = m_failure;
        return m_collection == Collection::Empty
            || (m_collection == Collection::Open && store().commit(this));
    });
    if (!flushed) {
        const int reason = errno;
        store().rollback(this);
        errno = reason;
    }
    m_collection = Collection::Empty;
    return flushed;
}

/** A collection with one failed write is given up as a whole, so nothing more goes into it. */
bool SETUP_SET_Manager::mayWrite() const
{
    if (m_collection == Collection::Failed)
        errno = m_failure;
    return m_collection != Collection::Failed;
}

bool SETUP_SET_Manager::keep(bool written)
{
    if (m_commitEachWrite)
        return written;
    if (!written && m_collection != Collection::Failed) {
        m_collection = Collection::Failed;
        m_failure = errno;
    } else if (m_collection == Collection::Empty) {
        m_collection = Collection::Open;
    }
    return written;
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
        [featureId](PhoneState &phone) { return phone.product.missingFeatures.count(featureId) == 0; },
        featureId);
}

bool SETUP_Utility::getFlexBit(unsigned short flexBitId, bool &value)
{
    return platformCall(
        "SETUP_Utility::getFlexBit", {Out(&value)},
        [&](PhoneState &phone) {
            const auto bit = phone.product.flexBits.find(flexBitId);
            if (bit == phone.product.flexBits.end())
                return false;
            value = bit->second;
            return true;
        },
        flexBitId, value);
}

bool ZKbConfig::isInputModeSupported(const QUuid &inputMode)
{
    return platformCall(
        "ZKbConfig::isInputModeSupported", {},
        [&](PhoneState &phone) {
            const auto &methods = phone.product.inputMethods;
            return std::find(methods.begin(), methods.end(), inputMode) != methods.end();
        },
        inputMode.toString());
}
