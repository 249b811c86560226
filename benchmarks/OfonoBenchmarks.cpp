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
#include <fstream>
#include <string>
#include <vector>

#include <systemd/sd-bus.h>

namespace {

constexpr char service[] = "org.ofono";
constexpr char path[] = "/phone";
constexpr char interface[] = "org.ofono.CallSettings";
constexpr char method[] = "GetProperties";
constexpr char property[] = "HideCallerId";

constexpr int rounds = 5000;
constexpr int turn = 20;
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

double median(std::vector<double> values)
{
    std::nth_element(values.begin(), values.begin() + rounds / 2, values.end());
    return values[rounds / 2];
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

} // namespace

int main(int argc, char **argv)
{
    const QCoreApplication application(argc, argv);
    if (PHONE_ENG_TAPI_initiation() != TAPI_RESULT_SUCC) {
        std::fputs("error: there is no telephony daemon; run this by scripts/desk.sh\n", stderr);
        return 1;
    }
    const long before = privateMemory();
    if (!readByEngine()) {
        std::fputs("error: the call settings cannot be read\n", stderr);
        return 1;
    }
    const long memory = privateMemory() - before;

    // Turn by turn, so that what else the machine does meets all three alike; some reads a turn, as a program would.
    using Reader = bool (*)();
    constexpr std::array<Reader, 3> readers = {readByEngine, readByHand, readByQt};
    std::array<std::vector<double>, 3> times;
    for (int round = 0; round < rounds; round += turn) {
        for (std::size_t reader = 0; reader < readers.size(); ++reader) {
            for (int read = 0; read < turn; ++read) {
                const auto begin = std::chrono::steady_clock::now();
                const bool done = readers[reader]();
                const std::chrono::duration<double, std::micro> time =
                    std::chrono::steady_clock::now() - begin;
                if (!done) {
                    std::fprintf(stderr, "error: reader %zu failed\n", reader);
                    return 1;
                }
                times[reader].push_back(time.count());
            }
        }
    }
    const double engine = median(times[0]);
    const double hand = median(times[1]);
    const double qt = median(times[2]);
    const auto verdict = [](double ratio, double most) { return ratio <= most ? "" : " EXCEEDED"; };
    std::printf("a call setting from the daemon's cache, medians of %d in turn:\n", rounds);
    std::printf("  engine and platform  %6.1f us\n", engine);
    std::printf("  sd-bus by hand       %6.1f us, ratio %.2f (at most %.2f)%s\n", hand, engine / hand,
                mostAgainstHand, verdict(engine / hand, mostAgainstHand));
    std::printf("  blocking QtDBus      %6.1f us, ratio %.2f (at most %.2f)%s\n", qt, engine / qt,
                mostAgainstQt, verdict(engine / qt, mostAgainstQt));
    std::printf("  private memory of the first read %ld KiB\n", memory);
    return engine / hand <= mostAgainstHand && engine / qt <= mostAgainstQt ? 0 : 1;
}
