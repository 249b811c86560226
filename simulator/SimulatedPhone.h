// A phone on the desk: it stands in for the platform behind the call setup engine.
#pragma once

#include "PhoneState.h"
#include "Product.h"
#include "SettingsStore.h"
#include "SimulatedPhoneControl.h"

#include <atomic>
#include <chrono>
#include <condition_variable>
#include <functional>
#include <map>
#include <memory>
#include <mutex>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

/**
 * The simulated phone of this process.
 *
 * The platform functions act on its state and answer as a phone would. A test can look into the journal
 * of calls, script the answer of any platform function by its name, and read or change the state.
 */
class SimulatedPhone {
public:
    static SimulatedPhone &instance();

    /** A new phone: default state, no scripts, no delays, an empty journal, no link. The settings stay. */
    void reset();

    /** Held by a platform function while it answers, and by whoever changes the phone from another thread. */
    std::recursive_mutex &mutex() { return m_mutex; }

    PhoneState &state() { return m_state; }
    const PhoneState &state() const { return m_state; }
    SettingsStore &settings() { return m_settings; }
    /** Lacks nothing but what the file says that KVQ_PRODUCT names. */
    Handset::Product &product() { return m_product; }
    const Handset::Product &product() const { return m_product; }
    /** The language of this process, until one is set. */
    int language() const;
    void setLanguage(int language) { m_language = language; }

    /** @name The journal: every platform call with its arguments, in order
     * @{ */
    void setJournalEnabled(bool enabled) { m_journalEnabled = enabled; }
    bool isJournalEnabled() const { return m_journalEnabled || m_observed; }
    void note(std::string entry);
    std::vector<std::string> takeJournal();
    /** Is told of each call when it has been answered, with the answer as text. */
    using Observer = std::function<void(const std::string &call, const std::string &answer)>;
    void setObserver(Observer observer);
    void tellObserver(const std::string &call, const std::string &answer);
    /** @} */

    /** @name Scripted answers, by the name of the platform function
     * @{ */
    void script(const std::string &function, ScriptedAnswer answer);
    void clearScript(const std::string &function);
    const auto &scripts() const { return m_scripts; }
    /** Answers every call that no script answers. The pointer must stay good until the next call. */
    using Answerer = std::function<const ScriptedAnswer *(std::string_view function)>;
    void setAnswerer(Answerer answerer) { m_answerer = std::move(answerer); }
    /** Null when the phone is to answer itself. */
    const ScriptedAnswer *scriptedAnswer(std::string_view function);
    /** The platform functions, for those who script them. */
    static const std::vector<std::string_view> &functionNames();
    /** @} */

    /** @name Late answers, by the name of the platform function
     * @{ */
    /** 0 takes the delay away, also from a call that waits already. */
    void setDelay(const std::string &function, std::chrono::milliseconds delay);
    const auto &delays() const { return m_delays; }
    /** Waits as long as the function's answer is late. */
    void waitForAnswer(std::string_view function);
    /** @} */

    /** @name The telephony link: a real socket pair
     * @{ */
    void openLink();
    void closeLink();
    int linkDescriptor() const;
    /** @} */

    /** @name What happens to a phone
     * @{ */
    /** A call comes in. Returns its id, 0 when the call table is full. */
    unsigned char ring(const std::string &number);
    /** The other side answers a call that was dialled. */
    bool remoteAnswers(unsigned char callId);
    /** The other side ends a call. */
    bool remoteHangsUp(unsigned char callId);
    /** A push-to-talk call begins to play. False when there is no room for it. */
    bool startPushToTalk(unsigned char callId, bool audioBufferComplete);
    /** @} */

private:
    struct Link;

    SimulatedPhone();
    ~SimulatedPhone();

    std::recursive_mutex m_mutex;
    PhoneState m_state;
    SettingsStore m_settings;
    Handset::Product m_product;
    std::optional<int> m_language;
    std::unique_ptr<Link> m_link;
    std::atomic<bool> m_journalEnabled = false;
    std::atomic<bool> m_observed = false;
    std::vector<std::string> m_journal;
    Observer m_observer;
    std::map<std::string, ScriptedAnswer, std::less<>> m_scripts;
    ScriptedAnswer m_lastAnswer;
    std::atomic<bool> m_delayed = false;
    std::map<std::string, std::chrono::milliseconds, std::less<>> m_delays;
    std::condition_variable_any m_delayTakenAway;
    Answerer m_answerer;
};
