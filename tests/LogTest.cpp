// The log routine: its two line shapes to the byte, its level gate and its stream.
namespace {

constexpr char unitPath[] = "utility/PHONE_ENG_NtInterface";

} // namespace

#include "../utility/Log.h"

#include <gtest/gtest.h>

#include <cstdlib>
#include <string>

namespace {

class LogTest : public testing::Test {
protected:
    LogTest() { libaplog_to_module_ptr = open_memstream(&m_text, &m_size); }
    ~LogTest() override
    {
        std::fclose(libaplog_to_module_ptr);
        libaplog_to_module_ptr = nullptr;
        std::free(m_text);
    }

    std::string text()
    {
        std::fflush(libaplog_to_module_ptr);
        return {m_text, m_size};
    }

private:
    char *m_text = nullptr;
    std::size_t m_size = 0;
};

// The name of the function stands in the line.
void getBand()
{
#line 415
    LOG_MESSAGE(R"(Ret = %d\n)", 0);
    LOG_TRACE();
}
#line 47

TEST_F(LogTest, LinesHaveTwoShapes)
{
    getBand();
    EXPECT_EQ(text(),
              "\nutility/PHONE_ENG_NtInterface, getBand, 415: \"Ret = 0\\n\"\n"
              "utility/PHONE_ENG_NtInterface,getBand,416 \n");
}

TEST_F(LogTest, LevelsAboveSevenAreDropped)
{
    for (const int level : {8, 7, 3, 0, -1, 2147483647, -2147483647})
        PHONE_ENG_Log(level, "%d ", level);
    EXPECT_EQ(text(), "7 3 0 -1 -2147483647 ");
}

TEST_F(LogTest, WithoutALogModuleLinesGoToStandardOutput)
{
    std::FILE *const stream = std::exchange(libaplog_to_module_ptr, nullptr);
    testing::internal::CaptureStdout();
    PHONE_ENG_Log(3, "to %s", "everyone");
    EXPECT_EQ(testing::internal::GetCapturedStdout(), "to everyone");
    libaplog_to_module_ptr = stream;
}

} // namespace
