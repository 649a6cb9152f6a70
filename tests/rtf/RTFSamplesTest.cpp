#include "platform/foundation/Unicode.h"
#include "platform/rtf/RTFText.h"

#include <gmock/gmock.h>
#include <unicode/uchar.h>

#include <filesystem>
#include <fstream>
#include <map>
#include <sstream>
#include <string>
#include <vector>

namespace fs = std::filesystem;

namespace {

std::string bytesOf(const fs::path& path)
{
    std::ostringstream bytes;
    bytes << std::ifstream(path, std::ios::binary).rdbuf();
    return bytes.str();
}

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

fs::path expectationFor(const fs::path& rtf)
{
    return rtf.filename() == "TXT.rtf" ? fs::path(rtf.parent_path().native() + ".txt")
                                       : fs::path(rtf).replace_extension(".txt");
}

std::vector<fs::path> samples()
{
    std::vector<fs::path> files;
    const fs::path root = fs::path(CORVEL_SAMPLES_DIR) / "rtf";
    if (!fs::is_directory(root))
        return files;
    for (const auto& entry : fs::recursive_directory_iterator(root)) {
        if (entry.path().extension() == ".rtf" && entry.is_regular_file())
            files.push_back(entry.path());
    }
    return files;
}

} // namespace

TEST(RTFSamples, HoldEveryWordThatIsExpected)
{
    const auto files = samples();
    if (files.empty())
        GTEST_SKIP() << "no sample files under " CORVEL_SAMPLES_DIR;
    for (const auto& file : files) {
        const auto text = textOf(bytesOf(file));
        EXPECT_TRUE(isValidUTF8(text)) << file;
        const auto expectation = expectationFor(file);
        if (fs::exists(expectation)) {
            EXPECT_EQ(missingWords(wordsOf(bytesOf(expectation)), wordsOf(text)), "") << file;
        }
    }
}
