// The reader of attributed strings and that of the text alone find the same characters, whatever the bytes
// are. They differ in what is meant: asides are in the text alone; what stands for an attachment, line ends
// about cells and text boxes, and bytes in fonts of symbols are not the same.

#include "platform/foundation/Unicode.h"
#include "platform/rtf/NSAttributedStringRTF.h"
#include "platform/rtf/RTFText.h"
#include "tests/rtf/RTFSampleFiles.h"
#include "tests/rtf/RandomRTF.h"

#include <gmock/gmock.h>

#include <random>
#include <string>
#include <string_view>

namespace {

namespace Formats = NSAttributedStringDocumentFormats;

void replaceAll(std::string& text, std::string_view from, std::string_view to)
{
    for (auto found = text.find(from); found != std::string::npos; found = text.find(from, found + to.size()))
        text.replace(found, from.size(), to);
}

/// Without what the two read differently: asides become groups of the text, fonts of symbols others.
std::string withoutDifferences(std::string document)
{
    replaceAll(document, "\\header", "\\xeader");
    replaceAll(document, "\\footer", "\\xooter");
    replaceAll(document, "\\footnote", "\\xootnote");
    replaceAll(document, "\\fcharset2", "\\fcharset1");
    return document;
}

std::u16string charactersOf(std::u16string text)
{
    std::erase_if(text, [](char16_t unit) { return unit == u'\n' || unit == 0xFFFC; });
    return text;
}

std::u16string textAlone(const std::string& document)
{
    std::string text;
    (void)readRTFText(document, [&text](std::string_view piece) {
        text += piece;
        return true;
    });
    return charactersOf(UTF16FromUTF8(text));
}

std::u16string attributedText(const std::string& document)
{
    const auto text = Formats::initWithRTF({document});
    return charactersOf(text ? std::u16string(text->string()) : std::u16string());
}

} // namespace

TEST(RTFReadersAgree, OnRandomDocuments)
{
    std::mt19937 random(11);
    std::size_t characters = 0;
    for (int round = 0; round < 20'000; ++round) {
        const auto document = withoutDifferences(randomRTF(random, 15));
        const auto expected = textAlone(document);
        ASSERT_EQ(attributedText(document), expected) << document;
        characters += expected.size();
    }
    EXPECT_GT(characters, 10'000U);
}

TEST(RTFReadersAgree, OnSamplesAndOnDamagedOnes)
{
    constexpr int kDamages = 20;
    constexpr std::size_t kMostDamagedBytes = 200'000;
    const auto samples = rtfSamples();
    if (samples.empty())
        GTEST_SKIP() << "no sample files under " CORVEL_SAMPLES_DIR;
    std::mt19937 random(12);
    for (const auto& sample : samples) {
        const auto document = rtfSampleDocument(sample);
        const auto whole = withoutDifferences(document);
        ASSERT_EQ(attributedText(whole), textAlone(whole)) << sample;
        for (int round = 0; round < kDamages && document.size() < kMostDamagedBytes; ++round) {
            const auto damaged = withoutDifferences(damagedRTF(document, random));
            ASSERT_EQ(attributedText(damaged), textAlone(damaged)) << sample << " in round " << round;
        }
    }
}
