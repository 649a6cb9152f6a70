// Messages from the test suites of many mail programs, with what other readers find in them.

#include "platform/media/ContentReader.h"
#include "platform/media/MCOMessageParser.h"
#include "tests/support/ReadWith.h"
#include "tests/support/SampleIndex.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cctype>
#include <fstream>
#include <iostream>
#include <iterator>
#include <utility>

namespace {

std::string bytesOf(const Sample& sample)
{
    std::ifstream stream(sample.path, std::ios::binary);
    return {std::istreambuf_iterator<char>(stream), {}};
}

SampleText searchedText(const MCOMessageParser& parser)
{
    std::string text;
    const auto& header = parser.header();
    if (header.from)
        text += header.from->nonEncodedRFC822String() + "\n";
    for (const auto* addresses : {&header.furtherFrom, &header.to, &header.cc, &header.bcc}) {
        for (const auto& address : *addresses)
            text += address.nonEncodedRFC822String() + "\n";
    }
    return SampleText(text + header.subject.value_or("") + "\n"
                      + parser.plainTextBodyRenderingAndStripWhitespace(true));
}

/// The attachments of a sample whose name is known, as the index lists them.
std::vector<std::string> expectedAttachments(const Sample& sample)
{
    constexpr std::string_view kNested = "nested: ";
    std::vector<std::string> expected;
    for (auto entry : sample.attachments) {
        if (entry.starts_with(kNested))
            entry.erase(0, kNested.size());
        if (!entry.starts_with("(no name)") && !entry.starts_with("(raw 8-bit name"))
            expected.push_back(entry);
    }
    return expected;
}

std::vector<std::string> foundAttachments(const MCOMessageParser& parser)
{
    std::vector<std::string> found;
    for (const auto& attachment : parser.attachments())
        found.push_back(attachment.filename() + " <" + attachment.mimeType() + ">");
    return found;
}

void expectAttachments(const Sample& sample, std::vector<std::string> found)
{
    const auto all = testing::PrintToString(found);
    for (const auto& expected : expectedAttachments(sample)) {
        const auto place = std::find(found.begin(), found.end(), expected);
        ASSERT_NE(place, found.end()) << sample.file << " lacks " << expected << "\nhas " << all;
        found.erase(place);
    }
}

/// The words of the terms, to be looked for within words as well: some readers that made the index cut words
/// at letters beyond ASCII.
std::vector<std::string> wordsWithin(const std::vector<std::string>& terms)
{
    std::vector<std::string> words;
    for (const auto& term : terms) {
        std::string word = "~";
        for (const char byte : term + " ") {
            const auto value = static_cast<unsigned char>(byte);
            if (value >= 0x80 || std::isalnum(value) != 0)
                word += byte;
            else if (word.size() > 1)
                words.push_back(std::exchange(word, "~"));
        }
    }
    return words;
}

class MailSamples : public testing::Test {
protected:
    void SetUp() override
    {
        if (m_samples.empty())
            GTEST_SKIP() << "no sample messages in " << CORVEL_SAMPLES_DIR;
    }

    std::vector<Sample> m_samples = samplesOf("email");
};

} // namespace

TEST_F(MailSamples, HoldTheWordsThatOtherReadersFind)
{
    for (const auto& sample : m_samples) {
        if (sample.verdict != "must")
            continue;
        const auto bytes = bytesOf(sample);
        const auto text = searchedText(MCOMessageParser(bytes));
        EXPECT_EQ(missingTerms(text, wordsWithin(sample.mustFind)), std::vector<std::string>())
            << sample.file;
    }
}

TEST_F(MailSamples, HaveTheAttachmentsThatOtherReadersFind)
{
    for (const auto& sample : m_samples) {
        if (sample.verdict != "must")
            continue;
        const auto bytes = bytesOf(sample);
        expectAttachments(sample, foundAttachments(MCOMessageParser(bytes)));
    }
}

TEST_F(MailSamples, AreReadEvenWhenDamaged)
{
    std::size_t termCount = 0;
    std::size_t missingCount = 0;
    for (const auto& sample : m_samples) {
        const auto bytes = bytesOf(sample);
        const MCOMessageParser parser(bytes);
        for (const auto& attachment : parser.attachments())
            EXPECT_LE(attachment.data().size(), bytes.size()) << sample.file;
        const auto text = searchedText(parser);
        auto terms = sample.softFind;
        if (sample.verdict != "must")
            terms.insert(terms.end(), sample.mustFind.begin(), sample.mustFind.end());
        const auto missing = missingTerms(text, terms);
        termCount += terms.size();
        missingCount += missing.size();
        if (!missing.empty())
            std::cout << sample.verdict << ' ' << sample.file << ": " << testing::PrintToString(missing)
                      << '\n';
    }
    std::cout << "mail: " << termCount - missingCount << " of " << termCount << " optional terms found\n";
    EXPECT_LE(missingCount * 20, termCount);
}

TEST_F(MailSamples, AreReadAsFilesToo)
{
    for (const auto& sample : m_samples) {
        const auto bytes = bytesOf(sample);
        const auto content = readContent(sourceOfBytes(bytes, "public.email-message"));
        EXPECT_EQ(content.status, ContentStatus::Read) << sample.file;
        if (sample.verdict == "must") {
            EXPECT_EQ(missingTerms(SampleText(content.text), wordsWithin(sample.mustFind)),
                      std::vector<std::string>())
                << sample.file;
        }
    }
}
