// What can go wrong around the settings store, done to it on purpose.
#include "Torture.h"

#include "FailingDisk.h"
#include "Helpers.h"

#include <algorithm>
#include <array>
#include <atomic>
#include <cerrno>
#include <chrono>
#include <cmath>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <filesystem>
#include <fstream>
#include <memory>
#include <random>
#include <sstream>
#include <thread>
#include <utility>

#include <csignal>
#include <fcntl.h>
#include <sys/mman.h>
#include <sys/resource.h>
#include <sys/stat.h>
#include <sys/wait.h>
#include <unistd.h>

namespace Torture {

namespace {

namespace fs = std::filesystem;
using Clock = std::chrono::steady_clock;
using namespace std::chrono_literals;

double microsecondsSince(Clock::time_point start)
{
    return std::chrono::duration<double, std::micro>(Clock::now() - start).count();
}

/** The file as a mutation of its bytes leaves it. */
std::string mutated(std::string bytes, std::mt19937 &random)
{
    const auto below = [&random](std::size_t limit) { return random() % std::max<std::size_t>(1, limit); };
    switch (random() % 6) {
    case 0: // cut short, down to nothing but a byte
        return bytes.substr(0, 1 + below(bytes.size() - 1));
    case 1: // longer
        return bytes + std::string(1 + below(5000), static_cast<char>(below(256)));
    case 2: { // a block that was never written
        const std::size_t at = below(bytes.size() / 512) * 512;
        return bytes.replace(at, 512, std::string(512, '\0'));
    }
    case 3: { // a block of something else
        const std::size_t at = below(bytes.size() / 512) * 512;
        for (std::size_t byte = at; byte < at + 512; ++byte)
            bytes[byte] = static_cast<char>(random());
        return bytes;
    }
    case 4: // one bit in the header
        bytes[below(100)] ^= static_cast<char>(1 << below(8));
        return bytes;
    default: // some bits anywhere
        for (std::size_t bit = 0; bit < 8; ++bit)
            bytes[below(bytes.size())] ^= static_cast<char>(1 << below(8));
        return bytes;
    }
}

/** How long something took, many times. */
struct Meter {
    static constexpr int perDoubling = 16;
    std::array<long, 32 * perDoubling> times;
    long answers;
    double longest;

    void note(double microseconds)
    {
        const double nanoseconds = std::max(1.0, microseconds * 1000);
        const auto slot = static_cast<std::size_t>(std::log2(nanoseconds) * perDoubling);
        ++times[std::min(slot, times.size() - 1)];
        ++answers;
        longest = std::max(longest, microseconds);
    }
    void add(const Meter &other)
    {
        for (std::size_t slot = 0; slot < times.size(); ++slot)
            times[slot] += other.times[slot];
        answers += other.answers;
        longest = std::max(longest, other.longest);
    }
    double median() const
    {
        long seen = 0;
        for (std::size_t slot = 0; slot < times.size(); ++slot) {
            seen += times[slot];
            if (seen * 2 >= answers)
                return std::exp2((static_cast<double>(slot) + 0.5) / perDoubling) / 1000;
        }
        return 0;
    }
    Crowd::Row row() const { return {answers, answers > 0 ? median() : 0, longest}; }
};

/** What a process of the crowd leaves behind, in a memory that all of them share. */
struct Member {
    Meter reads;
    Meter asleep;
    Meter spinning;
    Meter writes;
    long defaults;
    long refused;

    void write(Clock::time_point end, const std::function<bool(int)> &write)
    {
        for (int turn = 0; turn == 0 || Clock::now() < end; ++turn) {
            const auto start = Clock::now();
            refused += write(turn) ? 0 : 1;
            writes.note(microsecondsSince(start));
        }
    }
    void read(Clock::time_point end, const std::function<bool()> &read)
    {
        for (long sleepsBefore = sleeps(); reads.answers == 0 || Clock::now() < end;) {
            const double processorBefore = processorTime();
            const auto start = Clock::now();
            defaults += read() ? 0 : 1;
            const double took = microsecondsSince(start);
            const double enough = 2 * processorTime() - processorBefore;
            reads.note(took);
            if (took > 1000) {
                const long now = sleeps();
                if (std::exchange(sleepsBefore, now) != now)
                    asleep.note(took);
            }
            const auto pause = Clock::now();
            while (processorTime() < enough) { }
            spinning.note(microsecondsSince(pause));
        }
    }

private:
    /** Of this thread, in seconds. */
    static double processorTime()
    {
        timespec time = {};
        clock_gettime(CLOCK_THREAD_CPUTIME_ID, &time);
        return static_cast<double>(time.tv_sec) + 1e-9 * static_cast<double>(time.tv_nsec);
    }
    /** How often this process gave the processor up by itself. */
    static long sleeps()
    {
        struct rusage usage = {};
        getrusage(RUSAGE_SELF, &usage);
        return usage.ru_nvcsw;
    }
};

long openFiles()
{
    return std::distance(fs::directory_iterator("/proc/self/fd"), fs::directory_iterator());
}

} // namespace

void Outcome::check(bool good, const std::string &what)
{
    ++tries;
    if (good)
        return;
    if (faults++ == 0)
        firstFault = what;
}

void Outcome::add(const Outcome &other)
{
    tries += other.tries;
    if (faults == 0)
        firstFault = other.firstFault;
    faults += other.faults;
    if (!other.remark.empty())
        remark = other.remark;
    if (!other.cannotRunHere.empty())
        cannotRunHere = other.cannotRunHere;
}

Outcome killedWriters(const std::string &folder, int rounds)
{
    Outcome outcome;
    const std::string file = folder + "/killed.cbor";
    long answers = 0;
    int last = 0;
    std::mt19937 random(1);
    for (int round = 0; round < rounds; ++round) {
        std::array<int, 2> ends = {};
        if (pipe(ends.data()) != 0)
            break;
        const pid_t child = inChild([&] {
            Fresh store(file);
            for (int value = last + 1;; ++value) {
                Collection collection(store);
                const bool together =
                    collection.put("a", value) && collection.put("b", value) && collection.flush();
                if (!together || ::write(ends[1], &value, sizeof value) != sizeof value)
                    std::_Exit(1);
            }
        });
        close(ends[1]);
        int answered = last;
        std::ignore = ::read(ends[0], &answered, sizeof answered);
        std::this_thread::sleep_for(std::chrono::microseconds(random() % 20000));
        kill(child, SIGKILL);
        for (int next = 0; ::read(ends[0], &next, sizeof next) == sizeof next;)
            answered = next;
        close(ends[0]);
        outcome.check(WIFSIGNALED(waitFor(child)), "a writer ended by itself");
        Fresh store(file);
        answers += answered - last;
        last = store.number("a");
        outcome.check(last == answered || last == answered + 1, "what was answered with true is there");
        outcome.check(store.number("b") == last, "a collection is there as a whole");
    }
    outcome.check(Fresh(file).put("a", last), "the next write");
    outcome.remark = std::to_string(answers) + " answered writes";
    return outcome;
}

Outcome stoppedWriters(const std::string &folder, int rounds)
{
    Outcome outcome;
    const std::string file = folder + "/stopped.cbor";
    Fresh store(file);
    outcome.check(store.put("a", 1), "the first write");
    store.setPatience(20ms);
    long refused = 0;
    double longest = 0;
    std::mt19937 random(2);
    const Silence silence;
    for (int round = 0; round < rounds; ++round) {
        const pid_t child = inChild([&] {
            Fresh own(file);
            for (int value = 1;; ++value)
                own.put("a", value);
        });
        std::this_thread::sleep_for(std::chrono::microseconds(2000 + random() % 8000));
        kill(child, SIGSTOP);
        int status = 0;
        waitpid(child, &status, WUNTRACED);
        for (int reads = 0; reads < 20; ++reads) {
            const auto start = Clock::now();
            outcome.check((reads % 2 == 0 ? store.number("a") : Fresh(file).number("a")) > 0,
                          "a value while a writer is stopped");
            longest = std::max(longest, microsecondsSince(start));
        }
        const bool written = store.put("b", round);
        outcome.check(written || errno == EBUSY, "a refused write says that the store is busy");
        outcome.check((store.number("b") == round) == written, "what a write answered");
        refused += written ? 0 : 1;
        kill(child, SIGKILL);
        waitFor(child);
        outcome.check(store.put("b", -1), "a write after the stopped process is gone");
    }
    outcome.remark = std::to_string(refused) + " writes refused; longest read "
        + std::to_string(static_cast<long>(longest)) + " us";
    return outcome;
}

Outcome failingDisk(const std::string &folder)
{
    Outcome outcome;
    long remainder = 0;
    const std::string file = folder + "/failing/settings.cbor";
    const Silence silence;
    enum Kind { Single, First, Collected, Kinds };
    for (int kind = Single; kind < Kinds; ++kind) {
        for (const int error : {ENOSPC, EDQUOT, EIO, EINTR}) {
            for (const bool forGood : {false, true}) {
                if (error == EINTR && forGood)
                    continue; // nothing is interrupted for ever
                for (int call = 1;; ++call) {
                    fs::remove_all(folder + "/failing");
                    const int old = kind == First ? -1 : 1;
                    if (kind != First)
                        outcome.check(Fresh(file).put("a", old), "a write to a good disk");
                    Fresh store(file);
                    FailingDisk::failAt(call, error, forGood);
                    Collection collection(store);
                    const bool written = kind == Collected
                        ? collection.put("a", 2) && collection.put("b", 2) && collection.flush()
                        : store.put("a", 2);
                    const int reason = errno;
                    const int calls = FailingDisk::repair();
                    collection.discard();
                    const int now = Fresh(file).number("a");
                    const bool isPerhaps = !written && now == 2 && FailingDisk::failedFunction() == "fsync";
                    remainder += isPerhaps ? 1 : 0;
                    outcome.check(now == (written ? 2 : old) || isPerhaps, "what the write answered");
                    outcome.check(written || reason == (error == EDQUOT ? ENOSPC : error),
                                  "call " + std::to_string(call) + " of " + std::to_string(calls)
                                      + " failed with " + std::strerror(error) + ", and the reason is "
                                      + std::strerror(reason));
                    outcome.check(store.number("a") == now, "this process sees what others see");
                    outcome.check(store.put("a", 3) && Fresh(file).number("a") == 3,
                                  "use when the disk works again");
                    if (calls < call)
                        break; // nothing was left to fail
                }
            }
        }
    }
    outcome.remark = std::to_string(remainder) + " answered false and left in place, as documented";
    return outcome;
}

Outcome damagedFiles(const std::string &folder, int files)
{
    Outcome outcome;
    const Silence silence;
    constexpr int values = 60;
    const std::string file = folder + "/damaged.cbor";
    const auto keyOf = [](int value) { return "key" + std::to_string(value); };
    {
        Fresh store(file);
        for (int value = 0; value < values; ++value)
            outcome.check(store.put(keyOf(value).c_str(), QString(200, QLatin1Char('a'))), "a write");
    }
    const std::string good = bytesOf(file);
    long refused = 0;
    std::mt19937 random(3);
    Fresh old(file); // has read the good file before, and sees each damage come and go
    for (int round = 0; round < files; ++round) {
        const std::string bytes = mutated(good, random);
        std::ofstream(file, std::ios::binary) << bytes;
        Fresh fresh(file);
        int found = 0;
        for (int value = 0; value < values; ++value) {
            const QString text = fresh.text(keyOf(value).c_str());
            found += text.isEmpty() ? 0 : 1;
            outcome.check(text == old.text(keyOf(value).c_str()), "two processes see the same");
        }
        errno = 0;
        const bool written = fresh.put("key0", QStringLiteral("new"));
        outcome.check(written == (bytes == good), "all damage is noticed");
        if (!written) {
            ++refused;
            outcome.check(errno == EUCLEAN || errno == EMEDIUMTYPE, "the reason says damage");
            outcome.check(found == 0, "nothing is read of what is damaged");
            outcome.check(bytesOf(file) == bytes, "a damaged file is left alone");
        }
    }
    std::ofstream(file, std::ios::binary) << good;
    outcome.check(old.text("key7").size() == 200 && old.put("key0", QStringLiteral("new")),
                  "a repaired file is used again");
    outcome.remark = std::to_string(refused) + " of " + std::to_string(files) + " files refused";
    return outcome;
}

Outcome flippedBits(const std::string &folder, int step)
{
    Outcome outcome;
    const Silence silence;
    const std::string path = folder + "/flipped.cbor";
    Fresh old(path); // has read the good file, and may go on with that
    outcome.check(old.put("a", 1) && old.put("b", QStringLiteral("5551234")), "a write");
    const std::string good = bytesOf(path);
    const int file = ::open(path.c_str(), O_WRONLY | O_CLOEXEC);
    const auto set = [file](std::size_t byte, char content) {
        std::ignore = ::pwrite(file, &content, 1, static_cast<off_t>(byte));
    };
    for (std::size_t bit = 0; bit < good.size() * 8; bit += static_cast<std::size_t>(step)) {
        set(bit / 8, static_cast<char>(good[bit / 8] ^ 1 << bit % 8));
        Fresh fresh(path);
        outcome.check(fresh.number("a") == -1 && fresh.text("b").isEmpty(),
                      "nothing is read of a flipped bit");
        const int number = old.number("a");
        outcome.check(number == 1 || number == -1, "a value that was never stored");
        errno = 0;
        outcome.check(!fresh.put("a", 2) && (errno == EUCLEAN || errno == EMEDIUMTYPE),
                      "nothing is written over it");
        set(bit / 8, good[bit / 8]);
    }
    close(file);
    outcome.check(bytesOf(path) == good && Fresh(path).number("a") == 1, "the file is what it was");
    outcome.remark = std::to_string(good.size()) + " bytes";
    return outcome;
}

Outcome oddFiles(const std::string &folder)
{
    Outcome outcome;
    const Silence silence;
    const std::string path = folder + "/odd";
    const std::array<std::function<void()>, 6> makers = {
        [&] { mkfifo(path.c_str(), 0600); },
        [&] { fs::create_directory(path); },
        [&] { fs::create_symlink(folder + "/nowhere", path); },
        [&] { fs::create_symlink(path, path); },
        [&] { std::ofstream(path) << "[Setup]\nreminder=0\n"; },
        [&] { fs::create_symlink("/dev/zero", path); },
    };
    for (const auto &make : makers) {
        make();
        Fresh store(path);
        outcome.check(store.number("a") == -1, "nothing is read of what is no settings file");
        outcome.check(!store.put("a", 1), "nothing is written to what is no settings file");
        fs::remove_all(path);
        outcome.check(store.put("a", 1) && store.number("a") == 1, "use when it is out of the way");
        fs::remove_all(path);
    }
    return outcome;
}

Crowd crowd(int writers, int readers, double seconds, const std::function<bool()> &read,
            const std::function<bool(int)> &write)
{
    Crowd crowd;
    const auto count = static_cast<std::size_t>(writers + readers);
    void *const shared =
        mmap(nullptr, count * sizeof(Member), PROT_READ | PROT_WRITE, MAP_SHARED | MAP_ANONYMOUS, -1, 0);
    auto *const members = static_cast<Member *>(shared);
    std::vector<pid_t> children;
    const auto end =
        Clock::now() + std::chrono::duration_cast<Clock::duration>(std::chrono::duration<double>(seconds));
    for (std::size_t place = 0; place < count; ++place) {
        children.push_back(inChild([&] {
            if (static_cast<int>(place) < writers)
                members[place].write(end, write);
            else
                members[place].read(end, read);
        }));
    }
    for (const pid_t child : children)
        crowd.outcome.check(waitFor(child) == 0, "a process died");
    Member all = {};
    for (std::size_t place = 0; place < count; ++place) {
        all.reads.add(members[place].reads);
        all.asleep.add(members[place].asleep);
        all.spinning.add(members[place].spinning);
        all.writes.add(members[place].writes);
        all.defaults += members[place].defaults;
        all.refused += members[place].refused;
    }
    munmap(shared, count * sizeof(Member));
    crowd.reads = all.reads.row();
    crowd.asleep = all.asleep.row();
    crowd.spinning = all.spinning.row();
    crowd.writes = all.writes.row();
    crowd.outcome.tries += crowd.reads.answers + crowd.writes.answers;
    crowd.outcome.faults += all.defaults + all.refused;
    if (all.defaults + all.refused > 0)
        crowd.outcome.firstFault = all.defaults > 0 ? "a read gave the default" : "a write was refused";
    return crowd;
}

Outcome soak(const std::string &folder, double seconds)
{
    Outcome outcome;
    const Silence silence;
    const std::string file = folder + "/soak/settings.cbor";
    Fresh store(file);
    outcome.check(store.put("a", 1) && store.put("mine", 0), "the first writes");
    const long filesAtFirst = openFiles();
    const auto end =
        Clock::now() + std::chrono::duration_cast<Clock::duration>(std::chrono::duration<double>(seconds));
    std::mt19937 random(4);
    std::atomic<bool> done = false;
    std::atomic<long> defaults = 0;
    // A thread that reads all the time, with forks and writes beside it.
    std::thread reader([&] {
        while (!done)
            defaults += store.number("a") > 0 ? 0 : 1;
    });
    for (int round = 1; Clock::now() < end; ++round) {
        std::vector<pid_t> children;
        for (int child = 0; child < 4; ++child) {
            children.push_back(inChild([&, child] {
                // As it was inherited, in the middle of everything.
                for (int turn = 1;; turn = turn % 1000 + 1) {
                    if (child % 2 == 0 ? store.number("a") <= 0 : !store.put("a", turn) && errno != EBUSY)
                        std::_Exit(1);
                    if (child == 1 && turn % 7 == 0) {
                        Collection collection(store);
                        collection.put("b", turn);
                        collection.discard();
                    }
                }
            }));
        }
        std::this_thread::sleep_for(std::chrono::milliseconds(5 + random() % 30));
        kill(children[1], SIGKILL);
        kill(children[3], SIGSTOP);
        std::this_thread::sleep_for(std::chrono::milliseconds(random() % 10));
        kill(children[3], SIGKILL);
        Collection collection(store);
        outcome.check(collection.put("mine", round) && collection.flush(), "a write");
        outcome.check(Fresh(file).number("mine") == round, "what a write answered");
        kill(children[0], SIGKILL);
        kill(children[2], SIGKILL);
        for (const pid_t child : children)
            outcome.check(WIFSIGNALED(waitFor(child)), "a child saw a default or a failed write");
    }
    done = true;
    reader.join();
    outcome.check(defaults == 0, "a thread saw a default");
    outcome.check(openFiles() == filesAtFirst, "a descriptor is left open");
    long left = 0;
    for ([[maybe_unused]] const auto &entry : fs::directory_iterator(folder + "/soak"))
        ++left;
    outcome.check(left <= 3, "files are left behind");
    outcome.remark = "the file has " + std::to_string(fs::file_size(file)) + " bytes";
    return outcome;
}

} // namespace Torture
