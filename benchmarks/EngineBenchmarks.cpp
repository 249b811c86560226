// What the engine costs, each operation against its floor: the same platform calls and log lines by hand.
//
// The verdict counts instructions, under callgrind: the same program with the same input gives the same count, whatever
// else the machine does. The clock stands beside it: the least time of many short rounds, both sides in turn.
namespace {

constexpr char unitPath[] = "utility/PHONE_ENG_Benchmark";

} // namespace

#include "../utility/Log.h"

#include "PHONE_ENG_NtInterface.h"
#include "PHONE_ENG_Setup.h"
#include "PHONE_ENG_WrapTapi.h"
#include "SETUP_SET_Manager.h"
#include "SimulatedPhone.h"
#include "UTIL_State.h"

#include <QCoreApplication>
#include <QDir>
#include <QProcess>
#include <QTemporaryDir>

#include <algorithm>
#include <array>
#include <chrono>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <map>
#include <memory>
#include <string>
#include <vector>

#include <valgrind/callgrind.h>

namespace {

unsigned long allocations = 0;

} // namespace

extern "C" {
void *__libc_malloc(std::size_t size);
void *__libc_calloc(std::size_t count, std::size_t size);
void *__libc_realloc(void *memory, std::size_t size);

void *malloc(std::size_t size)
{
    ++allocations;
    return __libc_malloc(size);
}
void *calloc(std::size_t count, std::size_t size)
{
    ++allocations;
    return __libc_calloc(count, size);
}
void *realloc(void *memory, std::size_t size)
{
    ++allocations;
    return __libc_realloc(memory, size);
}
}

namespace {

/** Writes a log line as the engine's macros do, but straight to the stream. */
#define HAND_TRACE() std::fprintf(libaplog_to_module_ptr, "%s,%s,%d \n", unitPath, __func__, __LINE__)
#define HAND_MESSAGE(text, ...)                                                                              \
    std::fprintf(libaplog_to_module_ptr, "\n%s, %s, %d: \"" text "\"\n", unitPath, __func__,                 \
                 __LINE__ __VA_OPT__(, ) __VA_ARGS__)

/** A card with that many USIM applications. */
void answerUsim(int count)
{
    SimulatedPhone &phone = SimulatedPhone::instance();
    phone.reset();
    phone.state().sim.usimLabels.assign(static_cast<std::size_t>(count),
                                        QStringLiteral("Subscription label"));
}

/** A card whose preferred list has that many entries, however often it is cleared. */
void answerPreferred(int count)
{
    SimulatedPhone &phone = SimulatedPhone::instance();
    phone.reset();
    _TAPI_NETWORK_PREFERRED_S list = {};
    list.count = count;
    for (int position = 0; position < count; ++position)
        list.entries[position].priority = position;
    ScriptedAnswer answer;
    answer.out = {std::string(reinterpret_cast<const char *>(&list), sizeof list)};
    phone.script("TAPI_NETWORK_GetPreferredOperator", answer);
    phone.script("TAPI_NETWORK_DeleteSelectedOperator", {});
}

void answerNothing(int)
{
    SimulatedPhone::instance().reset();
}

void callByEngine()
{
    PHONE_ENG_TAPI_CALL_VOICECALL_MuteReq(1);
}

void callByHand()
{
    // The same bytes as the engine writes.
    const auto log = [](int line) {
        std::fprintf(libaplog_to_module_ptr, "%s,%s,%d \n", "utility/PHONE_ENG_WrapTapi",
                     "PHONE_ENG_TAPI_CALL_VOICECALL_MuteReq", line);
    };
    log(215);
    TAPI_VOICE_MuteCall(1);
    log(217);
}

void logByEngine()
{
    LOG_MESSAGE(R"(Ret = %d\n)", 5);
}

void logByHand()
{
    HAND_MESSAGE(R"(Ret = %d\n)", 5);
}

void preferenceByEngine()
{
    PHONE_ENG_Setup::instance()->isReminder();
}

void preferenceByHand()
{
    SETUP_SET_Manager store(AM_Global::CallSetup, false);
    bool value = true;
    store.getSettingInfo(QStringLiteral("Setup"), QStringLiteral("reminder"), value, true);
}

void usimByEngine()
{
    QStringList list;
    unsigned char active = 0;
    unsigned char count = 0;
    PHONE_ENG_Setup::instance()->getUSIMAccountList(list, active, count);
}

void usimByHand()
{
    QStringList list;
    unsigned char count = 0;
    unsigned char active = 0;
    HAND_MESSAGE(R"(\n Getting Number of USIM applications )");
    TAPI_SECURITY_GetNumOfUsim(&count);
    HAND_MESSAGE(R"(\n Getting Number of USIM applications )");
    UTIL_SetCardType(1);
    const auto records = std::make_unique<_TAPI_SECURITY_ADF_INFO_S[]>(count);
    HAND_TRACE();
    TAPI_SECURITY_GetUsimList(&active, count, records.get());
    HAND_TRACE();
    HAND_MESSAGE(R"(\n The Active ADF Index is %d )", active);
    UTIL_SetActiveAccount(active);
    list.clear();
    for (int record = 0; record < count; ++record) {
        const _TAPI_SECURITY_ADF_INFO_S &application = records[static_cast<std::size_t>(record)];
        HAND_MESSAGE(R"(\n Details of application Number %d )", record + 1);
        HAND_MESSAGE(R"(\n AdfIndex  = %d )", application.adfIndex);
        HAND_MESSAGE(R"(\n Label Len = %d )", application.labelLength);
        QString label;
        for (int position = 0; position + 1 < application.labelLength; position += 2)
            label.append(QChar(
                static_cast<ushort>(application.label[position] | application.label[position + 1] << 8)));
        list.append(label);
    }
}

void clearByEngine()
{
    PHONE_ENG_NtInterface::instance()->delAllPreferredNetwork();
}

void clearByHand()
{
    _TAPI_NETWORK_PREFERRED_S list = {};
    HAND_TRACE();
    const _TAPI_RESULT_E code = TAPI_NETWORK_GetPreferredOperator(&list, 0);
    HAND_TRACE();
    HAND_MESSAGE(R"(TAPI_NETWORK_GetPreferredOperat Return value = %d\n)", static_cast<int>(code));
    int max = -1;
    for (int entry = list.count - 1; entry >= 0; --entry) {
        HAND_MESSAGE(R"(priority = %d\n)", list.entries[entry].priority);
        HAND_MESSAGE(R"(max = %d\n)", max);
        max = std::max(max, list.entries[entry].priority);
    }
    for (int position = max; position >= 0; --position) {
        HAND_TRACE();
        TAPI_NETWORK_DeleteSelectedOperator(static_cast<unsigned int>(position));
        HAND_TRACE();
    }
    HAND_MESSAGE(R"(In PHONE_ENG_NtInterface::delAllPreferredNetwork\n)");
    HAND_MESSAGE(R"(Max = %d\n)", max);
    HAND_MESSAGE(R"(Out PHONE_ENG_NtInterface::delAllPreferredNetwork\n)");
}

/** One side of a comparison. */
struct Side {
    const char *name;
    void (*prepare)(int size);
    int size;
    void (*run)();
    double per = 1; ///< what a growth is counted by
};

struct Comparison {
    const char *what;
    Side engine;
    Side floor;
    double limit;
};

const std::array<Comparison, 7> comparisons = {{
    {"a call-control request",
     {"call-engine", answerNothing, 0, callByEngine},
     {"call-hand", answerNothing, 0, callByHand},
     1.03},
    {"a log line",
     {"log-engine", answerNothing, 0, logByEngine},
     {"log-hand", answerNothing, 0, logByHand},
     1.03},
    {"a preference read",
     {"preference-engine", answerNothing, 0, preferenceByEngine},
     {"preference-hand", answerNothing, 0, preferenceByHand},
     1.03},
    {"a 255-entry USIM list",
     {"usim-engine", answerUsim, 255, usimByEngine},
     {"usim-hand", answerUsim, 255, usimByHand},
     1.05},
    {"a 100-entry clear of the preferred list",
     {"clear-engine", answerPreferred, 100, clearByEngine},
     {"clear-hand", answerPreferred, 100, clearByHand},
     1.05},
    {"growth of the USIM list: an entry of 255 to one of 64",
     {"usim-growth-255", answerUsim, 255, usimByEngine, 255},
     {"usim-growth-64", answerUsim, 64, usimByEngine, 64},
     1.02},
    {"growth of the clear: an entry of 100 to one of 25",
     {"clear-growth-100", answerPreferred, 100, clearByEngine, 100},
     {"clear-growth-25", answerPreferred, 25, clearByEngine, 25},
     1.02},
}};

/** Rounds before counting: caches fill, buffers grow and pages are there. */
constexpr int warmUp = 3;
constexpr int countedRuns = 10;

/** Under callgrind: a count for each side, dumped under its name. */
void countInstructions()
{
    for (const Comparison &comparison : comparisons) {
        for (const Side *side : {&comparison.engine, &comparison.floor}) {
            side->prepare(side->size);
            for (int round = 0; round < warmUp; ++round)
                side->run();
            CALLGRIND_START_INSTRUMENTATION;
            CALLGRIND_ZERO_STATS;
            for (int round = 0; round < countedRuns; ++round)
                side->run();
            CALLGRIND_DUMP_STATS_AT(side->name);
            CALLGRIND_STOP_INSTRUMENTATION;
        }
    }
}

/** The counts that this program gives under callgrind, by the name of a side. Empty when that did not work. */
std::map<std::string, double> instructionCounts(const char *program)
{
    const QTemporaryDir folder;
    QProcess process;
    process.setProcessChannelMode(QProcess::MergedChannels);
    process.start(QStringLiteral("valgrind"),
                  {QStringLiteral("--tool=callgrind"), QStringLiteral("--instr-atstart=no"),
                   QStringLiteral("--callgrind-out-file=") + folder.filePath(QStringLiteral("counts")),
                   QString::fromLocal8Bit(program), QStringLiteral("--count")});
    if (!process.waitForFinished(600000) || process.exitCode() != 0) {
        std::fprintf(stderr, "valgrind: %s\n", process.readAll().constData());
        return {};
    }
    std::map<std::string, double> counts;
    const QStringList dumps = QDir(folder.path()).entryList(QDir::Files);
    for (const QString &dump : dumps) {
        QFile file(folder.filePath(dump));
        if (!file.open(QIODevice::ReadOnly))
            return {};
        std::string name;
        while (!file.atEnd()) {
            const QByteArray line = file.readLine().trimmed();
            constexpr char trigger[] = "desc: Trigger: Client Request: ";
            if (line.startsWith(trigger))
                name = line.mid(static_cast<int>(std::strlen(trigger))).toStdString();
            else if (line.startsWith("totals: ") && !name.empty())
                counts[name] = line.mid(8).toDouble();
        }
    }
    return counts;
}

constexpr int rounds = 300;

/** Times of short rounds, in nanoseconds a run. */
struct Times {
    double least = 1e18;
    double sum = 0;

    void add(double time)
    {
        least = std::min(least, time);
        sum += time;
    }
    /** How far a round is from the least on the average, in per cent. */
    double spread() const { return 100 * (sum / rounds / least - 1); }
};

double timeOf(const Side &side, int runs)
{
    side.prepare(side.size);
    side.run();
    const auto start = std::chrono::steady_clock::now();
    for (int run = 0; run < runs; ++run)
        side.run();
    const std::chrono::duration<double, std::nano> time = std::chrono::steady_clock::now() - start;
    return time.count() / runs;
}

/** Both sides in turn, in rounds of about a fifth of a millisecond. */
std::pair<Times, Times> clocked(const Comparison &comparison)
{
    const int runs = std::max(1, static_cast<int>(200000 / timeOf(comparison.floor, 3)));
    std::pair<Times, Times> times;
    for (int round = 0; round < rounds; ++round) {
        times.first.add(timeOf(comparison.engine, runs));
        times.second.add(timeOf(comparison.floor, runs));
    }
    return times;
}

bool judge(const std::map<std::string, double> &counts, bool withClock)
{
    std::printf("%-54s %12s %7s   %s\n", "against the same work by hand", "instructions", "at most",
                withClock ? "clock (rounds above the least)" : "");
    bool held = true;
    for (const Comparison &comparison : comparisons) {
        const auto &[what, engine, floor, limit] = comparison;
        const double ratio = counts.at(engine.name) / engine.per / (counts.at(floor.name) / floor.per);
        const bool holds = ratio <= limit;
        held = held && holds;
        std::printf("%-54s %10.4f x %5.2f x", what, ratio, limit);
        if (withClock) {
            const auto [engineTimes, floorTimes] = clocked(comparison);
            std::printf("  %6.3f x (+%.0f %%, +%.0f %%)",
                        engineTimes.least / engine.per / (floorTimes.least / floor.per), engineTimes.spread(),
                        floorTimes.spread());
        }
        std::printf("  %s\n", holds ? "holds" : "EXCEEDED");
    }
    answerNothing(0);
    callByEngine();
    const unsigned long before = allocations;
    callByEngine();
    const unsigned long taken = allocations - before;
    std::printf("%-54s %12lu %7d%*s  %s\n", "allocations of a call-control request", taken, 0,
                withClock ? 26 : 0, "", taken == 0 ? "holds" : "EXCEEDED");
    return held && taken == 0;
}

/** The median of a few; no comparison, for it is the disk that is measured. */
void showDurableWrite()
{
    std::array<double, 31> times = {};
    int value = 0;
    for (double &time : times) {
        const auto start = std::chrono::steady_clock::now();
        PHONE_ENG_Setup::instance()->setAudibleTimer(++value);
        time = std::chrono::duration<double, std::micro>(std::chrono::steady_clock::now() - start).count();
    }
    std::sort(times.begin(), times.end());
    std::printf("a durable write: %.0f us, most of it waiting for the disk to confirm\n",
                times[times.size() / 2]);
    answerNothing(0);
    std::printf("a preference read: %.2f us, a call-control request: %.2f us\n",
                timeOf(comparisons[2].engine, 10000) / 1000, timeOf(comparisons[0].engine, 10000) / 1000);
}

} // namespace

int main(int argc, char **argv)
{
    const QCoreApplication application(argc, argv);
    const std::string mode = argc > 1 ? argv[1] : "";
    if (argc > 2 || (!mode.empty() && mode != "--count" && mode != "--verdict")) {
        std::fprintf(stderr, "usage: engine_benchmarks [--verdict]\n");
        return 2;
    }
    const QTemporaryDir directory;
    SimulatedPhone::instance().settings().setFile(directory.filePath(QStringLiteral("settings.cbor")));
    PHONE_ENG_Setup::instance()->setReminder(false);
    libaplog_to_module_ptr = std::fopen("/dev/null", "w");
    if (mode == "--count") {
        countInstructions();
        return 0;
    }
    const std::map<std::string, double> counts = instructionCounts(argv[0]);
    if (counts.size() != 2 * comparisons.size()) {
        std::fprintf(stderr, "error: no instruction counts\n");
        return 2;
    }
    const bool held = judge(counts, mode.empty());
    if (mode.empty())
        showDurableWrite();
    return held ? 0 : 1;
}
