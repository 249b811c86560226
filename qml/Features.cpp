// How each feature is found out.
#include "Features.h"

namespace Kvq {

namespace {

using Setup = PHONE_ENG_Setup;

/** True unless the product is known to lack what was asked for: a failure for another reason says nothing. */
bool isOffered(_TAPI_RESULT_E result)
{
    return result != TAPI_RESULT_NOT_SUPPORTED;
}

template <typename Value>
bool offers(Setup &setup, _TAPI_RESULT_E (Setup::*get)(Value &))
{
    Value value = {};
    return isOffered((setup.*get)(value));
}

/**
 * For operations that tell of a failure and not of its reason: only a phone whose other services answer is known to lack
 * this one.
 */
bool isOffered(bool success, Setup &setup)
{
    bool waiting = false;
    return success || setup.isCallWaiting(waiting) != TAPI_RESULT_SUCC;
}

using Question = bool (*)(Engine &engine);

/** In the order of Features::Feature. */
constexpr std::array<Question, 14> questions = {
    [](Engine &engine) { return engine.setup.isHACEnabled(); },
    [](Engine &engine) {
        PHONE_SETUP_HYPHENATION_T mode = PHONE_SETUP_HYPHENATION_DEFAULT;
        return engine.setup.getHyphenation(mode);
    },
    [](Engine &engine) { return engine.setup.isFixedDialingAvailable(); },
    [](Engine &engine) { return offers(engine.setup, &Setup::isCallWaiting); },
    [](Engine &engine) { return offers(engine.setup, &Setup::getCLIR); },
    [](Engine &engine) { // a phone with a single line has none to lock
        return offers(engine.setup, &Setup::currentLineNo) && offers(engine.setup, &Setup::curLineLockStatus);
    },
    [](Engine &engine) { return offers(engine.setup, &Setup::readPin2Status); },
    [](Engine &engine) {
        _TAPI_SECURITY_PIN_STATUS_E status = TAPI_SECURITY_PIN_STATUS_NOT_USED;
        const _TAPI_RESULT_E result = engine.setup.getUpinStatus(&status);
        return isOffered(result) && status != TAPI_SECURITY_PIN_STATUS_NOT_USED;
    },
    [](Engine &engine) {
        signed char maxNumberLength = 0;
        signed char maxNameLength = 0;
        return isOffered(engine.setup.getMyNumberLimit(maxNumberLength, maxNameLength));
    },
    [](Engine &engine) {
        QStringList labels;
        unsigned char activeIndex = 0;
        unsigned char count = 0;
        const _TAPI_RESULT_E result = engine.setup.getUSIMAccountList(labels, activeIndex, count);
        return result != TAPI_RESULT_SUCC || !labels.isEmpty();
    },
    [](Engine &engine) {
        _TAPI_NETWORK_SEARCH_MODE_E mode = TAPI_NETWORK_SEARCH_AUTOMATIC;
        return isOffered(engine.network.getSearchMode(&mode), engine.setup);
    },
    [](Engine &engine) {
        unsigned int capacity = 0;
        const bool success = engine.network.getCapacityPreferedNetwork(&capacity);
        return success ? capacity > 0 : isOffered(false, engine.setup);
    },
    [](Engine &engine) { return offers(engine.setup, &Setup::getMeterDisplay); },
    [](Engine &engine) {
        bool active = false;
        QString number;
        return isOffered(engine.setup.getVoiceCallsDivert(active, number, TAPI_CS_DIVERT_UNCONDITIONAL));
    },
};

} // namespace

Features::Features(QObject *parent)
    : Subject(parent)
{
    static_assert(questions.size() == FeatureCount);
    m_has.fill(true);
}

void Features::refresh()
{
    if (!m_asking)
        ask(0);
}

void Features::componentComplete()
{
    if (autoRefresh())
        refresh();
}

void Features::ask(int feature)
{
    if (feature == FeatureCount) {
        m_ready = true;
        Q_EMIT featuresChanged();
        return;
    }
    const auto index = static_cast<std::size_t>(feature);
    m_asking = new Ticket(
        this,
        [index](Engine &engine) {
            return Answer{TAPI_RESULT_SUCC, questions[index](engine)};
        },
        Lifetime::OfItem,
        [this, feature, index](const Answer &answer) {
            m_asking.clear();
            if (!answer.isSuccess())
                return;
            m_has[index] = answer.value.toBool();
            Q_EMIT featuresChanged();
            ask(feature + 1);
        });
}

} // namespace Kvq
