// An operation of the engine as the console calls it: read the arguments, call, show what came back.
#pragma once

#include "Values.h"

#include "PHONE_ENG_NtInterface.h"
#include "PHONE_ENG_Setup.h"

#include <QString>
#include <QStringList>

#include <functional>
#include <tuple>
#include <type_traits>
#include <utility>
#include <vector>

namespace Console {

/** What a call gave back, a line each. */
struct Outcome {
    QString error; ///< what was wrong with the words; nothing was called then
    QStringList lines;
};

struct Operation {
    QString face; ///< class of a member, empty for a plain function
    QString name;
    QString usage; ///< "when -> active number"
    std::function<Outcome(const QStringList &words)> call;

    QString fullName() const { return face.isEmpty() ? name : face + QStringLiteral("::") + name; }
};

/** Every operation of the exported interface. */
const std::vector<Operation> &operations();

/** How a parameter of this type is dealt with: by default it is typed. */
template <typename Type>
struct Parameter {
    using Plain = std::remove_cv_t<std::remove_reference_t<Type>>;
    static constexpr bool typed = true;
    Plain value = {};
    Type pass() { return value; }
};

/** A reference is written by the operation. */
template <typename Type>
struct Parameter<Type &> {
    static constexpr bool typed = std::is_const_v<Type>;
    using Plain = std::remove_const_t<Type>;
    Plain value = {};
    Type &pass() { return value; }
};

/** A pointer is written through. */
template <typename Type>
struct Parameter<Type *> {
    static constexpr bool typed = false;
    using Plain = Type;
    Plain value = {};
    Type *pass() { return &value; }
};

/** Reads one argument; a list takes all the words that are left. */
template <typename Type>
bool read(Parameter<Type> &parameter, const QString &name, QStringList &words, QString &error)
{
    using Plain = typename Parameter<Type>::Plain;
    if constexpr (!Parameter<Type>::typed) {
        return true;
    } else if constexpr (std::is_same_v<Plain, QStringList>) {
        parameter.value = std::exchange(words, {});
        return true;
    } else {
        if (words.isEmpty()) {
            error = QStringLiteral("%1 is missing: expected %2").arg(name, Value<Plain>::expected());
            return false;
        }
        const QString word = words.takeFirst();
        const auto value = Value<Plain>::parse(word);
        if (!value) {
            error = QStringLiteral("%1 cannot be %2: expected %3")
                        .arg(name, quoted(word), Value<Plain>::expected());
            return false;
        }
        parameter.value = *value;
        return true;
    }
}

template <typename Type>
void show(const Parameter<Type> &parameter, const QString &name, QStringList &lines)
{
    if constexpr (!Parameter<Type>::typed)
        lines += assignment(name, Value<typename Parameter<Type>::Plain>::show(parameter.value));
}

template <typename Result, typename... Types, std::size_t... Positions>
Outcome invoke(const std::function<Result(Types...)> &function, const QStringList &names, QStringList words,
               std::index_sequence<Positions...>)
{
    Outcome outcome;
    std::tuple<Parameter<Types>...> parameters;
    const bool complete =
        (read(std::get<Positions>(parameters), names.at(static_cast<int>(Positions)), words, outcome.error)
         && ...);
    if (complete && !words.isEmpty())
        outcome.error = QStringLiteral("too many arguments: %1").arg(words.join(QLatin1Char(' ')));
    if (!outcome.error.isEmpty())
        return outcome;
    QString result;
    if constexpr (std::is_void_v<Result>)
        function(std::get<Positions>(parameters).pass()...);
    else
        result = Value<Result>::show(function(std::get<Positions>(parameters).pass()...));
    (show(std::get<Positions>(parameters), names.at(static_cast<int>(Positions)), outcome.lines), ...);
    if constexpr (!std::is_void_v<Result>)
        outcome.lines += assignment(QStringLiteral("result"), result);
    return outcome;
}

/** @p names are the parameters' names, in order, a word each. */
template <typename Result, typename... Types>
Operation operation(const char *face, const char *name, std::function<Result(Types...)> function,
                    const char *names)
{
    const QStringList parameterNames = QString::fromLatin1(names).split(QLatin1Char(' '), Qt::SkipEmptyParts);
    Q_ASSERT(parameterNames.size() == static_cast<int>(sizeof...(Types)));
    QStringList typed;
    QStringList written;
    int position = 0;
    ((Parameter<Types>::typed ? typed : written).append(parameterNames.at(position++)), ...);
    QString usage = typed.join(QLatin1Char(' '));
    if (!written.isEmpty())
        usage += QStringLiteral(" -> ") + written.join(QStringLiteral(", "));
    return {QString::fromLatin1(face), QString::fromLatin1(name), usage.trimmed(),
            [function, parameterNames](const QStringList &words) {
                return invoke(function, parameterNames, words, std::index_sequence_for<Types...>());
            }};
}

/** A plain function or a static member. */
template <typename Result, typename... Types>
Operation operation(const char *face, const char *name, Result (*function)(Types...), const char *names = "")
{
    return operation(face, name, std::function<Result(Types...)>(function), names);
}

/** A member of one of the two objects; the object is the one there is when the operation is called. */
template <typename Object, typename Result, typename... Types>
Operation operation(const char *name, Result (Object::*member)(Types...), const char *names = "")
{
    return operation(Object::staticMetaObject.className(), name,
                     std::function<Result(Types...)>([member](Types... arguments) -> Result {
                         return (Object::instance()->*member)(static_cast<Types>(arguments)...);
                     }),
                     names);
}

template <typename Object, typename Result, typename... Types>
Operation operation(const char *name, Result (Object::*member)(Types...) const, const char *names = "")
{
    return operation(Object::staticMetaObject.className(), name,
                     std::function<Result(Types...)>([member](Types... arguments) -> Result {
                         return (Object::instance()->*member)(static_cast<Types>(arguments)...);
                     }),
                     names);
}

} // namespace Console
