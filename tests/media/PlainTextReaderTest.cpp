#include "platform/foundation/FileDescriptor.h"
#include "platform/foundation/Unicode.h"
#include "platform/media/ContentReader.h"
#include "platform/types/UTType.h"
#include "tests/support/SampleIndex.h"
#include "tests/support/TemporaryFolder.h"

#include <gmock/gmock.h>

#include <filesystem>
#include <iostream>

using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;

namespace {

Content readTextFile(const std::string& path, const ContentLimits& limits = {})
{
    const auto file = FileDescriptor::openForReading(path);
    ContentSource source;
    source.fileDescriptor = file.get();
    source.typeIdentifier = kUTTypePlainText;
    return readContent(source, limits);
}

Content readTextBytes(std::string_view bytes, const ContentLimits& limits = {})
{
    ContentSource source;
    source.bytes = bytes;
    source.typeIdentifier = kUTTypePlainText;
    return readContent(source, limits);
}

} // namespace

TEST(PlainTextReader, ReadsFilesAndBytesAlike)
{
    const TemporaryFolder folder;
    const auto path = folder.write("a.txt", "caf\xE9 et th\xE9\n");
    EXPECT_EQ(readTextFile(path).text, "café et thé\n");
    EXPECT_EQ(readTextBytes("caf\xE9 et th\xE9\n").text, "café et thé\n");
    EXPECT_EQ(readTextBytes("").status, ContentStatus::Read);
}

TEST(PlainTextReader, FindsEncodingFarIntoTheFile)
{
    const std::string ascii(1'000'000, 'a');
    EXPECT_EQ(readTextBytes(ascii + " \xCF\xF0\xE8\xE2\xE5\xF2, \xEC\xE8\xF0").text, ascii + " Привет, мир");
}

TEST(PlainTextReader, KeepsCharactersThatChunksCut)
{
    std::string text = "x";
    while (text.size() < 1'000'000)
        text += "日本語";
    EXPECT_EQ(readTextBytes(text).text, text);
}

TEST(PlainTextReader, BlanksControlCharacters)
{
    EXPECT_EQ(readTextBytes(std::string_view("a\0b\x1B[1mc\x7F\td\r\n", 13)).text, "a b [1mc \td\r\n");
}

TEST(PlainTextReader, CutsAtLimits)
{
    const TemporaryFolder folder;
    const auto path = folder.write("long.txt", std::string(3'000'000, 'a'));
    ContentLimits limits;
    limits.streamedBytes = 1'000'000;
    const auto content = readTextFile(path, limits);
    EXPECT_LE(content.text.size(), 1'500'000U);
    EXPECT_THAT(content.cutNotes, ElementsAre(HasSubstr("size limit")));
}

TEST(PlainTextReader, ReadsHugeFileOfHolesInBoundedTime)
{
    const TemporaryFolder folder;
    const auto path = folder.write("huge.log", "start of the log ");
    std::filesystem::resize_file(path, std::uintmax_t{2} << 30);
    const auto content = readTextFile(path);
    EXPECT_EQ(content.text.substr(0, 16), "start of the log");
    EXPECT_FALSE(content.cutNotes.empty());
}

TEST(PlainTextReader, SurvivesBinaryBytes)
{
    std::string bytes;
    for (unsigned index = 0; index < 700'000; ++index)
        bytes += static_cast<char>((index * 2654435761U) >> 13U);
    const auto content = readTextBytes(bytes);
    EXPECT_EQ(content.status, ContentStatus::Read);
    EXPECT_TRUE(isValidUTF8(content.text));
    EXPECT_EQ(content.text.find('\x01'), std::string::npos);
}

TEST(PlainTextReader, RefusesFolders)
{
    const TemporaryFolder folder;
    EXPECT_EQ(readTextFile(folder.path()).status, ContentStatus::Unreadable);
}

TEST(TextSamples, AreReadInTheirEncodings)
{
    const auto samples = samplesOf("text");
    if (samples.empty())
        GTEST_SKIP() << "no samples in " << CORVEL_SAMPLES_DIR << "/text";
    std::size_t wanted = 0;
    std::size_t found = 0;
    for (const auto& sample : samples) {
        const SampleText text(readTextFile(sample.path).text);
        const auto missing = missingTerms(text, sample.mustFind);
        if (sample.verdict == "must") {
            EXPECT_THAT(missing, IsEmpty()) << sample.file;
        } else {
            wanted += sample.mustFind.size();
            found += sample.mustFind.size() - missing.size();
            if (!missing.empty())
                std::cout << sample.file << " lacks " << missing.size() << " optional terms\n";
        }
    }
    EXPECT_GE(found * 100, wanted * 90) << found << " of " << wanted;
}
