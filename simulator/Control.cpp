// The one entry point for programs that do not link the simulated phone.
#include "Calls.h"
#include "Facts.h"
#include "SimulatedPhone.h"

#include <QString>

#include <cerrno>

namespace {

/** What a write of a setting is refused by while the disk is said to be full. */
constexpr std::array settingWrites = {"SETUP_SET_Manager::setSettingInfo", "SETUP_SET_Manager::flush"};

// NOLINTNEXTLINE(cppcoreguidelines-virtual-class-destructor): nobody ends it by its interface
class Control final : public SimulatedPhoneControl {
public:
    void reset() override
    {
        const std::lock_guard lock(m_phone.mutex());
        m_phone.reset();
    }

    std::vector<Fact> facts() override
    {
        const std::lock_guard lock(m_phone.mutex());
        return Simulator::facts(m_phone);
    }

    void setObserver(Observer observer) override { m_phone.setObserver(std::move(observer)); }

    const std::vector<std::string_view> &functions() const override
    {
        return SimulatedPhone::functionNames();
    }

    bool setAnswer(const std::string &function, const ScriptedAnswer &answer) override
    {
        return forEach(function, [&](const std::string &name) { m_phone.script(name, answer); });
    }

    bool clearAnswer(const std::string &function) override
    {
        return forEach(function, [&](const std::string &name) { m_phone.clearScript(name); });
    }

    bool setDelay(const std::string &function, std::chrono::milliseconds delay) override
    {
        return forEach(function, [&](const std::string &name) { m_phone.setDelay(name, delay); });
    }

    unsigned char ring(const std::string &number) override
    {
        const std::lock_guard lock(m_phone.mutex());
        return m_phone.ring(number);
    }

    bool remoteAnswers(unsigned char callId) override
    {
        const std::lock_guard lock(m_phone.mutex());
        return m_phone.remoteAnswers(callId);
    }

    bool remoteHangsUp(unsigned char callId) override
    {
        const std::lock_guard lock(m_phone.mutex());
        return m_phone.remoteHangsUp(callId);
    }

    bool startPushToTalk(unsigned char callId, bool audioBufferComplete) override
    {
        const std::lock_guard lock(m_phone.mutex());
        return m_phone.startPushToTalk(callId, audioBufferComplete);
    }

    void setPushToTalkAccepts(bool accepts) override
    {
        change([accepts](PhoneState &phone) { phone.calls.pushToTalkAccepts = accepts; });
    }

    void setLink(bool up) override
    {
        const std::lock_guard lock(m_phone.mutex());
        if (up)
            m_phone.openLink();
        else
            m_phone.closeLink();
    }

    void setSimReady(bool ready) override
    {
        change([ready](PhoneState &phone) { phone.shared.simPinBattery = ready ? 0 : 1; });
    }

    void setIncoming(bool incoming) override
    {
        change([incoming](PhoneState &phone) { phone.shared.incomingCall = incoming ? 1 : 0; });
    }

    void setDiskFull(bool full) override
    {
        ScriptedAnswer refusal;
        refusal.error = ENOSPC;
        for (const char *const write : settingWrites)
            full ? setAnswer(write, refusal) : clearAnswer(write);
    }

    void setFeature(unsigned short feature, bool offered) override
    {
        const std::lock_guard lock(m_phone.mutex());
        if (offered)
            m_phone.product().missingFeatures.erase(feature);
        else
            m_phone.product().missingFeatures.insert(feature);
    }

    std::vector<unsigned short> missingFeatures() override
    {
        const std::lock_guard lock(m_phone.mutex());
        const auto &missing = m_phone.product().missingFeatures;
        return {missing.begin(), missing.end()};
    }

    void setPreferredNetworks(const std::vector<std::string> &networkIds) override
    {
        change([&networkIds](PhoneState &phone) {
            phone.network.preferred.clear();
            for (const std::string &id : networkIds)
                phone.network.preferred.emplace(static_cast<unsigned int>(phone.network.preferred.size()),
                                                id);
        });
    }

    void setLanguage(int language) override
    {
        const std::lock_guard lock(m_phone.mutex());
        m_phone.setLanguage(language);
    }

    void setSettingsFile(const std::string &file) override
    {
        m_phone.settings().setFile(QString::fromStdString(file));
    }

    std::string settingsFile() override { return m_phone.settings().file().toStdString(); }

private:
    template <typename Change>
    void change(Change change)
    {
        const std::lock_guard lock(m_phone.mutex());
        change(m_phone.state());
    }

    /** Acts on the function of that name, or on all whose names begin so. False when there is none. */
    template <typename Action>
    bool forEach(const std::string &function, Action action)
    {
        const std::lock_guard lock(m_phone.mutex());
        const bool isPattern = !function.empty() && function.back() == '*';
        const std::string_view beginning(function.data(), function.size() - (isPattern ? 1 : 0));
        bool found = false;
        for (const std::string_view name : SimulatedPhone::functionNames()) {
            if (name != beginning && !(isPattern && name.substr(0, beginning.size()) == beginning))
                continue;
            action(std::string(name));
            found = true;
        }
        return found;
    }

    SimulatedPhone &m_phone = SimulatedPhone::instance();
};

} // namespace

SimulatedPhoneControl *kvq_simulated_phone_2()
{
    static Control control;
    return &control;
}
