#include "platform/word/NSAttributedStringWord.h"

#include "platform/foundation/Unicode.h"
#include "tests/support/SampleIndex.h"
#include "tests/support/TemporaryFolder.h"
#include "tests/support/ZipBytes.h"

#include <gtest/gtest.h>

#include <cerrno>

using NSAttributedStringDocumentFormats::initWithURL;

namespace {

std::string wordDocument()
{
    return zipOf({{"word/document.xml",
                   "<w:document xmlns:w='w'><w:p><w:t>Text of a document</w:t></w:p></w:document>"}});
}

} // namespace

TEST(NSAttributedStringDocumentFormats, ReadsAWordDocumentUnderAnyName)
{
    const TemporaryFolder folder;
    folder.write("document.docx", wordDocument());
    folder.write("document", wordDocument());
    for (const auto* const name : {"document.docx", "document"}) {
        NSError error;
        const auto string = initWithURL(folder.url(name), &error);
        ASSERT_TRUE(string) << error.localizedDescription();
        EXPECT_EQ(string->string(), u"Text of a document\n");
    }
}

TEST(NSAttributedStringDocumentFormats, TellsFilesThatCannotBeReadFromDamagedOnes)
{
    const TemporaryFolder folder;
    NSError error;
    EXPECT_FALSE(initWithURL(folder.url("absent.docx"), &error));
    EXPECT_EQ(error.domain(), NSPOSIXErrorDomain);
    EXPECT_EQ(error.code(), ENOENT);

    EXPECT_FALSE(initWithURL(NSURL::fileURLWithPath(folder.path().native()), &error));
    EXPECT_EQ(error.domain(), NSPOSIXErrorDomain);
    EXPECT_EQ(error.code(), EISDIR);

    folder.write("cut.docx", wordDocument().substr(0, 50));
    EXPECT_FALSE(initWithURL(folder.url("cut.docx"), &error));
    EXPECT_EQ(error.domain(), NSCocoaErrorDomain);
    EXPECT_EQ(error.code(), static_cast<int>(NSCocoaError::FileReadCorruptFile));
    EXPECT_FALSE(initWithURL(folder.url("cut.docx")));
}

TEST(NSAttributedStringDocumentFormats, ReadsTheDocumentsOfOtherPrograms)
{
    const auto samples = samplesOf("docx");
    if (samples.empty())
        GTEST_SKIP() << "no samples in " << CORVEL_SAMPLES_DIR << "/docx";
    for (const auto& sample : samples) {
        const auto string = initWithURL(NSURL::fileURLWithPath(sample.path));
        if (sample.verdict == "must") {
            const SampleText text(string ? UTF8FromUTF16(string->string()) : "");
            EXPECT_EQ(missingTerms(text, sample.mustFind), std::vector<std::string>()) << sample.file;
        } else if (sample.verdict == "locked" || sample.verdict == "broken") {
            EXPECT_FALSE(string) << sample.file;
        }
    }
}
