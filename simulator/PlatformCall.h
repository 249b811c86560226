// The shape of every simulated platform function: note the call, give the scripted answer if there is one,
// else behave.
#pragma once

#include "SimulatedPhone.h"

#include <QByteArray>
#include <QString>

#include <algorithm>
#include <cerrno>
#include <cstddef>
#include <cstring>
#include <initializer_list>
#include <mutex>
#include <string>
#include <type_traits>
#include <utility>

namespace Simulator {

/** An out-parameter: memory that a scripted answer may fill. */
struct Out {
    Out(void *memory, std::size_t bytes)
        : data(memory)
        , size(bytes)
    {
    }
    template <typename Value>
    explicit Out(Value *value)
        : data(value)
        , size(sizeof *value)
    {
    }
    explicit Out(QString *value)
        : text(value)
    {
    }
    explicit Out(bool *value)
        : flag(value)
    {
    }

    void fill(const std::string &bytes) const
    {
        if (flag && !bytes.empty())
            *flag = bytes.front() != 0;
        else if (text)
            *text = QString::fromUtf8(bytes.data(), static_cast<int>(bytes.size()));
        else if (data)
            std::memcpy(data, bytes.data(), std::min(size, bytes.size()));
    }

    void *data = nullptr;
    std::size_t size = 0;
    QString *text = nullptr;
    bool *flag = nullptr;
};

/** A text field of a known size: shown with its size, so that the text tells every byte of it. */
struct Field {
    template <typename Byte>
    Field(const Byte *bytes, std::size_t byteCount)
        : data(reinterpret_cast<const char *>(bytes))
        , size(byteCount)
    {
        static_assert(sizeof(Byte) == 1);
    }
    const char *data;
    std::size_t size;
};

/** Raw bytes, shown in hexadecimal. */
struct Bytes {
    Bytes(const void *bytes, std::size_t byteCount)
        : data(static_cast<const unsigned char *>(bytes))
        , size(byteCount)
    {
    }
    const unsigned char *data;
    std::size_t size;
};

void append(std::string &text, const Field &field);
void append(std::string &text, const Bytes &bytes);
void append(std::string &text, const QString &value);
void append(std::string &text, const QByteArray &value);
void append(std::string &text, const char *value);
void append(std::string &text, bool value);
void append(std::string &text, char value);

template <typename Number>
void append(std::string &text, Number value)
{
    static_assert(std::is_integral_v<Number> || std::is_enum_v<Number>);
    if constexpr (std::is_enum_v<Number>)
        text += std::to_string(static_cast<std::underlying_type_t<Number>>(value));
    else
        text += std::to_string(value);
}

template <typename... Arguments>
std::string describe(const char *function, const Arguments &...arguments)
{
    std::string text = function;
    text += '(';
    [[maybe_unused]] const char *separator = "";
    ((text += separator, append(text, arguments), separator = ", "), ...);
    text += ')';
    return text;
}

/** A NUL-terminated byte string as an argument. */
inline const char *text(const unsigned char *string)
{
    return reinterpret_cast<const char *>(string);
}

/**
 * Answers one platform call. A behaviour that takes the phone's state runs while nobody else changes it; one that takes
 * nothing runs beside others.
 */
template <typename Behaviour, typename... Arguments>
auto platformCall(const char *function, std::initializer_list<Out> out, Behaviour behaviour,
                  const Arguments &...arguments)
{
    constexpr bool usesState = std::is_invocable_v<Behaviour, PhoneState &>;
    using Result = typename std::conditional_t<usesState, std::invoke_result<Behaviour, PhoneState &>,
                                               std::invoke_result<Behaviour>>::type;
    SimulatedPhone &phone = SimulatedPhone::instance();
    const bool noted = phone.isJournalEnabled();
    std::string call;
    if (noted) {
        call = describe(function, arguments...);
        phone.note(call);
    }
    phone.waitForAnswer(function);
    const auto answer = [&]() -> Result {
        std::unique_lock lock(phone.mutex());
        const ScriptedAnswer *const scripted = phone.scriptedAnswer(function);
        if constexpr (usesState) {
            if (!scripted)
                return behaviour(phone.state());
        } else if (!scripted) {
            lock.unlock();
            return behaviour();
        }
        const Out *parameter = out.begin();
        for (const std::string &bytes : scripted->out) {
            if (parameter == out.end())
                break;
            (parameter++)->fill(bytes);
        }
        if (scripted->error != 0)
            errno = scripted->error;
        if constexpr (!std::is_void_v<Result>)
            return static_cast<Result>(scripted->result);
    };
    // Whoever watches the phone must not disturb the errno that it answered with.
    if constexpr (std::is_void_v<Result>) {
        answer();
        if (noted) {
            const int error = errno;
            phone.tellObserver(call, {});
            errno = error;
        }
    } else {
        const Result result = answer();
        if (noted) {
            const int error = errno;
            std::string resultText;
            if constexpr (!std::is_pointer_v<Result>)
                append(resultText, result);
            phone.tellObserver(call, resultText);
            errno = error;
        }
        return result;
    }
}

/** Copies a text into a field, terminated. */
template <typename Byte>
void copyText(Byte *field, std::size_t size, const std::string &value)
{
    static_assert(sizeof(Byte) == 1);
    std::memset(field, 0, size);
    std::memcpy(field, value.data(), std::min(value.size(), size - 1));
}

/** A terminated field as a text. */
template <typename Byte>
std::string textOf(const Byte *field, std::size_t size)
{
    static_assert(sizeof(Byte) == 1);
    const char *const begin = reinterpret_cast<const char *>(field);
    return {begin, strnlen(begin, size)};
}

} // namespace Simulator
