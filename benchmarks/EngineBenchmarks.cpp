// What the engine costs, each operation against its floor: the same platform calls and log lines by hand.
#include "../utility/Log.h"

#include "PHONE_ENG_NtInterface.h"
#include "PHONE_ENG_Setup.h"
#include "PHONE_ENG_WrapTapi.h"
#include "SETUP_SET_Manager.h"
#include "SimulatedPhone.h"
#include "UTIL_State.h"

#include <QCoreApplication>
#include <QTemporaryDir>

#include <benchmark/benchmark.h>

#include <cstdio>
#include <map>
#include <memory>
#include <string>
#include <vector>

namespace {

constexpr char unitPath[] = "utility/PHONE_ENG_Benchmark";

/** Writes a log line as the engine's macros do, but straight to the stream. */
#define HAND_TRACE() std::fprintf(libaplog_to_module_ptr, "%s,%s,%d \n", unitPath, __func__, __LINE__)
#define HAND_MESSAGE(text, ...)                                                                              \
    std::fprintf(libaplog_to_module_ptr, "\n%s, %s, %d: \"" text "\"\n", unitPath, __func__,                 \
                 __LINE__ __VA_OPT__(, ) __VA_ARGS__)

/** Scripts the answers that a list of records needs. */
void answerUsim(int count)
{
    SimulatedPhone &phone = SimulatedPhone::instance();
    phone.reset();
    phone.state().sim.usimLabels.assign(static_cast<std::size_t>(count),
                                        QStringLiteral("Subscription label"));
}

void fillPreferred(int count)
{
    SimulatedPhone &phone = SimulatedPhone::instance();
    phone.reset();
    for (int position = 0; position < count; ++position)
        phone.state().network.preferred[static_cast<unsigned int>(position)] = "00101";
}

void callByEngine(benchmark::State &state)
{
    for (auto _ : state)
        benchmark::DoNotOptimize(PHONE_ENG_TAPI_CALL_VOICECALL_MuteReq(1));
}

void callByHand(benchmark::State &state)
{
    // The same bytes as the engine writes.
    const auto log = [](int line) {
        std::fprintf(libaplog_to_module_ptr, "%s,%s,%d \n", "utility/PHONE_ENG_WrapTapi",
                     "PHONE_ENG_TAPI_CALL_VOICECALL_MuteReq", line);
    };
    for (auto _ : state) {
        log(215);
        benchmark::DoNotOptimize(TAPI_VOICE_MuteCall(1));
        log(217);
    }
}

void logByEngine(benchmark::State &state)
{
    for (auto _ : state)
        LOG_MESSAGE(R"(Ret = %d\n)", 5);
}

void logByHand(benchmark::State &state)
{
    for (auto _ : state)
        HAND_MESSAGE(R"(Ret = %d\n)", 5);
}

void preferenceByEngine(benchmark::State &state)
{
    for (auto _ : state)
        benchmark::DoNotOptimize(PHONE_ENG_Setup::instance()->isReminder());
}

void preferenceByHand(benchmark::State &state)
{
    for (auto _ : state) {
        SETUP_SET_Manager store(AM_Global::CallSetup, false);
        bool value = true;
        store.getSettingInfo(QStringLiteral("Setup"), QStringLiteral("reminder"), value, true);
        benchmark::DoNotOptimize(value);
    }
}

void usimByEngine(benchmark::State &state)
{
    answerUsim(static_cast<int>(state.range(0)));
    QStringList list;
    unsigned char active = 0;
    unsigned char count = 0;
    for (auto _ : state)
        benchmark::DoNotOptimize(PHONE_ENG_Setup::instance()->getUSIMAccountList(list, active, count));
}

void usimByHand(benchmark::State &state)
{
    answerUsim(static_cast<int>(state.range(0)));
    QStringList list;
    for (auto _ : state) {
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
}

void clearByEngine(benchmark::State &state)
{
    for (auto _ : state) {
        state.PauseTiming();
        fillPreferred(static_cast<int>(state.range(0)));
        state.ResumeTiming();
        benchmark::DoNotOptimize(PHONE_ENG_NtInterface::instance()->delAllPreferredNetwork());
    }
}

void clearByHand(benchmark::State &state)
{
    for (auto _ : state) {
        state.PauseTiming();
        fillPreferred(static_cast<int>(state.range(0)));
        state.ResumeTiming();
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
}

void durableWrite(benchmark::State &state)
{
    int value = 0;
    for (auto _ : state)
        benchmark::DoNotOptimize(PHONE_ENG_Setup::instance()->setAudibleTimer(++value));
}

BENCHMARK(callByEngine);
BENCHMARK(callByHand);
BENCHMARK(logByEngine);
BENCHMARK(logByHand);
BENCHMARK(preferenceByEngine);
BENCHMARK(preferenceByHand);
BENCHMARK(usimByEngine)->Arg(64)->Arg(255);
BENCHMARK(usimByHand)->Arg(255);
BENCHMARK(clearByEngine)->Arg(25)->Arg(100)->Iterations(2000);
BENCHMARK(clearByHand)->Arg(100)->Iterations(2000);
BENCHMARK(durableWrite);

/** Keeps the median time of each benchmark. */
class Medians : public benchmark::ConsoleReporter {
public:
    void ReportRuns(const std::vector<Run> &runs) override
    {
        ConsoleReporter::ReportRuns(runs);
        for (const Run &run : runs) {
            if (run.aggregate_name == "median")
                m_times[run.run_name.function_name + run.run_name.args] = run.GetAdjustedRealTime();
        }
    }
    double of(const std::string &name) const { return m_times.at(name); }

private:
    std::map<std::string, double> m_times;
};

bool holds(const char *what, double ratio, double limit)
{
    std::printf("%-56s %6.3f x  (at most %.2f x) %s\n", what, ratio, limit, ratio <= limit ? "" : "EXCEEDED");
    return ratio <= limit;
}

} // namespace

int main(int argc, char **argv)
{
    const QCoreApplication application(argc, argv);
    const QTemporaryDir directory;
    SimulatedPhone::instance().settings().setFile(directory.filePath(QStringLiteral("settings.db")));
    PHONE_ENG_Setup::instance()->setReminder(false);
    libaplog_to_module_ptr = std::fopen("/dev/null", "w");

    std::vector<std::string> options = {
        argv[0], "--benchmark_repetitions=15", "--benchmark_enable_random_interleaving=true",
        "--benchmark_report_aggregates_only=true", "--benchmark_min_time=0.05"};
    std::vector<char *> arguments;
    for (std::string &option : options)
        arguments.push_back(option.data());
    arguments.insert(arguments.end(), argv + 1, argv + argc);
    int count = static_cast<int>(arguments.size());
    benchmark::Initialize(&count, arguments.data());
    Medians medians;
    benchmark::RunSpecifiedBenchmarks(&medians);

    std::printf("\nAgainst the same work by hand, medians of one run:\n");
    bool held = holds("a call-control request", medians.of("callByEngine") / medians.of("callByHand"), 1.10);
    held &= holds("a log line", medians.of("logByEngine") / medians.of("logByHand"), 1.10);
    held &=
        holds("a preference read", medians.of("preferenceByEngine") / medians.of("preferenceByHand"), 1.15);
    held &= holds("a 255-entry USIM list", medians.of("usimByEngine255") / medians.of("usimByHand255"), 1.15);
    held &= holds("a 100-entry clear of the preferred list",
                  medians.of("clearByEngine100") / medians.of("clearByHand100"), 1.15);
    held &= holds("growth of the USIM list: an entry of 255 to one of 64",
                  medians.of("usimByEngine255") / 255 / (medians.of("usimByEngine64") / 64), 1.15);
    held &= holds("growth of the clear: an entry of 100 to one of 25",
                  medians.of("clearByEngine100") / 100 / (medians.of("clearByEngine25") / 25), 1.15);
    std::printf("a durable write: %.0f us, most of it waiting for the disk to confirm\n",
                medians.of("durableWrite") / 1000);
    return held ? 0 : 1;
}
