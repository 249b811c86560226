// What a phone does for itself: its product, its language, the state that its programs share, and what they tell.
#include "Broadcaster.h"
#include "Language.h"
#include "OwnMounts.h"
#include "Product.h"
#include "SharedState.h"

#include <QTemporaryDir>

#include <gtest/gtest.h>

#include <array>
#include <cstdlib>
#include <fstream>
#include <functional>
#include <string>

#include <sys/stat.h>
#include <sys/wait.h>
#include <systemd/sd-bus.h>
#include <unistd.h>

namespace {

/** Whether the process has more rights than its user's, as the C library would tell it. */
bool privileged = false;

} // namespace

/** Stands in for the C library's. */
extern "C" char *secure_getenv(const char *name) noexcept
{
    return privileged ? nullptr : std::getenv(name);
}

namespace {

constexpr unsigned short secondLine = 2007;
constexpr unsigned short hearingAidBit = 408;
constexpr unsigned short operatorNames = 2037;

class HandsetTest : public testing::Test {
protected:
    std::string path(const char *name) const
    {
        return m_folder.filePath(QString::fromLatin1(name)).toStdString();
    }

    std::string write(const char *name, const std::string &contents) const
    {
        std::ofstream(path(name)) << contents;
        return path(name);
    }

    /** Runs it in a process of its own, for what a process does once. True when it answers true. */
    static bool apart(const std::function<bool()> &body)
    {
        const pid_t child = fork();
        if (child == 0)
            _exit(body() ? 0 : 1);
        int status = -1;
        return waitpid(child, &status, 0) == child && status == 0;
    }

    /** The same with this user's shared state below the test's folder. */
    bool apartWithState(const std::function<bool(Handset::SharedState &)> &body) const
    {
        return apart([&] {
            setenv("XDG_RUNTIME_DIR", path("").c_str(), 1);
            return body(Handset::sharedState());
        });
    }

private:
    QTemporaryDir m_folder;
};

/** What a process with the state leaves for the next one. */
bool leave(Handset::SharedState &state)
{
    state.phoneLine = 1;
    return true;
}

bool find(Handset::SharedState &state)
{
    return state.phoneLine == 1;
}

} // namespace

TEST_F(HandsetTest, ReadsTheProductsFile)
{
    const QUuid method = QUuid::fromString(QStringLiteral("{6f9619ff-8b86-d011-b42d-00cf4fc964ff}"));
    Handset::Product product;
    EXPECT_FALSE(product.hasFeature(secondLine));
    EXPECT_TRUE(product.hasFeature(9999));
    EXPECT_TRUE(product.read(write("product.conf",
                                   "# a product\n[features]\n 2007=yes # two lines\n160 = no\r\n"
                                   "[flex-bits]\n408 = yes\n[feature-database]\n2037 = no\n"
                                   "[input-methods]\n{6F9619FF-8B86-D011-B42D-00CF4FC964FF} = yes\n"
                                   "[telephony]\nmodem = /ril_0 # the first")));
    EXPECT_TRUE(product.hasFeature(secondLine));
    EXPECT_FALSE(product.hasFeature(160));
    EXPECT_EQ(product.flexBit(hearingAidBit), true);
    EXPECT_EQ(product.flexBit(407), std::nullopt);
    EXPECT_FALSE(product.hasDatabaseFeature(operatorNames));
    EXPECT_TRUE(product.hasInputMethod(method));
    EXPECT_FALSE(product.hasInputMethod(QUuid()));
    EXPECT_EQ(product.modem, "/ril_0");
}

TEST_F(HandsetTest, ReportsWhatTheProductsFileCannotMean)
{
    Handset::Product product;
    testing::internal::CaptureStderr();
    EXPECT_TRUE(
        product.read(write("product.conf",
                           "2007 = yes\n[features]\n2007\n70000 = yes\n2007 = maybe\n160x = no\n"
                           "[colours]\n1 = yes\n[input-methods]\nkeys = yes\n"
                           "modem = /ril_1\n[telephony]\nmodem = ril_1\nmodem =\nmodem = /ril_1/\n")));
    EXPECT_FALSE(product.read(path("missing.conf")));
    const std::string told = testing::internal::GetCapturedStderr();
    for (const char *const line :
         {"line 1:", "line 3:", "line 4:", "line 5:", "line 6:", "line 8:", "line 10:", "line 11:",
          "line 13:", "line 14:", "line 15:", "missing.conf"})
        EXPECT_NE(told.find(line), std::string::npos) << line << '\n' << told;
    EXPECT_FALSE(product.hasFeature(secondLine));
    EXPECT_TRUE(product.hasFeature(160));
    EXPECT_EQ(product.modem, "");
}

TEST_F(HandsetTest, ReadsNoProductsFileButARegularOne)
{
    ASSERT_EQ(mkfifo(path("pipe").c_str(), 0600), 0); // nobody will ever write to it
    ASSERT_EQ(mkdir(path("folder").c_str(), 0700), 0);
    for (const std::string &name : {path("pipe"), path("folder"), std::string("/dev/null")}) {
        Handset::Product product;
        testing::internal::CaptureStderr();
        EXPECT_FALSE(product.read(name)) << name;
        EXPECT_EQ(testing::internal::GetCapturedStderr(), "product: " + name + ": not a regular file\n");
    }
    ASSERT_EQ(symlink(write("real.conf", "[features]\n2007 = yes\n").c_str(), path("link.conf").c_str()), 0);
    Handset::Product product;
    EXPECT_TRUE(product.read(path("link.conf"))); // a vendor's file, say
    EXPECT_TRUE(product.hasFeature(secondLine));
}

/** Else a user could steer a program that may more than the user. */
TEST_F(HandsetTest, LeavesTheEnvironmentAloneInAPrivilegedProgram)
{
    setenv("KVQ_PRODUCT", write("product.conf", "[features]\n2007 = yes\n").c_str(), 1);
    Handset::Product product;
    for (const bool isPrivileged : {true, false}) {
        privileged = isPrivileged;
        EXPECT_EQ(product.readNamed(), !isPrivileged);
        EXPECT_TRUE(apartWithState(leave));
        EXPECT_EQ(access(path("kvq/phone-state").c_str(), F_OK) == 0, !isPrivileged);
    }
    unsetenv("KVQ_PRODUCT");
}

/** The file that is shipped says what holds without it. */
TEST_F(HandsetTest, ShipsAProductsFileThatChangesNothing)
{
    Handset::Product shipped;
    testing::internal::CaptureStderr();
    ASSERT_TRUE(shipped.read(KVQ_PRODUCT_FILE));
    EXPECT_EQ(testing::internal::GetCapturedStderr(), "");
    const Handset::Product without;
    for (unsigned int id = 0; id <= 0xFFFF; ++id) {
        const auto number = static_cast<unsigned short>(id);
        ASSERT_EQ(shipped.hasFeature(number), without.hasFeature(number)) << id;
        ASSERT_EQ(shipped.hasDatabaseFeature(number), without.hasDatabaseFeature(number)) << id;
        ASSERT_EQ(shipped.flexBit(number), without.flexBit(number)) << id;
    }
}

TEST_F(HandsetTest, KnowsLanguagesByTheirLocale)
{
    struct Case {
        const char *locale;
        int id;
    };
    for (const Case &one : {Case{"de_AT.UTF-8", 1},
                            {"de", 1},
                            {"den", 0},
                            {"zh_CN.UTF-8", 20},
                            {"zh_TW@x", 22},
                            {"zh_TWO", 20},
                            {"zh_HK.Big5", 22},
                            {"ko_KR", 21},
                            {"C", 0},
                            {"", 0},
                            {"_", 0},
                            {"nn_NO", 9}})
        EXPECT_EQ(Handset::languageOf(one.locale), one.id) << one.locale;
    setenv("LANG", "de_DE.UTF-8", 1);
    setenv("LC_MESSAGES", "zh_CN.UTF-8", 1);
    unsetenv("LC_ALL");
    EXPECT_EQ(Handset::systemLanguage(), 20);
    setenv("LC_ALL", "fr_FR", 1);
    EXPECT_EQ(Handset::systemLanguage(), 2);
}

TEST_F(HandsetTest, SharesTheStateBetweenTheUsersPrograms)
{
    EXPECT_TRUE(apartWithState([](Handset::SharedState &state) {
        return state.chargeTypePlusOne == 0 && state.phoneLine == 0 && leave(state);
    }));
    EXPECT_TRUE(apartWithState(find));
    struct stat status = {};
    ASSERT_EQ(stat(path("kvq/phone-state").c_str(), &status), 0);
    EXPECT_EQ(status.st_mode & 0777, 0600U);
    // One choice for the next call, many programs that dial at once: one of them gets it.
    EXPECT_TRUE(apartWithState([](Handset::SharedState &state) {
        state.restrictNextCall = 1;
        state.activeAccount = 0;
        std::array<pid_t, 16> dialers = {};
        for (pid_t &dialer : dialers) {
            dialer = fork();
            if (dialer == 0)
                _exit(state.restrictNextCall.exchange(0) != 0 ? 1 : 0);
        }
        int taken = 0;
        for (const pid_t dialer : dialers) {
            int ended = 0;
            waitpid(dialer, &ended, 0);
            taken += WEXITSTATUS(ended);
        }
        return taken == 1;
    }));
}

TEST_F(HandsetTest, LeavesAStateFileAloneThatIsNotItsOwn)
{
    mkdir(path("kvq").c_str(), 0700);
    const std::string file = path("kvq/phone-state");
    const std::string right(sizeof(Handset::SharedState), '\0');
    const auto keepsItsOwn = [this] { return apartWithState(leave) && !apartWithState(find); };
    const auto make = [&](const std::string &contents, mode_t mode) {
        unlink(file.c_str());
        std::ofstream(file) << contents;
        chmod(file.c_str(), mode);
    };
    make(right, 0644);
    EXPECT_TRUE(keepsItsOwn()) << "others may read it";
    make(right.substr(1), 0600);
    EXPECT_TRUE(keepsItsOwn()) << "too short";
    make("another layout" + right.substr(14), 0600);
    EXPECT_TRUE(keepsItsOwn()) << "another layout";
    unlink(file.c_str());
    EXPECT_EQ(symlink(write("elsewhere", right).c_str(), file.c_str()), 0);
    EXPECT_TRUE(keepsItsOwn()) << "a link";
    unlink(file.c_str());
    EXPECT_EQ(mkdir(file.c_str(), 0700), 0);
    EXPECT_TRUE(keepsItsOwn()) << "a folder";
    EXPECT_EQ(rmdir(file.c_str()), 0);
    EXPECT_FALSE(keepsItsOwn()) << "what it makes itself is shared";
}

TEST_F(HandsetTest, LeavesAFolderOfTheStateAloneThatIsNotItsOwn)
{
    const std::string folder = path("kvq");
    const auto keepsItsOwn = [this] { return apartWithState(leave) && !apartWithState(find); };
    mkdir(folder.c_str(), 0700);
    for (const mode_t others : {0710U, 0701U, 0720U}) {
        chmod(folder.c_str(), others);
        EXPECT_TRUE(keepsItsOwn()) << others;
    }
    rmdir(folder.c_str());
    mkdir(path("elsewhere").c_str(), 0700);
    EXPECT_EQ(symlink(path("elsewhere").c_str(), folder.c_str()), 0);
    EXPECT_TRUE(keepsItsOwn()) << "a link";
    EXPECT_EQ(rmdir(path("elsewhere").c_str()), 0) << "nothing was made behind the link";
    unlink(folder.c_str());
    write("kvq", "");
    EXPECT_TRUE(keepsItsOwn()) << "a file";
    unlink(folder.c_str());
    EXPECT_FALSE(keepsItsOwn()) << "what it makes itself is shared";
}

/** A page of the file that has no space would kill the process that writes to it. */
TEST_F(HandsetTest, KeepsItsOwnStateWhereTheFolderIsFull)
{
    constexpr int notAllowed = 77;
    for (const bool fileIsThere : {false, true}) {
        const pid_t child = fork();
        if (child == 0) {
            const std::string folder = path("");
            if (!mountTinyDisk(folder))
                _exit(notAllowed);
            mkdir((folder + "kvq").c_str(), 0700);
            if (fileIsThere) { // with its size, and without space
                const std::string file = folder + "kvq/phone-state";
                std::ofstream(file).close();
                chmod(file.c_str(), 0600);
                if (truncate(file.c_str(), sizeof(Handset::SharedState)) != 0)
                    _exit(2);
            }
            fillDisk(folder);
            setenv("XDG_RUNTIME_DIR", folder.c_str(), 1);
            Handset::sharedState().restrictNextCall = 1;
            _exit(Handset::sharedState().restrictNextCall == 1 ? 0 : 1);
        }
        int status = -1;
        ASSERT_EQ(waitpid(child, &status, 0), child);
        if (WIFEXITED(status) && WEXITSTATUS(status) == notAllowed)
            GTEST_SKIP() << "mounts of its own are not allowed";
        EXPECT_EQ(status, 0) << fileIsThere;
    }
    EXPECT_TRUE(apartWithState(leave) && apartWithState(find)) << "with space it is shared";
}

TEST_F(HandsetTest, TellsOtherProgramsOnTheSessionBus)
{
    sd_bus *listener = nullptr;
    ASSERT_GE(sd_bus_open_user(&listener), 0);
    std::string heard;
    const auto hear = [](sd_bus_message *message, void *heardText, sd_bus_error *) {
        const char *channel = nullptr;
        const char *text = nullptr;
        std::uint32_t type = 0;
        if (sd_bus_message_read(message, "ss", &channel, &text) > 0)
            *static_cast<std::string *>(heardText) += std::string(channel) + '=' + text + ' ';
        else if (sd_bus_message_read(message, "u", &type) > 0)
            *static_cast<std::string *>(heardText) += std::to_string(type);
        return 0;
    };
    ASSERT_GE(sd_bus_match_signal(listener, nullptr, nullptr, "/org/kvq/Phone", "org.kvq.Phone1", nullptr,
                                  hear, &heard),
              0);
    EXPECT_TRUE(Handset::broadcast("/KVQ/PHONE/SIM", "PIN OK"));
    EXPECT_TRUE(Handset::sendPhoneMessage(66));
    EXPECT_FALSE(Handset::broadcast("not \xFF text", ""));
    for (int round = 0; round < 100 && heard != "/KVQ/PHONE/SIM=PIN OK 66"; ++round) {
        sd_bus_process(listener, nullptr);
        sd_bus_wait(listener, 50000);
    }
    EXPECT_EQ(heard, "/KVQ/PHONE/SIM=PIN OK 66");
    EXPECT_TRUE(apart([] { return Handset::broadcast("child", "too"); }));
    sd_bus_flush_close_unref(listener);
    EXPECT_TRUE(apart([] {
        setenv("DBUS_SESSION_BUS_ADDRESS", "unix:path=/nonexistent", 1);
        return !Handset::broadcast("nobody", "there") && !Handset::sendPhoneMessage(66);
    }));
}
