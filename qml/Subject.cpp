// How the state of an item follows from its settings and requests.
#include "Subject.h"

#include <tuple>

namespace Kvq {

Activity::Activity(QObject *item)
    : QObject(item)
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
    m_settings.push_back(setting);
    connect(setting, &Setting::stateChanged, this, &Activity::update);
}

void Activity::setReader(Job job, std::function<void(const QVariant &)> take)
{
    m_reader = std::move(job);
    m_take = std::move(take);
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
    if (!m_reader || m_reading)
        return;
    m_readsQuietly = m_hasRead;
    startReading();
    update();
}

void Activity::startReading()
{
    m_reading =
        new Ticket(this, m_reader, Lifetime::OfItem, [this](const Answer &answer) { readEnded(answer); });
}

void Activity::readEnded(const Answer &answer)
{
    m_reading.clear();
    if (answer.result != Results::Cancelled) {
        m_readResult = answer.result;
        m_hasRead = true;
    }
    if (answer.isSuccess())
        m_take(answer.value);
    if (std::exchange(m_readAgain, false))
        read();
    update();
    Q_EMIT readingEnded();
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
    auto *const request = new Request(parent(), std::move(job));
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
    int result = m_readResult != TAPI_RESULT_SUCC ? m_readResult : m_requestResult;
    std::size_t lacking = 0;
    for (const Setting *const setting : m_settings) {
        busy = busy || setting->isBusy();
        known = known || setting->state() == CallSetup::Ready;
        if (!setting->isAvailable())
            ++lacking; // no failure of the item: it has no such setting
        else if (result == TAPI_RESULT_SUCC && setting->state() == CallSetup::Failed)
            result = setting->result();
    }
    const bool lacksSettings = !m_settings.empty() && lacking == m_settings.size();
    const bool lacksList = m_readResult == TAPI_RESULT_NOT_SUPPORTED;
    const bool available = m_reader ? !lacksList : !lacksSettings;
    CallSetup::State state = known ? CallSetup::Ready : CallSetup::Unknown;
    if (busy)
        state = CallSetup::Busy;
    else if (result != TAPI_RESULT_SUCC || !available)
        state = CallSetup::Failed;
    if (std::tie(state, result, available) == std::tie(m_state, m_result, m_available))
        return;
    std::tie(m_state, m_result, m_available) = std::tie(state, result, available);
    Q_EMIT changed();
}

void Item::componentComplete()
{
    if (autoRefresh())
        m_activity->refresh();
}

Subject::Subject(QObject *parent)
    : QObject(parent)
    , Item(this)
{
    connect(m_activity, &Activity::changed, this, &Subject::stateChanged);
    connect(m_activity, &Activity::autoRefreshChanged, this, &Subject::autoRefreshChanged);
}

ListSubject::ListSubject(QObject *parent)
    : QAbstractListModel(parent)
    , Item(this)
{
    connect(m_activity, &Activity::changed, this, &ListSubject::stateChanged);
    connect(m_activity, &Activity::autoRefreshChanged, this, &ListSubject::autoRefreshChanged);
}

int ListSubject::rowCount(const QModelIndex &parent) const
{
    return parent.isValid() ? 0 : count();
}

QVariant ListSubject::data(const QModelIndex &index, int role) const
{
    if (!checkIndex(index, CheckIndexOption::IndexIsValid))
        return {};
    return m_rows->value(index.row(), role);
}

QHash<int, QByteArray> ListSubject::roleNames() const
{
    return m_rows->roleNames();
}

} // namespace Kvq
