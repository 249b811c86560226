// The service codes that are typed on the dialling pad (3GPP TS 22.030).
#pragma once

#include "Subject.h"

namespace Kvq {

/**
 * Does what a code says by the engine's operations. A code for which there is no operation that does exactly that goes
 * to the network as it was typed, in a service request.
 */
class ServiceCodes : public Kvq::Subject {
    Q_OBJECT
    QML_ELEMENT

public:
    /** What a code was about: `kind` of a request's value. */
    enum Kind {
        ServiceRequest, ///< sent to the network, whose answer comes by itself
        DeviceNumber,   ///< the IMEI: `text`
        Forwarding,     ///< `condition`, `serviceClass`, `active`, `number`
        AllForwarding,  ///< everything is cancelled, for all classes of calls
        CallWaiting,    ///< `active`
        CallerId,       ///< `restriction`, as CallerId.Restriction has it
        Pin,            ///< `pin`, as SimPins.Pin has it; `unblocked`, or else changed
        PinsDiffer, ///< a PIN is missing, or the new one was typed differently the second time; nothing was asked
    };
    Q_ENUM(Kind)

    explicit ServiceCodes(QObject *parent = nullptr)
        : Subject(parent)
    {
    }

    /** Whether a text is a code, to be run rather than dialled. */
    Q_INVOKABLE bool isCode(const QString &typed) const;
    /** The value is a map with `kind` and what is said there. */
    Q_INVOKABLE Kvq::Request *run(const QString &typed);
};

} // namespace Kvq
