#include "platform/search/FTS5Tokenizer.h"
#include "tests/search/IndexFixture.h"

#include <sqlite3.h>

#include <fstream>
#include <random>

namespace {

class IndexCheckTest : public IndexFixture {
protected:
    void SetUp() override
    {
        IndexFixture::SetUp();
        for (int number = 0; number < 50; ++number)
            ASSERT_TRUE(
                add("/dir/" + std::to_string(number), "some words for number " + std::to_string(number)));
        ASSERT_TRUE(m_index->flush());
        m_index.reset();
    }

    void spoil(const char* sql) const
    {
        sqlite3* database = nullptr;
        ASSERT_EQ(sqlite3_open(indexPath().c_str(), &database), SQLITE_OK);
        ASSERT_EQ(registerFTS5Tokenizer(database), SQLITE_OK);
        EXPECT_EQ(sqlite3_exec(database, sql, nullptr, nullptr, nullptr), SQLITE_OK)
            << sqlite3_errmsg(database);
        EXPECT_EQ(sqlite3_close(database), SQLITE_OK);
    }

    [[nodiscard]] std::string findings() const
    {
        std::string all;
        const auto index = open(SKIndexAccess::Read);
        for (const auto& finding : index->check())
            all += finding + "\n";
        return all;
    }
};

TEST_F(IndexCheckTest, FindsNothingInASoundIndex)
{
    EXPECT_EQ(findings(), "");
}

struct Damage {
    const char* what;
    const char* sql;
    const char* finding;
};

class KindsOfDamage : public IndexCheckTest, public testing::WithParamInterface<Damage> { };

TEST_P(KindsOfDamage, AreFound)
{
    spoil(GetParam().sql);
    EXPECT_NE(findings().find(GetParam().finding), std::string::npos) << findings();
}

INSTANTIATE_TEST_SUITE_P(
    Tree, KindsOfDamage,
    testing::Values(
        Damage{"Orphan", "UPDATE node SET parent = 999 WHERE document = 7", "has no parent"},
        Damage{"Circle", "UPDATE node SET parent = id WHERE name = 'dir'", "cannot be reached from the root"},
        Damage{"EmptyContainer", "INSERT INTO node(parent, name) VALUES(0, 'x')", "holds nothing"},
        Damage{"NoSuchDocument", "DELETE FROM document WHERE id = 7", "names a document that is not there"},
        Damage{"WrongPlace", "UPDATE document SET node = 1 WHERE id = 7", "document 7 is not where it says"},
        Damage{"Sequence", "UPDATE sqlite_sequence SET seq = 3", "beyond the highest identifier"},
        Damage{"Text", "UPDATE document SET text = x'01ffff' WHERE id = 7",
               "the text of document 7 is damaged"},
        Damage{"ForgottenTerms", "DELETE FROM fulltext_docsize WHERE id = 7",
               "document 7 is missing from the full-text"},
        Damage{"OtherText", "UPDATE document SET text = x'00' || CAST('other' AS BLOB) WHERE id = 7",
               "does not agree with the texts"}),
    [](const auto& damage) { return std::string(damage.param.what); });

// Whatever page is spoilt: a question is answered rightly, or refused; never a crash, never a silent "nothing
// found".
TEST_F(IndexCheckTest, NeverAnswersADamagedIndexWithSilence)
{
    std::ostringstream original;
    original << std::ifstream(indexPath(), std::ios::binary).rdbuf();
    std::mt19937 random(11);
    for (int round = 0; round < 200; ++round) {
        auto bytes = original.str();
        for (int count = 0; count < 40; ++count)
            bytes[100 + random() % (bytes.size() - 100)] = static_cast<char>(random());
        std::ofstream(indexPath(), std::ios::binary | std::ios::trunc) << bytes;
        const auto index = SKIndex::openWithURL(indexURL(), SKIndexAccess::Write);
        if (!index)
            continue;
        std::vector<SKSearchHit> hits;
        const bool answered = index->search("some words", {}, hits);
        EXPECT_TRUE(!answered || !hits.empty() || !index->check().empty()) << "round " << round;
        try {
            if (index->addDocumentWithText(document("/new"), "text", SKReplace::Yes))
                (void)index->flush();
        } catch (const SKIndexException&) {
            continue;
        }
    }
}

} // namespace
