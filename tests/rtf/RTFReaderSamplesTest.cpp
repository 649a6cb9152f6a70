#include "platform/foundation/NSString.h"
#include "platform/foundation/Unicode.h"
#include "platform/rtf/NSAttributedStringRTF.h"

#include <gmock/gmock.h>

#include <algorithm>
#include <filesystem>
#include <fstream>
#include <sstream>
#include <string>
#include <vector>

namespace fs = std::filesystem;

namespace {

namespace Formats = NSAttributedStringDocumentFormats;

std::string bytesOf(const fs::path& path)
{
    std::ostringstream bytes;
    bytes << std::ifstream(path, std::ios::binary).rdbuf();
    return bytes.str();
}

/// Documents and packages.
std::vector<fs::path> samples()
{
    std::vector<fs::path> found;
    const fs::path root = fs::path(CORVEL_SAMPLES_DIR) / "rtf";
    if (!fs::is_directory(root))
        return found;
    for (const auto& entry : fs::recursive_directory_iterator(root)) {
        const bool isInPackage = entry.path().parent_path().extension() == ".rtfd";
        if (!isInPackage && (entry.path().extension() == ".rtf" || entry.path().extension() == ".rtfd"))
            found.push_back(entry.path());
    }
    std::sort(found.begin(), found.end());
    return found;
}

fs::path expectationFor(const fs::path& sample)
{
    return sample.extension() == ".rtfd" ? fs::path(sample.native() + ".txt")
                                         : fs::path(sample).replace_extension(".txt");
}

std::optional<NSAttributedString> readSample(const fs::path& sample)
{
    if (sample.extension() == ".rtf")
        return Formats::initWithRTF({bytesOf(sample)});
    const auto package = NSFileWrapper::initWithURL(NSURL::fileURLWithPath(sample.native()),
                                                    NSFileWrapperReadingOptions::Immediate);
    return package ? Formats::initWithRTFDFileWrapper(*package) : std::nullopt;
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
    const auto all = samples();
    if (all.empty())
        GTEST_SKIP() << "no sample files under " CORVEL_SAMPLES_DIR;
    for (const auto& sample : all) {
        const auto expectation = expectationFor(sample);
        if (!fs::exists(expectation))
            continue;
        const auto text = readSample(sample);
        ASSERT_TRUE(text) << sample;
        EXPECT_EQ(trimmed(UTF8FromUTF16(text->string())), trimmed(bytesOf(expectation))) << sample;
    }
}

TEST(RTFReaderSamples, AreReadOrRefusedWithAReason)
{
    const auto all = samples();
    if (all.empty())
        GTEST_SKIP() << "no sample files under " CORVEL_SAMPLES_DIR;
    for (const auto& sample : all) {
        if (sample.extension() != ".rtf")
            continue;
        NSError error;
        const auto text = Formats::initWithRTF({bytesOf(sample)}, nullptr, &error);
        EXPECT_TRUE(text || error.code() == static_cast<int>(NSCocoaError::FileReadCorruptFile)) << sample;
    }
}

TEST(RTFReaderSamples, StayTheSameWhenWrittenAndReadAgain)
{
    const auto all = samples();
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
