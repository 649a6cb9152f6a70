#include "strings/StringCleaning.h"

#include "platform/foundation/NSURL.h"
#include "platform/foundation/Unicode.h"
#include "tests/strings/RandomText.h"

#include <gtest/gtest.h>

#include <string>

using namespace TSExtensions;

namespace {

constexpr std::size_t kHuge = 10'000'000;

TEST(RemovingNewlinesAndTabs, LeavesSingleSpaces)
{
    EXPECT_EQ(stringByRemovingNewlinesAndTabs(u"a\n\n\tb "), u"a b");
    EXPECT_EQ(stringByRemovingNewlinesAndTabs(u"\r\na\u2028b\u0085\vc    d\t"), u"a b c d");
    EXPECT_EQ(stringByRemovingNewlinesAndTabs(u" \n\t"), u"");
    EXPECT_EQ(stringByRemovingNewlinesAndTabs(u"a \u00A0 b\u00A0"), u"a \u00A0 b");
    EXPECT_EQ(stringByRemovingNewlinesAndTabs(std::u16string(kHuge, u'\n')), u"");
}

TEST(RemovingNewlines, LeavesASpaceForEach)
{
    EXPECT_EQ(stringByRemovingNewlines(u"a\r\nb"), u"a  b");
    EXPECT_EQ(stringByRemovingNewlines(u"\n\ta\t\n"), u"a");
    EXPECT_EQ(stringByRemovingNewlines(u"a\u2028b\u2029"), u"a\u2028b\u2029");
}

TEST(Escaping, DoublesBackslashes)
{
    EXPECT_EQ(stringByEscapingBackslashes(u"a\\b\\\\"), u"a\\\\b\\\\\\\\");
    EXPECT_EQ(stringByEscapingBackslashes(u"'\""), u"'\"");
}

TEST(Escaping, PutsABackslashBeforeQuotesOnly)
{
    EXPECT_EQ(stringByEscapingQuotes(u"it's \"so\" \\"), u"it\\'s \\\"so\\\" \\");
    EXPECT_EQ(stringByEscapingQuotes(u"\\'"), u"\\\\'");
    EXPECT_EQ(stringByEscapingQuotes(std::u16string(kHuge, u'"')).size(), 2 * kHuge);
}

TEST(TrimmingWhitespace, TakesLineEndsToo)
{
    EXPECT_EQ(stringByTrimmingWhitespace(u"\n \ta b\u2029\u00A0"), u"a b");
    EXPECT_EQ(stringByTrimmingWhitespace(u""), u"");
}

TEST(TrimmingWhitespace, DoesTheSameInPlace)
{
    RandomText texts(5);
    for (int count = 0; count < 1'000; ++count) {
        auto text = texts.next(u"a \n\t\u2029\u00A0\u200B", 8);
        const auto expected = stringByTrimmingWhitespace(text);
        trimWhitespace(text);
        EXPECT_EQ(text, expected);
    }
    std::u16string blanks(kHuge, u' ');
    trimWhitespace(blanks);
    EXPECT_EQ(blanks, u"");
}

TEST(RemovingControlAndIllegalCharacters, LeavesWhatCanBeRead)
{
    EXPECT_EQ(stringByRemovingControlAndIllegalCharacters(u"a\u0001\tb\n\u200D\uFEFFc\uFFFF\u0378\u2028"),
              u"abc\u2028");
    EXPECT_EQ(stringByRemovingControlAndIllegalCharacters(std::u16string(kHuge, u'\0')), u"");
}

TEST(RemovingControlAndIllegalCharacters, RemovesSurrogatesButTheLastOfEachBlock)
{
    EXPECT_EQ(stringByRemovingControlAndIllegalCharacters(u"a\U0001F600b"), u"ab");
    const std::u16string surrogates = {0xD800, 0xDBFE, 0xDBFF, 0xDC00, 0xDFFE, 0xDFFF};
    EXPECT_EQ(stringByRemovingControlAndIllegalCharacters(surrogates), (std::u16string{0xDBFF, 0xDFFF}));
    // U+1F3FF is written D83C DFFF.
    EXPECT_EQ(stringByRemovingControlAndIllegalCharacters(u"\U0001F3FF"), (std::u16string{0xDFFF}));
}

TEST(RemovingCharactersInSet, RemovesPairsAndUnits)
{
    const auto faces = NSCharacterSet::characterSetWithCharactersInString(u"\U0001F600x");
    EXPECT_EQ(stringByRemovingCharactersInSet(u"\U0001F600a\U0001F601x\U0001F600", faces), u"a\U0001F601");
    const auto trails = NSCharacterSet::characterSetWithRange({0xDC00, 0x400});
    EXPECT_EQ(stringByRemovingCharactersInSet(u"a\U0001F600b", trails), (std::u16string{u'a', 0xD83D, u'b'}));
    EXPECT_EQ(stringByRemovingCharactersInSet(u"abc", NSCharacterSet()), u"abc");
}

TEST(StandardizingNewlines, MakesOneOfEachPair)
{
    EXPECT_EQ(stringByStandardizingNewlines(u"a\r\nb\n\rc\rd\ne"), u"a\nb\nc\nd\ne");
    EXPECT_EQ(stringByStandardizingNewlines(u"\r\n\r\n"), u"\n\n");
    EXPECT_EQ(stringByStandardizingNewlines(u"\r\r\n"), u"\n\n");
    EXPECT_EQ(stringByStandardizingNewlines(u"\n\n\r"), u"\n\n");
    EXPECT_EQ(stringByStandardizingNewlines(u"\u2028"), u"\u2028");
    EXPECT_EQ(stringByStandardizingNewlines(std::u16string(1'000'000, u'\r')),
              std::u16string(1'000'000, u'\n'));
}

TEST(WithoutAttachments, RemovesTheirCharacters)
{
    EXPECT_EQ(stringWithoutAttachments(u"\uFFFCa\uFFFC\uFFFCb"), u"ab");
    EXPECT_EQ(stringWithoutAttachments(std::u16string(kHuge, 0xFFFC)), u"");
}

TEST(PercentEncodedURLString, EncodesWhatAURLMayNotHold)
{
    EXPECT_EQ(percentEncodedURLString(u"https://host/a b?q=\u00E9#x"), u"https://host/a%20b?q=%C3%A9#x");
    EXPECT_EQ(percentEncodedURLString(u"a\"<>\\^`{|}\u007F\n"), u"a%22%3C%3E%5C%5E%60%7B%7C%7D%7F%0A");
    EXPECT_EQ(percentEncodedURLString(u"-._~:/?#[]@!$&'()*+,;="), u"-._~:/?#[]@!$&'()*+,;=");
}

TEST(PercentEncodedURLString, KeepsWhatIsEncoded)
{
    EXPECT_EQ(percentEncodedURLString(u"a%20b%c3"), u"a%20b%c3");
    EXPECT_EQ(percentEncodedURLString(u"100% %4 %"), u"100%25%20%254%20%25");
}

TEST(PercentEncodedURLString, GivesAURLForEveryText)
{
    RandomText texts(6);
    for (int count = 0; count < 5'000; ++count) {
        const auto text = texts.next(u"a1%/ \n\u00E9\U0001F600#[\"\\\uFFFF", 10);
        const auto encoded = percentEncodedURLString(text);
        EXPECT_EQ(NSURL::URLWithString(UTF8FromUTF16(encoded)).has_value(), !text.empty())
            << UTF8FromUTF16(text);
        EXPECT_EQ(percentEncodedURLString(encoded), encoded);
    }
}

TEST(StringWithCString, IgnoresTheLength)
{
    EXPECT_EQ(stringWithCString("caf\xC3\xA9", NSUTF8StringEncoding, 2), u"caf\u00E9");
    EXPECT_EQ(stringWithCString("abc", NSASCIIStringEncoding, 99), u"abc");
    EXPECT_EQ(stringWithCString("\x8E", NSMacOSRomanStringEncoding, 0), u"\u00E9");
}

TEST(StringWithCString, GivesNoneForWhatIsNoText)
{
    EXPECT_FALSE(stringWithCString("\xFF", NSUTF8StringEncoding, 1));
    EXPECT_FALSE(stringWithCString("abc", 4711, 3));
    EXPECT_FALSE(stringWithCString(nullptr, NSUTF8StringEncoding, 0));
}

} // namespace
