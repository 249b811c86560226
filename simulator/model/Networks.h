// The networks around a phone and its registration.
#pragma once

#include "PhoneState.h"

namespace Simulator {

/** Null when there is no such network. */
const Network *findNetwork(const NetworkState &networks, const std::string &id);

/** A search finds all the networks that are in range. */
void searchNetworks(NetworkState &networks);

/** Null while the phone is not registered. */
const Network *registeredNetwork(const NetworkState &networks);

/** Registers with one network, which may refuse. */
_TAPI_RESULT_E registerWith(NetworkState &networks, const std::string &id);

/** Registers with the first network in range that accepts; stays where it is while that is in range. */
bool registerAnywhere(NetworkState &networks);

} // namespace Simulator
