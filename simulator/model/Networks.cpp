// Searching and registration.
#include "Networks.h"

namespace Simulator {

const Network *findNetwork(const NetworkState &networks, const std::string &id)
{
    for (const Network &network : networks.networks) {
        if (network.id == id)
            return &network;
    }
    return nullptr;
}

void searchNetworks(NetworkState &networks)
{
    for (Network &network : networks.networks)
        network.known = network.inRange;
}

const Network *registeredNetwork(const NetworkState &networks)
{
    const Network *const network = findNetwork(networks, networks.registeredId);
    return network && network->inRange ? network : nullptr;
}

_TAPI_RESULT_E registerWith(NetworkState &networks, const std::string &id)
{
    const Network *const network = findNetwork(networks, id);
    if (!network || !network->acceptsRegistration || !network->inRange)
        return TAPI_RESULT_FAIL;
    networks.registeredId = id;
    return TAPI_RESULT_SUCC;
}

bool registerAnywhere(NetworkState &networks)
{
    if (registeredNetwork(networks))
        return true;
    for (const Network &network : networks.networks) {
        if (registerWith(networks, network.id) == TAPI_RESULT_SUCC)
            return true;
    }
    return false;
}

} // namespace Simulator
