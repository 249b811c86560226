// The nine speed-dial slots.
#pragma once

#include "Subject.h"

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
    explicit SpeedDial(QObject *parent = nullptr);

    Q_INVOKABLE Kvq::Request *setNumber(int slot, const QString &number);
    Q_INVOKABLE Kvq::Request *setLocation(int slot, int location);
    Q_INVOKABLE Kvq::Request *setNumbers(const QStringList &numbers);

private:
    Rows<SpeedDialSlot> *const m_slots;
};

} // namespace Kvq

Q_DECLARE_METATYPE(QList<Kvq::SpeedDialSlot>)
