#include "platform/foundation/NLTokenizer.h"

#include <gtest/gtest.h>

#include <string>

namespace {

constexpr NSRange kNone{NSNotFound, 0};

TEST(NLTokenizer, FindsTheSentenceThatHoldsAnIndex)
{
    const std::u16string_view text = u"Pears are ripe. Plums are not! Quinces?";
    EXPECT_EQ(sentenceRangeAtIndex(text, 0), (NSRange{0, 16}));
    EXPECT_EQ(sentenceRangeAtIndex(text, 15), (NSRange{0, 16}));
    EXPECT_EQ(sentenceRangeAtIndex(text, 16), (NSRange{16, 15}));
    EXPECT_EQ(sentenceRangeAtIndex(text, 38), (NSRange{31, 8}));
    EXPECT_EQ(sentenceRangeAtIndex(text, 39), kNone);
    EXPECT_EQ(sentenceRangeAtIndex(u"", 0), kNone);
}

TEST(NLTokenizer, EndsASentenceWithItsParagraph)
{
    EXPECT_EQ(sentenceRangeAtIndex(u"Pears\nPlums", 0), (NSRange{0, 6}));
    EXPECT_EQ(sentenceRangeAtIndex(u"\u68A8\u3002\u674E", 0), (NSRange{0, 2}));
}

TEST(NLTokenizer, TakesNothingWithoutWordsForASentence)
{
    EXPECT_EQ(sentenceRangeAtIndex(u"--- !", 0), kNone);
    EXPECT_EQ(sentenceRangeAtIndex(u"\U0001F600\U0001F600", 0), kNone);
}

TEST(NLTokenizer, ReadsAnEndlessSentenceOnce)
{
    const std::u16string text(5'000'000, u'a');
    EXPECT_EQ(sentenceRangeAtIndex(text, 0), (NSRange{0, text.size()}));
    EXPECT_EQ(sentenceRangeAtIndex(text, text.size() - 1), (NSRange{0, text.size()}));
}

} // namespace
