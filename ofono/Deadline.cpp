// How long requests may take.
#include "Deadline.h"

#include <algorithm>
#include <cstdlib>
#include <utility>

namespace Ofono {

using std::chrono::milliseconds;
using std::chrono::steady_clock;

namespace {

/** KVQ_OFONO_DEADLINE_MS shortens both deadlines, for tests that wait for them. */
milliseconds atHandLength()
{
    static const milliseconds length = [] {
        const char *const text = secure_getenv("KVQ_OFONO_DEADLINE_MS");
        const long value = text ? std::strtol(text, nullptr, 10) : 0;
        return value > 0 && value <= 60000 ? milliseconds(value) : milliseconds(2000);
    }();
    return length;
}

constexpr int networkFactor = 15;

thread_local steady_clock::time_point latestEnd = steady_clock::time_point::max();

} // namespace

milliseconds lengthOf(Deadline deadline)
{
    return deadline == Deadline::AtHand ? atHandLength() : networkFactor * atHandLength();
}

OneDeadline::OneDeadline()
    : m_before(std::exchange(latestEnd, endOf(Deadline::Network)))
{
}

OneDeadline::~OneDeadline()
{
    latestEnd = m_before;
}

steady_clock::time_point OneDeadline::endOf(Deadline deadline)
{
    return std::min(steady_clock::now() + lengthOf(deadline), latestEnd);
}

} // namespace Ofono
