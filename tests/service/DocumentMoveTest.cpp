#include "service/DocumentMove.h"

#include "tests/service/RequestTest.h"

#include <gmock/gmock.h>

namespace {

using testing::ElementsAre;

class DocumentMoveTest : public RequestTest {
protected:
    void move(const std::optional<NSURL>& from, const std::optional<NSURL>& to)
    {
        Corvel_Indexing service(environment);
        service.moveFileURL(from, to, indexURL, replyBlock());
    }

    void move(const std::string& from, const std::string& to) { move(folder.url(from), folder.url(to)); }
};

} // namespace

TEST_F(DocumentMoveTest, RenamesWithinAFolderAndRepliesBeforeClosing)
{
    move("a/b.txt", "a/c d.txt");
    EXPECT_THAT(record->events, ElementsAre("open", "rename a/b.txt to c d.txt", "flush", "reply", "close"));
    EXPECT_THAT(replies, ElementsAre(ReplyDictionary()));
}

TEST_F(DocumentMoveTest, MovesToAnotherFolderUnderTheOldName)
{
    move("a/b.txt", "x/y.txt");
    EXPECT_THAT(record->events, ElementsAre("open", "move a/b.txt under x", "flush", "reply", "close"));
    EXPECT_EQ(errorCode(), 0);
}

TEST_F(DocumentMoveTest, ReportsAnIndexThatCannotBeOpened)
{
    record->opens = false;
    move("a", "b");
    EXPECT_THAT(record->events, ElementsAre("refuse to open", "reply"));
    EXPECT_EQ(errorCode(), 10001);
}

TEST_F(DocumentMoveTest, ReportsARefusedRenameOrMoveWithoutAFlush)
{
    record->renames = false;
    record->moves = false;
    move("a", "b");
    EXPECT_THAT(record->events, ElementsAre("open", "rename a to b", "reply", "close"));
    EXPECT_EQ(errorCode(), 10004);
    EXPECT_TRUE(errorUserInfo().empty());
    record->events.clear();
    replies.clear();
    move("a", "x/a");
    EXPECT_THAT(record->events, ElementsAre("open", "move a under x", "reply", "close"));
    EXPECT_EQ(errorCode(), 10004);
}

TEST_F(DocumentMoveTest, ReportsURLsThatAreNoDocuments)
{
    const std::optional<NSURL> none;
    const std::optional<NSURL> file = folder.url("a");
    const auto relative = NSURL::URLWithString("relative");
    for (const auto& [from, to] : {std::pair(none, file), std::pair(file, none), std::pair(none, none),
                                   std::pair(relative, file), std::pair(file, relative)}) {
        record->events.clear();
        replies.clear();
        move(from, to);
        EXPECT_THAT(record->events, ElementsAre("open", "reply", "close"));
        EXPECT_EQ(errorCode(), 10004);
    }
}

TEST_F(DocumentMoveTest, ReportsAFlushThatFails)
{
    record->flushes = false;
    move("a", "b");
    EXPECT_EQ(errorCode(), 10004);
    EXPECT_EQ(record->events.back(), "close");
}
