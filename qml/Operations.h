// Turns members of the engine into the readers and writers of a setting: "read by X, written by Y".
#pragma once

#include "Results.h"
#include "Ticket.h"

#include <QCoreApplication>

namespace Kvq::Operations {

/** How a value of the engine travels to the screen. */
template <typename Value>
QVariant toVariant(const Value &value)
{
    if constexpr (std::is_same_v<Value, bool> || std::is_same_v<Value, QString>)
        return value;
    else
        return static_cast<int>(value);
}

template <typename Value>
Value fromVariant(const QVariant &value)
{
    if constexpr (std::is_same_v<Value, bool> || std::is_same_v<Value, QString>)
        return value.value<Value>();
    else
        return static_cast<Value>(value.toInt());
}

template <typename Value>
Answer answerOf(_TAPI_RESULT_E result, const Value &value)
{
    return {result, result == TAPI_RESULT_SUCC ? toVariant(value) : QVariant()};
}

inline Answer answerOf(_TAPI_RESULT_E result)
{
    return {result, {}};
}

/** Of operations that tell success and nothing else. */
inline Answer answerOf(bool success)
{
    return {success ? TAPI_RESULT_SUCC : TAPI_RESULT_FAIL, {}};
}

/** Makes a write to the settings store and finds out why it failed. */
template <typename Write>
Answer stored(PHONE_ENG_Setup &setup, Write write)
{
    bool diskFull = false;
    const QMetaObject::Connection listening =
        QObject::connect(&setup, &PHONE_ENG_Setup::flashFull, &setup, [&diskFull] { diskFull = true; });
    const bool success = write();
    if (!success) // the engine tells of a full disk by an event to itself
        QCoreApplication::sendPostedEvents(&setup);
    QObject::disconnect(listening);
    if (success)
        return {};
    if (diskFull)
        return {Results::DiskFull, {}};
    return {PHONE_ENG_Setup::setupCheckSystemStatus() ? Results::NotStored : Results::NotAllowed, {}};
}

/** @name Readers
 * @{ */

/** A value that is always there. */
template <typename Value>
auto reader(Value (PHONE_ENG_Setup::*get)())
{
    return [get](Engine &engine) { return Answer{TAPI_RESULT_SUCC, toVariant((engine.setup.*get)())}; };
}

/** A value that the product may lack: then the operation gives false. */
template <typename Value>
auto reader(bool (PHONE_ENG_Setup::*get)(Value &))
{
    return [get](Engine &engine) {
        Value value = {};
        const bool there = (engine.setup.*get)(value);
        return answerOf(there ? TAPI_RESULT_SUCC : TAPI_RESULT_NOT_SUPPORTED, value);
    };
}

template <typename Value>
auto reader(_TAPI_RESULT_E (PHONE_ENG_Setup::*get)(Value &))
{
    return [get](Engine &engine) {
        Value value = {};
        const _TAPI_RESULT_E result = (engine.setup.*get)(value);
        return answerOf(result, value);
    };
}

template <typename Value>
auto reader(_TAPI_RESULT_E (*get)(Value &))
{
    return [get](Engine &) {
        Value value = {};
        const _TAPI_RESULT_E result = get(value);
        return answerOf(result, value);
    };
}

template <typename Value>
auto reader(bool (PHONE_ENG_NtInterface::*get)(Value *))
{
    return [get](Engine &engine) {
        Value value = {};
        const bool success = (engine.network.*get)(&value);
        return answerOf(success ? TAPI_RESULT_SUCC : TAPI_RESULT_FAIL, value);
    };
}

inline auto reader(bool (PHONE_ENG_NtInterface::*get)(bool &))
{
    return [get](Engine &engine) {
        bool value = false;
        const bool success = (engine.network.*get)(value);
        return answerOf(success ? TAPI_RESULT_SUCC : TAPI_RESULT_FAIL, value);
    };
}

/** @} */
/** @name Writers
 * @{ */

template <typename Value>
auto writer(bool (PHONE_ENG_Setup::*set)(Value))
{
    using Plain = std::remove_cv_t<std::remove_reference_t<Value>>;
    return [set](Engine &engine, const QVariant &value) {
        return stored(engine.setup, [&] { return (engine.setup.*set)(fromVariant<Plain>(value)); });
    };
}

template <typename Value>
auto writer(_TAPI_RESULT_E (PHONE_ENG_Setup::*set)(Value))
{
    using Plain = std::remove_cv_t<std::remove_reference_t<Value>>;
    return [set](Engine &engine, const QVariant &value) {
        return answerOf((engine.setup.*set)(fromVariant<Plain>(value)));
    };
}

template <typename Value>
auto writer(_TAPI_RESULT_E (*set)(Value))
{
    return [set](Engine &, const QVariant &value) { return answerOf(set(fromVariant<Value>(value))); };
}

template <typename Value>
auto writer(bool (PHONE_ENG_NtInterface::*set)(Value))
{
    return [set](Engine &engine, const QVariant &value) {
        return answerOf((engine.network.*set)(fromVariant<Value>(value)));
    };
}

/** @} */

} // namespace Kvq::Operations
