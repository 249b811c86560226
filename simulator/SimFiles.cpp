// Own numbers and elementary files of the card.
#include "OwnNumbers.h"
#include "PlatformCall.h"

#include "TAPI_OWNNUMBER.h"
#include "TAPI_SIM.h"

using Simulator::Bytes;
using Simulator::copyText;
using Simulator::Field;
using Simulator::Out;
using Simulator::ownNumber;
using Simulator::platformCall;

_TAPI_RESULT_E TAPI_OWNNUMBER_GetEntry(unsigned short firstIndex, unsigned short count,
                                       _TAPI_OWNNUMBER_ENTRY_S *entries)
{
    return platformCall(
        "TAPI_OWNNUMBER_GetEntry", {Out(entries, count * sizeof *entries)},
        [=](PhoneState &phone) {
            for (int record = 0; record < count; ++record) {
                const int index = firstIndex + record;
                const OwnNumber *const kept = ownNumber(phone.sim, index);
                if (!kept)
                    break;
                _TAPI_OWNNUMBER_ENTRY_S &entry = entries[record];
                entry = {};
                entry.index = static_cast<unsigned short>(index);
                copyText(entry.number, sizeof entry.number, kept->number);
                std::size_t position = 0;
                for (const QChar character : kept->name.left(sizeof entry.name / 2 - 1)) {
                    entry.name[position++] = static_cast<unsigned char>(character.unicode() & 0xFF);
                    entry.name[position++] = static_cast<unsigned char>(character.unicode() >> 8);
                }
            }
            return TAPI_RESULT_SUCC;
        },
        firstIndex, count);
}

_TAPI_RESULT_E TAPI_OWNNUMBER_SaveEntry(short index, TAPI_PHONE_NUMBER_A number, TAPI_PHONEBOOK_NAME_A name)
{
    return platformCall(
        "TAPI_OWNNUMBER_SaveEntry", {},
        [=](PhoneState &phone) {
            OwnNumber *const kept = ownNumber(phone.sim, index);
            if (!kept)
                return TAPI_RESULT_INVALID_PARAM;
            kept->number = Simulator::textOf(number, sizeof(TAPI_PHONE_NUMBER_A));
            kept->name.clear();
            for (std::size_t position = 0; position + 1 < sizeof(TAPI_PHONEBOOK_NAME_A); position += 2) {
                const auto unit = static_cast<ushort>(name[position] | name[position + 1] << 8);
                if (unit == 0)
                    break;
                kept->name.append(QChar(unit));
            }
            return TAPI_RESULT_SUCC;
        },
        index, Field(number, sizeof(TAPI_PHONE_NUMBER_A)), Bytes(name, sizeof(TAPI_PHONEBOOK_NAME_A)));
}

_TAPI_RESULT_E TAPI_OWNNUMBER_DeleteEntry(short index)
{
    return platformCall(
        "TAPI_OWNNUMBER_DeleteEntry", {},
        [=](PhoneState &phone) {
            OwnNumber *const kept = ownNumber(phone.sim, index);
            if (!kept)
                return TAPI_RESULT_INVALID_PARAM;
            *kept = {};
            return TAPI_RESULT_SUCC;
        },
        index);
}

_TAPI_RESULT_E TAPI_OWNNUMBER_GetCapacity(_TAPI_OWNNUMBER_CAPACITY_S *capacity)
{
    return platformCall("TAPI_OWNNUMBER_GetCapacity", {Out(capacity)}, [=](PhoneState &phone) {
        capacity->total = static_cast<unsigned short>(phone.sim.ownNumbers.size());
        return TAPI_RESULT_SUCC;
    });
}

_TAPI_RESULT_E TAPI_OWNNUMBER_GetRange(_TAPI_OWNNUMBER_RANGE_S *range)
{
    return platformCall("TAPI_OWNNUMBER_GetRange", {Out(range)}, [=](PhoneState &phone) {
        *range = {phone.sim.maxNumberLength, phone.sim.maxNameLength};
        return TAPI_RESULT_SUCC;
    });
}

_TAPI_RESULT_E TAPI_OWNNUMBER_GetExtAvailable(unsigned short *available)
{
    return platformCall("TAPI_OWNNUMBER_GetExtAvailable", {Out(available)}, [=](PhoneState &phone) {
        *available = phone.sim.numberExtension != 0 ? 1 : 0;
        return phone.sim.numberExtension != 0 ? TAPI_RESULT_SUCC : TAPI_RESULT_FAIL;
    });
}

_TAPI_RESULT_E TAPI_OWNNUMBER_GetExtRange(unsigned short *extRange)
{
    return platformCall("TAPI_OWNNUMBER_GetExtRange", {Out(extRange)}, [=](PhoneState &phone) {
        *extRange = phone.sim.numberExtension;
        return TAPI_RESULT_SUCC;
    });
}

_TAPI_RESULT_E TAPI_SIM_GetUSIMFileInfo(unsigned char fileId, unsigned int application, unsigned int path,
                                        unsigned int record, _TAPI_SIM_FILE_INFO_S *info)
{
    return platformCall(
        "TAPI_SIM_GetUSIMFileInfo", {Out(info)},
        [=](PhoneState &phone) {
            const auto found = phone.sim.updateRules.find(fileId);
            info->updateRule = found == phone.sim.updateRules.end() ? 1 : found->second;
            return TAPI_RESULT_SUCC;
        },
        fileId, application, path, record);
}
