// File systems without space: small ones of their own, mounted for one part of the torture.
#include "Torture.h"

#include "FailingDisk.h"
#include "Helpers.h"
#include "OwnMounts.h"

#include "PHONE_ENG_Setup.h"
#include "SimulatedPhone.h"

#include <QCoreApplication>

#include <algorithm>
#include <array>
#include <cerrno>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <functional>
#include <sstream>
#include <tuple>
#include <vector>

#include <fcntl.h>
#include <sys/mount.h>
#include <unistd.h>

namespace Torture {

namespace {

namespace fs = std::filesystem;

/** Runs a part in a process of its own, with mounts of its own that end with it. */
Outcome inOwnMounts(const std::function<Outcome()> &part)
{
    std::array<int, 2> ends = {};
    if (pipe(ends.data()) != 0)
        return {0, 0, {}, {}, "no pipe"};
    const pid_t child = inChild([&] {
        Outcome outcome;
        if (haveOwnMounts())
            outcome = part();
        else
            outcome.cannotRunHere = "mounts of its own are not allowed";
        std::ostringstream text;
        text << outcome.tries << '\n'
             << outcome.faults << '\n'
             << outcome.firstFault << '\n'
             << outcome.remark << '\n'
             << outcome.cannotRunHere << '\n';
        std::ignore = ::write(ends[1], text.str().data(), text.str().size());
    });
    close(ends[1]);
    std::string text;
    std::array<char, 512> bytes = {};
    for (ssize_t count = 0; (count = ::read(ends[0], bytes.data(), bytes.size())) > 0;)
        text.append(bytes.data(), static_cast<std::size_t>(count));
    close(ends[0]);
    Outcome outcome;
    outcome.check(waitFor(child) == 0, "the process died");
    std::istringstream lines(text);
    Outcome inside;
    lines >> inside.tries >> inside.faults;
    lines.ignore();
    std::getline(lines, inside.firstFault);
    std::getline(lines, inside.remark);
    std::getline(lines, inside.cannotRunHere);
    outcome.add(inside);
    return outcome;
}

Outcome onMemoryDisk(const std::string &folder, const char *options, const std::function<Outcome()> &part)
{
    return inOwnMounts([&] {
        if (mount("tmpfs", folder.c_str(), "tmpfs", 0, options) == 0)
            return part();
        Outcome outcome;
        outcome.cannotRunHere = "no file system in memory may be mounted";
        return outcome;
    });
}

/** A real disk but for its place. With small inodes, so that it knows whole seconds only. */
Outcome onLoopDisk(const std::string &folder, const std::function<Outcome(const std::string &disk)> &part)
{
    return inOwnMounts([&] {
        const std::string image = folder + "/disk.image";
        const std::string disk = folder + "/disk";
        fs::create_directory(disk);
        std::ofstream(image).close();
        fs::resize_file(image, 2 * 1024 * 1024);
        const std::string make = "mkfs.ext4 -q -m 0 -b 1024 -I 128 " + image
            + " >/dev/null 2>&1 && mount -o loop " + image + ' ' + disk + " 2>/dev/null";
        Outcome outcome;
        if (std::system(make.c_str()) == 0) {
            outcome = part(disk);
            umount(disk.c_str());
        } else {
            outcome.cannotRunHere = "no loop device may be mounted";
        }
        return outcome;
    });
}

/** Takes all space but @p rest bytes. */
void fill(const std::string &file, int rest = 0)
{
    const int filler = ::open(file.c_str(), O_WRONLY | O_CREAT | O_CLOEXEC, 0600);
    const std::vector<char> block(1024, 'x');
    off_t size = 0;
    for (ssize_t count = 0; (count = ::write(filler, block.data(), block.size())) > 0;)
        size += count;
    std::ignore = ftruncate(filler, std::max<off_t>(0, size - rest));
    fsync(filler);
    close(filler);
}

/** Takes all inodes; says how many. */
int fillWithFiles(const std::string &folder)
{
    for (int files = 0;; ++files) {
        const int filler =
            ::open((folder + '/' + std::to_string(files)).c_str(), O_WRONLY | O_CREAT | O_CLOEXEC, 0600);
        if (filler < 0)
            return files;
        close(filler);
    }
}

void removeFiles(const std::string &folder, int files)
{
    while (files > 0)
        fs::remove(folder + '/' + std::to_string(--files));
}

/** Writes at each level of fill: the truth about each answer, and use as before when the space is back. */
Outcome atEachLevel(const std::string &folder, int step)
{
    Outcome outcome;
    long refused = 0;
    const std::string file = folder + "/store/settings.cbor";
    const std::string filler = folder + "/filler";
    const QString old(500, QLatin1Char('1'));
    const QString next(9000, QLatin1Char('2'));
    for (int level = 0; level < 64 * 1024; level += step) {
        fs::remove_all(folder + "/store");
        fs::remove(filler);
        {
            Fresh first(file);
            outcome.check(first.put("a", old) && first.put("b", 1), "a write with space enough");
        }
        fill(filler, level);

        Fresh store(file);
        errno = 0;
        const bool single = store.put("a", next);
        outcome.check(single || errno == ENOSPC, "a refused write says that the disk is full");
        outcome.check(Fresh(file).text("a") == (single ? next : old), "what a single write answered");

        Collection collection(store);
        bool collected = collection.put("b", 2);
        collected = collection.put("c", next) && collected;
        outcome.check(collected || errno == ENOSPC, "a refused collected write says that the disk is full");
        // What a full collection still holds is taken up, so that the commit finds nothing free.
        if (collected)
            fill(folder + "/filler-of-the-rest");
        outcome.check(!collected || collection.flush(), "a commit after collected writes answered true");
        collection.discard();
        fs::remove(folder + "/filler-of-the-rest");
        outcome.check(Fresh(file).number("b") == (collected ? 2 : 1), "what a collected write answered");
        refused += (single ? 0 : 1) + (collected ? 0 : 1);

        fs::remove(filler);
        outcome.check(store.put("b", 3) && Fresh(file).number("b") == 3, "use when the space is back");
    }
    outcome.remark = std::to_string(refused) + " refused for lack of space";
    outcome.check(refused > 0, "the disk was full at some level");
    return outcome;
}

/** What an application sees of it. */
class Application {
public:
    Application(const std::string &file, Outcome &outcome)
        : m_outcome(outcome)
    {
        SimulatedPhone::instance().settings().setFile(QString::fromStdString(file));
        QObject::connect(&m_engine, &PHONE_ENG_Setup::flashFull, &m_engine, [this] { ++m_signals; });
    }

    bool setOne(const QString &number)
    {
        return answer([&] { return m_engine.setTurboDialing(1, number); });
    }
    /** As a collection. */
    bool setAll(const QString &number)
    {
        return answer([&] { return m_engine.setTurboDialing(QStringList{number, number, number}); });
    }
    bool hasOne(const QString &number) { return m_engine.getTurboDialing(1, true) == number; }
    bool hasAll(const QString &number)
    {
        return m_engine.getTurboDialing(2, true) == number && m_engine.getTurboDialing(3, true) == number;
    }
    int signalsInAll() const { return m_signals; }

private:
    template <typename Write>
    bool answer(Write write)
    {
        const int before = m_signals;
        const bool stored = write();
        m_outcome.check(stored || errno == ENOSPC, "a refused write says that the disk is full");
        m_outcome.check(m_signals == before, "the signal comes from the event loop");
        QCoreApplication::sendPostedEvents();
        m_outcome.check(m_signals == before + (stored ? 0 : 1), "flashFull() once for each refused write");
        return stored;
    }

    PHONE_ENG_Setup &m_engine = *PHONE_ENG_Setup::instance();
    Outcome &m_outcome;
    int m_signals = 0;
};

Outcome throughTheEngine(const std::string &disk, int step)
{
    Outcome outcome;
    const std::string filler = disk + "/filler";
    const QString old = QStringLiteral("5551234");
    const QString next(3000, QLatin1Char('2'));
    Application application(disk + "/store/settings.cbor", outcome);
    const auto start = [&] {
        fs::remove_all(disk + "/store");
        outcome.check(application.setAll(old), "a write with space enough");
    };
    for (int level = 0; level < 40 * 1024; level += step) {
        start();
        fill(filler, level);
        const bool one = application.setOne(next);
        outcome.check(application.hasOne(one ? next : old), "what a single write answered");
        const bool all = application.setAll(next);
        outcome.check(application.hasAll(all ? next : old), "what a collection answered");
        fs::remove(filler);
        outcome.check(application.setOne(old) && application.hasOne(old), "use when the space is back");
    }
    outcome.check(application.signalsInAll() > 0, "the disk was full at some level");

    start();
    const int files = fillWithFiles(disk);
    outcome.check(!application.setOne(next) && !application.setAll(next) && application.hasOne(old)
                      && application.hasAll(old),
                  "no inode counts as a full disk");
    removeFiles(disk, files);
    outcome.check(application.setAll(next), "use when the inodes are back");

    // Whatever the step is that finds the disk full, the commit of a collection included.
    for (const bool forGood : {false, true}) {
        for (int call = 1, calls = call; call <= calls; ++call) {
            start();
            FailingDisk::failAt(call, ENOSPC, forGood);
            const bool all = application.setAll(next);
            calls = FailingDisk::repair();
            const bool isPerhaps = !all && FailingDisk::failedFunction() == "fsync";
            outcome.check(application.hasAll(all ? next : old) || (isPerhaps && application.hasAll(next)),
                          "what a collection answered");
        }
    }
    outcome.remark = std::to_string(application.signalsInAll()) + " signals";
    return outcome;
}

} // namespace

Outcome fullMemoryDisks(const std::string &folder, int step)
{
    return onMemoryDisk(folder, "size=256k,mode=700", [&] { return atEachLevel(folder, step); });
}

Outcome fullLoopDisks(const std::string &folder, int step)
{
    return onLoopDisk(folder, [step](const std::string &disk) { return atEachLevel(disk, step); });
}

Outcome noInodes(const std::string &folder)
{
    return onMemoryDisk(folder, "size=1m,nr_inodes=40,mode=700", [&] {
        Outcome outcome;
        const std::string file = folder + "/settings.cbor";
        Fresh store(file);
        outcome.check(store.put("a", 1), "the first write");
        const int files = fillWithFiles(folder);
        for (const bool commitEachWrite : {true, false}) {
            errno = 0;
            const bool written = commitEachWrite ? store.put("a", 2) : Collection(store).put("a", 2);
            outcome.check(!written && errno == ENOSPC, "no inode counts as a full disk");
            outcome.check(Fresh(file).number("a") == 1, "the old value stays");
        }
        Fresh other(folder + "/other/settings.cbor");
        outcome.check(!other.put("a", 2) && errno == ENOSPC,
                      "no inode for a first file counts as a full disk");
        removeFiles(folder, files);
        outcome.check(store.put("a", 3) && other.put("a", 3), "use when the inodes are back");
        return outcome;
    });
}

Outcome coarseTimes(const std::string &folder)
{
    return onLoopDisk(folder, [](const std::string &disk) {
        Outcome outcome;
        const std::string file = disk + "/settings.cbor";
        Fresh writer(file);
        Fresh reader(file);
        for (int value = 2; value <= 100; value += 2)
            outcome.check(writer.put("a", value - 1) && writer.put("a", value) && reader.number("a") == value,
                          "a version was not noticed");
        return outcome;
    });
}

Outcome signalsOfFullDisks(const std::string &folder, int step)
{
    Outcome outcome = onMemoryDisk(folder, "size=256k,nr_inodes=60,mode=700",
                                   [&] { return throughTheEngine(folder, step); });
    const Outcome real =
        onLoopDisk(folder, [step](const std::string &disk) { return throughTheEngine(disk, step); });
    if (real.cannotRunHere.empty())
        outcome.add(real);
    return outcome;
}

} // namespace Torture
