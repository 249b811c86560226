// How the slots are read and written.
#include "SpeedDial.h"

namespace Kvq {

namespace {

using Slot = SpeedDialSlot;

constexpr int slotCount = 9;
constexpr QLatin1Char suffixSign('@');

constexpr std::array<Role<Slot>, 5> roles = {{
    {"slot", [](const Slot &slot) { return QVariant(slot.slot); }},
    {"number", [](const Slot &slot) { return QVariant(slot.number); }},
    {"dialled", [](const Slot &slot) { return QVariant(slot.dialled); }},
    {"oneTouch", [](const Slot &slot) { return QVariant(slot.oneTouch); }},
    {"location", [](const Slot &slot) { return QVariant(slot.location); }},
}};

bool isSlot(int slot)
{
    return slot >= 1 && slot <= slotCount;
}

void setEntry(Slot &slot, const QString &number)
{
    slot.number = number;
    if (!slot.oneTouch)
        slot.dialled = number.section(suffixSign, 0, 0);
}

Answer readSlots(Engine &engine)
{
    QList<Slot> slots;
    for (int number = 1; number <= slotCount; ++number) {
        Slot slot;
        slot.slot = number;
        QString oneTouchNumber;
        slot.oneTouch = engine.setup.isOneTouchNumber(static_cast<unsigned char>(number), oneTouchNumber);
        slot.number = engine.setup.getTurboDialing(number, true);
        slot.dialled = engine.setup.getTurboDialing(number, false);
        slot.location = engine.setup.getTurboDialingLocation(static_cast<unsigned char>(number));
        slots.append(slot);
    }
    return {TAPI_RESULT_SUCC, QVariant::fromValue(slots)};
}

Answer refused()
{
    return {TAPI_RESULT_INVALID_PARAM, {}};
}

} // namespace

SpeedDial::SpeedDial(QObject *parent)
    : ListSubject(parent)
    , m_slots(addRows<Slot>(roles))
{
    m_activity->setReader(
        readSlots, [this](const QVariant &slots) { m_slots->setConfirmed(slots.value<QList<Slot>>()); });
}

Request *SpeedDial::setNumber(int slot, const QString &number)
{
    if (!isSlot(slot))
        return m_activity->request([](Engine &) { return refused(); });
    const auto show = [slot, number](QList<Slot> &slots) {
        for (Slot &shown : slots) {
            if (shown.slot == slot)
                setEntry(shown, number);
        }
    };
    return m_slots->change(*m_activity, show, [slot, number](Engine &engine) {
        return Operations::stored(engine.setup, [&] { return engine.setup.setTurboDialing(slot, number); });
    });
}

Request *SpeedDial::setLocation(int slot, int location)
{
    if (!isSlot(slot))
        return m_activity->request([](Engine &) { return refused(); });
    const auto show = [slot, location](QList<Slot> &slots) {
        for (Slot &shown : slots) {
            if (shown.slot == slot)
                shown.location = location;
        }
    };
    return m_slots->change(*m_activity, show, [slot, location](Engine &engine) {
        return Operations::stored(engine.setup, [&] {
            return engine.setup.setTurboDialingLocation(static_cast<unsigned char>(slot), location);
        });
    });
}

Request *SpeedDial::setNumbers(const QStringList &numbers)
{
    const auto show = [numbers](QList<Slot> &slots) {
        for (Slot &shown : slots) {
            if (shown.slot <= numbers.size())
                setEntry(shown, numbers.at(shown.slot - 1));
        }
    };
    return m_slots->change(*m_activity, show, [numbers](Engine &engine) {
        return Operations::stored(engine.setup, [&] { return engine.setup.setTurboDialing(numbers); });
    });
}

} // namespace Kvq
