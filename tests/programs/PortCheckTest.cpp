// kvq-port-check: what it finds in a library that is whole, in a skeleton, and in one that lacks something.
#include "Program.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>

#include <gmock/gmock.h>

namespace {

using Program::Output;
using testing::ContainsRegex;
using testing::HasSubstr;
using testing::Not;

class PortCheckTest : public testing::Test {
protected:
    Output check(const QStringList &arguments)
    {
        QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
        environment.insert(QStringLiteral("XDG_DATA_HOME"), m_directory.path());
        return Program::run(QStringLiteral(KVQ_PORT_CHECK), arguments, {}, environment);
    }

    /** A library of one source, built as it stands. */
    QString library(const QString &name, const QByteArray &source, const QStringList &options = {})
    {
        const QString path = m_directory.filePath(name);
        QFile file(path + QStringLiteral(".cpp"));
        EXPECT_TRUE(file.open(QIODevice::WriteOnly));
        file.write(source);
        file.close();
        QStringList arguments = Program::words(KVQ_CXX_FLAGS);
        arguments << QStringLiteral("-std=c++20") << QStringLiteral("-shared") << QStringLiteral("-fPIC")
                  << QStringLiteral("-I" KVQ_PLATFORM_HEADERS)
                  << QStringLiteral("-Wl,-soname,libkvqplatform.so.1") << file.fileName()
                  << QStringLiteral("-o") << path << options;
        const Output built = Program::run(QStringLiteral(KVQ_CXX_COMPILER), arguments);
        EXPECT_EQ(built.status, 0) << built.errors;
        return path;
    }

    QTemporaryDir m_directory;
};

using PortCheckOnTheSimulatedPhoneTest = PortCheckTest;

TEST_F(PortCheckOnTheSimulatedPhoneTest, ThePlatformLibraryOfThisBuildPasses)
{
    const Output output =
        check({QStringLiteral("--write"), QStringLiteral("--calls"), QStringLiteral(KVQ_PLATFORM)});
    EXPECT_EQ(output.status, 0) << output.text;
    EXPECT_THAT(output.text, Not(HasSubstr("missing")));
    EXPECT_THAT(output.text, ContainsRegex("preferences +the next process sees what is stored +pass"));
    EXPECT_THAT(output.text, ContainsRegex("calls +a dialled call is in the table until it ends +pass"));
    EXPECT_THAT(output.text, HasSubstr(" 0 failed"));
    // Read-only is the default, and nothing is written then.
    QDir(m_directory.path()).removeRecursively();
    QDir().mkpath(m_directory.path());
    const Output reading = check({QStringLiteral(KVQ_PLATFORM)});
    EXPECT_EQ(reading.status, 0) << reading.text;
    EXPECT_THAT(reading.text, Not(HasSubstr("preferences")));
    EXPECT_THAT(reading.text, Not(HasSubstr("dialled call")));
    EXPECT_FALSE(QFileInfo::exists(m_directory.filePath(QStringLiteral("kvq-phone/settings.cbor"))));
}

TEST_F(PortCheckTest, WhatALibraryLacksIsNamedAndWhatItBreaksIsFound)
{
    // The IMEI is written past its end and an object past its room, the socket changes, and the versions crash.
    const QString lacking = library(QStringLiteral("lacking.so"), R"(
#include "LogModule.h"
#include "TAPI_ACCE.h"
#include "TAPI_CLIENT.h"
#include "SETUP_Utility.h"
#include <cstdlib>
#include <cstring>
std::FILE *libaplog_to_module_ptr = nullptr;
_TAPI_RESULT_E TAPI_CLIENT_Init(_TAPI_CLIENT_SERVICE_S *, int) { return TAPI_RESULT_SUCC; }
int TAPI_CLIENT_GetSyncSocketFd() { static int descriptor = 3; return descriptor++; }
_TAPI_RESULT_E TAPI_ACCE_GetImei(TAPI_IMEI_A imei) { std::memset(imei, '7', 24); return TAPI_RESULT_SUCC; }
_TAPI_RESULT_E TAPI_ACCE_GetBpVersion(TAPI_BP_VER_A) { std::abort(); }
_TAPI_RESULT_E TAPI_ACCE_SetSpeakerVolume(int) { return TAPI_RESULT_SUCC; }
SETUP_Utility::SETUP_Utility() { std::memset(static_cast<void *>(this), 1, sizeof *this + 1); }
SETUP_Utility::~SETUP_Utility() {}
bool SETUP_Utility::getFlexBit(unsigned short, bool &) { return false; }
)");
    const Output output = check({lacking});
    EXPECT_EQ(output.status, 1);
    EXPECT_THAT(output.text, HasSubstr("missing: TAPI_CS_GetLine  (TAPI_CS.h)\n"));
    EXPECT_THAT(output.text,
                HasSubstr("missing: SETUP_Utility::isFeatureAvailable(unsigned short)  (SETUP_Utility.h)\n"));
    EXPECT_THAT(output.text, HasSubstr("\n9 of "));
    EXPECT_THAT(output.text, Not(HasSubstr("missing: TAPI_ACCE_SetSpeakerVolume")));
    EXPECT_THAT(output.text, Not(HasSubstr("getFlexBit")));
    EXPECT_THAT(output.text, HasSubstr("TAPI_ACCE_GetImei keeps within its record"));
    EXPECT_THAT(output.text, ContainsRegex("GetImei keeps[^\n]+FAIL: writes outside of 17 bytes"));
    EXPECT_THAT(output.text, ContainsRegex("SETUP_Utility keeps[^\n]+FAIL: writes outside of [0-9]+ bytes"));
    EXPECT_THAT(output.text, ContainsRegex("socket stays the same +FAIL: the second question gives another"));
    EXPECT_THAT(output.text, ContainsRegex("GetBpVersion keeps[^\n]+FAIL: ended by a signal: Aborted"));
    EXPECT_THAT(output.text, ContainsRegex("GetImsi keeps[^\n]+not supported"));
    // The engine answers only false here; its log tells why.
    EXPECT_THAT(output.text, ContainsRegex("the service tone +not supported"));
}

TEST_F(PortCheckTest, TheSkeletonCompilesAndSupportsNothing)
{
    const QString folder = m_directory.filePath(QStringLiteral("port"));
    ASSERT_EQ(check({QStringLiteral("--skeleton"), folder}).status, 0);
    EXPECT_EQ(check({QStringLiteral("--skeleton"), folder}).errors,
              "error: " + folder.toStdString() + " is not empty\n");

    const QString build = m_directory.filePath(QStringLiteral("build"));
    for (const QStringList &step :
         {QStringList{QStringLiteral("-S"), folder, QStringLiteral("-B"), build,
                      QStringLiteral("-DCMAKE_CXX_COMPILER=" KVQ_CXX_COMPILER),
                      QStringLiteral("-DCMAKE_CXX_FLAGS=" KVQ_CXX_FLAGS),
                      QStringLiteral("-DKVQ_QT_MAJOR=" KVQ_QT_MAJOR),
                      QStringLiteral("-DCMAKE_UNITY_BUILD=ON")},
          QStringList{QStringLiteral("--build"), build, QStringLiteral("--parallel"), QStringLiteral("2")}}) {
        const Output made = Program::run(QStringLiteral("cmake"), step);
        ASSERT_EQ(made.status, 0) << made.text << made.errors;
    }
    const Output output = check({build + QStringLiteral("/libkvqplatform.so.1")});
    EXPECT_EQ(output.status, 0) << output.text;
    EXPECT_THAT(output.text, Not(HasSubstr("missing")));
    EXPECT_THAT(output.text, ContainsRegex("calls +the call table makes sense +not supported"));
    // A preference that is not stored is a fault of the port, not a service that it lacks.
    EXPECT_THAT(check({QStringLiteral("--write"), build + QStringLiteral("/libkvqplatform.so.1")}).text,
                ContainsRegex("preferences +the call reminder +FAIL: is not stored"));
}

TEST_F(PortCheckTest, MistakesAreNamed)
{
    const struct {
        const char *line;
        const char *error;
    } rows[] = {
        {"", "expected one library"},
        {"one two", "expected one library"},
        {"/no/such/library.so", "there is no file /no/such/library.so"},
        {"--number 5551234 library", "--number needs --calls"},
        {"--nothing", "Unknown option 'nothing'"},
    };
    for (const auto &row : rows) {
        SCOPED_TRACE(row.line);
        const Output output = check(Program::words(row.line));
        EXPECT_EQ(output.status, 2);
        EXPECT_THAT(output.errors, HasSubstr(row.error));
    }
    const Output other = check({QStringLiteral(KVQ_TOUR)});
    EXPECT_EQ(other.status, 1);
    EXPECT_THAT(other.text, HasSubstr("FAIL: the library cannot be loaded"));
    // A library that brings the other generation of the toolkit, which a stand-in plays here.
    const QString toolkit = QString::fromLatin1(*KVQ_QT_MAJOR == '6' ? "libQt5Core.so.5" : "libQt6Core.so.6");
    library(toolkit, {}, {QStringLiteral("-Wl,-soname,") + toolkit});
    const Output mixed = check({library(
        QStringLiteral("mixed.so"), {},
        {QStringLiteral("-Wl,--no-as-needed,-rpath,") + m_directory.path(), m_directory.filePath(toolkit)})});
    EXPECT_EQ(mixed.status, 1);
    EXPECT_THAT(mixed.text, HasSubstr("FAIL: it brings " + toolkit.toStdString()));
    const Output empty = check({library(QStringLiteral("empty.so"), {})});
    EXPECT_EQ(empty.status, 1);
    EXPECT_THAT(empty.text, HasSubstr("missing: libaplog_to_module_ptr  (LogModule.h)\n"));
    EXPECT_THAT(empty.text, HasSubstr("\n0 of "));
    EXPECT_THAT(empty.text,
                ContainsRegex("\nand in the library itself, see above: [0-9]+ missing, 0 failed\n$"));
    EXPECT_THAT(empty.text, HasSubstr(" 0 failed, "));
}

} // namespace
