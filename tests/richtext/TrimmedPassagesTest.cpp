#include "richtext/TrimmedPassages.h"

#include <gtest/gtest.h>

namespace {

std::vector<std::u16string> passagesWith(std::u16string_view characters, NSRange range)
{
    std::vector<std::u16string> passages{u"before"};
    appendTrimmedPassage(passages, NSAttributedString(std::u16string(characters)), range);
    return passages;
}

} // namespace

TEST(TrimmedPassages, LoseWhiteSpaceAndLineEndsAtBothEnds)
{
    EXPECT_EQ(passagesWith(u" \t\u00A0\r\n a \n b \u2028\u2029\u0085\v\f ", {0, 18}),
              (std::vector<std::u16string>{u"before", u"a \n b"}));
}

TEST(TrimmedPassages, AreTheCharactersOfTheRange)
{
    EXPECT_EQ(passagesWith(u"one two", {2, 4}), (std::vector<std::u16string>{u"before", u"e tw"}));
}

TEST(TrimmedPassages, KeepTheCharactersOfAttachments)
{
    EXPECT_EQ(passagesWith(u" \uFFFC ", {0, 3}), (std::vector<std::u16string>{u"before", u"\uFFFC"}));
}

TEST(TrimmedPassages, AreNotAppendedWithNothingLeft)
{
    EXPECT_EQ(passagesWith(u"a \n\t b", {1, 4}), (std::vector<std::u16string>{u"before"}));
    EXPECT_EQ(passagesWith(u"ab", {1, 0}), (std::vector<std::u16string>{u"before"}));
    EXPECT_EQ(passagesWith(u"", {0, 0}), (std::vector<std::u16string>{u"before"}));
}
