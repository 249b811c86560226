// Call forwarding as the network keeps it: by line, service class and condition.
#pragma once

#include "PhoneState.h"

namespace Simulator {

/** Voice, data of any kind, fax, short messages, synchronous data, asynchronous data (3GPP TS 27.007, +CCFC). */
constexpr std::array<unsigned char, 6> forwardedClasses = {1, 2, 4, 8, 16, 32};
constexpr unsigned char voiceClass = 1;
constexpr unsigned int allClasses = ~0U;

/** The first active forwarding of the selected line among those that a condition names; null for none. */
const Forwarding *activeForwarding(const ServiceState &services, unsigned char serviceClass,
                                   _TAPI_CS_DIVERT_WHEN_E when);

/** Sets or, without @p enable, erases the forwardings of the selected line. */
_TAPI_RESULT_E setForwarding(ServiceState &services, bool enable, unsigned int serviceClasses,
                             _TAPI_CS_DIVERT_WHEN_E when, const std::string &number,
                             unsigned char noReplyTimer);

/** Switches forwardings that have a number on or off. Fails when none has one. */
_TAPI_RESULT_E switchForwarding(ServiceState &services, bool on, unsigned int serviceClasses,
                                _TAPI_CS_DIVERT_WHEN_E when);

/** Erases all forwardings of the selected line, or those of one class. */
void cancelForwardings(ServiceState &services, unsigned int serviceClasses);

/** Whether all voice calls of a line are forwarded. */
bool isForwarded(const ServiceState &services, int line);

} // namespace Simulator
