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

/** A word that an operation takes. */
struct Argument {
    QString name;
    QString expected;    ///< "true or false"
    QStringList choices; ///< the words that it may be, when they can be listed
};

struct Operation {
    QString face; ///< class of a member, empty for a plain function
    QString name;
    QString usage; ///< "when -> active number"
    std::vector<Argument> arguments;
    QStringList written; ///< what it gives besides its result
    std::function<Outcome(const QStringList &words)> call;
    std::function<QString(const QStringList &words)>
        objection;       ///< what is wrong with the words; calls nothing
    QString documented;  ///< the name that the exported header gives it
    int declaration = 1; ///< which one of that name

    bool carriesPin() const
    {
        return usage.contains(QLatin1String("pin"), Qt::CaseInsensitive)
            || usage.contains(QLatin1String("puk"), Qt::CaseInsensitive);
    }

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

template <typename... Types, std::size_t... Positions>
QString readAll(std::tuple<Parameter<Types>...> &parameters, const QStringList &names, QStringList words,
                std::index_sequence<Positions...>)
{
    QString error;
    const bool complete =
        (read(std::get<Positions>(parameters), names.at(static_cast<int>(Positions)), words, error) && ...);
    if (complete && !words.isEmpty())
        error = QStringLiteral("too many arguments: %1").arg(words.join(QLatin1Char(' ')));
    return error;
}

template <typename Result, typename... Types, std::size_t... Positions>
Outcome invoke(const std::function<Result(Types...)> &function, const QStringList &names,
               const QStringList &words, std::index_sequence<Positions...> positions)
{
    Outcome outcome;
    std::tuple<Parameter<Types>...> parameters;
    outcome.error = readAll(parameters, names, words, positions);
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

template <typename Type>
void describe(const QString &name, std::vector<Argument> &arguments, QStringList &written)
{
    using Plain = typename Parameter<Type>::Plain;
    if constexpr (!Parameter<Type>::typed)
        written += name;
    else if constexpr (std::is_same_v<Plain, QStringList>)
        arguments.push_back({name, QStringLiteral("texts, up to the end of the line"), {}});
    else
        arguments.push_back({name, Value<Plain>::expected(), choicesOf<Plain>()});
}

/** @p names are the parameters' names, in order, a word each. */
template <typename Result, typename... Types>
Operation operation(const char *face, const char *name, std::function<Result(Types...)> function,
                    const char *names)
{
    const QStringList parameterNames = QString::fromLatin1(names).split(QLatin1Char(' '), Qt::SkipEmptyParts);
    Q_ASSERT(parameterNames.size() == static_cast<int>(sizeof...(Types)));
    Operation operation;
    operation.face = QString::fromLatin1(face);
    operation.name = operation.documented = QString::fromLatin1(name);
    int position = 0;
    (describe<Types>(parameterNames.at(position++), operation.arguments, operation.written), ...);
    for (const Argument &argument : operation.arguments)
        operation.usage += (operation.usage.isEmpty() ? QString() : QStringLiteral(" ")) + argument.name;
    if (!operation.written.isEmpty())
        operation.usage =
            (operation.usage + QStringLiteral(" -> ") + operation.written.join(QStringLiteral(", ")))
                .trimmed();
    operation.call = [function, parameterNames](const QStringList &words) {
        return invoke(function, parameterNames, words, std::index_sequence_for<Types...>());
    };
    operation.objection = [parameterNames](const QStringList &words) {
        std::tuple<Parameter<Types>...> parameters;
        return readAll(parameters, parameterNames, words, std::index_sequence_for<Types...>());
    };
    return operation;
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
