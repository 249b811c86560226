// How a setting follows its requests.
#include "Setting.h"

#include <algorithm>
#include <iterator>
#include <utility>

namespace Kvq {

Setting::Setting(QVariant initial, Reader reader, Writer writer, QObject *item)
    : QObject(item)
    , m_reader(std::move(reader))
    , m_writer(std::move(writer))
    , m_initial(std::move(initial))
    , m_shown(m_initial)
    , m_confirmed(m_initial)
{
    connect(&LastKnown::instance(), &LastKnown::written, this, &Setting::adopt);
    connect(&LastKnown::instance(), &LastKnown::changed, this, &Setting::follow);
}

void Setting::begin(const QMetaObject *type)
{
    m_type = type;
    inherit();
}

CallSetup::State Setting::state() const
{
    return isBusy() ? CallSetup::Busy : m_settled;
}

void Setting::refresh()
{
    if (!m_reader || m_reading)
        return;
    m_reading = new Ticket(this, m_reader, Lifetime::OfItem, Urgency::Ordinary,
                           [this](const Answer &answer) { readEnded(answer); });
    Q_EMIT stateChanged();
}

void Setting::retry()
{
    if (m_takenBack)
        write(*m_takenBack);
    else
        refresh();
}

bool Setting::cancel()
{
    bool cancelled = m_reading && m_reading->cancel();
    // The last one first: each one cancelled uncovers the one before it.
    std::vector<QPointer<Ticket>> tickets;
    std::transform(m_writes.crbegin(), m_writes.crend(), std::back_inserter(tickets),
                   [](const auto &write) { return write.second.ticket; });
    for (const QPointer<Ticket> &ticket : tickets)
        cancelled = (ticket && ticket->cancel()) || cancelled;
    return cancelled;
}

void Setting::write(QVariant value)
{
    if (!m_writer) {
        m_settled = CallSetup::Failed;
        m_result = TAPI_RESULT_NOT_SUPPORTED;
        Q_EMIT stateChanged();
        return;
    }
    // A binding that writes back what it has just read makes no request.
    if (state() == CallSetup::Ready && m_known && value == m_shown)
        return;
    const unsigned int number = ++m_writesMade;
    m_takenBack.reset();
    Write &write = m_writes[number];
    write.ticket = new Ticket(
        this, [writer = m_writer, value](Engine &engine) { return writer(engine, value); },
        Lifetime::OfWorker, m_urgency, [this, number](const Answer &answer) { writeEnded(number, answer); });
    write.value = std::move(value);
    show();
    Q_EMIT stateChanged();
}

void Setting::forget()
{
    delete m_reading;
    for (const auto &[number, write] : m_writes)
        delete write.ticket;
    m_writes.clear();
    m_confirmed = m_initial;
    m_takenBack.reset();
    m_known = false;
    m_stale = false;
    m_available = true;
    m_settled = CallSetup::Unknown;
    m_result = TAPI_RESULT_SUCC;
    inherit();
    show();
    Q_EMIT stateChanged();
}

void Setting::readEnded(const Answer &answer)
{
    m_reading.clear();
    if (answer.isSuccess()) {
        m_confirmed = answer.value;
        keep(m_confirmed);
        m_available = true;
        show();
    } else if (answer.result == TAPI_RESULT_SIM_UNAVAILABLE || answer.result == TAPI_RESULT_NOT_SUPPORTED) {
        dropStale();
    }
    if (m_writes.empty() && answer.result != Results::Cancelled)
        settle(answer.result);
    else
        Q_EMIT stateChanged();
}

void Setting::writeEnded(unsigned int number, const Answer &answer)
{
    const QVariant asked = m_writes.at(number).value;
    const bool isLast = m_writes.rbegin()->first == number;
    m_writes.erase(number);
    if (answer.isSuccess()) {
        const QVariant taken = answer.value.isValid() ? answer.value : asked;
        m_confirmed = taken;
        keep(taken);
        Q_EMIT LastKnown::instance().written(this, taken); // who hears of it may make this setting forget
    }
    show();
    // A later write decides what there is to tell.
    if (!isLast) {
        Q_EMIT stateChanged();
        return;
    }
    if (answer.result == Results::Cancelled) {
        if (m_writes.empty() && m_settled == CallSetup::Unknown && m_known)
            m_settled = CallSetup::Ready;
        Q_EMIT stateChanged();
    } else {
        if (!answer.isSuccess())
            m_takenBack = asked;
        settle(answer.result);
    }
    if (answer.isSuccess())
        Q_EMIT confirmed();
    else
        Q_EMIT takenBack(answer.result, Results::text(answer.result));
}

void Setting::settle(int result)
{
    m_result = result;
    m_settled = result == TAPI_RESULT_SUCC ? CallSetup::Ready : CallSetup::Failed;
    if (result == TAPI_RESULT_NOT_SUPPORTED)
        m_available = false;
    Q_EMIT stateChanged();
}

void Setting::show()
{
    const QVariant &value = m_writes.empty() ? m_confirmed : m_writes.rbegin()->second.value;
    if (m_shown == value)
        return;
    m_shown = value;
    Q_EMIT valueChanged();
}

/** What an item before this one has last known, until this one has read it again. */
void Setting::inherit()
{
    const QVariant value = LastKnown::instance().value(name());
    if (m_known || !m_reader || !value.isValid())
        return;
    m_confirmed = value;
    m_known = true;
    m_stale = true;
    show();
    Q_EMIT stateChanged();
}

void Setting::adopt(const Setting *source, const QVariant &value)
{
    if (source == this || !m_known || !m_writes.empty() || name() != source->name())
        return;
    m_confirmed = value;
    show();
    if (std::exchange(m_stale, false))
        Q_EMIT stateChanged();
}

/** One that has not read its value itself shows what others have last known. */
void Setting::follow(const ValueName &changed)
{
    if ((m_known && !m_stale) || !m_reader || isBusy() || changed != name())
        return;
    const QVariant value = LastKnown::instance().value(changed);
    m_known = value.isValid();
    m_stale = m_known;
    m_confirmed = m_known ? value : m_initial;
    show();
    Q_EMIT stateChanged();
}

void Setting::keep(const QVariant &value)
{
    m_known = true;
    m_stale = false;
    LastKnown::instance().keep(name(), value);
}

/** What was known may have been another card's, so it is shown no longer. */
void Setting::dropStale()
{
    LastKnown::instance().drop(name());
    if (!m_stale)
        return;
    m_stale = false;
    m_known = false;
    m_confirmed = m_initial;
    show();
}

ValueName Setting::name() const
{
    return {m_type ? m_type : parent()->metaObject(), m_place, variant()};
}

BoolSetting::BoolSetting(Reader reader, Writer writer, QObject *item)
    : Setting(false, std::move(reader), std::move(writer), item)
{
}

IntSetting::IntSetting(Reader reader, Writer writer, QObject *item)
    : Setting(0, std::move(reader), std::move(writer), item)
{
}

TextSetting::TextSetting(Reader reader, Writer writer, QObject *item)
    : Setting(QString(), std::move(reader), std::move(writer), item)
{
}

} // namespace Kvq
