#include "tests/transcript/Transcript.h"

#include <gmock/gmock.h>

using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;

namespace {

class MoveAndRemove : public Transcript {
protected:
    void SetUp() override
    {
        createIndex();
        startService();
        folder().write("a/x.txt", "harbour");
        folder().write("a/y.txt", "lighthouse");
        folder().write("b/x.txt", "breakwater");
        ASSERT_EQ(index({"a", "b"}).status, 0);
    }

    [[nodiscard]] ChildProcess::Outcome move(const std::string& from, const std::string& to) const
    {
        return corvel({"move", "--index", "notes.index", "--socket", "service.sock", from, to});
    }

    [[nodiscard]] ChildProcess::Outcome remove(const std::vector<std::string>& paths) const
    {
        std::vector<std::string> command{"remove", "--index", "notes.index", "--socket", "service.sock"};
        command.insert(command.end(), paths.begin(), paths.end());
        return corvel(command);
    }
};

TEST_F(MoveAndRemove, RenamesAndMoves)
{
    EXPECT_EQ(move("a/x.txt", "a/z.txt").status, 0);
    EXPECT_THAT(search("harbour"), ElementsAre("a/z.txt"));
    EXPECT_EQ(move("a/z.txt", "b/z.txt").status, 0);
    EXPECT_THAT(search("harbour"), ElementsAre("b/z.txt"));
    EXPECT_EQ(move("b/z.txt", "c/new/w.txt").status, 0);
    EXPECT_THAT(search("harbour"), ElementsAre("c/new/w.txt"));
}

TEST_F(MoveAndRemove, MovesPastDocumentsThatHaveTheNamesOnTheWay)
{
    EXPECT_EQ(move("a/x.txt", "b/y.txt").status, 0);
    EXPECT_THAT(search("harbour"), ElementsAre("b/y.txt"));
    EXPECT_THAT(search("lighthouse"), ElementsAre("a/y.txt"));
    EXPECT_THAT(search("breakwater"), ElementsAre("b/x.txt"));
}

TEST_F(MoveAndRemove, MovesAFolderWithAllBelowIt)
{
    EXPECT_EQ(move("a", "c").status, 0);
    EXPECT_THAT(search("harbour"), ElementsAre("c/x.txt"));
    EXPECT_THAT(search("lighthouse"), ElementsAre("c/y.txt"));
}

TEST_F(MoveAndRemove, FailsToMoveWhatTheIndexDoesNotHold)
{
    const auto outcome = move("a/missing.txt", "a/z.txt");
    EXPECT_EQ(outcome.status, 1);
    EXPECT_THAT(outcome.error, HasSubstr("missing.txt: the index does not hold it"));
}

TEST_F(MoveAndRemove, RemovesFilesAndFoldersThatMayBeGone)
{
    std::filesystem::remove(folder().file("a/x.txt"));
    EXPECT_EQ(remove({"a/x.txt", "never/there.txt"}).status, 0);
    EXPECT_THAT(search("harbour"), IsEmpty());
    EXPECT_THAT(search("lighthouse"), ElementsAre("a/y.txt"));
    EXPECT_EQ(remove({"a", "b/"}).status, 0);
    EXPECT_THAT(search("lighthouse"), IsEmpty());
    EXPECT_THAT(search("breakwater"), IsEmpty());
}

} // namespace
