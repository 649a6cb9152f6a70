#include "platform/media/HTMLReader.h"

#include "platform/foundation/FileDescriptor.h"
#include "tests/support/ReadWith.h"
#include "tests/support/SampleIndex.h"
#include "tests/support/TemporaryFolder.h"

#include <gtest/gtest.h>

#include <iostream>

TEST(HTMLReader, GivesTextAndTitle)
{
    const auto content
        = readWith(readHTML, "<html><head><title>A &amp; B</title></head><body><p>One<p>Two</body></html>");
    EXPECT_EQ(content.status, ContentStatus::Read);
    EXPECT_EQ(content.text, "One\nTwo");
    EXPECT_EQ(fieldOf(content, "title"), "A & B");
}

TEST(HTMLReader, ReadsFiles)
{
    const TemporaryFolder folder;
    const auto file
        = FileDescriptor::openForReading(folder.write("a.html", "<meta charset=iso-8859-1><p>caf\xE9"));
    const auto content = readContent(sourceOfFile(file.get(), "public.html"));
    EXPECT_EQ(content.status, ContentStatus::Read);
    EXPECT_EQ(content.text, "café");
    EXPECT_TRUE(content.fields.empty());
}

TEST(HTMLReader, ReadsXHTMLByItsType)
{
    const auto content = readContent(sourceOfBytes(
        "<?xml version='1.0'?><html xmlns='x'><head><script/><title>T</title></head><body>Text</body>",
        "public.xhtml"));
    EXPECT_EQ(content.text, "Text");
    EXPECT_EQ(fieldOf(content, "title"), "T");
}

TEST(HTMLReader, NotesACut)
{
    ContentLimits limits;
    limits.wholeFileBytes = 8;
    const auto content = readWith(readHTML, "<p>caf\xC3\xA9 and more", limits);
    EXPECT_EQ(content.cutNotes.size(), 1U);
    EXPECT_TRUE(content.text.starts_with("caf"));

    limits = {};
    limits.textBytes = 10;
    EXPECT_EQ(readWith(readHTML, "<p>more than ten bytes", limits).text, "more than ");
}

TEST(HTMLReader, SaysWhenAFileCannotBeRead)
{
    const auto folder = FileDescriptor::openForReading("/");
    ContentSink sink({});
    EXPECT_EQ(readHTML(sourceOfFile(folder.get()), sink).status, ContentStatus::Unreadable);
}

TEST(HTMLReader, FindsTheWordsOfSamples)
{
    const auto samples = samplesOf("html");
    if (samples.empty())
        GTEST_SKIP() << "no sample pages in " << CORVEL_SAMPLES_DIR;
    std::size_t missingCount = 0;
    for (const auto& sample : samples) {
        const auto file = FileDescriptor::openForReading(sample.path);
        const auto content = readContent(sourceOfFile(file.get(), "public.html"));
        const SampleText text(content.text + "\n" + std::string(fieldOf(content, "title")));
        const auto missing = missingTerms(text, sample.mustFind);
        if (sample.verdict == "must") {
            EXPECT_EQ(missing, std::vector<std::string>()) << sample.file;
        } else if (!missing.empty()) {
            ++missingCount;
            std::cout << sample.file << ": " << testing::PrintToString(missing) << '\n';
        }
    }
    EXPECT_LE(missingCount, 2U);
}
