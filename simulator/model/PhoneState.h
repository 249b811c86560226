// What the simulated phone knows: its modem, SIM, network and shared state.
#pragma once

#include "TAPI_ACCE.h"
#include "TAPI_CALL.h"
#include "TAPI_CS.h"
#include "TAPI_NETWORK.h"
#include "TAPI_SECURITY.h"

#include <QString>

#include <array>
#include <map>
#include <string>
#include <tuple>
#include <vector>

/**
 * The shared phone state behind the UTIL_ functions. Each simulated phone has its own: one that all processes share would
 * tell of the card, the line and the calls of another phone.
 */
struct SharedState {
    int dialHyphenation = 0;
    int chargeType = -1;
    int restrictId = 0;
    int restrictNextId = 0;
    int phoneLine = 0;
    int cphsForwarding = 0;
    int cphsVoiceMail = 1;
    int simPinBattery = 0;
    int pinStatus = 0;
    int cardType = 0;
    int activeAccount = 0;
    int incomingCall = 0;
};

/** A push-to-talk call. */
struct PushToTalkCall {
    unsigned char callId = 0; ///< 0 for none
    bool active = false;
    bool audioBufferComplete = false;
};

/** Calls and what sounds in them. The call path allocates nothing, so neither does this state. */
struct CallState {
    _TAPI_CALL_SESSION_TABLE_S table = {};
    std::array<PushToTalkCall, 4> pushToTalkCalls = {};
    bool pushToTalkAccepts = true;
    bool muted = false;
    char lastTone = 0;
    unsigned int tones = 0;
    unsigned int muteBeeps = 0;
};

/** Accessories and the device's identity. */
struct DeviceState {
    unsigned char ttyMode = 0;
    int speakerVolume = 5;
    unsigned short accessoryStatus = 0;
    _TAPI_USB_CABLE_STATUS_E usbCable = TAPI_USB_CABLE_DETACHED;
    _TAPI_USB_CHARGING_E usbCharging = TAPI_USB_CHARGING_OFF;
    unsigned char serviceTone = 0;
    std::string imei = "350077523237513";
    std::string bpVersion = "R2.04.1";
    std::string bpFlexVersion = "FLEX-7";
    std::string dspVersion = "DSP-3.1";
    std::string technology = "GSM/WCDMA";
};

/** One forwarding, as the network keeps it. */
struct Forwarding {
    bool active = false;
    std::string number;
    unsigned char noReplyTimer = 0;
};

/** Line, service class bit and condition. */
using ForwardingKey = std::tuple<int, unsigned char, unsigned int>;

/** Settings that the network, the SIM or the modem keep for calls. */
struct ServiceState {
    signed char line = 0;
    unsigned char lineLock = 0;
    std::map<ForwardingKey, Forwarding> forwardings;

    std::string remainingCredit = "12.50";
    std::string callMeter = "3.20";
    std::string callMeterMax = "50.00";
    _TAPI_CS_CALL_TIME_S leftCallTime = {2, 30, 0};
    _TAPI_CS_CALL_TIME_S totalCallTime = {1, 5, 3};
    unsigned char chargeType = 1;
    unsigned char chargeDisplay = 1;
    std::string currency = "EUR";
    std::string price = "0.12";

    unsigned char dtmfType = 0;
    unsigned char restrictNextCall = 0;
    unsigned char callWaiting = 1;
    unsigned char autoRedial = 0;
    unsigned char dropTone = 0;
    unsigned char fixedDialing = 0;
    unsigned char fixedDialingAvailable = 1;

    std::map<unsigned short, unsigned char> featureSettings; ///< of the feature database; 0 for every other
};

/** A PIN of the card with its PUK and what is left of their tries. */
struct Pin {
    std::string code;
    std::string puk;
    int triesLeft = 3;
    int pukTriesLeft = 10;
    bool verified = false;
};

struct OwnNumber {
    std::string number;
    QString name;
};

/** The card. */
struct SimState {
    Pin pin1 = {"1234", "12345678"};
    Pin pin2 = {"5678", "87654321"};
    Pin upin = {"2468", "13572468"};
    unsigned char pin1Request = 1;
    unsigned char upinQualifier = 8;

    std::vector<OwnNumber> ownNumbers = {{"+491701234567", QStringLiteral("Line 1")},
                                         {"+491707654321", QStringLiteral("Line 2")},
                                         {"", QString()},
                                         {"", QString()}};
    unsigned char maxNumberLength = 20;
    unsigned char maxNameLength = 14;
    unsigned short numberExtension = 20;

    std::vector<QString> usimLabels = {QStringLiteral("Work"), QStringLiteral("Home")};
    unsigned char activeUsim = 1;
    std::map<unsigned char, unsigned char> updateRules; ///< by file; 1 for every other

    std::string imsi = "001010123456789";
    unsigned char providerDisplayCondition = 1;
    QString providerName = QStringLiteral("Test Mobile");
};

/** A network around the phone. */
struct Network {
    std::string id;
    QString longName;
    QString shortName;
    QString secondLongName; ///< in the second language
    QString secondShortName;
    bool acceptsRegistration = true;
    bool known = false; ///< a search has found it
    bool inRange = true;
};

struct NetworkState {
    _TAPI_NETWORK_SEARCH_MODE_E searchMode = TAPI_NETWORK_SEARCH_AUTOMATIC;
    _TAPI_NETWORK_SEARCH_SPEED_E searchSpeed = TAPI_NETWORK_SEARCH_MEDIUM;
    _TAPI_NETWORK_BAND_E band = TAPI_NETWORK_BAND_AUTOMATIC;
    std::vector<Network> networks = {
        {"00101", QStringLiteral("Test Mobile"), QStringLiteral("Test"), QString::fromUtf8("测试移动"),
         QString::fromUtf8("测试")},
        {"00102", QStringLiteral("Second Network"), QStringLiteral("Second"), QString::fromUtf8("第二网络"),
         QString::fromUtf8("第二")},
        {"00103", QStringLiteral("Closed Network"), QStringLiteral("Closed"), QString::fromUtf8("封闭网络"),
         QString::fromUtf8("封闭"), false},
    };
    std::string registeredId = "00101";
    std::map<unsigned int, std::string> preferred; ///< network id by position
    unsigned int preferredCapacity = 20;
};

struct PhoneState {
    SharedState shared;
    CallState calls;
    DeviceState device;
    ServiceState services;
    SimState sim;
    NetworkState network;
};
