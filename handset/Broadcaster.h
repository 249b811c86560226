// Broadcasts and phone messages as signals on the user's session bus.
#pragma once

#include <string_view>

namespace Handset {

/**
 * Where other programs listen: object `/org/kvq/Phone`, interface `org.kvq.Phone1`, signals
 * `Broadcast(s channel, s message)` and `Message(u type)`.
 *
 * Sending waits for nobody. It answers false when there is no session bus, or one that takes nothing any more;
 * nothing else comes of that. Any thread may send.
 */
bool broadcast(std::string_view channel, std::string_view message);
bool sendPhoneMessage(unsigned int type);

} // namespace Handset
