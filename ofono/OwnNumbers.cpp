// The subscriber's own numbers. The card keeps the numbers, the phone the names beside them.
//
// The daemon knows a list without gaps: record 1 is its first number, and deleting one moves those behind it up.
#include "Card.h"
#include "Interfaces.h"
#include "PhoneSettings.h"
#include "Text.h"

#include "TAPI_OWNNUMBER.h"
#include "TAPI_SIM.h"

#include <algorithm>
#include <cstring>

using namespace Ofono;

namespace {

constexpr std::size_t mostDigits = 20;
constexpr std::size_t mostCharacters = sizeof(TAPI_PHONEBOOK_NAME_A) / 2 - 1;

/** A card's file has no more records. */
constexpr std::size_t mostRecords = 254;

struct OwnNumbers {
    std::string card; ///< the card whose names these are
    Texts numbers;
};

_TAPI_RESULT_E read(OwnNumbers &own)
{
    Properties card;
    Card::Stay stay;
    const _TAPI_RESULT_E result = Card::read(card, stay);
    if (result != TAPI_RESULT_SUCC)
        return result;
    if (!Card::areOwnNumbersKnown(card, stay))
        return TAPI_RESULT_SIM_UNAVAILABLE; // an empty list may be one that was not read yet
    own.card = stay.card;
    own.numbers = card.texts("SubscriberNumbers").value_or(Texts());
    own.numbers.resize(std::min(own.numbers.size(), mostRecords));
    return TAPI_RESULT_SUCC;
}

/** The daemon answers before the card's new list can be read, so all of it is waited for. */
_TAPI_RESULT_E write(const Texts &numbers)
{
    const _TAPI_RESULT_E result = Daemon::instance().setProperty(simManager, "SubscriberNumbers", &numbers);
    if (result != TAPI_RESULT_SUCC)
        return result;
    const bool there = Daemon::waitUntil(
        [&] {
            Properties card;
            return Card::read(card) == TAPI_RESULT_SUCC && card.texts("SubscriberNumbers") == numbers;
        },
        Daemon::lengthOf(Deadline::AtHand));
    return there ? TAPI_RESULT_SUCC : TAPI_RESULT_TIMED_OUT;
}

std::string nameKey(const OwnNumbers &own, std::size_t record)
{
    return "ownName/" + own.card + "/" + std::to_string(record);
}

std::u16string nameOf(const unsigned char *name)
{
    std::u16string text;
    for (std::size_t unit = 0; unit < mostCharacters; ++unit) {
        const auto character = static_cast<char16_t>(name[2 * unit] | name[2 * unit + 1] << 8);
        if (character == 0)
            break;
        text += character;
    }
    return text;
}

void fillName(TAPI_PHONEBOOK_NAME_A &field, const std::u16string &name)
{
    std::memset(field, 0, sizeof field);
    for (std::size_t unit = 0; unit < std::min(name.size(), mostCharacters); ++unit) {
        field[2 * unit] = static_cast<unsigned char>(name[unit] & 0xFF);
        field[2 * unit + 1] = static_cast<unsigned char>(name[unit] >> 8);
    }
}

} // namespace

/** Records behind the last number are empty. */
_TAPI_RESULT_E TAPI_OWNNUMBER_GetEntry(unsigned short firstIndex, unsigned short count,
                                       _TAPI_OWNNUMBER_ENTRY_S *entries)
{
    if (firstIndex == 0)
        return TAPI_RESULT_INVALID_PARAM;
    OwnNumbers own;
    const _TAPI_RESULT_E result = read(own);
    if (result != TAPI_RESULT_SUCC)
        return result;
    // Who asks for none has counted before the numbers were known, and would take it that the card holds none.
    if (count == 0 && !own.numbers.empty())
        return TAPI_RESULT_SIM_UNAVAILABLE;
    for (unsigned short offset = 0; offset < count; ++offset) {
        const std::size_t record = static_cast<std::size_t>(firstIndex) + offset;
        _TAPI_OWNNUMBER_ENTRY_S entry = {};
        entry.index = static_cast<unsigned short>(record);
        if (record <= own.numbers.size()) {
            fillLatin1(entry.number, own.numbers[record - 1]);
            fillName(entry.name, PhoneSettings::readText(nameKey(own, record)));
        }
        entries[offset] = entry;
    }
    return TAPI_RESULT_SUCC;
}

_TAPI_RESULT_E TAPI_OWNNUMBER_SaveEntry(short index, TAPI_PHONE_NUMBER_A number, TAPI_PHONEBOOK_NAME_A name)
{
    const std::string bare = withoutPunctuation(textOf(number, sizeof(TAPI_PHONE_NUMBER_A)));
    if (index < 1 || !isPhoneNumber(bare, mostDigits))
        return TAPI_RESULT_INVALID_PARAM;
    OwnNumbers own;
    const _TAPI_RESULT_E result = read(own);
    if (result != TAPI_RESULT_SUCC)
        return result;
    const auto record = static_cast<std::size_t>(index);
    if (record > own.numbers.size() + 1)
        return TAPI_RESULT_INVALID_PARAM; // it would leave a gap
    Texts numbers = own.numbers;
    numbers.resize(std::max(numbers.size(), record));
    numbers[record - 1] = bare;
    const _TAPI_RESULT_E written = numbers == own.numbers ? TAPI_RESULT_SUCC : write(numbers);
    return written == TAPI_RESULT_SUCC ? PhoneSettings::writeText(nameKey(own, record), nameOf(name))
                                       : written;
}

_TAPI_RESULT_E TAPI_OWNNUMBER_DeleteEntry(short index)
{
    if (index < 1)
        return TAPI_RESULT_INVALID_PARAM;
    OwnNumbers own;
    const _TAPI_RESULT_E result = read(own);
    if (result != TAPI_RESULT_SUCC)
        return result;
    const auto record = static_cast<std::size_t>(index);
    const std::size_t last = own.numbers.size();
    if (record > last)
        return TAPI_RESULT_INVALID_PARAM;
    own.numbers.erase(own.numbers.begin() + (index - 1));
    const _TAPI_RESULT_E written = write(own.numbers);
    for (std::size_t moved = record; written == TAPI_RESULT_SUCC && moved <= last; ++moved)
        PhoneSettings::writeText(nameKey(own, moved), PhoneSettings::readText(nameKey(own, moved + 1)));
    return written;
}

/** How many records the card has the daemon does not tell, only how many hold a number. */
_TAPI_RESULT_E TAPI_OWNNUMBER_GetCapacity(_TAPI_OWNNUMBER_CAPACITY_S *capacity)
{
    OwnNumbers own;
    const _TAPI_RESULT_E result = read(own);
    if (result == TAPI_RESULT_SUCC)
        capacity->total = static_cast<unsigned short>(own.numbers.size());
    return result;
}

_TAPI_RESULT_E TAPI_OWNNUMBER_GetRange(_TAPI_OWNNUMBER_RANGE_S *range)
{
    range->maxNumberLength = mostDigits;
    range->maxNameLength = mostCharacters;
    return TAPI_RESULT_SUCC;
}

_TAPI_RESULT_E TAPI_OWNNUMBER_GetExtAvailable(unsigned short *)
{
    return TAPI_RESULT_NOT_SUPPORTED;
}

_TAPI_RESULT_E TAPI_OWNNUMBER_GetExtRange(unsigned short *)
{
    return TAPI_RESULT_NOT_SUPPORTED;
}

_TAPI_RESULT_E TAPI_SIM_GetUSIMFileInfo(unsigned char, unsigned int, unsigned int, unsigned int,
                                        _TAPI_SIM_FILE_INFO_S *)
{
    return TAPI_RESULT_NOT_SUPPORTED;
}
