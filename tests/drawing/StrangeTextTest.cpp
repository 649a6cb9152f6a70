#include "platform/drawing/NSStringDrawing.h"
#include "tests/drawing/SampleText.h"

#include <gtest/gtest.h>

#include <array>
#include <cmath>
#include <limits>
#include <thread>
#include <vector>

namespace {

TEST(StrangeText, TakesWhateverNamesHold)
{
    const std::u16string nul(u"a\0b", 3);
    EXPECT_GT(sizeOfAttributedString(systemText(nul)).width, sizeOfAttributedString(systemText(u"ab")).width);
    const std::u16string unpaired{u'a', 0xD800, u'b', 0xDC00};
    EXPECT_EQ(sizeOfAttributedString(systemText(unpaired)).width,
              sizeOfAttributedString(systemText(u"a\xfffd"
                                                u"b\xfffd"))
                  .width);
    for (const auto* text : {u"\x202e"
                             u"abc\x202c",
                             u"\x2066\x2067\x2068", u"\x0001\x0002\x007f\x0080", u"a\x0301\x0302\x0303",
                             u"\xd83d\xde00\x200d\xd83d\xde00", u"\xdbff\xdfff"})
        EXPECT_NO_THROW((void)drawn(systemText(text)));
}

// The text of a PDF that is selected must be of characters.
TEST(StrangeText, StandsInAPDFWithoutWhatIsNoCharacter)
{
    for (const auto* text :
         {u"a\xfffe"
          u"b",
          u"a\xffff"
          u"b",
          u"\xfdd0", u"\xfdef", u"\xd83f\xdffe", u"\xdbff\xdfff", u"\x0001\x0008\x001b\x007f", u"\xd800"}) {
        const auto draw = [text](NSGraphicsContext& context) {
            drawAttributedString(systemText(text), {{}, kSheet}, context);
        };
        NSError error;
        const auto document = DrawingSurface{kSheet}.PDFRepresentation(NSDrawing(draw), &error);
        ASSERT_TRUE(document) << error.localizedDescription();
        EXPECT_TRUE(document->bytes.starts_with("%PDF"));
    }
    EXPECT_EQ(sizeOfAttributedString(systemText(u"\xfffe")).width,
              sizeOfAttributedString(systemText(u"\xfffd")).width);
}

// A pair of surrogates may lie in two runs.
TEST(StrangeText, TakesCharactersThatLieInTwoRuns)
{
    auto text = systemText(u"a\xd835\xdc00"
                           u"b");
    const auto width = sizeOfAttributedString(text).width;
    setColor(text, red(), {0, 2});
    setColor(text, blue(), {2, 2});
    EXPECT_NEAR(sizeOfAttributedString(text).width, width, 0.01);
}

TEST(StrangeText, TakesLongLinesAndManyLines)
{
    for (const char16_t character : {u'a', u' ', u'\t', u'\xfdfd', u'\x0301', u'\x0001', u'漢', u'\xd800'}) {
        auto text = systemText(std::u16string(100000, character));
        EXPECT_GE(sizeOfAttributedString(text).width, 0);
        (void)drawn(text, {{}, {100, 20}});
    }
    auto lines = systemText(std::u16string(20000, u'\n'));
    EXPECT_GT(sizeOfAttributedString(lines).height, 20000);
    (void)drawn(lines);
}

TEST(StrangeText, TakesFontsOfEverySize)
{
    for (const double size : {1e-9, 0.5, 5000.0, 1e300, std::numeric_limits<double>::infinity()}) {
        const auto text = systemText(u"abc", size);
        const auto measured = sizeOfAttributedString(text);
        EXPECT_TRUE(std::isfinite(measured.width) && measured.width > 0) << size;
        (void)drawn(text);
    }
}

// Each font costs memory. A line has 256 of them; text in others has the first.
TEST(StrangeText, TakesAsManyFontsInALineAsItKeeps)
{
    NSMutableAttributedString text;
    for (int i = 0; i < 300; ++i)
        text.appendAttributedString(textWithFont(u"a", NSFont::systemFontOfSize(5 + i * 0.25)));
    // Fonts that return are no others.
    text.appendAttributedString(textWithFont(u"a", NSFont::systemFontOfSize(30)));
    double expected = 0;
    for (int i = 0; i < 256; ++i)
        expected += sizeOfAttributedString(systemText(u"a", 5 + i * 0.25)).width;
    expected += 44 * sizeOfAttributedString(systemText(u"a", 5)).width;
    expected += sizeOfAttributedString(systemText(u"a", 30)).width;
    EXPECT_NEAR(sizeOfAttributedString(text).width, expected, 0.01);
}

TEST(StrangeText, DrawsTheSameOnEveryThread)
{
    auto text = systemText(u"One text, four threads: שלום 汉字");
    setStyle(text, NSLineBreakMode::TruncatingMiddle);
    const auto expected = drawn(text, NSMakeRect(0, 0, 120, 30));
    std::array<BitmapPixels, 4> results;
    std::vector<std::thread> threads;
    for (auto& result : results)
        threads.emplace_back([&result, text] { result = drawn(text, NSMakeRect(0, 0, 120, 30)); });
    for (auto& thread : threads)
        thread.join();
    for (const auto& result : results)
        EXPECT_EQ(result, expected);
}

/// Runs in a process of its own, which looks for fonts for the first time.
[[noreturn]] void drawWithoutFonts()
{
    setenv("FONTCONFIG_FILE", "/dev/null", 1);
    const auto text = systemText(u"no font");
    const auto size = sizeOfAttributedString(text);
    (void)drawn(text);
    std::exit(std::isfinite(size.width) && size.width >= 0 && size.height >= 0 ? 0 : 1);
}

TEST(StrangeTextDeathTest, DrawsWithoutAnyFont)
{
    GTEST_FLAG_SET(death_test_style, "threadsafe");
    EXPECT_EXIT(drawWithoutFonts(), testing::ExitedWithCode(0), "");
}

} // namespace
