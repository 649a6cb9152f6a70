#include "platform/foundation/Unicode.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

namespace {

// Unicode 15, table 3-8 and its neighbours: one U+FFFD for each maximal ill-formed sequence.
TEST(Unicode, ReplacesEachIllFormedSequenceOnce)
{
    EXPECT_EQ(validUTF8("a\xF1\x80\x80\xE1\x80\xC2"
                        "b\x80"
                        "c\x80\xBF"
                        "d"),
              "a\uFFFD\uFFFD\uFFFDb\uFFFDc\uFFFD\uFFFDd");
    EXPECT_EQ(validUTF8("\xC0\xAF\xE0\x80\xBF"), "\uFFFD\uFFFD\uFFFD\uFFFD\uFFFD");
    EXPECT_EQ(validUTF8("\xED\xA0\x80"), "\uFFFD\uFFFD\uFFFD");
    EXPECT_EQ(validUTF8("\xF4\x90\x80\x80"), "\uFFFD\uFFFD\uFFFD\uFFFD");
    EXPECT_EQ(validUTF8("x\xE6\x9D"), "x\uFFFD");
}

TEST(Unicode, KeepsWhatIsWellFormed)
{
    for (const auto* text : {"", "ascii only and long enough for whole words", "é日本𝄞", "a\uFFFDb",
                             "\u0080\u07FF\u0800\uFFFF\U00010000\U0010FFFF"}) {
        EXPECT_TRUE(isValidUTF8(text)) << text;
        EXPECT_EQ(validUTF8(text), text);
    }
}

TEST(Unicode, SeesIllFormedBytesAnywhere)
{
    for (std::size_t offset = 0; offset < 40; ++offset) {
        std::string text(40, 'a');
        text[offset] = '\xC3';
        EXPECT_FALSE(isValidUTF8(text)) << offset;
    }
}

TEST(Unicode, AppendsCodePoints)
{
    std::string text;
    for (const char32_t codePoint : {0x41U, 0xE9U, 0x65E5U, 0x1D11EU})
        appendUTF8(text, codePoint);
    EXPECT_EQ(text, "Aé日𝄞");
    std::string replaced;
    appendUTF8(replaced, 0xD800);
    appendUTF8(replaced, 0x110000);
    EXPECT_EQ(replaced, "\uFFFD\uFFFD");
}

TEST(Unicode, ConvertsToUTF16AndBack)
{
    EXPECT_EQ(UTF16FromUTF8("Aé日𝄞"), u"Aé日𝄞");
    EXPECT_EQ(UTF8FromUTF16(u"Aé日𝄞"), "Aé日𝄞");
    const std::u16string lone{0xD800, u'a', 0xDC00};
    EXPECT_EQ(UTF8FromUTF16(lone), "\uFFFDa\uFFFD");
}

TEST(Unicode, CutsAtCharacterBorders)
{
    EXPECT_EQ(prefixAtCharacterBorder("日本", 6), "日本");
    EXPECT_EQ(prefixAtCharacterBorder("日本", 5), "日");
    EXPECT_EQ(prefixAtCharacterBorder("日本", 3), "日");
    EXPECT_EQ(prefixAtCharacterBorder("日本", 2), "");
    EXPECT_EQ(prefixAtCharacterBorder("abc", 2), "ab");
}

TEST(Unicode, StepsThroughUTF16InBothDirections)
{
    const std::u16string text = u"a\U0001F600" + std::u16string(1, 0xDE00) + std::u16string(1, 0xD83D);
    std::vector<char32_t> forwards;
    for (std::size_t offset = 0; offset < text.size();)
        forwards.push_back(nextCodePoint(text, offset));
    EXPECT_EQ(forwards, (std::vector<char32_t>{U'a', 0x1F600, 0xDE00, 0xD83D}));
    std::vector<std::size_t> starts;
    for (auto offset = text.size(); offset > 0;)
        starts.push_back(offset = previousCodePointStart(text, offset));
    EXPECT_EQ(starts, (std::vector<std::size_t>{4, 3, 1, 0}));
}

} // namespace
