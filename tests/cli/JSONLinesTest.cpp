#include "cli/JSONLines.h"

#include <gtest/gtest.h>

#include <vector>

namespace {

TEST(JSONLines, AnItemWithoutErrorHasNull)
{
    EXPECT_EQ(itemLine("/a \"b\"", std::nullopt), R"({"path":"/a \"b\"","error":null})");
}

TEST(JSONLines, AnItemsErrorHasDomainCodeAndMessage)
{
    EXPECT_EQ(
        itemLine("/a", NSError("CVLIndexingError", 10002)),
        R"({"path":"/a","error":{"domain":"CVLIndexingError","code":10002,"message":"the file cannot be reached"}})");
}

TEST(JSONLines, BytesThatAreNoUTF8AreReplaced)
{
    EXPECT_EQ(itemLine("/a\xFF", std::nullopt), "{\"path\":\"/a\xEF\xBF\xBD\",\"error\":null}");
}

TEST(JSONLines, AHitNamesTheItemThatItIsIn)
{
    const auto item = NSURL::fileURLWithPath("/mail.eml");
    const std::vector<SKSearchHit> hits{{item.URLByAppendingPathComponent("menü.txt"), 0.5, "a\nb", item},
                                        {item, 0.25, "", std::nullopt}};
    EXPECT_EQ(hitsLine(hits),
              "[{\"url\":\"file:///mail.eml/men%C3%BC.txt\",\"path\":\"/mail.eml/menü.txt\",\"score\":0.5,"
              "\"snippet\":\"a\\nb\",\"parent\":\"file:///mail.eml\"},"
              "{\"url\":\"file:///mail.eml\",\"path\":\"/"
              "mail.eml\",\"score\":0.25,\"snippet\":\"\",\"parent\":null}]");
    EXPECT_EQ(hitsLine({}), "[]");
}

TEST(JSONLines, TextWithoutTextHasNull)
{
    EXPECT_EQ(textLine("/a", "PDF", std::nullopt), R"({"path":"/a","rule":"PDF","text":null})");
    EXPECT_EQ(textLine("/a", "text", "b\n"), R"({"path":"/a","rule":"text","text":"b\n"})");
}

TEST(JSONLines, StatusIsOneObject)
{
    EXPECT_EQ(statusLine({3, 5, 4096, 1}), R"({"documents":3,"maximumIdentifier":5,"size":4096,"format":1})");
}

} // namespace

TEST(JSONLines, EscapeWhatReadersMayTakeForALineEnd)
{
    EXPECT_EQ(textLine("/a", "text", "1\u2028 2\u2029 3\u0085 4"),
              R"({"path":"/a","rule":"text","text":"1\u2028 2\u2029 3\u0085 4"})");
}
