// How each feature is found out.
#include "Features.h"

#include "CallForwarding.h"
#include "CallWaiting.h"
#include "CallerId.h"

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
    _TAPI_SECURITY_PIN_STATUS_E status = TAPI_SECURITY_PIN_STATUS_NOT_USED;
    return success || setup.readPin2Status(status) != TAPI_RESULT_SUCC;
}

using Question = bool (*)(Engine &engine);

/** In the order of Features::Feature. */
constexpr std::array<Question, 12> questions = {
    [](Engine &engine) { return engine.setup.isHACEnabled(); },
    [](Engine &engine) {
        PHONE_SETUP_HYPHENATION_T mode = PHONE_SETUP_HYPHENATION_DEFAULT;
        return engine.setup.getHyphenation(mode);
    },
    [](Engine &engine) { return offers(engine.setup, &Setup::readPin2Status); },
    [](Engine &engine) { return engine.setup.isFixedDialingAvailable(); },
    [](Engine &engine) { // a phone with a single line has none to lock
        return offers(engine.setup, &Setup::currentLineNo) && offers(engine.setup, &Setup::curLineLockStatus);
    },
    [](Engine &engine) {
        _TAPI_SECURITY_PIN_STATUS_E status = TAPI_SECURITY_PIN_STATUS_NOT_USED;
        const _TAPI_RESULT_E result = engine.setup.getUpinStatus(&status);
        return result == TAPI_RESULT_SUCC ? status != TAPI_SECURITY_PIN_STATUS_NOT_USED : isOffered(result);
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
        _TAPI_SECURITY_PIN_STATUS_E status = TAPI_SECURITY_PIN_STATUS_NOT_USED;
        return engine.setup.readPin2Status(status) != TAPI_RESULT_SIM_UNAVAILABLE;
    },
};

/** One request for all. Each step may be long, so calls need not wait for more than one. */
Answer askAll(Engine &engine)
{
    unsigned int has = 0;
    for (std::size_t feature = 0; feature < questions.size(); ++feature) {
        has |= questions[feature](engine) ? 1U << feature : 0U;
        CallSetupWorker::instance().letCallControlPass();
    }
    return {TAPI_RESULT_SUCC, has};
}

/** What only the network can tell, by the items that have asked it. */
constexpr std::array<const QMetaObject *, 3> learnt = {
    &CallForwarding::staticMetaObject, &CallerId::staticMetaObject, &CallWaiting::staticMetaObject};

} // namespace

Features::Features(QObject *parent)
    : Subject(parent)
{
    static_assert(questions.size() == FeatureCount);
    m_has.set();
    connect(&LastKnown::instance(), &LastKnown::availabilityChanged, this, &Features::featuresChanged);
}

bool Features::forwarding() const
{
    return LastKnown::instance().isAvailable(&Kvq::CallForwarding::staticMetaObject);
}

bool Features::callerId() const
{
    return LastKnown::instance().isAvailable(&Kvq::CallerId::staticMetaObject);
}

bool Features::callWaiting() const
{
    return LastKnown::instance().isAvailable(&Kvq::CallWaiting::staticMetaObject);
}

/** What was learnt may be so no longer. */
void Features::refresh()
{
    if (m_asking)
        return;
    for (const QMetaObject *const type : learnt)
        LastKnown::instance().setAvailable(type, true);
    m_asking = new Ticket(this, askAll, Lifetime::OfItem, Urgency::Ordinary, [this](const Answer &answer) {
        m_asking.clear();
        if (!answer.isSuccess())
            return;
        m_has = answer.value.toUInt();
        m_ready = true;
        Q_EMIT featuresChanged();
    });
}

void Features::componentComplete()
{
    if (autoRefresh())
        refresh();
}

} // namespace Kvq
