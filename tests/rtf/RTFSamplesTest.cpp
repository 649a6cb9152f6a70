#include "platform/foundation/Unicode.h"
#include "platform/rtf/RTFText.h"
#include "tests/rtf/RTFSampleFiles.h"

#include <gmock/gmock.h>
#include <unicode/uchar.h>

#include <filesystem>
#include <map>
#include <string>

namespace {

// Whether an attachment shows depends on its file, which this reader does not look for.
constexpr char32_t kAttachment = 0xFFFC;

using WordCounts = std::map<std::string, int>;

WordCounts wordsOf(const std::string& text)
{
    WordCounts words;
    std::string word;
    for (std::size_t offset = 0; offset < text.size();) {
        const auto character = nextCodePoint(text, offset);
        if (u_isalnum(static_cast<UChar32>(character)) != 0) {
            appendUTF8(word, character);
        } else if (character != kAttachment && !word.empty()) {
            ++words[word];
            word.clear();
        }
    }
    if (!word.empty())
        ++words[word];
    return words;
}

std::string missingWords(const WordCounts& expected, const WordCounts& found)
{
    std::string missing;
    for (const auto& [word, count] : expected) {
        const auto match = found.find(word);
        if (match == found.end() || match->second < count)
            missing += word + ' ';
    }
    return missing;
}

std::string textOf(const std::string& rtf)
{
    std::string text;
    (void)readRTFText(rtf, [&text](std::string_view piece) {
        text += piece;
        return true;
    });
    return text;
}

} // namespace

TEST(RTFSamples, HoldEveryWordThatIsExpected)
{
    const auto files = rtfSamples();
    if (files.empty())
        GTEST_SKIP() << "no sample files under " CORVEL_SAMPLES_DIR;
    for (const auto& file : files) {
        const auto text = textOf(rtfSampleDocument(file));
        EXPECT_TRUE(isValidUTF8(text)) << file;
        const auto expectation = rtfSampleExpectation(file);
        if (std::filesystem::exists(expectation)) {
            EXPECT_EQ(missingWords(wordsOf(bytesOfFile(expectation)), wordsOf(text)), "") << file;
        }
    }
}
