// PINs do not stay in the memory of a program whose log is off.
#include "EngineTest.h"

#include "LogModule.h"

#include <algorithm>
#include <array>
#include <fstream>
#include <functional>
#include <sstream>

#include <fcntl.h>
#include <unistd.h>

namespace {

/** Kept apart by one bit a digit, so that the pattern itself is nowhere to be found. */
constexpr unsigned char mask = 0x40;
constexpr std::array<unsigned char, 8> hidden = {'9' ^ mask, '1' ^ mask, '8' ^ mask, '2' ^ mask,
                                                 '7' ^ mask, '3' ^ mask, '6' ^ mask, '4' ^ mask};

/** Whether it stands here as text of one or of two bytes a character. */
bool standsAt(const unsigned char *memory, std::size_t size, std::size_t width)
{
    if (size < hidden.size() * width)
        return false;
    for (std::size_t digit = 0; digit < hidden.size(); ++digit) {
        if (memory[digit * width] != (hidden[digit] ^ mask) || (width == 2 && memory[digit * 2 + 1] != 0))
            return false;
    }
    return true;
}

/** Where its first digit stands next; null when it does not. */
const unsigned char *nextCandidate(const unsigned char *from, const unsigned char *end)
{
    if (from >= end)
        return nullptr;
    return static_cast<const unsigned char *>(
        std::memchr(from, hidden.front() ^ mask, static_cast<std::size_t>(end - from)));
}

/**
 * How often the PIN stands in the process's writable memory. Read page by page through the kernel into memory that is
 * outside the search; the shadow memory of a sanitizer, terabytes that hold no text, is left out by its size.
 */
unsigned int findInMemory()
{
    constexpr std::size_t chunk = 1 << 16;
    constexpr std::size_t overlap = 32;
    static std::array<unsigned char, chunk + overlap> buffer;
    constexpr std::uintptr_t largest = std::uintptr_t(1) << 30;

    unsigned int found = 0;
    const int memory = open("/proc/self/mem", O_RDONLY | O_CLOEXEC);
    std::ifstream maps("/proc/self/maps");
    for (std::string line; std::getline(maps, line);) {
        std::uintptr_t begin = 0;
        std::uintptr_t behind = 0;
        char dash = 0;
        std::string rights;
        std::istringstream(line) >> std::hex >> begin >> dash >> behind >> rights;
        if (rights.compare(0, 2, "rw") != 0 || behind - begin > largest)
            continue;
        for (std::uintptr_t at = begin; at < behind; at += chunk) {
            const std::size_t wanted = std::min<std::size_t>(behind - at, buffer.size());
            const ssize_t size = pread(memory, buffer.data(), wanted, static_cast<off_t>(at));
            const auto own = reinterpret_cast<std::uintptr_t>(buffer.data());
            const unsigned char *const end = buffer.data() + std::max<ssize_t>(size, 0);
            const unsigned char *const last = std::min<const unsigned char *>(end, buffer.data() + chunk);
            for (const unsigned char *byte = nextCandidate(buffer.data(), last); byte;
                 byte = nextCandidate(byte + 1, last)) {
                const std::uintptr_t address = at + static_cast<std::uintptr_t>(byte - buffer.data());
                const auto rest = static_cast<std::size_t>(end - byte);
                if ((address < own || address >= own + buffer.size())
                    && (standsAt(byte, rest, 1) || standsAt(byte, rest, 2)))
                    ++found;
            }
        }
        std::fill(buffer.begin(), buffer.end(), static_cast<unsigned char>(0));
    }
    close(memory);
    return found;
}

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
