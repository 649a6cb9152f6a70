#include "platform/foundation/FileNameText.h"

#include <gtest/gtest.h>

#include <string>

TEST(FileNameText, IsTheNameWhenItIsUTF8)
{
    EXPECT_EQ(textFromFileName("a b.txt"), u"a b.txt");
    EXPECT_EQ(textFromFileName("\xC3\xA9\xF0\x9F\x98\x80"), u"\u00E9\U0001F600");
    EXPECT_EQ(fileNameFromText(u"\u00E9\U0001F600"), "\xC3\xA9\xF0\x9F\x98\x80");
    EXPECT_EQ(textFromFileName("\xEF\xBF\xBD"), u"\uFFFD");
}

TEST(FileNameText, HoldsOtherBytesAsSurrogates)
{
    const std::u16string expected{u'a', 0xDCFF, u'b', 0xDCC3};
    EXPECT_EQ(textFromFileName("a\xFF"
                               "b\xC3"),
              expected);
}

TEST(FileNameText, GivesEveryByteBack)
{
    for (unsigned first = 1; first < 256; ++first) {
        for (unsigned second = 1; second < 256; ++second) {
            const std::string name{'x', static_cast<char>(first), static_cast<char>(second), 'y'};
            ASSERT_EQ(fileNameFromText(textFromFileName(name)), name) << first << " " << second;
        }
    }
}

TEST(FileNameText, GivesLongerBrokenSequencesBack)
{
    // A surrogate in UTF-8, an overlong slash, a character cut short, one beyond Unicode.
    for (const std::string name : {"\xED\xB3\xBF", "\xC0\xAF", "\xF0\x9F\x98", "\xF5\x80\x80\x80"})
        EXPECT_EQ(fileNameFromText(textFromFileName(name)), name);
}

TEST(FileNameText, ReplacesSurrogatesThatStandForNoByte)
{
    EXPECT_EQ(fileNameFromText(std::u16string{u'a', 0xD800}), "a\xEF\xBF\xBD");
    EXPECT_EQ(fileNameFromText(std::u16string{0xDC00}), "\xEF\xBF\xBD");
    EXPECT_EQ(fileNameFromText(std::u16string{0xDC41}), "\xEF\xBF\xBD");
}

TEST(FileNameText, KnowsWhatNoFileCanBeCalled)
{
    using namespace std::string_view_literals;
    for (const auto name : {""sv, "."sv, ".."sv, "a/b"sv, "/"sv, "a\0b"sv})
        EXPECT_FALSE(isFileName(name)) << name;
    for (const auto name : {"a"sv, "..."sv, ".a"sv, "\xFF"sv, "a\nb"sv})
        EXPECT_TRUE(isFileName(name)) << name;
    EXPECT_FALSE(isFileName(u"../a"sv));
    EXPECT_TRUE(isFileName(u"\u00E9"sv));
}
