#include "service/DocumentRemoval.h"

#include "tests/service/RequestTest.h"

#include <gmock/gmock.h>

namespace {

using testing::ElementsAre;

class DocumentRemovalTest : public RequestTest {
protected:
    void remove(const std::vector<std::string>& names)
    {
        std::vector<std::string> strings;
        for (const auto& name : names)
            strings.push_back(folder.url(name).absoluteString());
        removeStrings(strings);
    }

    void removeStrings(const std::vector<std::string>& strings)
    {
        Corvel_Indexing service(environment);
        service.removeFileURLs({strings.begin(), strings.end()}, indexURL, replyBlock());
    }
};

} // namespace

TEST_F(DocumentRemovalTest, RemovesInOrderAndRepliesAfterClosing)
{
    remove({"b", "a"});
    EXPECT_THAT(record->events, ElementsAre("open", "remove b", "remove a", "flush", "close", "reply"));
    EXPECT_THAT(replies, ElementsAre(ReplyDictionary()));
}

TEST_F(DocumentRemovalTest, ReportsAnIndexThatCannotBeOpened)
{
    record->opens = false;
    remove({"a"});
    EXPECT_THAT(record->events, ElementsAre("refuse to open", "reply"));
    EXPECT_EQ(errorCode(), 10001);
    EXPECT_TRUE(errorUserInfo().empty());
    EXPECT_EQ(replies.front().size(), 1U);
}

TEST_F(DocumentRemovalTest, SkipsWhatIsNoURLWithoutAWord)
{
    removeStrings({"", "not a url", "relative", "file:///%zz", folder.url("a").absoluteString()});
    EXPECT_THAT(record->events, ElementsAre("open", "remove a", "flush", "close", "reply"));
    EXPECT_EQ(errorCode(), 0);
    EXPECT_TRUE(log.empty());
}

TEST_F(DocumentRemovalTest, SucceedsForWhatTheIndexDoesNotHold)
{
    record->removes = [] { return false; };
    remove({"a"});
    EXPECT_EQ(errorCode(), 0);
}

TEST_F(DocumentRemovalTest, FlushesAndAppliesTheCompactionRuleForAnEmptyList)
{
    record->documentCount = 10;
    record->maximumDocumentID = 21;
    remove({});
    EXPECT_THAT(record->events, ElementsAre("open", "flush", "compact", "close", "reply"));
}

TEST_F(DocumentRemovalTest, CompactsWhenTheHighestIdentifierIsMoreThanTwiceTheCount)
{
    struct Case {
        std::int64_t count;
        SKDocumentID maximum;
        std::size_t compactions;
    };

    for (const auto& [count, maximum, compactions] :
         {Case{0, 100, 0}, Case{10, 20, 0}, Case{10, 21, 1}, Case{1, 2, 0}, Case{1, 3, 1}}) {
        record->events.clear();
        record->documentCount = count;
        record->maximumDocumentID = maximum;
        remove({});
        EXPECT_EQ(record->eventsStartingWith("compact").size(), compactions) << count << " " << maximum;
    }
}

TEST_F(DocumentRemovalTest, SucceedsWhenCompactionFails)
{
    record->documentCount = 1;
    record->maximumDocumentID = 9;
    record->compacts = false;
    remove({"a"});
    EXPECT_EQ(errorCode(), 0);
}

TEST_F(DocumentRemovalTest, DoesNotClaimARemovalThatWasNotWritten)
{
    record->flushes = false;
    EXPECT_THROW(remove({"a"}), SKIndexException);
    EXPECT_TRUE(replies.empty());
    EXPECT_EQ(record->events.back(), "close");
}

TEST_F(DocumentRemovalTest, CountsTheDocumentsAfterTheFlush)
{
    struct Case {
        std::int64_t count;
        SKDocumentID maximum;
        std::size_t compactions;
    };

    for (const auto& [count, maximum, compactions] :
         {Case{10, 21, 1}, Case{9, 20, 1}, Case{0, 20, 0}, Case{10, 20, 0}}) {
        record->events.clear();
        record->documentCount = 10;
        record->maximumDocumentID = 20;
        record->whenFlushed = [this, countNow = count, maximumNow = maximum] {
            record->documentCount = countNow;
            record->maximumDocumentID = maximumNow;
        };
        remove({"a"});
        EXPECT_EQ(record->eventsStartingWith("compact").size(), compactions) << count << " " << maximum;
    }
}
