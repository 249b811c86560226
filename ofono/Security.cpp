// PINs and the USIM applications of the card.
#include "Card.h"
#include "Interfaces.h"
#include "KeptPin2.h"
#include "Meter.h"
#include "Text.h"

#include "TAPI_SECURITY.h"

#include <array>
#include <cstring>

using namespace Ofono;

namespace {

/** A PIN as a text that ends; wiped when it goes. */
class PinText {
public:
    explicit PinText(const unsigned char *pin)
    {
        const std::string_view text = textOf(pin, sizeof(TAPI_PIN_A));
        std::memcpy(m_text.data(), text.data(), text.size());
    }
    ~PinText() { explicit_bzero(m_text.data(), m_text.size()); }

    PinText(const PinText &) = delete;
    PinText &operator=(const PinText &) = delete;

    const char *text() const { return m_text.data(); }
    bool operator==(const PinText &other) const { return m_text == other.m_text; }

private:
    std::array<char, sizeof(TAPI_PIN_A) + 1> m_text = {};
};

/** Null for the UPIN, which the daemon does not know. */
const Card::PinKind *kindOf(_TAPI_SECURITY_PIN_TYPE_E type)
{
    return type < Card::pinKinds.size() ? &Card::pinKinds[type] : nullptr;
}

_TAPI_RESULT_E withoutKind(_TAPI_SECURITY_PIN_TYPE_E type)
{
    return type == TAPI_SECURITY_UPIN ? TAPI_RESULT_NOT_SUPPORTED : TAPI_RESULT_INVALID_PARAM;
}

_TAPI_RESULT_E askCard(const char *method, std::vector<Argument> arguments)
{
    return Daemon::instance().request(
        {simManager, method, std::move(arguments), Deadline::Network, {}, true});
}

/**
 * Locking what is locked changes nothing but has the card look at the PIN. A lock that is not listed may be on all the
 * same: the daemon learns of it only from some drivers. So nothing is tried then.
 */
_TAPI_RESULT_E checkPin1(const Properties &card, const PinText &pin)
{
    if (!card.has("LockedPins", "pin"))
        return TAPI_RESULT_NOT_SUPPORTED;
    return askCard("LockPin", {Value("pin"), Value(pin.text())});
}

_TAPI_RESULT_E enterOrCheck(const char *kind, const Properties &card, const PinText &pin)
{
    if (card.text("PinRequired").value_or("") == kind)
        return askCard("EnterPin", {Value(kind), Value(pin.text())});
    return std::strcmp(kind, "pin") == 0 ? checkPin1(card, pin) : Meter::checkPin2(pin.text());
}

/** What all requests with a PIN have in common: the state before, and what a refusal came to. */
template <typename Ask>
_TAPI_RESULT_E withPin(const char *kind, Ask ask)
{
    Properties card;
    const _TAPI_RESULT_E read = Card::read(card);
    if (read != TAPI_RESULT_SUCC)
        return read;
    if (Card::isBlocked(card, kind))
        return TAPI_RESULT_PIN_REJECTED_FINAL;
    const Card::Before before = Card::before(card, kind);
    return Card::outcomeOf(ask(card), before);
}

_TAPI_RESULT_E verify(const char *kind, const PinText &pin)
{
    if (!Card::isPin(pin.text()))
        return TAPI_RESULT_INVALID_PARAM;
    return withPin(kind, [&](const Properties &card) { return enterOrCheck(kind, card, pin); });
}

_TAPI_RESULT_E verifyPin2(const PinText &pin)
{
    KeptPin2::instance().wipe();
    Properties card;
    Card::Stay stay; // before the card takes it: one that was pulled since then is another one
    Card::read(card, stay);
    const _TAPI_RESULT_E result = verify("pin2", pin);
    if (result == TAPI_RESULT_SUCC)
        KeptPin2::instance().keep(pin.text(), stay);
    return result;
}

} // namespace

_TAPI_RESULT_E TAPI_SECURITY_VerifyPinPassword(_TAPI_SECURITY_PIN_TYPE_E type, TAPI_PIN_A pin)
{
    const Card::PinKind *const kind = kindOf(type);
    if (!kind)
        return withoutKind(type);
    const PinText text(pin);
    return type == TAPI_SECURITY_PIN2 ? verifyPin2(text) : verify(kind->pin, text);
}

_TAPI_RESULT_E TAPI_SECURITY_ChangePinPassword(_TAPI_SECURITY_PIN_TYPE_E type, TAPI_PIN_A oldPin,
                                               TAPI_PIN_A newPin)
{
    const Card::PinKind *const kind = kindOf(type);
    if (!kind)
        return withoutKind(type);
    const PinText oldText(oldPin);
    const PinText newText(newPin);
    if (!Card::isPin(oldText.text()) || !Card::isPin(newText.text()))
        return TAPI_RESULT_INVALID_PARAM;
    if (type == TAPI_SECURITY_PIN2)
        KeptPin2::instance().wipe();
    return withPin(kind->pin, [&](const Properties &card) {
        // The daemon would say yes to a PIN that stays as it is, without asking the card.
        if (oldText == newText)
            return enterOrCheck(kind->pin, card, oldText);
        return askCard("ChangePin", {Value(kind->pin), Value(oldText.text()), Value(newText.text())});
    });
}

/** The daemon takes a PUK only while the card asks for it. */
_TAPI_RESULT_E TAPI_SECURITY_UnblockPinPassword(_TAPI_SECURITY_PIN_TYPE_E type, TAPI_PIN_A puk,
                                                TAPI_PIN_A newPin)
{
    const Card::PinKind *const kind = kindOf(type);
    if (!kind)
        return withoutKind(type);
    const PinText pukText(puk);
    const PinText newText(newPin);
    if (!Card::isPuk(pukText.text()) || !Card::isPin(newText.text()))
        return TAPI_RESULT_INVALID_PARAM;
    if (type == TAPI_SECURITY_PIN2)
        KeptPin2::instance().wipe();
    return withPin(kind->puk, [&](const Properties &card) {
        if (card.text("PinRequired").value_or("") != kind->puk)
            return TAPI_RESULT_NOT_SUPPORTED;
        return askCard("ResetPin", {Value(kind->puk), Value(pukText.text()), Value(newText.text())});
    });
}

_TAPI_RESULT_E TAPI_SECURITY_VerifyPin2Password(TAPI_PIN_A pin2)
{
    return verifyPin2(PinText(pin2));
}

_TAPI_RESULT_E TAPI_SECURITY_SetPinStatus(_TAPI_SECURITY_PIN_TYPE_E type, TAPI_PIN_A pin, unsigned char on)
{
    if (type != TAPI_SECURITY_PIN1)
        return kindOf(type) ? TAPI_RESULT_NOT_SUPPORTED : withoutKind(type);
    const PinText text(pin);
    if (!Card::isPin(text.text()) || on > 1)
        return TAPI_RESULT_INVALID_PARAM;
    const _TAPI_RESULT_E result = withPin("pin", [&](const Properties &) {
        return askCard(on == 1 ? "LockPin" : "UnlockPin", {Value("pin"), Value(text.text())});
    });
    if (result == TAPI_RESULT_SUCC) // who asks next must not hear what has been
        Daemon::waitUntil(
            [on] {
                Properties card;
                return Card::read(card) != TAPI_RESULT_SUCC || card.has("LockedPins", "pin") == (on == 1);
            },
            Daemon::lengthOf(Deadline::AtHand));
    return result;
}

/** The daemon's list tells of a lock that is on. Without an entry the lock may be off, or not known to it. */
_TAPI_RESULT_E TAPI_SECURITY_GetPin1Status(unsigned char, unsigned char *status)
{
    Properties card;
    const _TAPI_RESULT_E result = Card::read(card);
    if (result != TAPI_RESULT_SUCC)
        return result;
    if (!card.has("LockedPins", "pin"))
        return Card::isKnown(card) ? TAPI_RESULT_NOT_SUPPORTED : TAPI_RESULT_SIM_UNAVAILABLE;
    *status = 1;
    return TAPI_RESULT_SUCC;
}

/** A PIN2 counts as verified while this program keeps it. */
_TAPI_RESULT_E TAPI_SECURITY_GetAnyPinStatus(_TAPI_SECURITY_PIN_TYPE_E type,
                                             _TAPI_SECURITY_PIN_STATUS_E *status)
{
    const Card::PinKind *const kind = kindOf(type);
    if (!kind)
        return withoutKind(type);
    Properties card;
    Card::Stay stay;
    const _TAPI_RESULT_E result = Card::read(card, stay);
    if (result != TAPI_RESULT_SUCC)
        return result;
    const std::string_view required = card.text("PinRequired").value_or("none");
    if (!Card::isKnown(card) && required == "none")
        return TAPI_RESULT_SIM_UNAVAILABLE; // not read yet
    const bool open = type == TAPI_SECURITY_PIN2 ? KeptPin2::instance().isKept(stay) : required != kind->pin;
    if (Card::isBlocked(card, kind->pin))
        *status = TAPI_SECURITY_PIN_STATUS_BLOCKED;
    else
        *status = open ? TAPI_SECURITY_PIN_STATUS_VERIFIED : TAPI_SECURITY_PIN_STATUS_NOT_VERIFIED;
    return TAPI_RESULT_SUCC;
}

_TAPI_RESULT_E TAPI_SECURITY_GetUPINUsageQualifier(unsigned char *)
{
    return TAPI_RESULT_NOT_SUPPORTED;
}

/**
 * The daemon may list the applications of a card, but it neither tells which is active nor lets one be chosen. The count
 * is written all the same: the engine goes on after any result but 1, and would else take what its caller left there
 * for the number of applications.
 */
_TAPI_RESULT_E TAPI_SECURITY_GetNumOfUsim(unsigned char *count)
{
    if (count)
        *count = 0;
    return TAPI_RESULT_NOT_SUPPORTED;
}

_TAPI_RESULT_E TAPI_SECURITY_GetUsimList(unsigned char *, unsigned char, _TAPI_SECURITY_ADF_INFO_S *)
{
    return TAPI_RESULT_NOT_SUPPORTED;
}
