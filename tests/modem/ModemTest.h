// A modem without a port: a line in, the answer out, with the time in the test's hand.
#pragma once

#include "Modem.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <string>
#include <utility>

namespace AtModem {

/** A line and what comes back for it, the lines of the answer joined by a stroke. */
struct Exchange {
    const char *line;
    const char *answer;
};

class ModemTest : public testing::Test {
protected:
    ModemTest()
    {
        ask("ATE0+CMEE=1");
        ask("AT+CFUN=1");
        pass(1000);
        takeOutput();
    }

    std::string ask(const std::string &line)
    {
        session->receive(line + '\r');
        return takeOutput();
    }

    /** What was told since the last answer. */
    std::string takeOutput()
    {
        std::string lines;
        const std::string output = std::exchange(m_output, {});
        for (std::size_t begin = 0; begin < output.size();) {
            const std::size_t end = std::min(output.find("\r\n", begin), output.size());
            if (end > begin)
                lines += (lines.empty() ? "" : "|") + output.substr(begin, end - begin);
            begin = end + 2;
        }
        return lines;
    }

    void pass(int milliseconds)
    {
        modem.agenda().advanceTo(modem.agenda().now() + std::chrono::milliseconds(milliseconds));
    }

    template <typename Exchanges>
    void expect(const Exchanges &exchanges)
    {
        for (const auto &[line, answer] : exchanges)
            EXPECT_EQ(ask(line), answer) << line;
    }

    Modem modem;

private:
    std::string m_output;

protected:
    std::shared_ptr<Session> session = modem.connect([this](std::string_view bytes) { m_output += bytes; });
};

} // namespace AtModem
