// Tortures the settings store and prints a table of tries and faults. Fails on any fault.
#include "Torture.h"

#include "PHONE_ENG_Setup.h"
#include "SimulatedPhone.h"

#include <QCoreApplication>
#include <QTemporaryDir>

#include <algorithm>
#include <chrono>
#include <cstdio>
#include <cstdlib>

namespace {

bool faultless = true;

void show(const char *what, const Torture::Outcome &outcome)
{
    if (!outcome.cannotRunHere.empty()) {
        std::printf("%-34s %10s %8s  left out: %s\n", what, "-", "-", outcome.cannotRunHere.c_str());
        return;
    }
    faultless = faultless && outcome.faults == 0;
    std::printf("%-34s %10ld %8ld  %s%s\n", what, outcome.tries, outcome.faults, outcome.firstFault.c_str(),
                outcome.firstFault.empty() ? outcome.remark.c_str() : " FAILED");
    std::fflush(stdout);
}

void show(const Torture::Crowd &crowd)
{
    for (const auto &row : crowd.rows)
        std::printf("    %-30s %10ld %8s  median %.1f us, longest %.1f ms\n", row.who.c_str(), row.answers,
                    "", row.median, row.longest / 1000);
}

void holds(const char *what, double value, double limit)
{
    const bool held = value <= limit;
    faultless = faultless && held;
    std::printf("    %-41s %8.2f  (at most %.2f) %s\n", what, value, limit, held ? "" : "EXCEEDED");
}

/** @param effort 1 for a few minutes */
void torture(const std::string &folder, double effort)
{
    const auto times = [effort](int count) { return static_cast<int>(count * effort) + 1; };
    std::printf("%-34s %10s %8s\n", "what was done", "tries", "faults");
    show("killed writers", Torture::killedWriters(folder, times(2000)));
    show("stopped writers", Torture::stoppedWriters(folder, times(500)));
    show("fill levels, in memory", Torture::fullMemoryDisks(folder, static_cast<int>(128 / effort)));
    show("fill levels, ext4 on a loop device",
         Torture::fullLoopDisks(folder, static_cast<int>(256 / effort)));
    show("no free inode", Torture::noInodes(folder));
    show("the same through the engine", Torture::signalsOfFullDisks(folder, static_cast<int>(512 / effort)));
    show("versions within one second", Torture::coarseTimes(folder));
    show("a failing disk, call by call", Torture::failingDisk(folder));
    show("damaged files", Torture::damagedFiles(folder, times(3000)));
    show("odd files", Torture::oddFiles(folder));

    PHONE_ENG_Setup &engine = *PHONE_ENG_Setup::instance();
    SimulatedPhone::instance().settings().setFile(QString::fromStdString(folder + "/crowd.db"));
    // The default is true, so false says that the stored value was read.
    const auto read = [&engine] { return !engine.isReminder(); };
    const auto write = [&engine](int turn) { return engine.setAudibleTimer(turn); };
    engine.setReminder(false);
    engine.setAudibleTimer(0);
    const auto quiet = Torture::crowd(0, 1, 2, read, write);
    show("a quiet reader", quiet.outcome);
    show(quiet);
    // What the processors alone make a process wait when so many want them.
    const auto spin = [end = std::chrono::nanoseconds(600)] {
        for (const auto start = std::chrono::steady_clock::now();
             std::chrono::steady_clock::now() - start < end;) { }
        return true;
    };
    const auto idle = Torture::crowd(8, 8, 30 * effort, spin, write);
    show("8 writers, 8 that only spin", idle.outcome);
    show(idle);
    const auto loud = Torture::crowd(8, 8, 30 * effort, read, write);
    show("8 writers and 8 readers", loud.outcome);
    show(loud);
    holds("median read against a quiet one", loud.rows.front().median / quiet.rows.front().median, 3);
    holds("longest read, in ms", loud.rows.front().longest / 1000,
          std::max(50.0, idle.rows.front().longest / 500));
    holds("longest wait of a writer, in ms", loud.rows.back().longest / 1000, 5000);
    show("soak", Torture::soak(folder, 60 * effort));
}

} // namespace

int main(int argc, char **argv)
{
    const QCoreApplication application(argc, argv);
    const QTemporaryDir directory(argc > 2
                                      ? QString::fromLocal8Bit(argv[2]) + QStringLiteral("/torture-XXXXXX")
                                      : QStringLiteral("torture-XXXXXX"));
    if (!directory.isValid()) {
        std::fprintf(stderr, "error: no folder could be made: %s\n",
                     directory.errorString().toLocal8Bit().constData());
        return 2;
    }
    const double effort = argc > 1 ? std::atof(argv[1]) : 1;
    if (!(effort > 0)) {
        std::fprintf(stderr, "usage: %s [EFFORT [FOLDER]]\n", argv[0]);
        return 2;
    }
    torture(directory.path().toStdString(), effort);
    return faultless ? 0 : 1;
}
