// Tortures the settings store and prints tables of what it did and saw. Fails on any fault.
#include "Torture.h"

#include "PHONE_ENG_Setup.h"
#include "SimulatedPhone.h"

#include <QCoreApplication>
#include <QLocale>
#include <QTemporaryDir>

#include <algorithm>
#include <cstdio>
#include <cstdlib>
#include <string>

namespace {

bool faultless = true;

std::string number(long value)
{
    return QLocale(QLocale::English).toString(qlonglong{value}).toStdString(); // a comma between thousands
}

std::string number(double value, const char *unit)
{
    char text[32] = {};
    std::snprintf(text, sizeof text, "%.1f %s", value, unit);
    return text;
}

void row(const std::string &what, const std::string &first, const std::string &second,
         const std::string &third)
{
    std::printf("| %-58s | %11s | %8s | %s |\n", what.c_str(), first.c_str(), second.c_str(), third.c_str());
    std::fflush(stdout);
}

void heading(const char *what, const char *first, const char *second, const char *third)
{
    std::printf("\n");
    row(what, first, second, third);
    row("---", "---", "---", "---");
}

void show(const char *what, const Torture::Outcome &outcome)
{
    if (!outcome.cannotRunHere.empty())
        return row(what, "-", "-", "left out: " + outcome.cannotRunHere);
    faultless = faultless && outcome.faults == 0;
    row(what, number(outcome.tries), number(outcome.faults),
        outcome.faults == 0 ? outcome.remark : "FAILED: " + outcome.firstFault);
}

void show(const char *what, const Torture::Crowd::Row &answers)
{
    row(what, number(answers.answers), number(answers.median, "us"), number(answers.longest / 1000, "ms"));
}

void holds(const char *what, double value, double limit, const char *unit)
{
    const bool held = value <= limit;
    faultless = faultless && held;
    row(what, number(value, unit), number(limit, unit), held ? "yes" : "NO");
}

/** @param effort 1 for a few minutes */
void torture(const std::string &folder, double effort)
{
    const auto times = [effort](int count) { return static_cast<int>(count * effort) + 1; };
    const auto step = [effort](int bytes) { return std::max(1, static_cast<int>(bytes / effort)); };
    heading("what was done", "tries", "faults", "seen besides");
    show("writers killed at any moment", Torture::killedWriters(folder, times(2000)));
    show("writers stopped at any moment", Torture::stoppedWriters(folder, times(500)));
    show("levels of fill, file system in memory", Torture::fullMemoryDisks(folder, step(128)));
    show("levels of fill, ext4 on a loop device", Torture::fullLoopDisks(folder, step(256)));
    show("no free inode", Torture::noInodes(folder));
    show("full disks through the engine, flashFull() counted",
         Torture::signalsOfFullDisks(folder, step(512)));
    show("each call to the system fails, with four errors", Torture::failingDisk(folder));
    show("versions within a second, where seconds are counted", Torture::coarseTimes(folder));
    show("damaged files", Torture::damagedFiles(folder, times(3000)));
    show("bits flipped in place", Torture::flippedBits(folder, step(1)));
    show("pipes, folders, links and devices in the file's place", Torture::oddFiles(folder));

    PHONE_ENG_Setup &engine = *PHONE_ENG_Setup::instance();
    SimulatedPhone::instance().settings().setFile(QString::fromStdString(folder + "/crowd.cbor"));
    // The default is true, so false says that the stored value was read.
    const auto read = [&engine] { return !engine.isReminder(); };
    const auto write = [&engine](int turn) { return engine.setAudibleTimer(turn); };
    engine.setReminder(false);
    engine.setAudibleTimer(0);
    const double seconds = 30 * effort;
    const Torture::Crowd quiet = Torture::crowd(0, 1, 2, read, write);
    show("a reader by itself, through the engine", quiet.outcome);
    const Torture::Crowd crowd = Torture::crowd(8, 8, seconds, read, write);
    const auto during = [](const char *what, double time) {
        return what + QStringLiteral(", %1 s").arg(time).toStdString();
    };
    show(during("8 writers and 8 readers without pause", seconds).c_str(), crowd.outcome);
    show(during("everything at once", 2 * seconds).c_str(), Torture::soak(folder, 2 * seconds));

    heading("in the crowd", "answers", "median", "longest");
    show("reads of a reader by itself", quiet.reads);
    show("reads of 8 readers", crowd.reads);
    show("those of them that waited for more than a processor", crowd.asleep);
    show("their pauses, which need a processor only", crowd.spinning);
    show("writes of 8 writers", crowd.writes);

    heading("limit", "measured", "at most", "held");
    holds("median read of 8 readers", crowd.reads.median, 3 * quiet.reads.median, "us");
    holds("longest read (50 ms, or twice the longest pause)", crowd.reads.longest / 1000,
          std::max(50.0, crowd.spinning.longest / 500), "ms");
    holds("longest wait of a writer", crowd.writes.longest / 1000, 5000, "ms");
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
