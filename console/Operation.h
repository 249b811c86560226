// An operation of the engine as the console calls it: read the arguments, call, show what came back.
#pragma once

#include "Values.h"

#include "PHONE_ENG_NtInterface.h"
#include "PHONE_ENG_Setup.h"

#include <QString>
#include <QStringList>

#include <array>
#include <optional>
#include <span>
#include <tuple>
#include <type_traits>
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

/** How values of a type are typed and shown. */
struct Kind {
    bool takesAll; ///< a list: all the words that are left
    QString (*expected)();
    QStringList (*choices)();
    bool (*parse)(const QStringList &words,
                  void *value); ///< false when they are no such value; null keeps none
    QString (*show)(const void *value);
};

/** A parameter: typed by the user, or written by the operation. */
struct Place {
    const Kind *kind;
    bool typed;
};

/** A line of the table of operations. */
struct Entry {
    const char *face; ///< class of a member, empty for a plain function
    const char *name;
    const char *parameterNames; ///< in order, a word each
    std::span<const Place> places;
    Outcome (*call)(const Entry &entry, const QStringList &words);
    const char *documented; ///< the name that the exported header gives it
    int declaration = 1;    ///< which one of that name
};

struct Operation {
    explicit Operation(const Entry &entry);

    QString face;
    QString name;
    QString usage; ///< "when -> active number"
    std::vector<Argument> arguments;
    QStringList written; ///< what it gives besides its result
    QString documented;
    int declaration;

    Outcome call(const QStringList &words) const { return m_entry->call(*m_entry, words); }
    QString objection(const QStringList &words) const; ///< what is wrong with the words; calls nothing

    bool carriesPin() const
    {
        return usage.contains(QLatin1String("pin"), Qt::CaseInsensitive)
            || usage.contains(QLatin1String("puk"), Qt::CaseInsensitive);
    }

    QString fullName() const { return face.isEmpty() ? name : face + QStringLiteral("::") + name; }

private:
    const Entry *m_entry;
};

/** Every operation of the exported interface. */
const std::vector<Operation> &operations();

/** Reads the words into @p values, one a parameter; null keeps none. Gives what is wrong with the words. */
QString readAll(const Entry &entry, QStringList words, void *const *values);

/** Shows what an operation has written, and its result when it has one. */
QStringList shown(const Entry &entry, void *const *values, const Kind *resultKind, const void *result);

template <typename Type>
inline constexpr Kind kindOf = {
    std::is_same_v<Type, QStringList>,
    [] {
        if constexpr (requires { Value<Type>::expected(); })
            return Value<Type>::expected();
        else
            return QStringLiteral("texts, up to the end of the line");
    },
    [] { return choicesOf<Type>(); },
    [](const QStringList &words, void *value) {
        std::optional<Type> parsed;
        if constexpr (std::is_same_v<Type, QStringList>)
            parsed = words;
        else if constexpr (requires { Value<Type>::parse(QString()); })
            parsed = Value<Type>::parse(words.constFirst());
        if (parsed && value)
            *static_cast<Type *>(value) = *parsed;
        return parsed.has_value();
    },
    [](const void *value) {
        if constexpr (requires { Value<Type>::show(*static_cast<const Type *>(value)); })
            return Value<Type>::show(*static_cast<const Type *>(value));
        else
            return QString();
    },
};

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

/** How an operation with these types is called. */
template <typename Result, typename... Types>
struct Signature {
    static constexpr std::array<Place, sizeof...(Types)> places = {
        Place{&kindOf<typename Parameter<Types>::Plain>, Parameter<Types>::typed}...};

    /** @p function takes the parameters. */
    template <typename Function>
    static Outcome call(const Entry &entry, const QStringList &words, Function function)
    {
        std::tuple<Parameter<Types>...> parameters;
        return std::apply(
            [&](auto &...parameter) -> Outcome {
                const std::array<void *, sizeof...(Types)> values = {&parameter.value...};
                const QString error = readAll(entry, words, values.data());
                if (!error.isEmpty())
                    return {error, {}};
                if constexpr (std::is_void_v<Result>) {
                    function(parameter.pass()...);
                    return {{}, shown(entry, values.data(), nullptr, nullptr)};
                } else {
                    const Result result = function(parameter.pass()...);
                    return {{}, shown(entry, values.data(), &kindOf<Result>, &result)};
                }
            },
            parameters);
    }
};

template <typename Object>
inline constexpr const char *faceOf = nullptr;
template <>
inline constexpr const char *faceOf<PHONE_ENG_Setup> = "PHONE_ENG_Setup";
template <>
inline constexpr const char *faceOf<PHONE_ENG_NtInterface> = "PHONE_ENG_NtInterface";

/** What can be called: a plain function or a static member, or a member of one of the two objects. */
template <typename Function>
struct Callable;

template <typename Result, typename... Types>
struct Callable<Result (*)(Types...)> : Signature<Result, Types...> {
    template <auto function>
    static Outcome run(const Entry &entry, const QStringList &words)
    {
        return Callable::call(entry, words, function);
    }
};

/** The object is the one there is when the operation is called. */
template <typename Object, typename Result, typename... Types>
struct Callable<Result (Object::*)(Types...)> : Signature<Result, Types...> {
    static constexpr const char *face = faceOf<Object>;

    template <auto function>
    static Outcome run(const Entry &entry, const QStringList &words)
    {
        return Callable::call(entry, words, [](Types... arguments) -> Result {
            return (Object::instance()->*function)(static_cast<Types>(arguments)...);
        });
    }
};

template <typename Object, typename Result, typename... Types>
struct Callable<Result (Object::*)(Types...) const> : Callable<Result (Object::*)(Types...)> {
};

template <auto function>
requires std::is_pointer_v<decltype(function)>
constexpr Entry operation(const char *face, const char *name, const char *parameterNames = "")
{
    using Called = Callable<decltype(function)>;
    return {face, name, parameterNames, Called::places, &Called::template run<function>, name};
}

template <auto member>
requires std::is_member_function_pointer_v<decltype(member)>
constexpr Entry operation(const char *name, const char *parameterNames = "")
{
    using Called = Callable<decltype(member)>;
    return {Called::face, name, parameterNames, Called::places, &Called::template run<member>, name};
}

} // namespace Console
