#include "tests/support/TemporaryFolder.h"
#include "tests/transcript/ChildProcess.h"
#include "tests/word/GeneratedWordText.h"
#include "tests/word/WriteWord.h"

#include <fmt/format.h>

// What is written is read here by an independent program that puts nothing right.

namespace {

class WordStandards : public testing::Test {
protected:
    void SetUp() override
    {
        if (ChildProcess({"/usr/bin/env", "python3", "-c", "import zipfile"}, m_folder.path()).wait().status
            != 0)
            GTEST_SKIP() << "no python3";
    }

    void add(std::string_view document)
    {
        m_documents.push_back(m_folder.write(fmt::format("{:03}.docx", m_documents.size()), document));
    }

    /// What the checker has to say of the documents added.
    [[nodiscard]] ChildProcess::Outcome checked() const
    {
        std::vector<std::string> command{"/usr/bin/env", "python3",
                                         CORVEL_SOURCE_DIR "/tests/tools/check_docx.py"};
        command.insert(command.end(), m_documents.begin(), m_documents.end());
        return ChildProcess(command, m_folder.path()).wait();
    }

    const TemporaryFolder m_folder;
    std::vector<std::string> m_documents;
};

} // namespace

TEST_F(WordStandards, AreKeptByWhateverIsWritten)
{
    for (unsigned seed = 0; seed < 100; ++seed)
        add(wordBytes(generatedWordText(seed)));
    const auto outcome = checked();
    EXPECT_EQ(outcome.status, 0) << outcome.error;
}

TEST_F(WordStandards, AreKeptWithoutTextAndByPropertiesOfDocuments)
{
    NSAny::Dictionary attributes;
    attributes.emplace(NSTitleDocumentAttribute, u"title <&>");
    attributes.emplace(NSCompanyDocumentAttribute, u"company");
    attributes.emplace(NSCreationTimeDocumentAttribute, NSDate{0});
    add(wordBytes(NSAttributedString(), attributes));
    add(wordBytes(NSAttributedString()));
    const auto outcome = checked();
    EXPECT_EQ(outcome.status, 0) << outcome.error;
}

TEST_F(WordStandards, AreLookedAt)
{
    add("no package");
    const auto outcome = checked();
    EXPECT_EQ(outcome.status, 1);
    EXPECT_NE(outcome.error.find("000.docx"), std::string::npos);
}
