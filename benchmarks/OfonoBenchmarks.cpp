// What a read through engine and platform costs over the daemon, against the same read by hand.
//
// Run it on a desk: scripts/desk.sh run --online -- ofono_benchmarks
#include "PHONE_ENG_Setup.h"
#include "PHONE_ENG_WrapTapi.h"

#include <QCoreApplication>
#include <QDBusConnection>
#include <QDBusInterface>
#include <QDBusReply>
#include <QVariantMap>

#include <algorithm>
#include <array>
#include <chrono>
#include <cstdio>
#include <cstdlib>
#include <fstream>
#include <limits>
#include <string>
#include <string_view>

#include <sched.h>
#include <sys/types.h>
#include <systemd/sd-bus.h>

namespace {

constexpr char service[] = "org.ofono";
constexpr char path[] = "/phone";
constexpr char interface[] = "org.ofono.CallSettings";
constexpr char method[] = "GetProperties";
constexpr char property[] = "HideCallerId";

/** A turn is shorter than what the scheduler gives at a time, so among many some are disturbed by nobody. */
constexpr int turns = 1000;
constexpr int readsOfTurn = 20;
constexpr double mostAgainstHand = 1.15;
constexpr double mostAgainstQt = 0.70;

bool readByEngine()
{
    _TAPI_CALL_RESTRICT_ID_E id = TAPI_CALL_RESTRICT_ID_NETWORK;
    return PHONE_ENG_Setup::instance()->getCLIR(id) == TAPI_RESULT_SUCC;
}

/** As short as it gets: one call, and its answer read up to the property. */
bool readByHand()
{
    static sd_bus *const bus = [] {
        sd_bus *opened = nullptr;
        sd_bus_open_system(&opened);
        return opened;
    }();
    sd_bus_message *answer = nullptr;
    if (sd_bus_call_method(bus, service, path, interface, method, nullptr, &answer, "") < 0)
        return false;
    bool found = false;
    sd_bus_message_enter_container(answer, 'a', "{sv}");
    while (!found && sd_bus_message_enter_container(answer, 'e', "sv") > 0) {
        const char *name = nullptr;
        const char *value = nullptr;
        sd_bus_message_read(answer, "s", &name);
        found = std::string_view(name) == property && sd_bus_message_read(answer, "v", "s", &value) > 0;
        if (!found)
            sd_bus_message_skip(answer, "v");
        sd_bus_message_exit_container(answer);
    }
    sd_bus_message_unref(answer);
    return found;
}

/** As an application writes it. */
bool readByQt()
{
    static QDBusInterface settings(QString::fromLatin1(service), QString::fromLatin1(path),
                                   QString::fromLatin1(interface), QDBusConnection::systemBus());
    const QDBusReply<QVariantMap> answer = settings.call(QDBus::Block, QString::fromLatin1(method));
    return answer.isValid() && answer.value().contains(QString::fromLatin1(property));
}

/** What this process has for itself, in KiB. */
long privateMemory()
{
    std::ifstream rollup("/proc/self/smaps_rollup");
    long sum = 0;
    std::string word;
    while (rollup >> word) {
        long amount = 0;
        if ((word == "Private_Clean:" || word == "Private_Dirty:") && rollup >> amount)
            sum += amount;
    }
    return sum;
}

/**
 * Puts this program, the bus and the daemon of the desk on one processor. A read passes through all three, and where
 * the scheduler puts them changes its time by more than what is compared here: it costs more to wake an idle processor
 * than to do what either library does. What is left is the work.
 */
bool standTogether()
{
    cpu_set_t here;
    CPU_ZERO(&here);
    CPU_SET(static_cast<std::size_t>(sched_getcpu()), &here);
    const char *const desk = std::getenv("KVQ_DESK");
    for (const char *const program : {"bus", "daemon"}) {
        pid_t id = 0;
        std::ifstream(std::string(desk ? desk : "") + '/' + program + ".pid") >> id;
        if (id == 0 || sched_setaffinity(id, sizeof here, &here) != 0)
            return false;
    }
    return sched_setaffinity(0, sizeof here, &here) == 0;
}

/** Microseconds of one read, by a turn of them; 0 when one has failed. */
double timeOf(bool (*read)())
{
    const auto begin = std::chrono::steady_clock::now();
    for (int reads = 0; reads < readsOfTurn; ++reads) {
        if (!read())
            return 0;
    }
    const std::chrono::duration<double, std::micro> time = std::chrono::steady_clock::now() - begin;
    return time.count() / readsOfTurn;
}

} // namespace

int main(int argc, char **argv)
{
    if (!standTogether()) { // before there are threads
        std::fputs("error: there is no desk around this program; run it by scripts/desk.sh\n", stderr);
        return 1;
    }
    const QCoreApplication application(argc, argv);
    if (PHONE_ENG_TAPI_initiation() != TAPI_RESULT_SUCC) {
        std::fputs("error: there is no telephony daemon\n", stderr);
        return 1;
    }
    const long before = privateMemory();
    if (!readByEngine()) {
        std::fputs("error: the call settings cannot be read\n", stderr);
        return 1;
    }
    const long memory = privateMemory() - before;

    // In turn, so that what else the machine does meets all three alike.
    constexpr std::array readers = {readByEngine, readByHand, readByQt};
    std::array<double, 3> fastest = {};
    fastest.fill(std::numeric_limits<double>::max());
    for (int turn = 0; turn < turns; ++turn) {
        for (std::size_t reader = 0; reader < readers.size(); ++reader) {
            const double time = timeOf(readers[reader]);
            if (time == 0) {
                std::fprintf(stderr, "error: reader %zu failed\n", reader);
                return 1;
            }
            fastest[reader] = std::min(fastest[reader], time);
        }
    }
    const auto [engine, hand, qt] = fastest;
    const auto verdict = [](double ratio, double most) { return ratio <= most ? "" : " EXCEEDED"; };
    std::printf("a call setting from the daemon's cache, the fastest of %d turns of %d reads each:\n", turns,
                readsOfTurn);
    std::printf("  engine and platform  %6.1f us\n", engine);
    std::printf("  sd-bus by hand       %6.1f us, ratio %.2f (at most %.2f)%s\n", hand, engine / hand,
                mostAgainstHand, verdict(engine / hand, mostAgainstHand));
    std::printf("  blocking QtDBus      %6.1f us, ratio %.2f (at most %.2f)%s\n", qt, engine / qt,
                mostAgainstQt, verdict(engine / qt, mostAgainstQt));
    std::printf("  private memory of the first read %ld KiB\n", memory);
    return engine / hand <= mostAgainstHand && engine / qt <= mostAgainstQt ? 0 : 1;
}
