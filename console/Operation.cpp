// An operation of the engine as the console calls it: what is the same for all of them.
#include "Operation.h"

#include <utility>

namespace Console {

namespace {

QStringList namesOf(const Entry &entry)
{
    QStringList names = QString::fromLatin1(entry.parameterNames).split(QLatin1Char(' '), Qt::SkipEmptyParts);
    Q_ASSERT(names.size() == static_cast<int>(entry.places.size()));
    return names;
}

} // namespace

Operation::Operation(const Entry &entry)
    : face(QString::fromLatin1(entry.face))
    , name(QString::fromLatin1(entry.name))
    , documented(QString::fromLatin1(entry.documented))
    , declaration(entry.declaration)
    , m_entry(&entry)
{
    const QStringList names = namesOf(entry);
    for (std::size_t position = 0; position < entry.places.size(); ++position) {
        const Place &place = entry.places[position];
        const QString &parameter = names.at(static_cast<int>(position));
        if (!place.typed) {
            written += parameter;
            continue;
        }
        usage += (usage.isEmpty() ? QString() : QStringLiteral(" ")) + parameter;
        arguments.push_back({parameter, place.kind->expected(), place.kind->choices()});
    }
    if (!written.isEmpty())
        usage = (usage + QStringLiteral(" -> ") + written.join(QStringLiteral(", "))).trimmed();
}

QString Operation::objection(const QStringList &words) const
{
    return readAll(*m_entry, words, nullptr);
}

QString readAll(const Entry &entry, QStringList words, void *const *values)
{
    const QStringList names = namesOf(entry);
    for (std::size_t position = 0; position < entry.places.size(); ++position) {
        const Place &place = entry.places[position];
        if (!place.typed)
            continue;
        const QString &name = names.at(static_cast<int>(position));
        if (words.isEmpty() && !place.kind->takesAll)
            return QStringLiteral("%1 is missing: expected %2").arg(name, place.kind->expected());
        const QStringList taken =
            place.kind->takesAll ? std::exchange(words, {}) : QStringList{words.takeFirst()};
        if (!place.kind->parse(taken, values ? values[position] : nullptr))
            return QStringLiteral("%1 cannot be %2: expected %3")
                .arg(name, quoted(taken.constFirst()), place.kind->expected());
    }
    return words.isEmpty() ? QString()
                           : QStringLiteral("too many arguments: %1").arg(words.join(QLatin1Char(' ')));
}

QStringList shown(const Entry &entry, void *const *values, const Kind *resultKind, const void *result)
{
    const QStringList names = namesOf(entry);
    QStringList lines;
    for (std::size_t position = 0; position < entry.places.size(); ++position) {
        const Place &place = entry.places[position];
        if (!place.typed)
            lines += assignment(names.at(static_cast<int>(position)), place.kind->show(values[position]));
    }
    if (resultKind)
        lines += assignment(QStringLiteral("result"), resultKind->show(result));
    return lines;
}

} // namespace Console
