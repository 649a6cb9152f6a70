#include "platform/foundation/NSCharacterSet.h"

#include <gtest/gtest.h>

#include <string>

namespace {

TEST(NSCharacterSet, HasThePlatformsMembers)
{
    struct Case {
        const NSCharacterSet& set;
        std::u32string_view members;
        std::u32string_view others;
    };

    const Case cases[] = {
        {NSCharacterSet::whitespaceCharacterSet(), U" \t\u00A0\u2003\u3000", U"\n\u2028a\u200B"},
        {NSCharacterSet::newlineCharacterSet(), U"\n\v\f\r\u0085\u2028\u2029", U" \t\u2003a"},
        {NSCharacterSet::whitespaceAndNewlineCharacterSet(), U" \t\u00A0\n\v\f\r\u0085\u2028\u2029",
         U"a\u200B"},
        {NSCharacterSet::controlCharacterSet(), U"\u0001\n\u007F\u200B\u200D\uFEFF\U000E0041", U" a\u2028"},
        {NSCharacterSet::illegalCharacterSet(), U"\uFFFF\uFDD0\U0001FFFE\u0378", U"a\u0001\U0001F600"},
        {NSCharacterSet::alphanumericCharacterSet(), U"aZ9\u00E9\u0301\u0E01\u0663\u00BD\u2167\U00020000",
         U"_-#.\u00A0\U0001F600"},
        {NSCharacterSet::decimalDigitCharacterSet(), U"09\u0663\uFF11", U"a\u00BD\u2167"},
        {NSCharacterSet::uppercaseLetterCharacterSet(), U"A\u00C9\u01C5\u0416", U"a1\u01C6\u4E00"},
    };
    for (const auto& example : cases) {
        for (const auto member : example.members)
            EXPECT_TRUE(example.set.longCharacterIsMember(member)) << std::hex << static_cast<int>(member);
        for (const auto other : example.others)
            EXPECT_FALSE(example.set.longCharacterIsMember(other)) << std::hex << static_cast<int>(other);
    }
}

TEST(NSCharacterSet, DoesNotTakeSurrogatesForIllegal)
{
    for (const char16_t surrogate : std::u16string{0xD800, 0xDBFF, 0xDC00, 0xDFFF}) {
        EXPECT_FALSE(NSCharacterSet::illegalCharacterSet().characterIsMember(surrogate));
        EXPECT_FALSE(NSCharacterSet::controlCharacterSet().characterIsMember(surrogate));
    }
}

TEST(NSCharacterSet, IsMadeOfCharactersAndRanges)
{
    const auto ofString = NSCharacterSet::characterSetWithCharactersInString(u"ab\U0001F600");
    EXPECT_TRUE(ofString.longCharacterIsMember(U'\U0001F600'));
    EXPECT_FALSE(ofString.characterIsMember(0xD83D));
    const auto ofRange = NSCharacterSet::characterSetWithRange({0x61, 3});
    EXPECT_TRUE(ofRange.characterIsMember(u'a') && ofRange.characterIsMember(u'c'));
    EXPECT_FALSE(ofRange.characterIsMember(u'd') || ofRange.characterIsMember(u'`'));
    EXPECT_TRUE(
        NSCharacterSet::characterSetWithRange({0x10FFFF, NSNotFound}).longCharacterIsMember(0x10FFFF));
    EXPECT_FALSE(NSCharacterSet::characterSetWithRange({0x110000, 1}).longCharacterIsMember(0x10FFFF));
    EXPECT_FALSE(NSCharacterSet::characterSetWithRange({0x61, 0}).characterIsMember(u'a'));
}

TEST(NSCharacterSet, IsAValueUnderUnionAndInversion)
{
    const auto letters = NSCharacterSet::characterSetWithCharactersInString(u"ab");
    auto both = letters;
    both.formUnionWithCharacterSet(NSCharacterSet::characterSetWithCharactersInString(u"xy"));
    EXPECT_TRUE(both.characterIsMember(u'a') && both.characterIsMember(u'y'));
    EXPECT_FALSE(letters.characterIsMember(u'y'));
    const auto rest = both.invertedSet();
    EXPECT_FALSE(rest.characterIsMember(u'a') || rest.characterIsMember(u'y'));
    EXPECT_TRUE(rest.characterIsMember(u'c') && rest.characterIsMember(0xD800)
                && rest.longCharacterIsMember(0x10FFFF));
    EXPECT_FALSE(NSCharacterSet().characterIsMember(u'a'));
}

TEST(RangeOfCharacterFromSet, GivesBothUnitsOfACharacter)
{
    const auto set = NSCharacterSet::characterSetWithCharactersInString(u"x\U0001F600");
    EXPECT_EQ(rangeOfCharacterFromSet(u"ab\U0001F600x", set), (NSRange{2, 2}));
    EXPECT_EQ(rangeOfCharacterFromSet(u"ab\U0001F600x", set, 4), (NSRange{4, 1}));
    EXPECT_EQ(rangeOfCharacterFromSet(u"ab", set), (NSRange{NSNotFound, 0}));
    EXPECT_EQ(rangeOfCharacterFromSet(u"ab", set, 7), (NSRange{NSNotFound, 0}));
}

TEST(StringByTrimmingCharactersInSet, TakesFromBothEndsOnly)
{
    const auto& blanks = NSCharacterSet::whitespaceAndNewlineCharacterSet();
    EXPECT_EQ(stringByTrimmingCharactersInSet(u" \n a b\u2029\t", blanks), u"a b");
    EXPECT_EQ(stringByTrimmingCharactersInSet(u" \n ", blanks), u"");
    EXPECT_EQ(stringByTrimmingCharactersInSet(u"", blanks), u"");
    const auto faces = NSCharacterSet::characterSetWithCharactersInString(u"\U0001F600");
    EXPECT_EQ(stringByTrimmingCharactersInSet(u"\U0001F600a\U0001F600\U0001F600", faces), u"a");
    EXPECT_EQ(stringByTrimmingCharactersInSet(u"\U0001F601", faces), u"\U0001F601");
}

} // namespace
