// Keeping what was last known.
#include "LastKnown.h"

#include <QQmlEngine>

namespace Kvq {

LastKnown &LastKnown::instance()
{
    static LastKnown lastKnown;
    return lastKnown;
}

QVariant LastKnown::value(const ValueName &name) const
{
    const auto found = m_values.find(name);
    return found == m_values.end() ? QVariant() : found->second;
}

void LastKnown::keep(const ValueName &name, const QVariant &value)
{
    m_values[name] = value;
    Q_EMIT changed(name);
}

void LastKnown::drop(const ValueName &name)
{
    if (m_values.erase(name) > 0)
        Q_EMIT changed(name);
}

void LastKnown::setAvailable(const QMetaObject *type, bool available)
{
    const bool changed = available ? m_lacking.erase(type) > 0 : m_lacking.insert(type).second;
    if (changed)
        Q_EMIT availabilityChanged();
}

void LastKnown::livesAsLongAs(const QQmlEngine *engine)
{
    if (engine)
        connect(engine, &QObject::destroyed, this, &LastKnown::forget, Qt::UniqueConnection);
}

void LastKnown::forget()
{
    m_values.clear();
    m_lacking.clear();
}

} // namespace Kvq
