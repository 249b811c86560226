// The answers of a turn, each thread's own.
#include "SharedAnswers.h"

#include <QAbstractEventDispatcher>
#include <QVariant>

#include <map>

namespace Ofono {

namespace {

struct Turn {
    unsigned int number = 0;
    std::map<std::string_view, Answer> answers;
};

thread_local Turn turn;

/** False where nothing is shared. */
bool isInTurn()
{
    const QAbstractEventDispatcher *const dispatcher = QAbstractEventDispatcher::instance();
    const unsigned int number = dispatcher ? dispatcher->property("kvqTurn").toUInt() : 0;
    if (turn.number != number)
        turn = {number, {}};
    return number != 0;
}

} // namespace

const Answer *SharedAnswers::find(std::string_view question)
{
    if (!isInTurn())
        return nullptr;
    const auto found = turn.answers.find(question);
    return found == turn.answers.end() ? nullptr : &found->second;
}

void SharedAnswers::keep(std::string_view question, Answer answer)
{
    if (isInTurn())
        turn.answers.insert_or_assign(question, std::move(answer));
}

void SharedAnswers::forget()
{
    turn.answers.clear();
}

} // namespace Ofono
