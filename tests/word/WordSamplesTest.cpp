// Documents that other programs wrote: the reader finds every word that the index finds in them, and tells
// what cannot be read as the index does.

#include "platform/foundation/FileDescriptor.h"
#include "platform/foundation/Unicode.h"
#include "platform/media/ContentReader.h"
#include "platform/types/UTType.h"
#include "platform/word/NSAttributedStringWord.h"
#include "tests/support/SampleIndex.h"

#include <gtest/gtest.h>
#include <unicode/uchar.h>

#include <set>

using NSAttributedStringDocumentFormats::initWithWordDocument;

namespace {

Content indexContent(const Sample& sample)
{
    const auto file = FileDescriptor::openForReading(sample.path);
    ContentSource source;
    source.fileDescriptor = file.get();
    source.typeIdentifier = kUTTypeWordDocument;
    return readContent(source);
}

/// Runs of letters and digits, without regard to case.
std::set<std::u16string> wordsOf(std::u16string_view text)
{
    std::set<std::u16string> words;
    std::u16string word;
    for (std::size_t offset = 0; offset < text.size();) {
        const auto start = offset;
        const auto letter = static_cast<UChar32>(nextCodePoint(text, offset));
        if (u_isalnum(letter))
            word += letter <= 0xFFFF ? std::u16string(1, static_cast<char16_t>(u_foldCase(letter, 0)))
                                     : std::u16string(text.substr(start, offset - start));
        else if (letter != 0x00AD)
            words.insert(std::exchange(word, {}));
    }
    words.insert(word);
    return words;
}

} // namespace

TEST(WordSamples, HoldEveryWordThatTheIndexFinds)
{
    const auto samples = samplesOf("docx");
    if (samples.empty())
        GTEST_SKIP() << "no samples in " << CORVEL_SAMPLES_DIR << "/docx";
    for (const auto& sample : samples) {
        const auto indexed = indexContent(sample);
        const auto string = initWithWordDocument(NSURL::fileURLWithPath(sample.path));
        EXPECT_EQ(string.has_value(), indexed.status == ContentStatus::Read) << sample.file;
        if (!string)
            continue;
        const auto words = wordsOf(string->string());
        for (const auto& word : wordsOf(UTF16FromUTF8(indexed.text)))
            EXPECT_TRUE(words.contains(word)) << sample.file << ": " << UTF8FromUTF16(word);
    }
}

TEST(WordSamples, HoldTheTermsThatMustBeFound)
{
    const auto samples = samplesOf("docx");
    if (samples.empty())
        GTEST_SKIP() << "no samples in " << CORVEL_SAMPLES_DIR << "/docx";
    for (const auto& sample : samples) {
        if (sample.verdict != "must")
            continue;
        const auto string = initWithWordDocument(NSURL::fileURLWithPath(sample.path));
        const SampleText text(string ? UTF8FromUTF16(string->string()) : "");
        EXPECT_EQ(missingTerms(text, sample.mustFind), std::vector<std::string>()) << sample.file;
    }
}
