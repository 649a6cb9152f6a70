#include "tests/search/IndexFixture.h"

#include <filesystem>

namespace {

class CompactionTest : public IndexFixture { };

TEST_F(CompactionTest, NumbersDocumentsFromOneWithoutGaps)
{
    for (const auto* name : {"/a", "/b", "/c", "/d", "/e"})
        ASSERT_TRUE(add(name, std::string("word ") + (name + 1)));
    for (const auto* name : {"/a", "/c"})
        ASSERT_TRUE(m_index->removeDocument(document(name)));
    ASSERT_TRUE(m_index->flush());
    EXPECT_EQ(m_index->maximumDocumentID(), 5);
    ASSERT_TRUE(m_index->compact());
    EXPECT_EQ(m_index->maximumDocumentID(), 3);
    EXPECT_EQ(m_index->documentID(document("/b")), 1);
    EXPECT_EQ(m_index->documentID(document("/d")), 2);
    EXPECT_EQ(m_index->documentID(document("/e")), 3);
    EXPECT_EQ(found("word"), (Paths{"/b", "/d", "/e"}));
    EXPECT_EQ(m_index->copyDocumentText(document("/d")), "word d");
    expectSound();
    ASSERT_TRUE(add("/f", "word"));
    EXPECT_EQ(m_index->documentID(document("/f")), 4);
}

TEST_F(CompactionTest, KeepsTheTree)
{
    ASSERT_TRUE(add("/gone", "x"));
    ASSERT_TRUE(add("/dir/mail.eml", "letter"));
    ASSERT_TRUE(m_index->addDocumentWithText(child("/dir/mail.eml", "part"), "inner", SKReplace::Yes));
    ASSERT_TRUE(m_index->removeDocument(document("/gone")));
    ASSERT_TRUE(m_index->compact());
    EXPECT_EQ(found("inner"), (Paths{"/dir/mail.eml/part"}));
    ASSERT_TRUE(m_index->removeDocument(document("/dir")));
    EXPECT_EQ(m_index->documentCount(), 0);
    expectSound();
}

TEST_F(CompactionTest, ShrinksTheFile)
{
    for (int number = 0; number < 200; ++number) {
        std::string text;
        for (int word = 0; word < 500; ++word)
            text += "w" + std::to_string(number * 7919 + word * 31) + " ";
        ASSERT_TRUE(add("/" + std::to_string(number), text));
    }
    ASSERT_TRUE(m_index->flush());
    for (int number = 1; number < 200; ++number)
        ASSERT_TRUE(m_index->removeDocument(document("/" + std::to_string(number))));
    ASSERT_TRUE(m_index->flush());
    m_index.reset();
    const auto before = std::filesystem::file_size(indexPath());
    m_index = open(SKIndexAccess::Write);
    ASSERT_TRUE(m_index->compact());
    m_index.reset();
    EXPECT_LT(std::filesystem::file_size(indexPath()), before / 10);
}

TEST_F(CompactionTest, FlushesWhatWasNotFlushed)
{
    ASSERT_TRUE(add("/a", "word"));
    ASSERT_TRUE(m_index->compact());
    reopen();
    EXPECT_EQ(found("word"), (Paths{"/a"}));
}

TEST_F(CompactionTest, LeavesAnEmptyIndexEmpty)
{
    ASSERT_TRUE(add("/a", "word"));
    ASSERT_TRUE(m_index->removeDocument(document("/a")));
    ASSERT_TRUE(m_index->compact());
    EXPECT_EQ(m_index->maximumDocumentID(), 0);
    expectSound();
}

TEST_F(CompactionTest, DoesNotDisturbAReader)
{
    ASSERT_TRUE(add("/a", "word"));
    ASSERT_TRUE(add("/b", "word"));
    ASSERT_TRUE(m_index->flush());
    const auto reader = open(SKIndexAccess::Read);
    ASSERT_TRUE(m_index->removeDocument(document("/a")));
    ASSERT_TRUE(m_index->compact());
    EXPECT_EQ(found(*reader, "word"), (Paths{"/b"}));
}

} // namespace
