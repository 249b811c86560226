// The base of all types that are no models.
#include "Subject.h"

namespace Kvq {

Subject::Subject(QObject *parent)
    : QObject(parent)
    , Item(this)
{
    connect(m_activity, &Activity::changed, this, &Subject::stateChanged);
    connect(m_activity, &Activity::autoRefreshChanged, this, &Subject::autoRefreshChanged);
}

} // namespace Kvq
