// The syntax of AT command lines.
#include "AtLine.h"

#include "DialledSecret.h"

#include <algorithm>
#include <array>
#include <charconv>

namespace AtModem {

namespace {

constexpr std::size_t maxParameters = 20;
constexpr std::size_t maxDigits = 9;

// Of the characters only ASCII has a meaning here, whatever the locale.
bool isDigit(char character)
{
    return character >= '0' && character <= '9';
}

char toUpper(char character)
{
    return character >= 'a' && character <= 'z' ? static_cast<char>(character - 'a' + 'A') : character;
}

bool isLetter(char character)
{
    return toUpper(character) >= 'A' && toUpper(character) <= 'Z';
}

std::string inCapitals(std::string_view text)
{
    std::string capitals(text);
    std::transform(capitals.begin(), capitals.end(), capitals.begin(), toUpper);
    return capitals;
}

/** What is left of a line while its commands are taken from it. */
class Reader {
public:
    explicit Reader(std::string_view rest)
        : m_rest(rest)
    {
    }

    bool atEnd() const { return m_rest.empty(); }
    char peek() const { return m_rest.empty() ? '\0' : m_rest.front(); }

    bool take(char character)
    {
        if (peek() != character || atEnd())
            return false;
        m_rest.remove_prefix(1);
        return true;
    }

    template <typename Condition>
    std::string_view takeWhile(Condition condition)
    {
        const auto end = std::find_if_not(m_rest.begin(), m_rest.end(), condition);
        const std::string_view taken = m_rest.substr(0, static_cast<std::size_t>(end - m_rest.begin()));
        m_rest.remove_prefix(taken.size());
        return taken;
    }

    void skipBlanks()
    {
        takeWhile([](char character) { return character == ' '; });
    }

private:
    std::string_view m_rest;
};

/** False when the text of a parameter is no parameter. */
bool readParameter(Reader &reader, Parameter &parameter)
{
    reader.skipBlanks();
    if (!reader.take('"')) {
        const std::string_view word =
            reader.takeWhile([](char character) { return character != ',' && character != ';'; });
        parameter.text = word.substr(0, word.find_last_not_of(' ') + 1);
        return parameter.text.find('"') == std::string::npos;
    }
    parameter.quoted = true;
    parameter.text = reader.takeWhile([](char character) { return character != '"'; });
    const bool closed = reader.take('"');
    reader.skipBlanks();
    return closed && (reader.atEnd() || reader.peek() == ',' || reader.peek() == ';');
}

bool readParameters(Reader &reader, Command &command)
{
    do {
        if (command.parameters.size() == maxParameters)
            return false;
        command.parameters.emplace_back();
        if (!readParameter(reader, command.parameters.back()))
            return false;
    } while (reader.take(','));
    return true;
}

bool isNamePart(char character)
{
    return isLetter(character) || isDigit(character) || character == '_' || character == '-'
        || character == '.' || character == '/' || character == '!' || character == '%' || character == ':';
}

bool readExtended(Reader &reader, Command &command)
{
    command.name = inCapitals(reader.takeWhile(isNamePart));
    if (command.name.empty())
        return false;
    command.name.insert(0, 1, '+');
    if (reader.take('?')) {
        command.form = Command::Form::Read;
    } else if (reader.take('=')) {
        if (reader.take('?')) {
            command.form = Command::Form::Test;
        } else {
            command.form = Command::Form::Set;
            if (!readParameters(reader, command))
                return false;
        }
    }
    reader.skipBlanks();
    return reader.atEnd() || reader.take(';');
}

/** The dial command takes the rest of the line, its closing semicolon included. */
bool readDial(Reader &reader, Command &command)
{
    std::string number;
    for (const char character : reader.takeWhile([](char) { return true; })) {
        if (character != ' ' && character != '-')
            number += character;
    }
    command.parameters = {{number, false}};
    return true;
}

bool readBasic(Reader &reader, Command &command)
{
    if (reader.take('&'))
        command.name = '&';
    const char letter = toUpper(reader.peek());
    if (!isLetter(letter))
        return false;
    reader.take(reader.peek());
    command.name += letter;
    if (command.name == "D")
        return readDial(reader, command);
    const std::string_view value = reader.takeWhile(isDigit);
    if (command.name == "S" && reader.take('=')) {
        command.form = Command::Form::Set;
        command.parameters = {{std::string(value), false}, {std::string(reader.takeWhile(isDigit)), false}};
    } else if (command.name == "S" && reader.take('?')) {
        command.form = Command::Form::Read;
        command.parameters = {{std::string(value), false}};
    } else if (!value.empty()) {
        command.parameters = {{std::string(value), false}};
    }
    return true;
}

} // namespace

std::optional<int> Command::number(std::size_t position) const
{
    const std::string &digits = text(position);
    if (digits.empty() || digits.size() > maxDigits || !std::all_of(digits.begin(), digits.end(), isDigit))
        return std::nullopt;
    int value = 0;
    std::from_chars(digits.data(), digits.data() + digits.size(), value);
    return value;
}

std::optional<int> Command::number(std::size_t position, int absent) const
{
    return has(position) ? number(position) : absent;
}

const std::string &Command::text(std::size_t position) const
{
    static const std::string absent;
    return position < parameters.size() ? parameters[position].text : absent;
}

std::optional<std::vector<Command>> parseLine(std::string_view line)
{
    Reader reader(line);
    reader.skipBlanks();
    for (const char expected : {'A', 'T'}) {
        if (toUpper(reader.peek()) != expected)
            return std::nullopt;
        reader.take(reader.peek());
    }
    std::vector<Command> commands;
    for (reader.skipBlanks(); !reader.atEnd(); reader.skipBlanks()) {
        if (reader.take(';'))
            continue;
        Command command;
        const bool understood = reader.take('+') ? readExtended(reader, command) : readBasic(reader, command);
        if (!understood)
            return std::nullopt;
        commands.push_back(std::move(command));
    }
    return commands;
}

std::string maskSecrets(std::string_view line)
{
    constexpr std::array<std::string_view, 6> carriers = {"+CPIN=", "+CPWD", "+CLCK",
                                                          "+CACM",  "+CAMM", "+CPUC"};
    constexpr std::size_t shortestSecret = 3;
    const std::string capitals = inCapitals(line);
    const bool carriesOne = std::any_of(carriers.begin(), carriers.end(), [&](std::string_view carrier) {
        return capitals.find(carrier) != std::string::npos;
    });
    if (!carriesOne && !Handset::carriesSecret(line))
        return std::string(line);
    std::string masked;
    Reader reader(line);
    while (!reader.atEnd()) {
        const std::string_view digits = reader.takeWhile(isDigit);
        masked += digits.size() < shortestSecret ? digits : "****";
        masked += reader.takeWhile([](char character) { return !isDigit(character); });
    }
    return masked;
}

} // namespace AtModem
