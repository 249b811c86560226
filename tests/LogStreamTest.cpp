// The stream that the environment chooses for the log: what is opened, and what is refused.
#include "../handset/LogStream.h"

#include <QTemporaryDir>

#include <gtest/gtest.h>

#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <sstream>
#include <string>

#include <sys/stat.h>
#include <sys/sysmacros.h>
#include <unistd.h>

namespace {

namespace fs = std::filesystem;

class LogStreamTest : public testing::Test {
protected:
    ~LogStreamTest() override { unsetenv("KVQ_LOG"); }

    std::string path(const char *name) const { return m_directory.path().toStdString() + '/' + name; }

    /** Writes one line to the stream that the environment then chooses. */
    struct Outcome {
        bool opened = false;
        bool discards = false;
        std::string complaint;
    };
    Outcome logOneLine(const std::string &destination)
    {
        setenv("KVQ_LOG", destination.c_str(), 1);
        Outcome outcome;
        testing::internal::CaptureStderr();
        if (std::FILE *const stream = openLogStream()) {
            outcome.opened = true;
            struct stat status = {};
            fstat(fileno(stream), &status);
            outcome.discards = S_ISCHR(status.st_mode) && status.st_rdev == makedev(1, 3);
            std::fputs("a line\n", stream);
            if (stream != stderr)
                std::fclose(stream);
        }
        outcome.complaint = testing::internal::GetCapturedStderr();
        return outcome;
    }

    static std::string text(const std::string &file)
    {
        std::ostringstream text;
        text << std::ifstream(file).rdbuf();
        return text.str();
    }

    static void write(const std::string &file, fs::perms permissions)
    {
        std::ofstream(file) << "before\n";
        fs::permissions(file, permissions);
    }

private:
    QTemporaryDir m_directory;
};

TEST_F(LogStreamTest, AFileIsMadeForTheUserAloneAndAppendedTo)
{
    const mode_t mask = umask(0);
    EXPECT_EQ(logOneLine(path("log")).complaint, "");
    umask(mask);
    EXPECT_EQ(fs::status(path("log")).permissions(), fs::perms::owner_read | fs::perms::owner_write);
    EXPECT_EQ(logOneLine(path("log")).complaint, "");
    EXPECT_EQ(text(path("log")), "a line\na line\n");
}

TEST_F(LogStreamTest, WordsStandForStreams)
{
    EXPECT_FALSE(logOneLine("").opened);
    EXPECT_EQ(logOneLine("stderr").complaint, "a line\n");
    const Outcome off = logOneLine("off");
    EXPECT_TRUE(off.discards);
    EXPECT_EQ(off.complaint, "");
}

TEST_F(LogStreamTest, WhatOthersCouldReadIsRefusedAndTheLogIsOff)
{
    const auto own = fs::perms::owner_read | fs::perms::owner_write;
    write(path("private"), own);
    write(path("readable"), own | fs::perms::group_read);
    write(path("writable"), own | fs::perms::others_write);
    write(path("twice"), own);
    fs::create_hard_link(path("twice"), path("second-name"));
    fs::create_symlink(path("private"), path("link"));
    fs::create_symlink(path("missing"), path("dangling"));
    mkfifo(path("pipe").c_str(), S_IRUSR | S_IWUSR);
    const struct {
        std::string destination;
        const char *reason;
    } cases[] = {
        {path("readable"), "others may read or write it"},
        {path("writable"), "others may read or write it"},
        {path("second-name"), "it has a second name"},
        {path("link"), "it is a link"},
        {path("dangling"), "it is a link"},
        {path("pipe"), "No such device or address"},
        {path("."), "Is a directory"},
        {path("nowhere/log"), "No such file or directory"},
        {"/dev/zero", "not a regular file"},
    };
    for (const auto &refused : cases) {
        const Outcome outcome = logOneLine(refused.destination);
        EXPECT_TRUE(outcome.discards) << refused.destination;
        EXPECT_EQ(outcome.complaint,
                  "log: \"" + refused.destination + "\" is not used: " + refused.reason
                      + "; the log is off\n");
    }
    for (const char *const file : {"private", "readable", "writable", "twice"})
        EXPECT_EQ(text(path(file)), "before\n") << file;
    EXPECT_FALSE(fs::exists(path("missing")));
}

TEST_F(LogStreamTest, AFileOfAnotherUserIsRefused)
{
    if (geteuid() != 0)
        GTEST_SKIP() << "only root can give a file away";
    write(path("foreign"), fs::perms::owner_read | fs::perms::owner_write);
    ASSERT_EQ(chown(path("foreign").c_str(), 65534, 65534), 0);
    EXPECT_EQ(logOneLine(path("foreign")).complaint,
              "log: \"" + path("foreign") + "\" is not used: it belongs to another user; the log is off\n");
    EXPECT_EQ(text(path("foreign")), "before\n");
}

} // namespace
