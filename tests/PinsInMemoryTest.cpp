// PINs do not stay in the memory of a program whose log is off.
#include "EngineTest.h"
#include "MemorySearch.h"

#include "LogModule.h"

#include <functional>

namespace {

using namespace MemorySearch;

/** The PIN as its caller holds it; wiped when it goes. */
class CallersPin {
public:
    CallersPin()
        : m_text(static_cast<int>(hidden.size()), Qt::Uninitialized)
    {
        for (std::size_t digit = 0; digit < hidden.size(); ++digit)
            m_text[static_cast<int>(digit)] = QChar(static_cast<ushort>(hidden[digit] ^ mask));
    }
    ~CallersPin() { explicit_bzero(m_text.data(), static_cast<std::size_t>(m_text.size()) * sizeof(QChar)); }
    CallersPin(const CallersPin &) = delete;
    CallersPin &operator=(const CallersPin &) = delete;

    operator const QString &() const { return m_text; }

private:
    QString m_text;
};

class PinsInMemoryTest : public EngineTest { };

TEST_F(PinsInMemoryTest, NoOperationLeavesAPinBehindWhenTheLogIsOff)
{
    using Setup = PHONE_ENG_Setup;
    const std::pair<const char *, std::function<void(const QString &)>> operations[] = {
        {"setupVerifySimPin", [](const QString &pin) { Setup::setupVerifySimPin(pin); }},
        {"changeSimPin", [this](const QString &pin) { setup().changeSimPin(pin, pin); }},
        {"unblockingPin", [this](const QString &pin) { setup().unblockingPin(pin, pin); }},
        {"setupUnblockSimPin1", [](const QString &pin) { Setup::setupUnblockSimPin1(pin, pin); }},
        {"enablePin1", [](const QString &pin) { Setup::enablePin1(pin); }},
        {"verifyPin2Code", [this](const QString &pin) { setup().verifyPin2Code(pin); }},
        {"changeSimPin2", [this](const QString &pin) { setup().changeSimPin2(pin, pin); }},
        {"unblockingPin2", [](const QString &pin) { Setup::unblockingPin2(pin, pin); }},
        {"setupVerifyUpin", [](const QString &pin) { Setup::setupVerifyUpin(pin); }},
        {"setupChangeUpin", [this](const QString &pin) { setup().setupChangeUpin(pin, pin); }},
        {"setupUnblockUpin", [](const QString &pin) { Setup::setupUnblockUpin(pin, pin); }},
        {"setFixedDialing", [this](const QString &pin) { setup().setFixedDialing(true, pin); }},
    };
    // The card's answers, so that only the engine handles the PIN.
    for (const char *function : {"TAPI_SECURITY_VerifyPinPassword", "TAPI_SECURITY_ChangePinPassword",
                                 "TAPI_SECURITY_UnblockPinPassword", "TAPI_SECURITY_SetPinStatus",
                                 "TAPI_SECURITY_VerifyPin2Password", "TAPI_FIXDIALING_SetStatus"})
        answer(function, 0);
    phone.setJournalEnabled(false);
    std::FILE *const captured = std::exchange(libaplog_to_module_ptr, std::fopen("/dev/null", "w"));

    EXPECT_EQ(findInMemory(), 0U) << "before any operation";
    for (const auto &[name, run] : operations) {
        {
            const CallersPin pin;
            run(pin);
        }
        EXPECT_EQ(findInMemory(), 0U) << name;
    }
    {
        const CallersPin pin;
        const QByteArray copy = static_cast<const QString &>(pin).toLatin1();
        EXPECT_EQ(findInMemory(), 2U) << "the search finds what is there: " << copy.size() << " characters";
    }
    EXPECT_EQ(findInMemory(), 1U) << "and a copy that was freed without a wipe";

    std::fclose(std::exchange(libaplog_to_module_ptr, captured));
}

} // namespace
