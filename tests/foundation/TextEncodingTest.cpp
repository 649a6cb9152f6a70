#include "platform/foundation/TextEncoding.h"

#include "platform/foundation/TextDecoder.h"
#include "platform/foundation/Unicode.h"
#include "tests/support/TemporaryFolder.h"

#include <gmock/gmock.h>

#include <array>
#include <filesystem>
#include <fstream>
#include <sstream>
#include <string>
#include <string_view>

using namespace std::string_literals;
using namespace std::string_view_literals;

namespace {

struct Example {
    std::string_view charsetName;
    std::string_view bytes;
    std::string_view text;
};

// One short sentence of each language in the bytes of an encoding that was common for it.
constexpr auto kExamples = std::to_array<Example>({
    {"windows-1252", "Le gar\xE7on a \xE9t\xE9 tr\xE8s content", "Le garçon a été très content"},
    {"windows-1252", "Die B\xE4ume bl\xFChen sch\xF6n", "Die Bäume blühen schön"},
    {"windows-1252", "\x93Quoted\x94 \x96 it\x92s done", "“Quoted” – it’s done"},
    {"windows-1250", "P\xF8\xEDli\x9A \x9Elu\x9Dou\xE8k\xFD k\xF9\xF2", "Příliš žluťoučký kůň"},
    {"iso-8859-2", "P\xF8\xEDli\xB9 \xBElu\xBBou\xE8k\xFD k\xF9\xF2", "Příliš žluťoučký kůň"},
    {"windows-1250", "\xC1rv\xEDzt\xFBr\xF5 t\xFCk\xF6rf\xFAr\xF3g\xE9p", "Árvíztűrő tükörfúrógép"},
    {"windows-1251", "\xD1\xFA\xE5\xF8\xFC \xE6\xE5 \xE5\xF9\xB8 \xFD\xF2\xE8\xF5 \xEC\xFF\xE3\xEA\xE8\xF5",
     "Съешь же ещё этих мягких"},
    {"koi8-u", "\xF3\xDF\xC5\xDB\xD8 \xD6\xC5 \xC5\xDD\xA3 \xDC\xD4\xC9\xC8 \xCD\xD1\xC7\xCB\xC9\xC8",
     "Съешь же ещё этих мягких"},
    {"iso-8859-5", "\xC1\xEA\xD5\xE8\xEC \xD6\xD5 \xD5\xE9\xF1 \xED\xE2\xD8\xE5 \xDC\xEF\xD3\xDA\xD8\xE5",
     "Съешь же ещё этих мягких"},
    {"ibm866", "\x91\xEA\xA5\xE8\xEC \xA6\xA5 \xA5\xE9\xF1 \xED\xE2\xA8\xE5 \xAC\xEF\xA3\xAA\xA8\xE5",
     "Съешь же ещё этих мягких"},
    {"windows-1253", "\xCA\xE1\xEB\xE7\xEC\xDD\xF1\xE1 \xEA\xFC\xF3\xEC\xE5", "Καλημέρα κόσμε"},
    {"windows-1254", "\xDD\xFE\xE7i \xE7ocu\xF0u g\xFCl\xFCyor", "İşçi çocuğu gülüyor"},
    {"windows-1255", "\xF9\xEC\xE5\xED \xF2\xE5\xEC\xED \xE7\xE3\xF9", "שלום עולם חדש"},
    {"windows-1256", "\xE3\xD1\xCD\xC8\xC7 \xC8\xC7\xE1\xDA\xC7\xE1\xE3", "مرحبا بالعالم"},
    {"windows-874", "\xCA\xC7\xD1\xCA\xB4\xD5\xAA\xD2\xC7\xE2\xC5\xA1", "สวัสดีชาวโลก"},
    {"windows-31j", "\x82\xB1\x82\xF1\x82\xC9\x82\xBF\x82\xCD\x90\xA2\x8A\x45", "こんにちは世界"},
    {"euc-jp", "\xA4\xB3\xA4\xF3\xA4\xCB\xA4\xC1\xA4\xCF\xC0\xA4\xB3\xA6", "こんにちは世界"},
    {"gb18030", "\xC4\xE3\xBA\xC3\xA3\xAC\xCE\xD2\xB5\xC4\xD6\xD0\xB9\xFA\xC5\xF3\xD3\xD1",
     "你好，我的中国朋友"},
    {"windows-950", "\xA7\x41\xA6\x6E\xA1\x41\xA7\xDA\xAA\xBA\xA4\xA4\xB0\xEA\xAA\x42\xA4\xCD",
     "你好，我的中國朋友"},
    {"windows-949", "\xBE\xC8\xB3\xE7\xC7\xCF\xBC\xBC\xBF\xE4 \xBC\xBC\xB0\xE8", "안녕하세요 세계"},
});

std::string utf16(std::u16string_view text, bool isBigEndian)
{
    std::string bytes;
    for (const char16_t unit : text) {
        const auto upper = static_cast<char>(unit >> 8U);
        const auto lower = static_cast<char>(unit & 0xFFU);
        bytes += isBigEndian ? std::string{upper, lower} : std::string{lower, upper};
    }
    return bytes;
}

} // namespace

TEST(TextEncoding, GuessesShortTextsOfManyLanguages)
{
    for (const auto& example : kExamples) {
        EXPECT_EQ(textEncodingForBytes(example.bytes).name, example.charsetName) << example.text;
        EXPECT_FALSE(textEncodingForBytes(example.bytes).isSure) << example.text;
        EXPECT_EQ(decodedText(example.bytes), example.text);
    }
}

TEST(TextEncoding, DecodesByCharsetName)
{
    for (const auto& example : kExamples)
        EXPECT_EQ(decodedText(example.bytes, example.charsetName), example.text);
}

TEST(TextEncoding, TakesByteOrderMarksOff)
{
    EXPECT_EQ(decodedText("\xEF\xBB\xBFmark"), "mark");
    EXPECT_EQ(decodedText("\xFF\xFE" + utf16(u"mårk", false)), "mårk");
    EXPECT_EQ(decodedText("\xFE\xFF" + utf16(u"mårk", true)), "mårk");
    EXPECT_EQ(decodedText("\xFF\xFE\0\0m\0\0\0"sv), "m");
    EXPECT_EQ(decodedText("\0\0\xFE\xFF\0\0\0m"sv), "m");
    EXPECT_EQ(decodedText("\xFF\xFE" + utf16(u"mark", false), "iso-8859-1"), "mark");
}

TEST(TextEncoding, KnowsWideTextWithoutMark)
{
    for (const bool isBigEndian : {false, true}) {
        EXPECT_EQ(decodedText(utf16(u"A line.\r\nAnother.\n", isBigEndian)), "A line.\r\nAnother.\n");
        EXPECT_EQ(decodedText(utf16(u"日本語の文章です。\n二行目\n", isBigEndian)),
                  "日本語の文章です。\n二行目\n");
    }
}

TEST(TextEncoding, LeavesStrayZerosInNarrowText)
{
    const auto text = "plain text with a\0zero byte in it, and more text behind it"s;
    EXPECT_EQ(textEncodingForBytes(text).name, "utf-8");
    EXPECT_EQ(decodedText(text), text);
}

TEST(TextEncoding, HonoursDeclarations)
{
    EXPECT_EQ(decodedText("<?xml version=\"1.0\" encoding=\"KOI8-R\"?><a>\xC4\xC1</a>"),
              "<?xml version=\"1.0\" encoding=\"KOI8-R\"?><a>да</a>");
    EXPECT_EQ(
        textEncodingForBytes("<html><META http-equiv=x content=\"text/html; charset=Shift_JIS\"><p>\x82\xA0")
            .name,
        "windows-31j");
    EXPECT_EQ(textEncodingForBytes("# -*- coding: windows-1251 -*-\nx = '\xE4\xE0'\n").name, "windows-1251");
    EXPECT_TRUE(textEncodingForBytes("# coding: cp1251\n\xE4\xE0").isSure);
}

TEST(TextEncoding, DropsDeclarationsThatDoNotHold)
{
    const auto bytes = "<?xml encoding=\"euc-jp\"?><a>\xE9t\xE9 \xE0 la plage</a>"sv;
    EXPECT_EQ(textEncodingForBytes(bytes).name, "windows-1252");
    EXPECT_EQ(textEncodingForBytes("<?xml encoding=\"../../etc/passwd\"?><a>\xE9t\xE9</a>").name,
              "windows-1252");
}

TEST(TextEncoding, ReadsEscapeSequences)
{
    EXPECT_EQ(decodedText("\x1B$B$3$s$K$A$O\x1B(B"), "こんにちは");
    EXPECT_EQ(decodedText("\x1B[31mred\x1B[0m"), "\x1B[31mred\x1B[0m")
        << "a terminal's colours are no encoding";
}

TEST(TextEncoding, TakesSlightlyBrokenUTF8AsUTF8)
{
    EXPECT_EQ(decodedText("Съешь же ещё\xFF этих мягких"), "Съешь же ещё\uFFFD этих мягких");
}

TEST(TextEncoding, ForgivesCutCharacterOnlyWhenTextGoesOn)
{
    const auto cut = "caf\xC3"sv;
    EXPECT_EQ(textEncodingForBytes(cut, false).name, "utf-8");
    EXPECT_NE(textEncodingForBytes(cut, true).name, "utf-8");
}

TEST(TextEncoding, IsSureOfWhatItNeedNotGuess)
{
    const auto sure = sureTextEncodingForBytes("caf\xC3\xA9");
    ASSERT_TRUE(sure);
    EXPECT_EQ(sure->name, "utf-8");
    EXPECT_TRUE(sure->isSure);
    EXPECT_TRUE(sureTextEncodingForBytes("caf\xC3", false));
    EXPECT_TRUE(sureTextEncodingForBytes("<?xml encoding='iso-8859-15'?><a>caf\xE9</a>"));
    EXPECT_FALSE(sureTextEncodingForBytes("Le gar\xE7on a \xE9t\xE9 tr\xE8s content"));
    EXPECT_FALSE(sureTextEncodingForBytes("caf\xC3"));
}

TEST(TextEncoding, SaysNothingOfNothing)
{
    EXPECT_EQ(decodedText(""), "");
    EXPECT_EQ(textEncodingForBytes("").name, "utf-8");
}

TEST(TextEncoding, SurvivesEveryByteValueInEveryPlace)
{
    std::string bytes;
    for (unsigned round = 0; round < 2000; ++round)
        bytes += static_cast<char>((round * 167U + round / 256U) & 0xFFU);
    for (std::size_t length = 0; length < bytes.size(); length += 37)
        EXPECT_TRUE(isValidUTF8(decodedText(std::string_view(bytes).substr(0, length))));
}

TEST(CharsetNames, MayBeWrittenInManyWays)
{
    for (const auto* const name : {"ks_c_5601-1987", "euc-kr", "EUC_KR", "cp949", "\"ks_c_5601-1987\""})
        EXPECT_EQ(decodedText("\xB0\xA1", name), "가") << name;
    for (const auto* const name : {"x-sjis", "Shift_JIS", "sjis", "ms_kanji", "windows-31j"})
        EXPECT_EQ(decodedText("\x82\xA0", name), "あ") << name;
    for (const auto* const name : {"utf8", "UTF-8", "utf_8", " utf-8 "})
        EXPECT_EQ(decodedText("\xC3\xA9", name), "é") << name;
    for (const auto* const name : {"cp-1252", "windows1252", "iso-8859-1", "us-ascii", "latin1"})
        EXPECT_EQ(decodedText("\xE9\x80", name), "é€") << name;
    EXPECT_EQ(decodedText("\xF9", "iso-8859-8-i"), "ש");
    EXPECT_EQ(decodedText("\xD2", "gb2312").has_value(), true);
}

TEST(CharsetNames, ThatMeanNothingGiveNone)
{
    for (const auto* const name :
         {"unknown-8bit", "x-unknown", "", "  ", "no-such-charset", "../x", "utf-8,version=2", "a\nb"})
        EXPECT_FALSE(decodedText("x", name).has_value()) << name;
    EXPECT_FALSE(decodedText("x", std::string(5000, 'a')).has_value());
}

TEST(TextDecoder, KeepsCharactersCutBetweenChunks)
{
    for (const auto& example : kExamples) {
        auto decoder = TextDecoder::createWithCharset(example.charsetName);
        ASSERT_TRUE(decoder);
        std::string text;
        for (const char byte : example.bytes)
            decoder->append({&byte, 1}, text);
        decoder->finish(text);
        EXPECT_EQ(text, example.text);
    }
}

TEST(TextDecoder, EndsWithReplacementForUnfinishedCharacter)
{
    auto decoder = TextDecoder::createWithCharset("euc-jp");
    ASSERT_TRUE(decoder);
    std::string text;
    decoder->append("a\xA4", text);
    decoder->finish(text);
    EXPECT_EQ(text, "a\uFFFD");
    decoder->append("b", text);
    EXPECT_EQ(text, "a\uFFFDb");
}

TEST(TextDecoder, JoinsSurrogatesAcrossChunks)
{
    auto decoder = TextDecoder::createWithCharset("utf-16le");
    ASSERT_TRUE(decoder);
    std::string text;
    for (const char byte : utf16(u"a😀b", false))
        decoder->append({&byte, 1}, text);
    EXPECT_EQ(text, "a😀b");
}

TEST(StringWithContentsOfURL, RefusesWhatIsInDoubt)
{
    const TemporaryFolder folder;
    (void)folder.write("sure.txt", "déjà vu");
    (void)folder.write("doubt.txt", "d\xE9j\xE0 vu");
    std::string encoding;
    EXPECT_EQ(stringWithContentsOfURL(folder.url("sure.txt"), &encoding), "déjà vu");
    EXPECT_EQ(encoding, "utf-8");
    NSError error;
    EXPECT_FALSE(stringWithContentsOfURL(folder.url("doubt.txt"), nullptr, &error));
    EXPECT_EQ(error.code(), static_cast<int>(NSCocoaError::FileReadUnknownStringEncoding));
    EXPECT_FALSE(stringWithContentsOfURL(folder.url("absent.txt"), nullptr, &error));
    EXPECT_EQ(error.domain(), NSPOSIXErrorDomain);
}

TEST(StringEncodingForData, ConvertsWhatIsInDoubt)
{
    std::string text;
    EXPECT_EQ(stringEncodingForData("d\xE9j\xE0 vu", &text), "windows-1252");
    EXPECT_EQ(text, "déjà vu");
}
