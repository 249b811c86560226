// How the state of an item follows from its settings and requests.
#include "Activity.h"

#include <QQmlEngine>

#include <tuple>

namespace Kvq {

Activity::Activity(QObject *item, Urgency urgency)
    : QObject(item)
    , m_urgency(urgency)
{
}

void Activity::setRefreshesItself(bool on)
{
    if (m_autoRefresh == on)
        return;
    m_autoRefresh = on;
    Q_EMIT autoRefreshChanged();
}

void Activity::addSetting(Setting *setting)
{
    setting->setPlace(static_cast<int>(m_settings.size()));
    setting->setUrgency(m_urgency);
    m_settings.push_back(setting);
    connect(setting, &Setting::stateChanged, this, &Activity::update);
}

void Activity::setReader(Job job, Take take, Keeping keeping)
{
    m_reader = std::move(job);
    m_take = std::move(take);
    m_keeping = keeping;
}

/** Called before QML adds to the item, so the type is one of the module's. */
QVariant Activity::begin()
{
    m_type = parent()->metaObject();
    LastKnown::instance().livesAsLongAs(qmlEngine(parent()));
    const QVariant list = keeps() ? LastKnown::instance().value(name(ValueName::List)) : QVariant();
    if (m_reader && keeps()) {
        const QVariant value = LastKnown::instance().value(name(ValueName::Reading));
        if (value.isValid()) {
            m_staleReading = true;
            m_take(value);
        }
    }
    for (Setting *const setting : m_settings)
        setting->begin(m_type);
    update();
    return list;
}

void Activity::keepList(const QVariant &list)
{
    if (keeps())
        LastKnown::instance().keep(name(ValueName::List), list);
}

void Activity::refresh()
{
    read();
    refreshSettings();
}

void Activity::refreshSettings()
{
    for (Setting *const setting : m_settings)
        setting->refresh();
}

void Activity::read()
{
    if (!m_reader)
        return;
    m_readsQuietly = false;
    if (m_reading)
        m_readAgain = true;
    else
        startReading();
    update();
}

void Activity::readQuietly()
{
    if (!m_reader)
        return;
    if (m_reading) { // which may be one that is shown
        m_readAgain = true;
        return;
    }
    m_readsQuietly = m_hasRead;
    startReading();
    update();
}

void Activity::startReading()
{
    m_reading = new Ticket(this, m_reader, Lifetime::OfItem, m_urgency,
                           [this](const Answer &answer) { readEnded(answer); });
}

void Activity::readEnded(const Answer &answer)
{
    m_reading.clear();
    if (answer.result != Results::Cancelled) {
        m_readResult = answer.result;
        m_hasRead = true;
    }
    if (answer.isSuccess()) {
        m_staleReading = false;
        if (keeps())
            LastKnown::instance().keep(name(ValueName::Reading), answer.value);
        m_take(answer.value);
    } else if (answer.result == TAPI_RESULT_SIM_UNAVAILABLE || answer.result == TAPI_RESULT_NOT_SUPPORTED) {
        // What was known may have been another card's, so it is shown no longer.
        if (std::exchange(m_staleReading, false))
            m_take({});
        LastKnown::instance().drop(name(ValueName::Reading));
        LastKnown::instance().drop(name(ValueName::List));
    }
    if (std::exchange(m_readAgain, false))
        startReading();
    update();
    Q_EMIT readingEnded(answer.isSuccess());
}

void Activity::cancel()
{
    m_readAgain = false;
    if (m_reading)
        m_reading->cancel();
    for (Setting *const setting : m_settings)
        setting->cancel();
    const std::vector<QPointer<Request>> requests = m_requests;
    for (const QPointer<Request> &request : requests) {
        if (request)
            request->cancel();
    }
}

Request *Activity::request(Job job)
{
    auto *const request = new Request(parent(), std::move(job), m_urgency);
    m_requests.emplace_back(request);
    connect(request, &Request::answered, this, [this, request](const Answer &answer) {
        std::erase(m_requests, request);
        m_requestResult =
            answer.result == Results::Cancelled ? static_cast<int>(TAPI_RESULT_SUCC) : answer.result;
        m_hasRead = m_hasRead || answer.isSuccess();
        update();
    });
    update();
    return request;
}

void Activity::update()
{
    bool busy = (m_reading && !m_readsQuietly) || !m_requests.empty();
    bool known = m_hasRead;
    bool stale = m_staleReading;
    int result = m_readResult != TAPI_RESULT_SUCC ? m_readResult : m_requestResult;
    // What can only be read may be there without the rest.
    const bool someWritable = std::any_of(m_settings.cbegin(), m_settings.cend(),
                                          [](const Setting *setting) { return setting->isWritable(); });
    bool lacksSettings = !m_settings.empty();
    for (const Setting *const setting : m_settings) {
        busy = busy || setting->isBusy();
        known = known || setting->state() == CallSetup::Ready;
        stale = stale || setting->isStale();
        if (setting->isAvailable())
            lacksSettings = lacksSettings && someWritable && !setting->isWritable();
        // A setting that the item lacks is no failure of it.
        if (setting->isAvailable() && result == TAPI_RESULT_SUCC && setting->state() == CallSetup::Failed)
            result = setting->result();
    }
    const bool lacksList = m_readResult == TAPI_RESULT_NOT_SUPPORTED;
    const bool available = m_reader ? !lacksList : !lacksSettings;
    CallSetup::State state = known ? CallSetup::Ready : CallSetup::Unknown;
    if (busy)
        state = CallSetup::Busy;
    else if (result != TAPI_RESULT_SUCC || !available)
        state = CallSetup::Failed;
    // What is lacking for some calls only, data calls for example, is not lacking altogether.
    const bool usual = std::all_of(m_settings.cbegin(), m_settings.cend(),
                                   [](const Setting *setting) { return setting->variant() == 0; });
    if (m_type && usual && (!available || state == CallSetup::Ready))
        LastKnown::instance().setAvailable(m_type, available);
    if (std::tie(state, result, available, stale) == std::tie(m_state, m_result, m_available, m_stale))
        return;
    std::tie(m_state, m_result, m_available, m_stale) = std::tie(state, result, available, stale);
    Q_EMIT changed();
}

} // namespace Kvq
