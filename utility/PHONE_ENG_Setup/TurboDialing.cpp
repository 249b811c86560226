// Turbo dialing: nine speed-dial slots with one-touch numbers and location codes.
#include "PHONE_ENG_Setup.h"
#include "Settings.h"
#include "Unit.h"

namespace {

constexpr int lastSlot = 9;
constexpr int defaultLocation = 2;
constexpr char suffixMark = '@';

QString entryKey(int slot)
{
    return QString::number(slot, 10);
}

QString oneTouchKey(unsigned char slot)
{
    return QLatin1String("OneTouchNumber") + QString::number(slot, 10);
}

QString locationKey(unsigned char slot)
{
    return QLatin1String("SpeedLocation") + QString::number(slot, 10);
}

} // namespace

bool PHONE_ENG_Setup::isOneTouchNumber(unsigned char slot, QString &number)
{
    SETUP_SET_Manager store(AM_Global::CallSetup, false);
    number = Settings::get(store, Settings::turboDialingGroup, oneTouchKey(slot), QStringLiteral(""));
    if (number.isEmpty())
        return false;
    LOG_MESSAGE(R"(the onetouchnumber %d is not null, it is %s)", slot, number.toLatin1().constData());
    return true;
}

QString PHONE_ENG_Setup::getTurboDialing(int slot, bool full)
{
    QString number;
    SETUP_SET_Manager store(AM_Global::CallSetup, false);
    if (isOneTouchNumber(static_cast<unsigned char>(slot), number))
        return number;
    number = Settings::get(store, Settings::turboDialingGroup, entryKey(slot), QStringLiteral(""));
    return full ? number : number.left(number.indexOf(QLatin1Char(suffixMark)));
}

void PHONE_ENG_Setup::getTurboDialingList(QStringList &list, bool full)
{
    list.clear();
    for (int slot = 1; slot <= lastSlot; ++slot)
        list.append(getTurboDialing(slot, full));
}

bool PHONE_ENG_Setup::setTurboDialing(int slot, const QString &number)
{
    if (!setupCheckSystemStatus())
        return false;
    return Settings::write(*this, Settings::turboDialingGroup, entryKey(slot), number);
}

bool PHONE_ENG_Setup::setTurboDialing(const QStringList &list)
{
    if (!setupCheckSystemStatus())
        return false;
    SETUP_SET_Manager store(AM_Global::CallSetup, false);
    int slot = 1;
    for (const QString &number : list) {
        if (slot > lastSlot)
            break;
        Settings::put(store, Settings::turboDialingGroup, entryKey(slot), number);
        ++slot;
    }
    const bool stored = store.flush();
    if (!stored)
        checkFlashFull();
    return stored;
}

int PHONE_ENG_Setup::getTurboDialingLocation(unsigned char slot)
{
    return Settings::read(Settings::turboDialingGroup, locationKey(slot), defaultLocation);
}

bool PHONE_ENG_Setup::setTurboDialingLocation(unsigned char slot, int location)
{
    SETUP_SET_Manager store(AM_Global::CallSetup, false);
    return Settings::put(store, Settings::turboDialingGroup, locationKey(slot), location);
}
