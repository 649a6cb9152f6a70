#include "platform/media/PDFDocument.h"

#include "platform/foundation/FileDescriptor.h"
#include "platform/media/ContentReader.h"
#include "platform/media/PDFTextCache.h"
#include "platform/types/UTType.h"
#include "tests/support/PDFBytes.h"
#include "tests/support/SampleIndex.h"
#include "tests/support/TemporaryFolder.h"

#include <gmock/gmock.h>

#include <filesystem>
#include <sys/stat.h>
#include <thread>
#include <vector>

using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;

namespace {

std::string pageText(const PDFDocument& document, std::size_t index)
{
    const auto page = document.pageAtIndex(index);
    return page ? page->string() : "(no page)";
}

Content readPDFFile(const std::string& path, const ContentLimits& limits = {})
{
    const auto file = FileDescriptor::openForReading(path);
    ContentSource source;
    source.fileDescriptor = file.get();
    source.typeIdentifier = kUTTypePDF;
    return readContent(source, limits);
}

std::size_t firstPageLength(const NSURL& url)
{
    const auto document = PDFDocument::initWithURL(url);
    return document ? pageText(*document, 0).size() : 0;
}

std::string walkedText(const NSURL& url)
{
    std::string text;
    auto document = PDFDocument::initWithURL(url);
    for (std::size_t index = 0; document && index < document->pageCount(); ++index) {
        if (index > 0 && index % 10 == 0)
            document = PDFDocument::initWithURL(url);
        text += pageText(*document, index);
    }
    return text;
}

} // namespace

TEST(PDFDocument, GivesTextOfPages)
{
    const TemporaryFolder folder;
    (void)folder.write("two.pdf", pdfWithPages({"first page", "second page"}, "The Title"));
    const auto document = PDFDocument::initWithURL(folder.url("two.pdf"));
    ASSERT_TRUE(document);
    EXPECT_FALSE(document->isLocked());
    EXPECT_TRUE(document->unlockWithPassword(""));
    EXPECT_EQ(document->pageCount(), 2U);
    EXPECT_THAT(pageText(*document, 0), HasSubstr("first page"));
    EXPECT_THAT(pageText(*document, 1), HasSubstr("second page"));
    EXPECT_FALSE(document->pageAtIndex(2));
    EXPECT_EQ(document->documentAttribute("Title"), "The Title");
}

TEST(PDFDocument, PageOutlivesDocument)
{
    const auto bytes = pdfWithPages({"kept"});
    auto document = PDFDocument::initWithData(bytes);
    ASSERT_TRUE(document);
    const auto page = document->pageAtIndex(0);
    document.reset();
    EXPECT_THAT(page->string(), HasSubstr("kept"));
}

TEST(PDFDocument, IsNullForWhatIsNoPDF)
{
    const TemporaryFolder folder;
    (void)folder.write("text.pdf", "this is no PDF");
    (void)folder.write("empty.pdf", "");
    ASSERT_EQ(::mkfifo(folder.file("fifo.pdf").c_str(), 0600), 0);
    for (const auto* const name : {"text.pdf", "empty.pdf", "absent.pdf", "fifo.pdf", ""})
        EXPECT_FALSE(PDFDocument::initWithURL(folder.url(name))) << name;
    EXPECT_FALSE(PDFDocument::initWithData(""));
}

TEST(PDFDocument, DoesNotBelieveClaimedPageCounts)
{
    for (const auto* const count : {"2000000000", "99999999999999", "-5", "0"}) {
        const auto bytes = pdfThatClaimsPages(count);
        const auto document = PDFDocument::initWithData(bytes);
        ASSERT_TRUE(document) << count;
        EXPECT_LE(document->pageCount(), ContentLimits().pages) << count;
    }
}

TEST(PDFReader, GivesPagesInOrderAndDescription)
{
    const TemporaryFolder folder;
    const auto path = folder.write("two.pdf", pdfWithPages({"alpha", "beta"}, "The Title"));
    const auto content = readPDFFile(path);
    EXPECT_EQ(content.status, ContentStatus::Read);
    EXPECT_LT(content.text.find("alpha"), content.text.find("beta"));
    ASSERT_EQ(content.fields.size(), 2U);
    EXPECT_EQ(content.fields[0].value, "The Title");
    EXPECT_EQ(content.fields[1].value, "Ann Author");
}

TEST(PDFReader, ReadsBytes)
{
    const auto bytes = pdfWithPages({"in memory"});
    ContentSource source;
    source.bytes = bytes;
    source.typeIdentifier = kUTTypePDF;
    EXPECT_THAT(readContent(source).text, HasSubstr("in memory"));
}

TEST(PDFReader, CallsOtherBytesDamaged)
{
    const TemporaryFolder folder;
    EXPECT_EQ(readPDFFile(folder.write("a.pdf", "%PDF-1.4 nothing")).status, ContentStatus::Damaged);
}

TEST(PDFTextCache, ReadsEachPageOnceWithinRequest)
{
    const TemporaryFolder folder;
    std::vector<std::string> texts;
    for (int number = 0; number < 25; ++number)
        texts.push_back("number" + std::to_string(number));
    const auto path = folder.write("many.pdf", pdfWithPages(texts));
    const auto url = folder.url("many.pdf");

    const PDFTextCache::RequestScope scope;
    const auto first = PDFTextCache::pagesOfFile(FileDescriptor::openForReading(path));
    const auto walked = walkedText(url);
    EXPECT_THAT(walked, HasSubstr("number24"));
    EXPECT_EQ(PDFTextCache::pagesOfFile(FileDescriptor::openForReading(path)), first);

    // Bytes overwritten in place, with the time put back: only texts that were kept can still be given.
    const auto time = std::filesystem::last_write_time(path);
    const auto size = std::filesystem::file_size(path);
    std::ofstream(path, std::ios::in | std::ios::out | std::ios::binary) << std::string(size, ' ');
    std::filesystem::last_write_time(path, time);
    const auto content = readPDFFile(path);
    EXPECT_THAT(content.text, HasSubstr("number0\n"));
    EXPECT_THAT(content.text, HasSubstr("number24"));
}

TEST(PDFTextCache, SeesThatFileHasChanged)
{
    const TemporaryFolder folder;
    (void)folder.write("a.pdf", pdfWithPages({"old text"}));
    const PDFTextCache::RequestScope scope;
    EXPECT_THAT(walkedText(folder.url("a.pdf")), HasSubstr("old"));
    (void)folder.write("a.pdf", pdfWithPages({"new and longer text"}));
    EXPECT_THAT(walkedText(folder.url("a.pdf")), HasSubstr("new"));
}

TEST(PDFTextCache, SharesNothingOutsideRequest)
{
    const TemporaryFolder folder;
    const auto path = folder.write("a.pdf", pdfWithPages({"text"}));
    const auto open = [&path] { return PDFTextCache::pagesOfFile(FileDescriptor::openForReading(path)); };
    EXPECT_NE(open(), open());
    {
        const PDFTextCache::RequestScope scope;
        const auto shared = open();
        EXPECT_EQ(open(), shared);
        std::thread([&] { EXPECT_NE(open(), shared); }).join();
    }
    EXPECT_NE(open(), open());
}

TEST(PDFTextCache, StopsAtTextLimitOfRequest)
{
    const TemporaryFolder folder;
    const auto path = folder.write("a.pdf", pdfWithPages({"one one", "two two", "three three"}));
    ContentLimits limits;
    limits.textBytes = firstPageLength(folder.url("a.pdf")) + 1;
    const PDFTextCache::RequestScope scope(limits);
    const auto document = PDFDocument::initWithURL(folder.url("a.pdf"));
    ASSERT_TRUE(document);
    EXPECT_THAT(pageText(*document, 0), HasSubstr("one"));
    EXPECT_THAT(pageText(*document, 1), HasSubstr("two"));
    EXPECT_THAT(pageText(*document, 2), IsEmpty());
    EXPECT_THAT(document->cutNote(), HasSubstr("size limit"));
    EXPECT_THAT(readPDFFile(path).cutNotes, ElementsAre(HasSubstr("size limit")));
}

TEST(PDFTextCache, StopsAtTimeLimitOfRequest)
{
    const TemporaryFolder folder;
    (void)folder.write("a.pdf", pdfWithPages({"one"}));
    ContentLimits limits;
    limits.time = std::chrono::milliseconds(0);
    const PDFTextCache::RequestScope scope(limits);
    const auto document = PDFDocument::initWithURL(folder.url("a.pdf"));
    ASSERT_TRUE(document);
    EXPECT_THAT(pageText(*document, 0), IsEmpty());
    EXPECT_THAT(document->cutNote(), HasSubstr("time limit"));
}

TEST(PDFReader, StopsWithinEndlessPage)
{
    const TemporaryFolder folder;
    const auto path = folder.write("forms.pdf", pdfWithNestedForms(20));
    ContentLimits limits;
    limits.time = std::chrono::milliseconds(200);
    const PDFTextCache::RequestScope scope(limits);
    const auto start = std::chrono::steady_clock::now();
    const auto content = readPDFFile(path, limits);
    EXPECT_LT(std::chrono::steady_clock::now() - start, std::chrono::seconds(20));
    EXPECT_EQ(content.status, ContentStatus::Read);
    EXPECT_FALSE(content.cutNotes.empty());
}

TEST(PDFReader, CutsPagesThatHoldTooMuch)
{
    const TemporaryFolder folder;
    const auto path = folder.write("full.pdf", pdfWithPages({std::string(300'000, 'a'), "next page"}));
    const auto content = readPDFFile(path);
    EXPECT_THAT(content.text, HasSubstr("next page"));
    EXPECT_THAT(content.cutNotes, ElementsAre(HasSubstr("too large")));
}

TEST(PDFReader, ReadsDifferentFilesOnDifferentThreads)
{
    const TemporaryFolder folder;
    std::vector<std::thread> threads;
    for (int number = 0; number < 4; ++number) {
        threads.emplace_back([&folder, number] {
            const auto word = "thread" + std::to_string(number);
            const auto path = folder.write(word + ".pdf", pdfWithPages({word, word, word}));
            for (int round = 0; round < 50; ++round)
                EXPECT_THAT(readPDFFile(path).text, HasSubstr(word));
        });
    }
    for (auto& thread : threads)
        thread.join();
}

TEST(PDFSamples, AreReadOrToldApart)
{
    const auto samples = samplesOf("pdf");
    if (samples.empty())
        GTEST_SKIP() << "no samples in " << CORVEL_SAMPLES_DIR << "/pdf";
    for (const auto& sample : samples) {
        const PDFTextCache::RequestScope scope;
        const auto content = readPDFFile(sample.path);
        if (sample.verdict == "must") {
            EXPECT_EQ(content.status, ContentStatus::Read) << sample.file;
            EXPECT_THAT(missingTerms(SampleText(content.text), sample.mustFind), IsEmpty()) << sample.file;
        }
        if (sample.verdict == "locked") {
            EXPECT_EQ(content.status, ContentStatus::Locked) << sample.file;
            EXPECT_THAT(content.text, IsEmpty()) << sample.file;
        }
        EXPECT_THAT(content.cutNotes, IsEmpty()) << sample.file;
    }
}
