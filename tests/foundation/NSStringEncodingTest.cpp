#include "platform/foundation/NSStringEncoding.h"

#include <gtest/gtest.h>

namespace {

TEST(NSStringEncoding, ReadsEachEncoding)
{
    struct Case {
        NSStringEncoding encoding;
        std::string_view bytes;
        std::u16string_view text;
    };

    const Case cases[] = {
        {NSASCIIStringEncoding, "abc", u"abc"},
        {NSUTF8StringEncoding, "\xE2\x82\xAC\xF0\x9F\x98\x80", u"\u20AC\U0001F600"},
        {NSISOLatin1StringEncoding, "\xE9\x80", u"\u00E9\u0080"},
        {NSISOLatin2StringEncoding, "\xA3", u"\u0141"},
        {NSWindowsCP1250StringEncoding, "\xA3", u"\u0141"},
        {NSWindowsCP1251StringEncoding, "\xC6", u"\u0416"},
        {NSWindowsCP1252StringEncoding, "\x80", u"\u20AC"},
        {NSWindowsCP1253StringEncoding, "\xE1", u"\u03B1"},
        {NSWindowsCP1254StringEncoding, "\xFD", u"\u0131"},
        {NSMacOSRomanStringEncoding, "\x8E", u"\u00E9"},
        {NSJapaneseEUCStringEncoding, "\xA4\xA2", u"\u3042"},
        {NSShiftJISStringEncoding, "\x82\xA0", u"\u3042"},
        {NSISO2022JPStringEncoding, "\x1B$B$\"\x1B(B", u"\u3042"},
    };
    for (const auto& example : cases)
        EXPECT_EQ(stringWithBytes(example.bytes, example.encoding), example.text) << example.encoding;
}

TEST(NSStringEncoding, GivesNoneForBytesWithoutAMeaning)
{
    EXPECT_FALSE(stringWithBytes("\xFF", NSUTF8StringEncoding));
    EXPECT_FALSE(stringWithBytes("\xE9", NSASCIIStringEncoding));
    EXPECT_FALSE(stringWithBytes("\x82", NSShiftJISStringEncoding));
    EXPECT_FALSE(stringWithBytes("a", 0));
    EXPECT_FALSE(stringWithBytes("a", 4711));
    EXPECT_EQ(stringWithBytes("", NSMacOSRomanStringEncoding), u"");
}

} // namespace
