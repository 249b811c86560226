// The files of the card, read and written by +CRSM.
#include "CardText.h"
#include "Commands.h"

#include "Forwarding.h"
#include "OwnNumbers.h"

#include <algorithm>

namespace AtModem {

namespace {

using Form = Command::Form;

constexpr std::uint8_t filler = 0xFF;
constexpr int mccLength = 3;

/** Who may read or write a file. */
enum class Access { Always, Pin, Never };

enum class Structure { Transparent, Linear };

/** A file: what it holds is made from what the phone knows, so nothing is kept twice. */
struct CardFile {
    int id;
    Structure structure;
    Access read;
    Access update;
    /** The records, or one for a transparent file. All records are of one size. */
    std::vector<Bytes> (*records)(const Modem &modem);
    /** Takes a written record, 1 for the first; null for a file that nobody writes. */
    bool (*write)(Modem &modem, int record, const Bytes &bytes);
};

/** EF ICCID: the number of the card. */
std::vector<Bytes> cardNumber(const Modem &modem)
{
    constexpr std::string_view checkDigits = "864297531";
    return {packDigits("89490000000000000" + std::to_string(modem.cardNumber)
                       + checkDigits[modem.cardNumber - 1])};
}

/** EF PL and EF LI: the languages of the user, two letters each. */
std::vector<Bytes> languages(const Modem &)
{
    return {{'e', 'n', 'd', 'e', filler, filler}};
}

/** Byte by byte: as one range an optimising compiler takes the short headers before it for the whole. */
void append(Bytes &bytes, const Bytes &more)
{
    for (const std::uint8_t byte : more)
        bytes.push_back(byte);
}

/** EF IMSI. */
std::vector<Bytes> subscriberIdentity(const Modem &modem)
{
    constexpr std::size_t size = 9;
    // The first half byte tells the parity of the digits (3GPP TS 24.008, 10.5.1.4).
    const std::string &imsi = modem.phone.sim.imsi;
    const Bytes packed = packDigits((imsi.size() % 2 == 1 ? '9' : '1') + imsi);
    Bytes file = {static_cast<std::uint8_t>(packed.size())};
    file.insert(file.end(), packed.begin(), packed.end());
    file.resize(size, filler);
    return {file};
}

/** EF AD: normal operation; how many digits of the IMSI are the network code. */
std::vector<Bytes> administrativeData(const Modem &modem)
{
    const auto &networks = modem.phone.network.networks;
    const auto home = std::find_if(networks.begin(), networks.end(), [&](const Network &network) {
        return modem.phone.sim.imsi.compare(0, network.id.size(), network.id) == 0;
    });
    const auto length = home == networks.end() ? 2 : static_cast<int>(home->id.size()) - mccLength;
    return {{0, 0, 0, static_cast<std::uint8_t>(length)}};
}

/** EF UST: the services that the card offers, a bit each. */
std::vector<Bytes> serviceTable(const Modem &)
{
    constexpr std::size_t size = 12;
    // Fixed dialling, service dialling no; advice of charge, capability, provider name, own numbers, names.
    constexpr std::array<int, 6> services = {2, 13, 19, 21, 42, 45};
    Bytes table(size, 0);
    for (const int service : services)
        table[static_cast<std::size_t>((service - 1) / 8)] |=
            static_cast<std::uint8_t>(1 << ((service - 1) % 8));
    return {table};
}

/** EF EST: the services that are switched on; fixed dialling is the first. */
std::vector<Bytes> enabledServices(const Modem &modem)
{
    return {{static_cast<std::uint8_t>(modem.phone.services.fixedDialing == 1 ? 1 : 0)}};
}

/** EF SPN: when to show it, then the name. */
std::vector<Bytes> providerName(const Modem &modem)
{
    constexpr std::size_t size = 16;
    Bytes file = {modem.phone.sim.providerDisplayCondition};
    const Bytes name = packName(modem.phone.sim.providerName, size);
    file.insert(file.end(), name.begin(), name.end());
    return {file};
}

constexpr std::uint8_t internationalNumber = 0x91;
constexpr std::uint8_t unknownNumber = 0x81;
constexpr std::size_t numberBytes = 10;
constexpr std::size_t numberTail = 14; ///< length, type, number, capability and extension

/** EF MSISDN: the own numbers, each with a name. */
std::vector<Bytes> ownNumbers(const Modem &modem)
{
    std::vector<Bytes> records;
    for (const OwnNumber &own : modem.phone.sim.ownNumbers) {
        Bytes record = packName(own.name, modem.phone.sim.maxNameLength);
        const bool international = own.number.rfind('+', 0) == 0;
        Bytes digits = packDigits(own.number.substr(international ? 1 : 0));
        digits.resize(std::min(digits.size(), numberBytes));
        if (digits.empty()) {
            record.resize(record.size() + numberTail, filler);
        } else {
            record.push_back(static_cast<std::uint8_t>(digits.size() + 1));
            record.push_back(international ? internationalNumber : unknownNumber);
            digits.resize(numberBytes, filler);
            record.insert(record.end(), digits.begin(), digits.end());
            record.resize(record.size() + 2, filler);
        }
        records.push_back(std::move(record));
    }
    return records;
}

bool writeOwnNumber(Modem &modem, int record, const Bytes &bytes)
{
    OwnNumber *const own = Simulator::ownNumber(modem.phone.sim, record);
    if (!own || bytes.size() < numberTail)
        return false;
    const auto tail = bytes.end() - static_cast<std::ptrdiff_t>(numberTail);
    own->name = unpackName({bytes.begin(), tail});
    own->number.clear();
    const std::uint8_t length = *tail;
    if (length == filler || length < 2)
        return true;
    const auto digits = tail + 2;
    const std::size_t used = std::min<std::size_t>(length - 1U, numberBytes);
    if (tail[1] == internationalNumber)
        own->number = '+';
    own->number += unpackDigits({digits, digits + static_cast<std::ptrdiff_t>(used)});
    return true;
}

/** EF CFF of a two-line card (CPHS, B.4.5): half a byte a line, whether its voice calls are forwarded. */
std::vector<Bytes> forwardingFlags(const Modem &modem)
{
    constexpr unsigned int on = 0xA;
    constexpr unsigned int off = 0x5;
    const ServiceState &services = modem.phone.services;
    const unsigned int line1 = Simulator::isForwarded(services, 0) ? on : off;
    const unsigned int line2 = Simulator::isForwarded(services, 1) ? on : off;
    return {{static_cast<std::uint8_t>(line2 << 4 | line1)}};
}

/** EF PNN: the names of the home network. */
std::vector<Bytes> networkNames(const Modem &modem)
{
    constexpr std::size_t size = 40;
    constexpr std::uint8_t fullName = 0x43;
    constexpr std::uint8_t ucs2 = 0x90; // no country initials
    const auto &networks = modem.phone.network.networks;
    std::vector<Bytes> records;
    for (const Network &network : networks) {
        const QString name = network.longName.left(static_cast<int>((size - 3) / 2));
        Bytes record = {fullName, static_cast<std::uint8_t>(1 + 2 * name.size()), ucs2};
        for (const QChar character : name) {
            record.push_back(static_cast<std::uint8_t>(character.unicode() >> 8));
            record.push_back(static_cast<std::uint8_t>(character.unicode() & filler));
        }
        record.resize(size, filler);
        records.push_back(std::move(record));
    }
    return records;
}

/** EF OPL: which name goes with which network, wherever in it. */
std::vector<Bytes> networkList(const Modem &modem)
{
    std::vector<Bytes> records;
    for (const Network &network : modem.phone.network.networks) {
        Bytes record = packNetwork(network.id);
        record.insert(record.end(), {0x00, 0x00, 0xFF, 0xFE});
        record.push_back(static_cast<std::uint8_t>(records.size() + 1));
        records.push_back(std::move(record));
    }
    return records;
}

/** EF ACM: the meter of all calls, of which the newest record counts. */
std::vector<Bytes> accumulatedMeter(const Modem &modem)
{
    const unsigned int units = modem.charge.accumulated;
    return {{static_cast<std::uint8_t>(units >> 16), static_cast<std::uint8_t>(units >> 8),
             static_cast<std::uint8_t>(units)}};
}

constexpr std::array<CardFile, 13> files = {{
    {0x2FE2, Structure::Transparent, Access::Always, Access::Never, cardNumber, nullptr},
    {0x2F05, Structure::Transparent, Access::Always, Access::Never, languages, nullptr},
    {0x6F05, Structure::Transparent, Access::Always, Access::Never, languages, nullptr},
    {0x6F07, Structure::Transparent, Access::Pin, Access::Never, subscriberIdentity, nullptr},
    {0x6FAD, Structure::Transparent, Access::Always, Access::Never, administrativeData, nullptr},
    {0x6F38, Structure::Transparent, Access::Pin, Access::Never, serviceTable, nullptr},
    {0x6F56, Structure::Transparent, Access::Pin, Access::Never, enabledServices, nullptr},
    {0x6F46, Structure::Transparent, Access::Always, Access::Never, providerName, nullptr},
    {0x6F40, Structure::Linear, Access::Pin, Access::Pin, ownNumbers, writeOwnNumber},
    {0x6F13, Structure::Transparent, Access::Pin, Access::Never, forwardingFlags, nullptr},
    {0x6FC5, Structure::Linear, Access::Always, Access::Never, networkNames, nullptr},
    {0x6FC6, Structure::Linear, Access::Always, Access::Never, networkList, nullptr},
    {0x6F39, Structure::Linear, Access::Pin, Access::Never, accumulatedMeter, nullptr},
}};

/** Status words of the card (3GPP TS 31.101, ETSI TS 102 221). */
struct Status {
    int first;
    int second;
};
constexpr Status done = {0x90, 0x00};
constexpr Status fileNotFound = {0x6A, 0x82};
constexpr Status recordNotFound = {0x6A, 0x83};
constexpr Status wrongLength = {0x67, 0x00};
constexpr Status wrongParameters = {0x6B, 0x00};
constexpr Status notAllowed = {0x69, 0x82};
constexpr Status wrongStructure = {0x69, 0x81};
constexpr Status notSupported = {0x6D, 0x00};

Answer respond(Status status, const Bytes &bytes = {})
{
    std::string line = "+CRSM: " + std::to_string(status.first) + ',' + std::to_string(status.second);
    if (!bytes.empty())
        line += ",\"" + toHex(bytes) + '"';
    return Answer::line(line);
}

bool mayDo(Access access, const Modem &modem)
{
    return access == Access::Always || (access == Access::Pin && !modem.isPinRequired());
}

/** The control parameters of a file (ETSI TS 102 221, 11.1.1.3). */
Bytes describe(const CardFile &file, const std::vector<Bytes> &records)
{
    const std::size_t recordSize = records.empty() ? 0 : records.front().size();
    const std::size_t size = recordSize * records.size();
    const auto high = [](std::size_t value) { return static_cast<std::uint8_t>(value >> 8); };
    const auto low = [](std::size_t value) { return static_cast<std::uint8_t>(value & filler); };
    Bytes content;
    if (file.structure == Structure::Transparent)
        content = {0x82, 0x02, 0x41, 0x21};
    else
        content = {0x82, 0x05, 0x42, 0x21, high(recordSize), low(recordSize), low(records.size())};
    const auto id = static_cast<std::size_t>(file.id);
    content.insert(content.end(), {0x83, 0x02, high(id), low(id)});
    content.insert(content.end(), {0x8A, 0x01, 0x05}); // activated
    // Access rules in compact form: which of update and read, then the condition of each.
    const auto condition = [](Access access) -> std::uint8_t {
        switch (access) {
        case Access::Always:
            return 0x00;
        case Access::Pin:
            return 0x90;
        default:
            return filler;
        }
    };
    content.insert(content.end(), {0x8C, 0x03, 0x03, condition(file.update), condition(file.read)});
    content.insert(content.end(), {0x80, 0x02, high(size), low(size)});
    Bytes description = {0x62, static_cast<std::uint8_t>(content.size())};
    append(description, content);
    return description;
}

Answer readBinary(const CardFile &file, const Modem &modem, int offset, int length)
{
    if (file.structure != Structure::Transparent)
        return respond(wrongStructure);
    if (!mayDo(file.read, modem))
        return respond(notAllowed);
    const Bytes content = file.records(modem).front();
    const auto begin = static_cast<std::size_t>(offset);
    if (begin > content.size())
        return respond(wrongParameters);
    const std::size_t rest = content.size() - begin;
    const std::size_t wanted = length == 0 ? rest : static_cast<std::size_t>(length);
    if (wanted > rest)
        return respond(wrongLength);
    return respond(done, {content.begin() + offset, content.begin() + offset + static_cast<int>(wanted)});
}

Answer readRecord(const CardFile &file, const Modem &modem, int record, int length)
{
    if (file.structure != Structure::Linear)
        return respond(wrongStructure);
    if (!mayDo(file.read, modem))
        return respond(notAllowed);
    const auto records = file.records(modem);
    if (record < 1 || static_cast<std::size_t>(record) > records.size())
        return respond(recordNotFound);
    const Bytes &content = records[static_cast<std::size_t>(record - 1)];
    if (length != 0 && static_cast<std::size_t>(length) != content.size())
        return respond(wrongLength);
    return respond(done, content);
}

Answer updateRecord(const CardFile &file, Modem &modem, int record, const std::string &data)
{
    if (file.structure != Structure::Linear)
        return respond(wrongStructure);
    if (!mayDo(file.update, modem) || !file.write)
        return respond(notAllowed);
    const auto records = file.records(modem);
    if (record < 1 || static_cast<std::size_t>(record) > records.size())
        return respond(recordNotFound);
    const auto bytes = fromHex(data);
    if (!bytes || bytes->size() != records.front().size())
        return respond(wrongLength);
    return respond(file.write(modem, record, *bytes) ? done : wrongParameters);
}

/** +CRSM=<command>[,<file>[,<p1>,<p2>,<p3>[,<data>[,<path>]]]] */
Answer accessFile(Modem &modem, Session &, const Command &command)
{
    enum Instruction {
        ReadBinary = 176,
        ReadRecord = 178,
        GetResponse = 192,
        UpdateBinary = 214,
        UpdateRecord = 220
    };
    constexpr int longest = 255;
    constexpr int absolute = 4;
    const auto instruction = command.number(0);
    const auto id = command.number(1);
    const auto p1 = command.number(2, 0);
    const auto p2 = command.number(3, 0);
    const auto p3 = command.number(4, 0);
    if (command.form != Form::Set || !instruction || !id || !p1 || *p1 > longest || !p2 || *p2 > longest
        || !p3 || *p3 > longest)
        return Answer::error(Cme::IncorrectParameters);
    const auto *const file =
        std::find_if(files.begin(), files.end(), [id](const CardFile &one) { return one.id == *id; });
    if (file == files.end())
        return respond(fileNotFound);
    switch (*instruction) {
    case GetResponse:
        return respond(done, describe(*file, file->records(modem)));
    case ReadBinary:
        return readBinary(*file, modem, *p1 * (longest + 1) + *p2, *p3);
    case ReadRecord:
        return *p2 == absolute ? readRecord(*file, modem, *p1, *p3) : respond(wrongParameters);
    case UpdateBinary:
        return respond(file->structure == Structure::Transparent ? notAllowed : wrongStructure);
    case UpdateRecord:
        return *p2 == absolute ? updateRecord(*file, modem, *p1, command.text(5)) : respond(wrongParameters);
    default:
        return respond(notSupported);
    }
}

Answer listOwnNumbers(Modem &modem, Session &, const Command &)
{
    constexpr int international = 145;
    constexpr int other = 129;
    Answer answer;
    for (const OwnNumber &own : modem.phone.sim.ownNumbers) {
        if (own.number.empty())
            continue;
        std::string name;
        for (const QChar character : own.name)
            name += character.unicode() < 0x80 && character != QLatin1Char('"') ? character.toLatin1() : '?';
        answer.lines.push_back("+CNUM: \"" + name + "\",\"" + own.number + "\","
                               + std::to_string(own.number.front() == '+' ? international : other));
    }
    return answer;
}

/** The applications of the card (ETSI TS 102 221, EF DIR): a template each, with its id and its label. */
Answer listApplications(Modem &modem, Session &, const Command &)
{
    constexpr std::uint8_t application = 0x61;
    constexpr std::uint8_t identifier = 0x4F;
    constexpr std::uint8_t label = 0x50;
    constexpr int longestLabel = 32;
    Answer answer;
    for (const QString &name : modem.phone.sim.usimLabels) {
        const QByteArray text = name.toUtf8().left(longestLabel);
        Bytes content = {identifier, 0x10, 0xA0, 0x00, 0x00, 0x00, 0x87, 0x10, 0x02,
                         0xFF,       0x49, 0xFF, 0x01, 0x89, 0x00, 0x00, 0x01};
        content.push_back(static_cast<std::uint8_t>(answer.lines.size() + 1));
        content.insert(content.end(), {label, static_cast<std::uint8_t>(text.size())});
        content.insert(content.end(), text.begin(), text.end());
        Bytes entry = {application, static_cast<std::uint8_t>(content.size())};
        append(entry, content);
        answer.lines.push_back("+CUAD: \"" + toHex(entry) + '"');
    }
    return answer;
}

constexpr std::array<CommandEntry, 3> commands = {{
    {"+CRSM", Needs::Card, "", accessFile},
    {"+CNUM", Needs::Ready, "", listOwnNumbers},
    {"+CUAD", Needs::Card, "", listApplications},
}};

} // namespace

std::span<const CommandEntry> cardFileCommands()
{
    return commands;
}

} // namespace AtModem
