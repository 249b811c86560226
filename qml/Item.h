// What all items are, models or not.
#pragma once

#include "Activity.h"

#include <QQmlParserStatus>

namespace Kvq {

/** What items have in common, models or not; the properties themselves stand in both bases, where moc reads them. */
class Item : public QQmlParserStatus {
public:
    CallSetup::State state() const { return m_activity->state(); }
    bool isBusy() const { return state() == CallSetup::Busy; }
    int result() const { return m_activity->result(); }
    QString error() const { return Results::text(result()); }
    QString advice() const { return Results::advice(result()); }
    bool isAvailable() const { return m_activity->isAvailable(); }
    bool isStale() const { return m_activity->isStale(); }
    bool autoRefresh() const { return m_activity->refreshesItself(); }
    void setAutoRefresh(bool on) { m_activity->setRefreshesItself(on); }

    void classBegin() override { m_activity->begin(); }
    void componentComplete() override
    {
        if (autoRefresh())
            m_activity->refresh();
    }

protected:
    explicit Item(QObject *item, Urgency urgency = Urgency::Ordinary)
        : m_activity(new Activity(item, urgency))
    {
    }

    Activity *const m_activity;
};

} // namespace Kvq
