// An application that uses the engine until its process is gone.
#include "PHONE_ENG_Setup.h"

#include <cstdio>
#include <cstdlib>

namespace {

/** Finds the value that the use before this one has stored, and stores the next one. */
void useEngine(const char *when, int value)
{
    PHONE_ENG_Setup &engine = *PHONE_ENG_Setup::instance();
    const QString text = QString::number(value);
    int found = 0;
    QStringList list;
    bool good = value == 0
        || (engine.getAudibleTimer(found) && found == value - 1
            && engine.getTurboDialing(2, true) == QString::number(value - 1) && !engine.isReminder());
    good = good && engine.setAudibleTimer(value) && engine.setReminder(false)
        && engine.setTurboDialing(QStringList{text, text});
    PHONE_SETUP_HYPHENATION_T hyphenation = {};
    good = good && engine.getHyphenation(hyphenation); // a feature of the product
    engine.getTurboDialingList(list, true);
    engine.verifyPin2Code(QStringLiteral("5678")); // whatever the phone of this test says to it
    if (good && list.value(1) == text)
        return;
    std::fprintf(stderr, "wrong answers in %s\n", when);
    std::_Exit(1);
}

struct UseWhenDestroyed {
    const char *when;
    int value;

    ~UseWhenDestroyed() { useEngine(when, value); }
};

/** Goes after everything that was made later, what the engine and its platform have made included. */
const UseWhenDestroyed last = {"the last destructor", 3};

} // namespace

int main()
{
    std::atexit([] { useEngine("a function that exit() calls", 2); });
    useEngine("main()", 0);
    static const UseWhenDestroyed first = {"the first destructor", 1};
    std::printf("%s follows\n", first.when);
}
