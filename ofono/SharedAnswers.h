// One answer for all who ask the same in one turn of an application.
#pragma once

#include "Answer.h"

#include <string_view>

namespace Ofono {

/**
 * What the daemon has answered in the turn of this thread.
 *
 * An application that works off requests may number its turns, in the property `kvqTurn` of its thread's event
 * dispatcher: requests of one number were all made before the first of them began. So what one of them reads is not too
 * old for the others. Without a number, or with 0, every request asks for itself.
 */
class SharedAnswers {
public:
    /**
     * The answer to what was asked for in this turn, if nothing was changed since; else null. Good until the thread asks
     * again. Properties are named by their interface, anything else by its method.
     */
    static const Answer *find(std::string_view question);
    /** @p question is a constant. */
    static void keep(std::string_view question, Answer answer);
    static void forget();
};

} // namespace Ofono
