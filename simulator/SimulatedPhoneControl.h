// The simulated phone as programs see it that do not link it: the console and a panel for the desk.
#pragma once

#include <chrono>
#include <functional>
#include <string>
#include <string_view>
#include <vector>

#include <dlfcn.h>

/** What a platform function answers in place of the phone's own behaviour. */
struct ScriptedAnswer {
    long long result = 0;
    std::vector<std::string> out; ///< raw bytes for its out-parameters, in order; missing ones stay untouched
    int error = 0;                ///< errno after the call, when not 0
    int times = -1;               ///< how many calls it answers; negative for all
};

/**
 * What can be done to the simulated phone from outside.
 *
 * Every member may be called from any thread, also while a platform call waits for its late answer on another one.
 * An observer runs on the thread of the platform call and must not wait for another thread.
 *
 * A function that takes the name of a platform function also takes the beginning of names with an asterisk behind
 * it ("TAPI_CS_*", "*"), and answers false when there is no such function.
 */
class SimulatedPhoneControl {
public:
    /** A fact about the phone in words: "PIN1" and "not verified, 3 tries left (PUK: 10)". */
    struct Fact {
        std::string subject;
        std::string text;
    };
    /** Is told of each platform call when it has been answered, with the answer as text. */
    using Observer = std::function<void(const std::string &call, const std::string &answer)>;

    /**
     * A new phone: default state, no scripts, no late answers, no link. The settings stay, and so does what
     * programs keep for themselves: a probe of the link that failed counts as failed for the life of the process.
     */
    virtual void reset() = 0;
    /** How the phone is: lines, card with the tries that are left, calls, forwardings, network, what was arranged. */
    virtual std::vector<Fact> facts() = 0;
    /** An empty one ends it. */
    virtual void setObserver(Observer observer) = 0;

    /** @name How platform functions answer
     * @{ */
    /** The platform functions by name. */
    virtual const std::vector<std::string_view> &functions() const = 0;
    virtual bool setAnswer(const std::string &function, const ScriptedAnswer &answer) = 0;
    /** The function answers by itself again. */
    virtual bool clearAnswer(const std::string &function) = 0;
    /** Lets a function answer so much later; 0 for at once, also to a call that waits already. */
    virtual bool setDelay(const std::string &function, std::chrono::milliseconds delay) = 0;
    /** @} */

    /** @name Calls
     * @{ */
    /** A call comes in. Returns its id, 0 when the call table is full. */
    virtual unsigned char ring(const std::string &number) = 0;
    /** The other side answers a call that was dialled. */
    virtual bool remoteAnswers(unsigned char callId) = 0;
    /** The other side ends a call. */
    virtual bool remoteHangsUp(unsigned char callId) = 0;
    /** A push-to-talk call begins to play. False when there is no room for it. */
    virtual bool startPushToTalk(unsigned char callId, bool audioBufferComplete) = 0;
    virtual void setPushToTalkAccepts(bool accepts) = 0;
    /** @} */

    /** @name How the phone is
     * @{ */
    virtual void setLink(bool up) = 0;
    /** Whether the SIM may be asked. */
    virtual void setSimReady(bool ready) = 0;
    /** Whether the shared state says that a call is coming in. */
    virtual void setIncoming(bool incoming) = 0;
    /** Every write of a setting fails as on a full file system, without filling one. */
    virtual void setDiskFull(bool full) = 0;
    /** Whether the product has a feature; it has all at the start. */
    virtual void setFeature(unsigned short feature, bool offered) = 0;
    virtual std::vector<unsigned short> missingFeatures() = 0;
    /** The SIM's list of the networks that the modem tries first, by network id. */
    virtual void setPreferredNetworks(const std::vector<std::string> &networkIds) = 0;
    /** The system language; 20 and 22 have names of their own. */
    virtual void setLanguage(int language) = 0;
    virtual void setSettingsFile(const std::string &file) = 0;
    virtual std::string settingsFile() = 0;
    /** @} */

protected:
    ~SimulatedPhoneControl() = default;
};

/**
 * What the simulated phone's library exports, to be looked up at run time. A change of the interface above changes the
 * name, so that a program never speaks to a phone of another time.
 */
constexpr char simulatedPhoneEntry[] = "kvq_simulated_phone_2";
extern "C" SimulatedPhoneControl *kvq_simulated_phone_2();

/** The simulated phone of this process, null when another platform library is loaded. */
inline SimulatedPhoneControl *findSimulatedPhone()
{
    static SimulatedPhoneControl *const phone = [] {
        const auto entry =
            reinterpret_cast<SimulatedPhoneControl *(*)()>(dlsym(RTLD_DEFAULT, simulatedPhoneEntry));
        return entry ? entry() : nullptr;
    }();
    return phone;
}
