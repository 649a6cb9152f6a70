#include "platform/rtf/RTFText.h"

#include "platform/foundation/Unicode.h"

#include <gmock/gmock.h>

#include <array>
#include <string>
#include <string_view>

using namespace std::string_literals;
using namespace std::string_view_literals;

namespace {

std::string textOf(std::string_view rtf)
{
    std::string text;
    (void)readRTFText(rtf, [&text](std::string_view piece) {
        text += piece;
        return true;
    });
    return text;
}

struct Case {
    std::string_view rtf;
    std::string_view text;
};

} // namespace

TEST(RTFText, GivesTextWithoutFormatting)
{
    constexpr auto kCases = std::to_array<Case>({
        {"{\\rtf1\\ansi Hello {\\b bold} world\\par Next}", "Hello bold world\nNext"},
        {"{\\rtf1 one\\\ntwo\\\r\nthree}", "one\ntwo\nthree"},
        {"{\\rtf1 no\r\nspace}", "nospace"},
        {"{\\rtf1 a\\tab b\\~c\\_d\\-e\\line f}", "a\tb\u00A0c\u2011de\u2028f"},
        {"{\\rtf1 \\lquote q\\rquote  \\emdash  \\bullet }", "‘q’ — •"},
        {"{\\rtf1 \\{braces\\} \\\\ back}", "{braces} \\ back"},
        {"{\\rtf1\\trowd a\\cell b\\cell\\row c}", "a\nb\nc"},
        {"\xEF\xBB\xBF \n{\\rtf1 mark}", "mark"},
        {"{\\rtf1 before}after", "before"},
    });
    for (const auto& example : kCases)
        EXPECT_EQ(textOf(example.rtf), example.text) << example.rtf;
}

TEST(RTFText, DecodesBytesByCodePage)
{
    constexpr auto kCases = std::to_array<Case>({
        {"{\\rtf1\\ansi caf\\'e9 \xE9}", "café é"},
        {"{\\rtf1\\ansi\\ansicpg1251 \\'ef\\'f0}", "пр"},
        {"{\\rtf1\\mac \\'8e}", "é"},
        {"{\\rtf1\\pc \\'82}", "é"},
        {"{\\rtf1{\\fonttbl{\\f0\\fcharset204 A;}{\\f1\\fcharset0 B;}}\\f0\\'ef\\f1\\'ef}", "пï"},
        {"{\\rtf1{\\fonttbl\\f0\\fcharset0 A;\\f1\\fcharset161 B;}\\f1\\'e1}", "α"},
        {"{\\rtf1\\deff1{\\fonttbl{\\f1\\fcharset238 A;}}\\'f8}", "ř"},
        {"{\\rtf1{\\fonttbl{\\f0\\fcharset0 A;}{\\f1\\fcharset204 B;}}\\f0{\\f1\\'ef}\\'ef}", "пï"},
    });
    for (const auto& example : kCases)
        EXPECT_EQ(textOf(example.rtf), example.text) << example.rtf;
}

TEST(RTFText, JoinsHalvesOfCharactersHoweverTheyAreWritten)
{
    constexpr auto kCases = std::to_array<Case>({
        {"{\\rtf1{\\fonttbl{\\f0\\fcharset128 A;}}\\f0\\'82\\'a0}", "あ"},
        {"{\\rtf1{\\fonttbl{\\f0\\fcharset128 A;}}\\f0\\'83A}", "ア"},
        {"{\\rtf1{\\fonttbl{\\f0\\fcharset128 A;}}\\f0\\'95\\\\}", "表"},
        {"{\\rtf1\\ansicpg936 \\'d6\\'d0\\'b9\\'fa}", "中国"},
        {"{\\rtf1\\ansicpg949 \xB0\xA1}", "가"},
    });
    for (const auto& example : kCases)
        EXPECT_EQ(textOf(example.rtf), example.text) << example.rtf;
}

TEST(RTFText, ReadsUnicodeCharacters)
{
    constexpr auto kCases = std::to_array<Case>({
        {"{\\rtf1 \\u233?x}", "éx"},
        {"{\\rtf1 \\u233\\'e9x}", "éx"},
        {"{\\rtf1\\uc0 \\u233 x}", "éx"},
        {"{\\rtf1\\uc2 \\u233 abx}", "éx"},
        {"{\\rtf1\\uc3 \\u233 a\\b cx}", "éx"},
        {"{\\rtf1 {\\uc2\\u233 ab}\\u233 ab}", "ééb"},
        {"{\\rtf1\\uc5 {\\u233 a}b}", "éb"},
        {"{\\rtf1\\u-10179?\\u-8704?}", "😀"},
        {"{\\rtf1\\uc0\\u55357 \\u56832 }", "😀"},
        {"{\\rtf1\\u55357?x\\u56832?}", "\uFFFDx\uFFFD"},
        {"{\\rtf1\\u99999?x}", "\uFFFDx"},
        {"{\\rtf1 x\\u55357?}", "x\uFFFD"},
    });
    for (const auto& example : kCases)
        EXPECT_EQ(textOf(example.rtf), example.text) << example.rtf;
}

TEST(RTFText, LeavesOutWhatIsNoText)
{
    constexpr auto kCases = std::to_array<Case>({
        {"{\\rtf1{\\fonttbl{\\f0 Arial;}}{\\colortbl;\\red1;}{\\stylesheet{\\s1 Heading;}}text}", "text"},
        {"{\\rtf1{\\*\\generator Word;}{\\*\\unknown {nested}}text}", "text"},
        {"{\\rtf1{\\pict\\pngblip 89504e47}text}", "text"},
        {"{\\rtf1 a{\\v hidden}b\\v c\\v0 d}", "abd"},
        {"{\\rtf1{\\field{\\*\\fldinst HYPERLINK \"http://x.org\"}{\\fldrslt link}}}", "link"},
        {"{\\rtf1{\\upr{ansi}{\\*\\ud{unicode}}}}", "unicode"},
        {"{\\rtf1 a{\\*\\cs7 b}c\\*\\cs7 d}", "acd"},
        {"{\\rtf1 a{{\\NeXTGraphic x.png \\width10\n}\xAC}b\xAC}", "a\uFFFCb¬"},
        {"{\\rtf1{\\object{\\*\\objdata 00}{\\result shown}}}", "shown"},
        {"{\\rtf1{\\generator Word;}{\\listtable{\\list{\\listname n;}}}text}", "text"},
        {"{\\rtf1 a{\\v{{\\NeXTGraphic x.png}\xAC}}b}", "ab"},
    });
    for (const auto& example : kCases)
        EXPECT_EQ(textOf(example.rtf), example.text) << example.rtf;
}

TEST(RTFText, KeepsTextBesideTheBody)
{
    constexpr auto kCases = std::to_array<Case>({
        {"{\\rtf1{\\header Top}body}", "\nTop\nbody"},
        {"{\\rtf1 body{\\footnote note}more}", "body\nnote\nmore"},
        {"{\\rtf1{\\listtext\\tab 1.\\tab}item}", "\t1.\titem"},
        {"{\\rtf1{\\shp{\\*\\shpinst{\\sp{\\sn n}{\\sv v}}{\\shptxt box}}}}", "\nbox\n"},
    });
    for (const auto& example : kCases)
        EXPECT_EQ(textOf(example.rtf), example.text) << example.rtf;
}

TEST(RTFText, ReadsDescription)
{
    const auto result
        = readRTFText("{\\rtf1{\\info{\\title T\\'e9}{\\author A}{\\*\\company C}{\\keywords k, l}}x}",
                      [](std::string_view) { return true; });
    ASSERT_EQ(result.fields.size(), 3U);
    EXPECT_EQ(result.fields[0].name, "title");
    EXPECT_EQ(result.fields[0].value, "Té");
    EXPECT_EQ(result.fields[1].value, "A");
    EXPECT_EQ(result.fields[2].value, "k, l");
}

TEST(RTFText, ReadsDescriptionInUnicodeWhereThereAreBoth)
{
    const auto result = readRTFText(
        "{\\rtf1{\\info{\\upr{\\title ?}{\\*\\ud{\\title \\u12478\\'3f}}}{\\author A{\\*\\unknown B}}}x}",
        [](std::string_view) { return true; });
    ASSERT_EQ(result.fields.size(), 2U);
    EXPECT_EQ(result.fields[0].value, "\u30BE");
    EXPECT_EQ(result.fields[1].value, "A");
}

TEST(RTFText, TakesCodePagesOfTheDocumentFromItsTextOnly)
{
    EXPECT_EQ(textOf("{\\rtf1{\\*\\listtable\\ansicpg1251}{\\*\\unknown\\mac}\\'e9}"), "\u00E9");
}

TEST(RTFText, PairsHalvesOfCharactersAcrossGroups)
{
    EXPECT_EQ(textOf("{\\rtf1{\\u55357?}{\\b\\u56832?}}"), "\U0001F600");
    EXPECT_EQ(textOf("{\\rtf1\\u55357?\\par\\u56832?}"), "\uFFFD\n\uFFFD");
    EXPECT_EQ(textOf("{\\rtf1\\u55357?{\\fonttbl x;}\\u56832?}"), "\uFFFD\uFFFD");
}

TEST(RTFText, ComesInPiecesHoweverFewWordsThereAre)
{
    constexpr std::size_t kLargestPiece = 200'000;
    constexpr std::size_t kCount = 300'000;
    for (const auto* const character : {"\\'e9", "\\u233?"}) {
        std::string rtf = "{\\rtf1 ";
        for (std::size_t count = 0; count < kCount; ++count)
            rtf += character;
        std::size_t length = 0;
        (void)readRTFText(rtf, [&length, kLargestPiece](std::string_view piece) {
            EXPECT_LE(piece.size(), kLargestPiece);
            length += piece.size();
            return true;
        });
        EXPECT_EQ(length, 2 * kCount);
    }
}

TEST(RTFText, PassesOverBinaryData)
{
    EXPECT_EQ(textOf("{\\rtf1 a{\\pict\\bin5 }}}}}}b}"), "ab");
    EXPECT_EQ(textOf("{\\rtf1 a\\bin4294967295 bcd}"), "a");
    EXPECT_EQ(textOf("{\\rtf1 a\\bin-5 b}"), "ab");
}

TEST(RTFText, RefusesWhatIsNoRTF)
{
    for (const auto bytes : {""sv, "{"sv, "{\\rt"sv, "plain text"sv, "\0{\\rtf1 x}"sv})
        EXPECT_FALSE(readRTFText(bytes, [](std::string_view) { return true; }).isRTF);
}

TEST(RTFText, SaysWhetherTheDocumentWasClosed)
{
    const auto all = [](std::string_view) { return true; };
    EXPECT_TRUE(readRTFText("{\\rtf1 a}", all).isComplete);
    EXPECT_FALSE(readRTFText("{\\rtf1 a{b}", all).isComplete);
    EXPECT_EQ(textOf("{\\rtf1 a{b}"), "ab");
}

TEST(RTFText, SurvivesDeepNesting)
{
    constexpr std::size_t kDepth = 300'000;
    std::string rtf = "{\\rtf1 a";
    rtf.append(kDepth, '{');
    rtf += "deep";
    rtf.append(kDepth, '}');
    rtf += "b}c";
    EXPECT_EQ(textOf(rtf), "adeepb");
}

TEST(RTFText, SurvivesBrokenControls)
{
    for (const auto rtf :
         {"{\\rtf1 \\"sv, "{\\rtf1 \\'"sv, "{\\rtf1 \\'4"sv, "{\\rtf1 \\'zz}"sv, "{\\rtf1\\u}"sv,
          "{\\rtf1\\uc-5\\u233 x}"sv, "{\\rtf1\\uc99999999999\\u233 }"sv, "{\\rtf1\\f99999999\\'e9}"sv,
          "{\\rtf1\\ansicpg99999999 \\'e9}"sv, "{\\rtf1{\\fonttbl\\f-1\\fcharset-9}\\f-1\\'e9}"sv})
        EXPECT_TRUE(isValidUTF8(textOf(rtf))) << rtf;
    EXPECT_EQ(textOf("{\\rtf1\\" + std::string(100'000, 'a') + " b}"), "b");
}

TEST(RTFText, StopsWhenTheReceiverHasEnough)
{
    std::string rtf = "{\\rtf1 ";
    for (int count = 0; count < 100'000; ++count)
        rtf += "words and \\b0 more words\\par\n";
    unsigned calls = 0;
    (void)readRTFText(rtf, [&calls](std::string_view) {
        ++calls;
        return false;
    });
    EXPECT_EQ(calls, 1U);
}
