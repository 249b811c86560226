// The subscriber's own numbers on the SIM, and the update rule of a SIM file.
#include "../TextField.h"
#include "PHONE_ENG_Setup.h"
#include "Unit.h"

#include "TAPI_OWNNUMBER.h"
#include "TAPI_SIM.h"

#include <algorithm>
#include <cstring>
#include <memory>
#include <new>

namespace {

constexpr unsigned short lineCount = 2;
constexpr int minimumListRecords = 10;

constexpr int maxNumberCharacters = sizeof(TAPI_PHONE_NUMBER_A) - 1;
constexpr int maxNameCharacters = sizeof(TAPI_PHONEBOOK_NAME_A) / 2 - 1;

constexpr unsigned char lastFileId = 228;
constexpr unsigned char defaultUpdateRule = 6;
constexpr unsigned char unreportedUpdateRule = 7;

/** What getEFUpdateRule() returns for a file identifier that is out of range. */
constexpr auto noSuchFile = static_cast<TAPI_RESULT_E>(1);

/** A name field: two bytes a character, low byte first, to the first zero character. */
QString unicodeToQStringInLittleEndian(const unsigned char *bytes, int length)
{
    QString text;
    for (int position = 0; position + 1 < length; position += 2) {
        const unsigned char low = bytes[position];
        const unsigned char high = bytes[position + 1];
        if (low == 0 && high == 0)
            break;
        text.append(QChar(static_cast<ushort>(high << 8 | low)));
        LOG_MESSAGE(R"(unicodeToQStringInLittleEndian %d,%d)", high, low);
    }
    return text;
}

/** The inverse; the name fits the field. */
void fillName(TAPI_PHONEBOOK_NAME_A &field, const QString &name)
{
    std::memset(field, 0, sizeof field);
    unsigned char *next = field;
    for (const QChar character : name) {
        *next++ = static_cast<unsigned char>(character.unicode() & 0xFF);
        *next++ = static_cast<unsigned char>(character.unicode() >> 8);
    }
}

} // namespace

_TAPI_RESULT_E PHONE_ENG_Setup::getMyNumber(QString &number1, QString &name1, QString &number2,
                                            QString &name2)
{
    if (!setupCheckSystemStatus())
        return TAPI_RESULT_FAIL;
    _TAPI_OWNNUMBER_ENTRY_S entries[lineCount] = {};
    LOG_TRACE();
    const _TAPI_RESULT_E result = TAPI_OWNNUMBER_GetEntry(1, lineCount, entries);
    LOG_TRACE();
    if (result != TAPI_RESULT_SUCC) {
        LOG_MESSAGE(R"(PHONE_ENG_Setup::getMyNumber. failed.%d)", static_cast<int>(result));
        return result;
    }
    for (const _TAPI_OWNNUMBER_ENTRY_S &entry : entries) {
        LOG_MESSAGE(R"(PHONE_ENG_Setup::getMyNumber.index is %d)", entry.index);
        if (entry.index == 1) {
            number1 = TextField::read(entry.number);
            name1 = unicodeToQStringInLittleEndian(entry.name, sizeof entry.name);
        } else if (entry.index == 2) {
            number2 = TextField::read(entry.number);
            name2 = unicodeToQStringInLittleEndian(entry.name, sizeof entry.name);
        }
    }
    return TAPI_RESULT_SUCC;
}

_TAPI_RESULT_E PHONE_ENG_Setup::setMyNumber(int line, const QString &number, const QString &name)
{
    if (!setupCheckSystemStatus())
        return TAPI_RESULT_FAIL;
    const QByteArray lowerNumber = number.toLower().toLatin1();
    if (lowerNumber.size() > maxNumberCharacters || name.size() > maxNameCharacters)
        return TAPI_RESULT_INVALID_PARAM;
    TAPI_PHONE_NUMBER_A numberField;
    TextField::fill(numberField, lowerNumber);
    TAPI_PHONEBOOK_NAME_A nameField;
    fillName(nameField, name);
    LOG_MESSAGE(R"(PHONE_ENG_Setup::setMyNumber. line %d,number %s,name %s)", line, lowerNumber.constData(),
                name.toLatin1().constData());
    LOG_TRACE();
    const _TAPI_RESULT_E result = TAPI_OWNNUMBER_SaveEntry(static_cast<short>(line), numberField, nameField);
    LOG_TRACE();
    return result;
}

_TAPI_RESULT_E PHONE_ENG_Setup::deleteMyNumber(int line)
{
    if (!setupCheckSystemStatus())
        return TAPI_RESULT_FAIL;
    LOG_TRACE();
    const _TAPI_RESULT_E result = TAPI_OWNNUMBER_DeleteEntry(static_cast<short>(line));
    LOG_TRACE();
    return result;
}

_TAPI_RESULT_E PHONE_ENG_Setup::getMyNumberList(QStringList &list)
{
    if (!setupCheckSystemStatus())
        return TAPI_RESULT_FAIL;
    _TAPI_OWNNUMBER_CAPACITY_S card = {};
    LOG_TRACE();
    TAPI_OWNNUMBER_GetCapacity(&card);
    LOG_TRACE();
    const unsigned short capacity = card.total;
    LOG_MESSAGE(R"(capacity is %d \n)", capacity);
    const auto records = static_cast<std::size_t>(std::max<int>(capacity, minimumListRecords));
    const std::unique_ptr<_TAPI_OWNNUMBER_ENTRY_S[]> entries(new (std::nothrow)
                                                                 _TAPI_OWNNUMBER_ENTRY_S[records]());
    if (!entries)
        return TAPI_RESULT_FAIL;
    LOG_TRACE();
    const _TAPI_RESULT_E result = TAPI_OWNNUMBER_GetEntry(1, capacity, entries.get());
    LOG_TRACE();
    if (result != TAPI_RESULT_SUCC) {
        LOG_MESSAGE(R"(PHONE_ENG_Setup::getMyNumber. failed.%d)", static_cast<int>(result));
        return result;
    }
    for (int position = 0; position < 2 * capacity; ++position)
        list.append(QStringLiteral(""));
    for (int record = 0; record < capacity; ++record) {
        const _TAPI_OWNNUMBER_ENTRY_S &entry = entries[static_cast<std::size_t>(record)];
        const int index = entry.index;
        LOG_MESSAGE(R"(PHONE_ENG_Setup::getMyNumber.index is %d)", index);
        if (index < 1 || index > capacity)
            continue;
        const QString number = TextField::read(entry.number);
        const QString name = unicodeToQStringInLittleEndian(entry.name, sizeof entry.name);
        const int position = 2 * (index - 1);
        if (!name.isEmpty())
            list[position] = name;
        if (!number.isEmpty())
            list[position + 1] = number;
    }
    return TAPI_RESULT_SUCC;
}

_TAPI_RESULT_E PHONE_ENG_Setup::getMyNumberLimit(signed char &maxNumberLength,
                                                 signed char &maxNameLength) const
{
    _TAPI_OWNNUMBER_RANGE_S range = {};
    LOG_TRACE();
    const _TAPI_RESULT_E rangeResult = TAPI_OWNNUMBER_GetRange(&range);
    LOG_TRACE();
    LOG_MESSAGE(R"(PHONE_ENG_Setup::result=%d\n)", static_cast<int>(rangeResult));
    if (rangeResult == TAPI_RESULT_SUCC) {
        maxNumberLength = static_cast<signed char>(range.maxNumberLength);
        maxNameLength = static_cast<signed char>(range.maxNameLength);
    }
    LOG_MESSAGE(R"(PHONE_ENG_Setup::maxNumberLength=%dmaxNameLength=%d\n)", maxNumberLength, maxNameLength);
    _TAPI_RESULT_E result = rangeResult;
    unsigned short available = 0;
    LOG_TRACE();
    const _TAPI_RESULT_E availableResult = TAPI_OWNNUMBER_GetExtAvailable(&available);
    LOG_TRACE();
    if (availableResult == TAPI_RESULT_SUCC) {
        unsigned short extRange = 0;
        LOG_TRACE();
        const _TAPI_RESULT_E extResult = TAPI_OWNNUMBER_GetExtRange(&extRange);
        LOG_TRACE();
        LOG_MESSAGE(R"(PHONE_ENG_Setup::result=%dextRange=%d\n)", static_cast<int>(extResult), extRange);
        // Without a range there is no length that the extension could be added to.
        if (rangeResult == TAPI_RESULT_SUCC) {
            result = extResult;
            if (extResult == TAPI_RESULT_SUCC)
                maxNumberLength = static_cast<signed char>(maxNumberLength + (extRange & 0xFF));
        }
    }
    LOG_MESSAGE(R"(PHONE_ENG_Setup::maxNumberLength=%d\n)", maxNumberLength);
    return result;
}

TAPI_RESULT_E PHONE_ENG_Setup::getEFUpdateRule(unsigned char fileId, unsigned char &rule)
{
    if (fileId > lastFileId)
        return noSuchFile;
    LOG_MESSAGE(R"(PHONE_ENG_Setup::getEFUpdateRule. file %d)", fileId);
    _TAPI_SIM_FILE_INFO_S info = {};
    const TAPI_RESULT_E result = TAPI_SIM_GetUSIMFileInfo(fileId, 0, 0, 0, &info);
    LOG_MESSAGE(R"(PHONE_ENG_Setup::getEFUpdateRule. result %d,update rule %d)", static_cast<int>(result),
                info.updateRule);
    rule = result == TAPI_RESULT_SUCC && info.updateRule != unreportedUpdateRule ? info.updateRule
                                                                                 : defaultUpdateRule;
    LOG_MESSAGE(R"(PHONE_ENG_Setup::getEFUpdateRule. rule %d)", rule);
    LOG_MESSAGE(R"(PHONE_ENG_Setup::getEFUpdateRule. return %d)", static_cast<int>(result));
    return result;
}
