// What the engine tells the phone's other programs, by channel and message.
#pragma once

#include "QCopChannel.h"

#include <QByteArray>

namespace Broadcasts {

/** Whether voice calls of the selected line are forwarded unconditionally. */
inline void sendForwardingNotice(bool forwarded)
{
    QCopChannel::send(QByteArrayLiteral("Call_Forward_Notice"),
                      forwarded ? QByteArrayLiteral("Call_Forward_All")
                                : QByteArrayLiteral("Call_Forward_Not_All"));
}

/** The published forwarding status or line index has changed. */
inline void sendIndicatorUpdate()
{
    QCopChannel::send(QByteArrayLiteral("/KVQ/PHONE/GNB_UPDATE"), QByteArrayLiteral("UPDATE GNB"));
}

/** How a PIN request ended. */
inline void sendPinOutcome(bool accepted)
{
    QCopChannel::send(QByteArrayLiteral("/KVQ/PHONE/SIM"),
                      accepted ? QByteArrayLiteral("PIN OK") : QByteArrayLiteral("PIN ERROR"));
}

} // namespace Broadcasts
