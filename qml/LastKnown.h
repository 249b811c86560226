// What was last known of the phone. It outlives the items that asked, so that the next ones need not begin empty.
#pragma once

#include <QObject>
#include <QVariant>

#include <compare>
#include <map>
#include <set>

class QQmlEngine;

namespace Kvq {

class Setting;

/** Names a value, whichever item shows it. */
struct ValueName {
    /** Places of what is no setting of an item. */
    enum Place { Reading = -1, List = -2 };

    const QMetaObject *type = nullptr; ///< of the item
    int place = 0;                     ///< among the settings of the item, or a Place
    int variant = 0;                   ///< tells apart what the same setting means at different times

    auto operator<=>(const ValueName &) const = default; // NOLINT(modernize-use-nullptr): there is none
};

/** The values of the process, and what one item tells the others. Used from the main thread. */
class LastKnown : public QObject {
    Q_OBJECT

public:
    static LastKnown &instance();

    /** Invalid when nothing is known. */
    QVariant value(const ValueName &name) const;
    void keep(const ValueName &name, const QVariant &value);
    void drop(const ValueName &name);

    /** Whether the product may have what items of a type show. */
    bool isAvailable(const QMetaObject *type) const { return m_lacking.count(type) == 0; }
    void setAvailable(const QMetaObject *type, bool available);

    /** All is forgotten when the application's engine goes. Nothing for null. */
    void livesAsLongAs(const QQmlEngine *engine);

Q_SIGNALS:
    void written(const Kvq::Setting *source, const QVariant &value);
    /** A value was read or written, or is known no longer. */
    void changed(const Kvq::ValueName &name);
    void availabilityChanged();

private:
    void forget();

    std::map<ValueName, QVariant> m_values;
    std::set<const QMetaObject *> m_lacking;
};

} // namespace Kvq
