// Help on an operation, from the table that is made of the exported headers.
#include "Help.h"

namespace Console {

namespace {

struct Documentation {
    const char *face;
    const char *name;
    int declaration;
    const char *sentence;
    const char *parameters; ///< a name, a tabulator and a text a line
    const char *result;
    const char *platform;
    const char *subject;
};

constexpr Documentation documentations[] = {
#include "help.inc"
};

/** Null when the headers say nothing. */
const Documentation *documentationOf(const Operation &operation)
{
    for (const Documentation &documentation : documentations) {
        if (operation.face == QLatin1String(documentation.face)
            && operation.documented == QLatin1String(documentation.name)
            && operation.declaration == documentation.declaration)
            return &documentation;
    }
    return nullptr;
}

/** What the header says about a parameter, "" for nothing. */
QString parameterText(const Documentation &documentation, const QString &name)
{
    for (const QString &line : QString::fromUtf8(documentation.parameters).split(QLatin1Char('\n'))) {
        if (line.section(QLatin1Char('\t'), 0, 0) == name)
            return line.section(QLatin1Char('\t'), 1);
    }
    return {};
}

} // namespace

QStringList helpOf(const Operation &operation)
{
    QStringList lines;
    const Documentation none = {"", "", 0, "", "", "", "", ""};
    const Documentation *const found = documentationOf(operation);
    const Documentation &documentation = found ? *found : none;
    const auto add = [&lines](const QString &heading, const QString &text) {
        if (!text.isEmpty())
            lines += QStringLiteral("  ") + heading + text;
    };
    lines += QStringLiteral("%1 %2").arg(operation.fullName(), operation.usage).trimmed();
    add({}, QString::fromUtf8(documentation.sentence));
    for (const Argument &argument : operation.arguments) {
        const QString text = parameterText(documentation, argument.name);
        add(QStringLiteral("takes %1: ").arg(argument.name),
            argument.expected + (text.isEmpty() ? text : QStringLiteral("; ") + text));
    }
    for (const QString &name : operation.written) {
        const QString text = parameterText(documentation, name);
        add(QStringLiteral("gives "), text.isEmpty() ? name : name + QStringLiteral(": ") + text);
    }
    add(QStringLiteral("result: "), QString::fromUtf8(documentation.result));
    add(QStringLiteral("asks: "), QString::fromUtf8(documentation.platform));
    add(QStringLiteral("subject: "), QString::fromUtf8(documentation.subject));
    return lines;
}

} // namespace Console
