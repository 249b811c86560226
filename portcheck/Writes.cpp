// Settings that are changed, read back and put back.
#include "Conformance.h"

#include "PHONE_ENG_WrapTapi.h"

#include "SETUP_Utility.h"
#include "TAPI_SECURITY.h"

#include <sys/wait.h>
#include <unistd.h>

#include <algorithm>
#include <memory>

namespace Conformance {

namespace {

using Setup = PHONE_ENG_Setup;
using Net = PHONE_ENG_NtInterface;

/** Sets another value, reads it back, and puts the first one back whatever happened. */
template <typename Get, typename Set, typename Other>
void keepsWhatIsSet(Get get, Set set, Other other)
{
    const auto before = get();
    const auto wanted = other(before);
    try {
        set(wanted);
        expect(get() == wanted, "what was set is not what is read");
    } catch (const Outcome &) {
        try {
            set(before);
        } catch (const Outcome &) {
            // What cannot be set could not be changed either.
        }
        throw;
    }
    set(before);
    expect(get() == before, "could not be put back");
}

bool opposite(bool value)
{
    return !value;
}

void stored(bool answer)
{
    expect(answer, "is not stored");
}

Check preference(const char *name, bool (Setup::*getter)(), bool (Setup::*setter)(bool))
{
    return {"preferences", name, [=] {
                keepsWhatIsSet([&] { return (setup().*getter)(); },
                               [&](bool value) { stored((setup().*setter)(value)); }, opposite);
            }};
}

/** A setting of the modem or the network that is on or off. */
Check onOff(const char *name, _TAPI_RESULT_E (Setup::*getter)(bool &), _TAPI_RESULT_E (Setup::*setter)(bool))
{
    return {"options", name, [=] {
                openSession();
                keepsWhatIsSet(
                    [&] {
                        bool value = false;
                        answered((setup().*getter)(value));
                        return value;
                    },
                    [&](bool value) { answered((setup().*setter)(value)); }, opposite);
            }};
}

Check onOff(const char *name, bool (Net::*getter)(bool &), bool (Net::*setter)(bool))
{
    return {"network", name, [=] {
                openSession();
                keepsWhatIsSet(
                    [&] {
                        bool value = false;
                        answered((network().*getter)(value));
                        return value;
                    },
                    [&](bool value) { answered((network().*setter)(value)); }, opposite);
            }};
}

void aStoredPreferenceIsSeenByTheNextProcess()
{
    const bool before = setup().isPrepend();
    stored(setup().setPrepend(!before));
    const pid_t reader = fork();
    if (reader == 0) {
        // A process of its own, not a copy of this one.
        const std::string expected = before ? "false" : "true";
        execl("/proc/self/exe", "kvq-port-conformance", "--is-prepend", expected.c_str(), nullptr);
        _exit(1);
    }
    int status = 0;
    const bool seen = reader > 0 && waitpid(reader, &status, 0) == reader && status == 0;
    stored(setup().setPrepend(before));
    expect(seen, "the next process reads another value");
}

void numbersAreKept()
{
    keepsWhatIsSet(
        [] {
            int value = 0;
            setup().getAudibleTimer(value);
            return value;
        },
        [](int value) { stored(setup().setAudibleTimer(value)); },
        [](int value) { return value == 60 ? 120 : 60; });
}

void textsAreKeptTogether()
{
    keepsWhatIsSet(
        [] {
            // The entries themselves: a one-touch number would hide one.
            QStringList list;
            for (int slot = 1; slot <= 9; ++slot)
                list += setup().getTurboDialing(slot, true);
            return list;
        },
        [](const QStringList &list) { stored(setup().setTurboDialing(list)); },
        [](QStringList list) {
            QString number;
            for (unsigned char slot = 1; slot <= 9; ++slot) {
                if (!setup().isOneTouchNumber(slot, number))
                    list[slot - 1] = QString::fromUtf8("555000%1@Büro").arg(slot);
            }
            return list;
        });
}

void theTextTelephoneModeIsKept()
{
    openSession();
    keepsWhatIsSet(
        [] {
            int mode = -1;
            answered(PHONE_ENG_TAPI_GetTTYMode(mode));
            return mode;
        },
        [](int mode) { answered(PHONE_ENG_TAPI_SetTTYMode(mode)); },
        [](int mode) { return mode == 1 ? 2 : 1; });
}

void theDtmfTypeIsKept()
{
    openSession();
    keepsWhatIsSet(
        [] {
            unsigned char type = 0;
            answered(setup().getDTMF(type));
            return type;
        },
        [](unsigned char type) { answered(setup().setDTMF(type)); },
        [](unsigned char type) { return static_cast<unsigned char>(type == 0 ? 1 : 0); });
}

void theSearchSpeedIsKept()
{
    openSession();
    keepsWhatIsSet(
        [] {
            auto speed = TAPI_NETWORK_SEARCH_SLOW;
            answered(network().getSearchFreqency(&speed));
            return speed;
        },
        [](_TAPI_NETWORK_SEARCH_SPEED_E speed) { answered(network().setSearchFreqency(speed)); },
        [](_TAPI_NETWORK_SEARCH_SPEED_E speed) {
            return speed == TAPI_NETWORK_SEARCH_SLOW ? TAPI_NETWORK_SEARCH_FAST : TAPI_NETWORK_SEARCH_SLOW;
        });
}

void theSelectedLineIsKept()
{
    constexpr unsigned short secondLine = 2007;
    if (!SETUP_Utility().isFeatureAvailable(secondLine))
        leave("the product has one line");
    openSession();
    keepsWhatIsSet(
        [] {
            int line = 0;
            answered(setup().currentLineNo(line));
            return line;
        },
        [](int line) { answered(setup().setLineNo(line)); }, [](int line) { return line == 1 ? 2 : 1; });
}

void aForwardingIsKept()
{
    openSession();
    using State = std::pair<bool, QString>;
    const auto get = [] {
        State state;
        answered(setup().getVoiceCallsDivert(state.first, state.second, TAPI_CS_DIVERT_NO_REPLY));
        return state;
    };
    const State before = get();
    if (before.first || !before.second.isEmpty())
        leave("a number is registered, whose timer could not be put back");
    const QString number = QStringLiteral("5550001");
    answered(setup().divertVoiceCallsWithTime(true, number, 10));
    State set;
    try {
        set = get();
    } catch (const Outcome &) {
        setup().divertVoiceCallsWithTime(false, number, 10);
        throw;
    }
    answered(setup().divertVoiceCallsWithTime(false, number, 10));
    expect(set.first && set.second.endsWith(number), "is not active to the number that was set");
    expect(!get().first, "is active after it was switched off");
}

void anOwnNumberIsKept()
{
    openSession();
    using Entry = std::pair<QString, QString>; // number and name
    keepsWhatIsSet(
        [] {
            Entry line1;
            Entry line2;
            answered(setup().getMyNumber(line1.first, line1.second, line2.first, line2.second));
            return line1;
        },
        [](const Entry &entry) { answered(setup().setMyNumber(1, entry.first, entry.second)); },
        [](const Entry &entry) {
            return Entry(entry.first.isEmpty() ? QStringLiteral("5550001") : entry.first,
                         QStringLiteral("Check"));
        });
}

/** The numbers of all records, their names aside. */
QStringList ownNumbers()
{
    QStringList list;
    answered(setup().getMyNumberList(list));
    QStringList numbers;
    for (int entry = 1; entry < list.size(); entry += 2)
        numbers += list.at(entry);
    return numbers;
}

void writingANumberLeavesTheOthers()
{
    openSession();
    const QStringList before = ownNumbers();
    if (before.size() < 2)
        leave("the card holds fewer than two own numbers");
    QString name;
    QString ignored;
    QString number;
    answered(setup().getMyNumber(number, name, ignored, ignored));
    answered(setup().setMyNumber(1, QStringLiteral("5550002"), name));
    const QStringList set = ownNumbers();
    answered(setup().setMyNumber(1, number, name));
    expect(set.size() == before.size() && set.mid(1) == before.mid(1),
           "the others are " + set.mid(1).join(QLatin1Char(' ')).toStdString());
    expect(ownNumbers() == before, "could not be put back");
}

/** A guessed PIN would cost a try, and a PIN among the arguments could be read by everybody. */
void verifyingAPinChangesNoLock()
{
    const QString pin = qEnvironmentVariable("KVQ_PIN");
    if (pin.isEmpty())
        leave("KVQ_PIN does not name the PIN of the card");
    openSession();
    const auto lock = [] {
        unsigned char status = 0;
        const _TAPI_RESULT_E result = TAPI_SECURITY_GetPin1Status(1, &status);
        return std::pair(result, status);
    };
    const auto before = lock();
    const _TAPI_RESULT_E verified = setup().setupVerifySimPin(pin);
    expect(lock() == before, "the request for PIN1 is another one afterwards");
    answered(verified);
}

void aPreferredNetworkIsKept()
{
    openSession();
    const auto priorities = [] {
        auto list = std::make_unique<_TAPI_NETWORK_PREFERRED_S>();
        answered(network().getPreferredNetworks(list.get()));
        const int count = std::clamp<int>(list->count, 0, TAPI_NETWORK_MAX_PREFERRED);
        std::vector<int> positions;
        positions.reserve(static_cast<std::size_t>(count));
        for (int entry = 0; entry < count; ++entry)
            positions.push_back(list->entries[entry].priority);
        return positions;
    };
    const std::vector<int> before = priorities();
    unsigned int capacity = 0;
    answered(network().getCapacityPreferedNetwork(&capacity));
    const int position = before.empty() ? 0 : *std::max_element(before.begin(), before.end()) + 1;
    if (static_cast<unsigned int>(position) >= capacity)
        leave("the list is full to its last position");
    answered(network().addPreferredNetwork(static_cast<unsigned int>(position), QStringLiteral("00199")));
    const std::vector<int> added = priorities();
    answered(network().delPreferredNetwork(static_cast<unsigned int>(position)));
    expect(added.size() == before.size() + 1, "an added network is not in the list");
    expect(priorities() == before, "a deleted network is still in the list");
}

} // namespace

std::vector<Check> writeChecks()
{
    return {
        preference("the call reminder", &Setup::isReminder, &Setup::setReminder),
        preference("answering by the flip", &Setup::isFlipAnswer, &Setup::setFlipAnswer),
        preference("alert when roaming", &Setup::isRoamAlert, &Setup::setRoamAlert),
        preference("the hearing aid", &Setup::isHACOn, &Setup::setHAC),
        {"preferences", "a number", numbersAreKept},
        {"preferences", "texts that are stored together", textsAreKeptTogether},
        {"preferences", "the next process sees what is stored", aStoredPreferenceIsSeenByTheNextProcess},
        onOff("call waiting", &Setup::isCallWaiting, &Setup::setCallWaiting),
        onOff("automatic redial", &Setup::isAutoRedial, &Setup::setAutoRedial),
        onOff("the tone of a dropped call", &Setup::isCallDropTone, &Setup::setCallDropTone),
        {"options", "the DTMF type", theDtmfTypeIsKept},
        {"options", "a forwarding on no reply", aForwardingIsKept},
        {"device", "the text telephone mode", theTextTelephoneModeIsKept},
        {"lines", "the selected line", theSelectedLineIsKept},
        {"SIM", "the number and name of line 1", anOwnNumberIsKept},
        {"SIM", "the other numbers when one is written", writingANumberLeavesTheOthers},
        {"SIM", "the lock when a PIN is verified", verifyingAPinChangesNoLock},
        onOff("the service tone", &Net::getServiceTone, &Net::setServiceTone),
        {"network", "the search speed", theSearchSpeedIsKept},
        {"network", "a preferred network", aPreferredNetworkIsKept},
    };
}

} // namespace Conformance
