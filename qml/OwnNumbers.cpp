// How own numbers are read and written.
#include "OwnNumbers.h"

namespace Kvq {

namespace {

constexpr std::array<Role<OwnNumber>, 3> roles = {{
    {"line", [](const OwnNumber &entry) { return QVariant(entry.line); }},
    {"number", [](const OwnNumber &entry) { return QVariant(entry.number); }},
    {"name", [](const OwnNumber &entry) { return QVariant(entry.name); }},
}};

/** What a reading of the card gives. */
struct Card {
    QList<OwnNumber> numbers;
    int maxNumberLength = 0;
    int maxNameLength = 0;
};

_TAPI_RESULT_E readNumbers(PHONE_ENG_Setup &setup, QList<OwnNumber> &numbers)
{
    QStringList texts;
    const _TAPI_RESULT_E result = setup.getMyNumberList(texts);
    for (int text = 0; text + 1 < static_cast<int>(texts.size()); text += 2)
        numbers.append(OwnNumber{text / 2 + 1, texts.at(text + 1), texts.at(text)});
    return result;
}

Answer readCard(Engine &engine)
{
    Card card;
    const _TAPI_RESULT_E result = readNumbers(engine.setup, card.numbers);
    if (result != TAPI_RESULT_SUCC)
        return Operations::answerOf(result);
    signed char maxNumberLength = 0;
    signed char maxNameLength = 0;
    if (engine.setup.getMyNumberLimit(maxNumberLength, maxNameLength) == TAPI_RESULT_SUCC) {
        // The engine gives the card's bytes, which count to 255.
        card.maxNumberLength = static_cast<unsigned char>(maxNumberLength);
        card.maxNameLength = static_cast<unsigned char>(maxNameLength);
    }
    return {TAPI_RESULT_SUCC, QVariant::fromValue(card)};
}

/** The card keeps what it can, so what it took is read. */
template <typename Write>
Answer written(PHONE_ENG_Setup &setup, Write write)
{
    const _TAPI_RESULT_E result = write();
    QList<OwnNumber> numbers;
    if (result != TAPI_RESULT_SUCC || readNumbers(setup, numbers) != TAPI_RESULT_SUCC)
        return Operations::answerOf(result);
    return {TAPI_RESULT_SUCC, QVariant::fromValue(numbers)};
}

} // namespace

OwnNumbers::OwnNumbers(QObject *parent)
    : ListSubject(parent)
    , m_numbers(addRows<OwnNumber>(roles))
{
    m_activity->setReader(readCard, [this](const QVariant &value) {
        const auto card = value.value<Card>();
        m_maxNumberLength = card.maxNumberLength;
        m_maxNameLength = card.maxNameLength;
        Q_EMIT limitsChanged();
        m_numbers->setConfirmed(card.numbers);
    });
}

Request *OwnNumbers::setNumber(int line, const QString &number, const QString &name)
{
    const auto show = [line, number, name](QList<OwnNumber> &numbers) {
        for (OwnNumber &shown : numbers) {
            if (shown.line == line)
                shown = {line, number, name};
        }
    };
    return m_numbers->change(*m_activity, show, [line, number, name](Engine &engine) {
        return written(engine.setup, [&] { return engine.setup.setMyNumber(line, number, name); });
    });
}

Request *OwnNumbers::removeNumber(int line)
{
    const auto show = [line](QList<OwnNumber> &numbers) {
        for (OwnNumber &shown : numbers) {
            if (shown.line == line)
                shown = {line, {}, {}};
        }
    };
    return m_numbers->change(*m_activity, show, [line](Engine &engine) {
        return written(engine.setup, [&] { return engine.setup.deleteMyNumber(line); });
    });
}

} // namespace Kvq

Q_DECLARE_METATYPE(Kvq::Card)
