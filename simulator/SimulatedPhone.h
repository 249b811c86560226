// A phone on the desk: it stands in for the platform behind the call setup engine.
#pragma once

#include "PhoneState.h"
#include "SettingsStore.h"

#include <functional>
#include <map>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

/** What a platform function answers in place of the phone's own behaviour. */
struct ScriptedAnswer {
    long long result = 0;
    std::vector<std::string> out; ///< raw bytes for its out-parameters, in order; missing ones stay untouched
    int error = 0;                ///< errno after the call, when not 0
    int times = -1;               ///< how many calls it answers; negative for all
};

/**
 * The simulated phone of this process.
 *
 * The platform functions act on its state and answer as a phone would. A test can look into the journal
 * of calls, script the answer of any platform function by its name, and read or change the state.
 */
class SimulatedPhone {
public:
    static SimulatedPhone &instance();

    /** A new phone: default state, no scripts, an empty journal, no link. The settings stay. */
    void reset();

    PhoneState &state() { return m_state; }
    SettingsStore &settings() { return m_settings; }

    /** @name The journal: every platform call with its arguments, in order
     * @{ */
    void setJournalEnabled(bool enabled) { m_journalEnabled = enabled; }
    bool isJournalEnabled() const { return m_journalEnabled || m_observer; }
    void note(std::string entry);
    std::vector<std::string> takeJournal();
    /** Is told of each call when it has been answered, with the answer as text. */
    using Observer = std::function<void(const std::string &call, const std::string &answer)>;
    void setObserver(Observer observer) { m_observer = std::move(observer); }
    void tellObserver(const std::string &call, const std::string &answer);
    /** @} */

    /** @name Scripted answers, by the name of the platform function
     * @{ */
    void script(const std::string &function, ScriptedAnswer answer);
    void clearScript(const std::string &function);
    /** Answers every call that no script answers. The pointer must stay good until the next call. */
    using Answerer = std::function<const ScriptedAnswer *(std::string_view function)>;
    void setAnswerer(Answerer answerer) { m_answerer = std::move(answerer); }
    /** Null when the phone is to answer itself. */
    const ScriptedAnswer *scriptedAnswer(std::string_view function);
    /** The platform functions, for those who script them. */
    static const std::vector<std::string_view> &functionNames();
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
    /** A push-to-talk call begins to play. False when there is no room for it. */
    bool startPushToTalk(unsigned char callId, bool audioBufferComplete);
    /** @} */

private:
    struct Link;

    SimulatedPhone();
    ~SimulatedPhone();

    PhoneState m_state;
    SettingsStore m_settings;
    std::unique_ptr<Link> m_link;
    bool m_journalEnabled = false;
    std::vector<std::string> m_journal;
    Observer m_observer;
    std::map<std::string, ScriptedAnswer, std::less<>> m_scripts;
    ScriptedAnswer m_lastAnswer;
    Answerer m_answerer;
};
