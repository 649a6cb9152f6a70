#include "tests/search/IndexFixture.h"

namespace {

class IndexSearchTest : public IndexFixture {
protected:
    [[nodiscard]] std::vector<SKSearchHit> search(std::string_view query,
                                                  const SKSearchOptions& options = {}) const
    {
        std::vector<SKSearchHit> hits;
        NSError error;
        EXPECT_TRUE(m_index->search(query, options, hits, &error)) << error.localizedDescription();
        return hits;
    }
};

TEST_F(IndexSearchTest, UnderstandsItsLanguage)
{
    ASSERT_TRUE(add("/1", "the quick brown fox"));
    ASSERT_TRUE(add("/2", "brown bread and quick tea"));
    ASSERT_TRUE(add("/3", "a fox in the snow"));
    EXPECT_EQ(found("brown quick"), (Paths{"/1", "/2"}));
    EXPECT_EQ(found("\"quick brown\""), (Paths{"/1"}));
    EXPECT_EQ(found("bro*"), (Paths{"/1", "/2"}));
    EXPECT_EQ(found("snow OR tea"), (Paths{"/2", "/3"}));
    EXPECT_EQ(found("fox NOT brown"), (Paths{"/3"}));
    EXPECT_EQ(found("(snow OR tea) fox"), (Paths{"/3"}));
    EXPECT_EQ(found("absent"), Paths());
}

TEST_F(IndexSearchTest, TakesNoTextForSyntax)
{
    ASSERT_TRUE(add("/1", "it's a-b user@host.org C++ name:value 50% foo_bar"));
    ASSERT_TRUE(add("/2", "its ab user host c name value"));
    for (const auto* query : {"it's", "it’s", "a-b", "user@host", "C++", "name:value", "50%", "foo_bar",
                              "text:", "^a", "a*b", "\"it's", "a NEAR b", "{text}: user"})
        EXPECT_NO_FATAL_FAILURE((void)found(query)) << query;
    EXPECT_EQ(found("it's"), (Paths{"/1"}));
    EXPECT_EQ(found("it’s"), (Paths{"/1"}));
    EXPECT_EQ(found("a-b"), (Paths{"/1"}));
    EXPECT_EQ(found("user@host"), (Paths{"/1", "/2"}));
    EXPECT_EQ(found("C++"), (Paths{"/1"}));
}

TEST_F(IndexSearchTest, FindsAnyPieceOfUnspacedText)
{
    ASSERT_TRUE(add("/1", "吾輩は猫である。名前はまだ無いABC株式会社"));
    ASSERT_TRUE(add("/2", "猫輩"));
    EXPECT_EQ(found("輩は"), (Paths{"/1"}));
    EXPECT_EQ(found("はまだ無"), (Paths{"/1"}));
    EXPECT_EQ(found("猫"), (Paths{"/1", "/2"}));
    EXPECT_EQ(found("abc"), (Paths{"/1"}));
    EXPECT_EQ(found("㍿"), (Paths{"/1"}));
    EXPECT_EQ(found("まだ*"), (Paths{"/1"}));
}

TEST_F(IndexSearchTest, FindsThaiWordsAlsoByTheirBeginning)
{
    ASSERT_TRUE(add("/1", "มาตรฐานรหัสสำหรับอักขระไทย"));
    EXPECT_EQ(found("รหัส"), (Paths{"/1"}));
    EXPECT_EQ(found("\"รหัสสำหรับอั\""), (Paths{"/1"}));
    EXPECT_EQ(found("สำหรับอักขระ"), (Paths{"/1"}));
    EXPECT_EQ(found("ภาษา"), Paths());
}

TEST_F(IndexSearchTest, FindsWordsOfTheName)
{
    ASSERT_TRUE(add("/pictures/IMG2024RomeTrip.jpg", ""));
    for (const auto* query :
         {"rome", "trip", "2024", "img2024rometrip", "\"rome trip\"", "IMG2024RomeTrip.jpg"})
        EXPECT_EQ(found(query), (Paths{"/pictures/IMG2024RomeTrip.jpg"})) << query;
    EXPECT_EQ(found("pictures"), Paths());
}

TEST_F(IndexSearchTest, FindsWordsOfNameAndTextTogether)
{
    ASSERT_TRUE(add("/Budget.txt", "apples and pears"));
    EXPECT_EQ(found("budget pears"), (Paths{"/Budget.txt"}));
}

TEST_F(IndexSearchTest, RanksTheBetterHitFirst)
{
    ASSERT_TRUE(
        add("/long", "cat " + std::string(5000, 'x') + " and many other words that are not about it"));
    ASSERT_TRUE(add("/cat", "about my pet, the cat"));
    ASSERT_TRUE(add("/none", "dog"));
    const auto hits = search("cat");
    ASSERT_EQ(hits.size(), 2U);
    EXPECT_EQ(hits[0].url.path(), "/cat");
    EXPECT_GT(hits[0].score, hits[1].score);
}

TEST_F(IndexSearchTest, GivesPages)
{
    for (int number = 0; number < 10; ++number)
        ASSERT_TRUE(add("/" + std::to_string(number), "word"));
    SKSearchOptions options;
    options.limit = 4;
    EXPECT_EQ(search("word", options).size(), 4U);
    options.offset = 8;
    EXPECT_EQ(search("word", options).size(), 2U);
    options.offset = 20;
    EXPECT_EQ(search("word", options).size(), 0U);
    options = {};
    options.limit = 0;
    EXPECT_EQ(search("word", options).size(), 0U);
}

TEST_F(IndexSearchTest, MarksTheMatchesInTheSnippet)
{
    ASSERT_TRUE(add("/a", "before the café comes after"));
    SKSearchOptions options;
    options.matchStart = "<b>";
    options.matchEnd = "</b>";
    EXPECT_EQ(search("CAFE", options).at(0).snippet, "before the <b>café</b> comes after");
    options.snippets = false;
    EXPECT_EQ(search("CAFE", options).at(0).snippet, "");
}

TEST_F(IndexSearchTest, MarksSignsThatBelongToAWord)
{
    ASSERT_TRUE(add("/a", "I write C++ daily #rain"));
    EXPECT_EQ(search("c++").at(0).snippet, "I write [C++] daily #rain");
    EXPECT_EQ(search("#rain").at(0).snippet, "I write C++ daily [#rain]");
}

TEST_F(IndexSearchTest, ShowsSpacesWhereFilesAndBoxesStand)
{
    ASSERT_TRUE(add("/a", "\uFFFCbread and\uFFFCbutter\uFFFC"));
    EXPECT_EQ(search("bread").at(0).snippet, " [bread] and butter ");
}

TEST_F(IndexSearchTest, NamesTheItemOfAnAttachment)
{
    ASSERT_TRUE(add("/dir/mail.eml", "letter"));
    ASSERT_TRUE(m_index->addDocumentWithText(child("/dir/mail.eml", "a.txt"), "attached", SKReplace::Yes));
    EXPECT_EQ(search("attached").at(0).parent->path(), "/dir/mail.eml");
    EXPECT_EQ(search("letter").at(0).parent, std::nullopt);
}

TEST_F(IndexSearchTest, ExplainsAQueryItCannotAnswer)
{
    std::vector<SKSearchHit> hits;
    NSError error;
    EXPECT_FALSE(m_index->search("NOT x", {}, hits, &error));
    EXPECT_EQ(error.localizedDescription(), "NOT needs something before it to exclude from");
}

} // namespace
