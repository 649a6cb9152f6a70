#include "platform/foundation/NSLog.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

namespace {

TEST(NSLog, WritesOneLineWhateverItIsGiven)
{
    std::vector<std::string> lines;
    {
        const NSLogCapture capture([&lines](std::string_view line) { lines.emplace_back(line); });
        NSLog("Couldn't index attachment {}", "evil\nname\x1B[31m");
        NSLog("plain é");
    }
    EXPECT_EQ(lines,
              (std::vector<std::string>{"Couldn't index attachment evil\\x0aname\\x1b[31m", "plain é"}));
}

TEST(NSLog, GoesToStandardErrorWithoutACapture)
{
    testing::internal::CaptureStderr();
    NSLog("to {}", "stderr");
    EXPECT_EQ(testing::internal::GetCapturedStderr(), "to stderr\n");
}

} // namespace
