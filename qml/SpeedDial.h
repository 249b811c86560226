// The nine speed-dial slots.
#pragma once

#include "Rows.h"

#include <QStringList>

namespace Kvq {

struct SpeedDialSlot {
    int slot = 0;
    QString number;  ///< the entry
    QString dialled; ///< what the slot dials
    bool oneTouch = false;
    int location = 0;

    int key() const { return slot; }
    bool operator==(const SpeedDialSlot &) const = default;
};

class SpeedDial : public Kvq::ListSubject {
    Q_OBJECT
    QML_ELEMENT

public:
    /** Where else the number is kept. The phone stores the number of it for its applications. */
    enum Location { OnPhone, OnSim, Nowhere };
    Q_ENUM(Location)

    explicit SpeedDial(QObject *parent = nullptr);

    Q_INVOKABLE Kvq::Request *setNumber(int slot, const QString &number);
    Q_INVOKABLE Kvq::Request *setLocation(int slot, int location);
    Q_INVOKABLE Kvq::Request *setNumbers(const QStringList &numbers);

private:
    Rows<SpeedDialSlot> *const m_slots;
};

} // namespace Kvq

Q_DECLARE_METATYPE(QList<Kvq::SpeedDialSlot>)
