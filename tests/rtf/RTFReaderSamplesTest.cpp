#include "platform/foundation/NSString.h"
#include "platform/foundation/Unicode.h"
#include "platform/rtf/NSAttributedStringRTF.h"
#include "platform/text/NSAttributeNames.h"
#include "tests/rtf/RTFSampleFiles.h"

#include <gmock/gmock.h>

#include <filesystem>
#include <string>

namespace fs = std::filesystem;

namespace {

namespace Formats = NSAttributedStringDocumentFormats;

std::optional<NSAttributedString> readSample(const fs::path& sample, NSError* error = nullptr)
{
    if (sample.extension() == ".rtf")
        return Formats::initWithRTF({bytesOfFile(sample)}, nullptr, error);
    const auto package = NSFileWrapper::initWithURL(NSURL::fileURLWithPath(sample.native()),
                                                    NSFileWrapperReadingOptions::Immediate);
    return package ? Formats::initWithRTFDFileWrapper(*package, nullptr, error) : std::nullopt;
}

std::u16string charactersOf(const NSAttributedString& text)
{
    return std::u16string(text.string());
}

/// Without line ends at the end, of which expectations have none.
std::string trimmed(std::string text)
{
    text.erase(text.find_last_not_of('\n') + 1);
    return text;
}

NSAttributedString throughRTFD(const NSAttributedString& text)
{
    const auto package = Formats::RTFDFileWrapperFromRange(text, {0, text.length()});
    return package ? Formats::initWithRTFDFileWrapper(*package).value_or(NSAttributedString())
                   : NSAttributedString();
}

} // namespace

TEST(RTFReaderSamples, HaveTheTextThatIsExpected)
{
    const auto all = rtfSamples();
    if (all.empty())
        GTEST_SKIP() << "no sample files under " CORVEL_SAMPLES_DIR;
    for (const auto& sample : all) {
        const auto expectation = rtfSampleExpectation(sample);
        if (!fs::exists(expectation))
            continue;
        const auto text = readSample(sample);
        ASSERT_TRUE(text) << sample;
        EXPECT_EQ(trimmed(UTF8FromUTF16(text->string())), trimmed(bytesOfFile(expectation))) << sample;
    }
}

TEST(RTFReaderSamples, AreReadOrRefusedWithAReason)
{
    const auto all = rtfSamples();
    if (all.empty())
        GTEST_SKIP() << "no sample files under " CORVEL_SAMPLES_DIR;
    for (const auto& sample : all) {
        NSError error;
        const auto text = readSample(sample, &error);
        EXPECT_TRUE(text || error.code() == static_cast<int>(NSCocoaError::FileReadCorruptFile)) << sample;
    }
}

TEST(RTFReaderSamples, TakeNoFilesByNamesThatLeaveThePackage)
{
    const auto sample = fs::path(CORVEL_SAMPLES_DIR) / "rtf" / "hostile" / "bad_names.rtfd";
    if (!fs::exists(sample))
        GTEST_SKIP() << "no sample files under " CORVEL_SAMPLES_DIR;
    const auto text = readSample(sample);
    ASSERT_TRUE(text);
    EXPECT_EQ(text->string().find(NSAttachmentCharacter), std::u16string_view::npos);
}

TEST(RTFReaderSamples, StayTheSameWhenWrittenAndReadAgain)
{
    const auto all = rtfSamples();
    if (all.empty())
        GTEST_SKIP() << "no sample files under " CORVEL_SAMPLES_DIR;
    for (const auto& sample : all) {
        const auto text = readSample(sample);
        if (!text)
            continue;
        const auto once = throughRTFD(*text);
        EXPECT_EQ(charactersOf(once), charactersOf(*text)) << sample;
        const auto again = throughRTFD(once);
        EXPECT_EQ(charactersOf(again), charactersOf(once)) << sample;
        EXPECT_EQ(again.runCount(), once.runCount()) << sample;
    }
}
