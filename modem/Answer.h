// What a command is answered with.
#pragma once

#include <string>
#include <utility>
#include <vector>

namespace AtModem {

/** Errors of the equipment (3GPP TS 27.007, 9.2). */
enum class Cme : int {
    PhoneFailure = 0,
    OperationNotAllowed = 3,
    OperationNotSupported = 4,
    SimNotInserted = 10,
    PinRequired = 11,
    PukRequired = 12,
    SimFailure = 13,
    SimBusy = 14,
    IncorrectPassword = 16,
    Pin2Required = 17,
    Puk2Required = 18,
    InvalidIndex = 21,
    NoNetworkService = 30,
    NetworkTimeout = 31,
    EmergencyOnly = 32,
    IncorrectParameters = 50,
    Unknown = 100,
};

/** The words of an error, as a verbose answer has them. */
const char *textOf(Cme error);

/** Lines of information and the result that ends them. */
struct Answer {
    enum class Result {
        Ok,
        Error,       ///< of the equipment, in the format that the connection chose
        SyntaxError, ///< plain, whatever the format
        NoCarrier,
    };

    static Answer ok() { return {}; }
    static Answer line(std::string text) { return {Result::Ok, Cme::Unknown, {std::move(text)}}; }
    static Answer error(Cme reason) { return {Result::Error, reason, {}}; }
    static Answer syntaxError() { return {Result::SyntaxError, Cme::Unknown, {}}; }
    static Answer noCarrier() { return {Result::NoCarrier, Cme::Unknown, {}}; }

    Result result = Result::Ok;
    Cme reason = Cme::Unknown;
    std::vector<std::string> lines;
};

} // namespace AtModem
