// What the product offers.
#include "Product.h"

#include "Descriptor.h"

#include <QString>

#include <array>
#include <cerrno>
#include <charconv>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <sstream>

#include <fcntl.h>
#include <sys/stat.h>

namespace Handset {

namespace {

constexpr char defaultFile[] = "/etc/kvq/product.conf";

/** Two lines, their lock, and what belongs to a card with them: none of it has a service behind it by default. */
constexpr unsigned short featuresOfTwoLines[] = {2007, 2040, 2171, 2189, 2258};
constexpr unsigned short operatorNames = 2037;

constexpr char whiteSpace[] = " \t\r";

std::string trimmed(const std::string &text)
{
    const auto begin = text.find_first_not_of(whiteSpace);
    return begin == std::string::npos ? std::string()
                                      : text.substr(begin, text.find_last_not_of(whiteSpace) - begin + 1);
}

std::optional<bool> parsedFlag(const std::string &text)
{
    if (text == "yes")
        return true;
    return text == "no" ? std::optional(false) : std::nullopt;
}

std::optional<unsigned short> parsedId(const std::string &text)
{
    unsigned short id = 0;
    const auto parsed = std::from_chars(text.data(), text.data() + text.size(), id);
    return parsed.ec == std::errc() && parsed.ptr == text.data() + text.size() ? std::optional(id)
                                                                               : std::nullopt;
}

/** A path as the message bus has it. */
bool isModemPath(const std::string &text)
{
    constexpr char allowed[] = "/_0123456789ABCDEFGHIJKLMNOPQRSTUVWXYZabcdefghijklmnopqrstuvwxyz";
    return text.size() > 1 && text.front() == '/' && text.back() != '/'
        && text.find("//") == std::string::npos && text.find_first_not_of(allowed) == std::string::npos;
}

template <typename Value>
void include(std::set<Value> &set, const Value &value, bool included)
{
    if (included)
        set.insert(value);
    else
        set.erase(value);
}

void report(const std::string &path, int line, const std::string &what)
{
    std::fprintf(stderr, "product: %s, line %d: %s\n", path.c_str(), line, what.c_str());
}

/** False with the reason when it cannot be read. A pipe would keep the program waiting for a writer. */
bool readWhole(const std::string &path, std::string &contents, const char *&reason)
{
    const Descriptor file(open(path.c_str(), O_RDONLY | O_NONBLOCK | O_NOCTTY | O_CLOEXEC));
    struct stat status = {};
    if (!file || fstat(file.number(), &status) != 0) {
        reason = std::strerror(errno);
        return false;
    }
    if (!S_ISREG(status.st_mode)) {
        reason = "not a regular file";
        return false;
    }
    std::array<char, 4096> bytes = {};
    ssize_t count = 0;
    while ((count = ::read(file.number(), bytes.data(), bytes.size())) > 0)
        contents.append(bytes.data(), static_cast<std::size_t>(count));
    reason = count < 0 ? std::strerror(errno) : nullptr;
    return count == 0;
}

} // namespace

const Product &Product::instance()
{
    // Never destroyed: an application may use the engine until the process is gone.
    static const auto *const product = [] {
        auto *const read = new Product;
        if (!read->readNamed() && access(defaultFile, F_OK) == 0)
            read->read(defaultFile);
        return read;
    }();
    return *product;
}

Product::Product()
    : missingFeatures(std::begin(featuresOfTwoLines), std::end(featuresOfTwoLines))
    , databaseFeatures{operatorNames}
{
}

bool Product::read(const std::string &path)
{
    std::string contents;
    const char *reason = nullptr;
    if (!readWhole(path, contents, reason)) {
        std::fprintf(stderr, "product: %s: %s\n", path.c_str(), reason);
        return false;
    }
    std::istringstream file(contents);
    std::string section;
    std::string text;
    for (int number = 1; std::getline(file, text); ++number) {
        const std::string line = trimmed(text.substr(0, text.find('#')));
        if (line.empty())
            continue;
        if (line.front() == '[') {
            section = line;
            continue;
        }
        const auto equals = line.find('=');
        if (section == "[telephony]" && equals != std::string::npos
            && trimmed(line.substr(0, equals)) == "modem") {
            const std::string named = trimmed(line.substr(equals + 1));
            if (isModemPath(named))
                modem = named;
            else
                report(path, number, "expected the path of a modem, such as /ril_0");
            continue;
        }
        const auto value =
            equals == std::string::npos ? std::nullopt : parsedFlag(trimmed(line.substr(equals + 1)));
        if (!value)
            report(path, number, R"(expected "key = yes" or "key = no")");
        else if (!set(section, trimmed(line.substr(0, equals)), *value))
            report(path, number, "no such key in " + (section.empty() ? "no section" : section));
    }
    return true;
}

bool Product::readNamed()
{
    const char *const named = secure_getenv("KVQ_PRODUCT");
    if (!named || !*named)
        return false;
    read(named);
    return true;
}

std::optional<bool> Product::flexBit(unsigned short id) const
{
    const auto bit = flexBits.find(id);
    return bit == flexBits.end() ? std::nullopt : std::optional(bit->second);
}

/** False when the key cannot stand in that section. */
bool Product::set(const std::string &section, const std::string &key, bool value)
{
    if (section == "[input-methods]") {
        const QUuid method = QUuid::fromString(QString::fromStdString(key));
        if (!method.isNull())
            include(inputMethods, method, value);
        return !method.isNull();
    }
    const auto id = parsedId(key);
    if (!id)
        return false;
    if (section == "[features]")
        include(missingFeatures, *id, !value);
    else if (section == "[flex-bits]")
        flexBits[*id] = value;
    else if (section == "[feature-database]")
        include(databaseFeatures, *id, value);
    else
        return false;
    return true;
}

} // namespace Handset
