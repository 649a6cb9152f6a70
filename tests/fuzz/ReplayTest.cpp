#include "tests/support/TemporaryFolder.h"
#include "tests/transcript/ChildProcess.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <fstream>
#include <sstream>

namespace {

using testing::HasSubstr;

class Replay : public testing::Test {
protected:
    [[nodiscard]] ChildProcess::Outcome run(const std::vector<std::string>& paths) const
    {
        std::vector<std::string> command{CORVEL_FRAGILE_REPLAY};
        command.insert(command.end(), paths.begin(), paths.end());
        return ChildProcess(command, m_folder.path().native()).wait();
    }

    [[nodiscard]] std::string keptInput() const
    {
        std::ostringstream bytes;
        bytes << std::ifstream(m_folder.path() / "fragile_replay-failure").rdbuf();
        return bytes.str();
    }

    [[nodiscard]] const TemporaryFolder& folder() const { return m_folder; }

private:
    TemporaryFolder m_folder;
};

} // namespace

TEST_F(Replay, RunsFilesAsTheyAre)
{
    const auto outcome = run({folder().write("one", "a"), folder().write("empty", "")});
    EXPECT_EQ(outcome.status, 0) << outcome.error;
    EXPECT_EQ(outcome.output, "fragile_replay: 2 inputs\n");
}

TEST_F(Replay, KeepsTheInputThatEndsTheTarget)
{
    folder().write("seeds/a", "sound");
    folder().write("seeds/b", "not sound!");
    const auto outcome = run({folder().file("seeds")});
    EXPECT_EQ(outcome.status, 1);
    EXPECT_THAT(outcome.error, HasSubstr("signal 6 at input 2, which is kept in "));
    EXPECT_EQ(keptInput(), "not sound!");
    EXPECT_EQ(run({folder().file("fragile_replay-failure")}).status, 1);
}

TEST_F(Replay, FindsWhatOnlyAMutationBrings)
{
    // 0x61 is one bit away from 0x21, the exclamation mark.
    folder().write("seeds/a", "aaaaaaaa");
    const auto outcome = run({folder().file("seeds")});
    EXPECT_EQ(outcome.status, 1);
    EXPECT_THAT(keptInput(), testing::AnyOf(HasSubstr("!"), HasSubstr("?")));
}

TEST_F(Replay, TakesAnExceptionForAFailure)
{
    const auto outcome = run({folder().write("one", "why?")});
    EXPECT_EQ(outcome.status, 1);
    EXPECT_THAT(outcome.error, HasSubstr("a question"));
    EXPECT_EQ(keptInput(), "why?");
}

TEST_F(Replay, SaysHowItIsUsed)
{
    const auto outcome = run({});
    EXPECT_EQ(outcome.status, 2);
    EXPECT_THAT(outcome.error, HasSubstr("usage: fragile_replay FOLDER-OR-FILE..."));
}
