// Characters and their looks in written documents.

#include "tests/word/WriteWord.h"

#include <gmock/gmock.h>

#include <cmath>

using testing::HasSubstr;
using testing::Not;

namespace {

NSAttributedString plain(std::u16string text)
{
    return NSAttributedString(std::move(text));
}

/// The one run of a text with an attribute, in a document of plain text otherwise.
std::string runWith(std::u16string_view name, const NSAny& value)
{
    NSMutableAttributedString text(plain(u"much plain text before the word "));
    text.appendAttributedString(NSAttributedString(u"word", attributesOf({{name, value}})));
    const auto body = bodyOf(text);
    const auto place = body.rfind("<w:r>");
    return body.substr(place, body.find("</w:r>", place) - place);
}

NSAny readWith(std::u16string_view name, const NSAny& value)
{
    return readAgain(NSAttributedString(u"word", attributesOf({{name, value}}))).attribute(name, 0);
}

} // namespace

TEST(WordRunWriting, WritesTextInRuns)
{
    EXPECT_EQ(bodyOf(plain(u"one\ntwo")),
              "<w:p><w:r><w:t xml:space=\"preserve\">one</w:t></w:r></w:p>"
              "<w:p><w:r><w:t xml:space=\"preserve\">two</w:t></w:r></w:p>");
}

TEST(WordRunWriting, WritesAParagraphForNoText)
{
    EXPECT_EQ(bodyOf(plain(u"")), "<w:p/>");
}

TEST(WordRunWriting, EscapesMarkup)
{
    const auto text = plain(u"<b> & \"x\" 'y' ]]>\n");
    EXPECT_THAT(bodyOf(text), HasSubstr("&lt;b&gt; &amp; &quot;x&quot; 'y' ]]&gt;"));
    EXPECT_EQ(readAgain(text).string(), text.string());
}

TEST(WordRunWriting, WritesBreaksTabsAndHyphensAsElements)
{
    EXPECT_THAT(bodyOf(plain(u"a\tb\u2028c\fd\u2011e\u00ADf")),
                HasSubstr(">a</w:t><w:tab/><w:t xml:space=\"preserve\">b</w:t><w:br/><w:t "
                          "xml:space=\"preserve\">c</w:t><w:br w:type=\"page\"/><w:t "
                          "xml:space=\"preserve\">d</w:t><w:noBreakHyphen/><w:t "
                          "xml:space=\"preserve\">e</w:t><w:softHyphen/>"));
    const auto text = plain(u" a\tb\u2028c\fd\u2011e\u00ADf \n");
    EXPECT_EQ(readAgain(text).string(), text.string());
}

TEST(WordRunWriting, TakesNextLineAndVerticalTabForLineBreaks)
{
    EXPECT_EQ(readAgain(plain(u"a\u0085b\vc")).string(), u"a\u2028b\u2028c\n");
}

TEST(WordRunWriting, EndsParagraphsAtEveryParagraphEnd)
{
    EXPECT_EQ(readAgain(plain(u"a\rb\r\nc\u2029d\n")).string(), u"a\nb\nc\nd\n");
}

TEST(WordRunWriting, LeavesOutControlCharacters)
{
    std::u16string controls = u"a";
    for (char16_t unit = 0; unit < 0x20; ++unit) {
        if (unit != u'\t' && (unit < u'\n' || unit > u'\r'))
            controls += unit;
    }
    EXPECT_EQ(readAgain(plain(controls + u"b\n")).string(), u"ab\n");
}

TEST(WordRunWriting, ReplacesWhatIsNoCharacter)
{
    std::u16string text = u"a";
    text += char16_t{0xD800};
    text += u'b';
    text += char16_t{0xDC00};
    text += char16_t{0xFFFE};
    text += char16_t{0xFFFF};
    EXPECT_EQ(readAgain(plain(text + u"\n")).string(), u"a\uFFFDb\uFFFD\uFFFD\uFFFD\n");
}

TEST(WordRunWriting, KeepsCharactersBeyondTheFirstPlane)
{
    EXPECT_EQ(readAgain(plain(u"\U0001F600 \u4E2D \u00E9\n")).string(), u"\U0001F600 \u4E2D \u00E9\n");
}

TEST(WordRunWriting, MakesTheFontOfMostTextTheDocuments)
{
    const auto times = NSFont::fontWithName(u"Times-Roman", 11.5);
    NSMutableAttributedString text(
        NSAttributedString(u"most of it", attributesOf({{NSFontAttributeName, times}})));
    text.appendAttributedString(NSAttributedString(
        u"less", attributesOf({{NSFontAttributeName, NSFont::fontWithName(u"Menlo-Bold", 9)}})));
    const auto package = wordBytes(text);
    EXPECT_THAT(memberOf(package, "word/styles.xml"),
                HasSubstr("<w:rPrDefault><w:rPr><w:rFonts w:ascii=\"Times\" w:hAnsi=\"Times\" "
                          "w:eastAsia=\"Times\" w:cs=\"Times\"/><w:sz w:val=\"23\"/><w:szCs w:val=\"23\"/>"));
    const auto body = memberOf(package, "word/document.xml");
    EXPECT_THAT(body, HasSubstr("<w:r><w:t xml:space=\"preserve\">most of it</w:t></w:r>"));
    EXPECT_THAT(
        body,
        HasSubstr("<w:rPr><w:rFonts w:ascii=\"Menlo\" w:hAnsi=\"Menlo\" w:eastAsia=\"Menlo\" "
                  "w:cs=\"Menlo\"/><w:b/><w:bCs/><w:sz w:val=\"18\"/><w:szCs w:val=\"18\"/></w:rPr>"));
}

TEST(WordRunWriting, SaysExpresslyWhatIsNotBoldAmongBoldText)
{
    NSMutableAttributedString text(NSAttributedString(
        u"bold and slanted",
        attributesOf({{NSFontAttributeName, NSFont::fontWithName(u"Helvetica-BoldOblique", 12)}})));
    text.appendAttributedString(NSAttributedString(
        u"plain", attributesOf({{NSFontAttributeName, NSFont::fontWithName(u"Helvetica", 12)}})));
    EXPECT_THAT(bodyOf(text), HasSubstr("<w:b w:val=\"0\"/><w:bCs w:val=\"0\"/><w:i w:val=\"0\"/>"));
    const auto again = readAgain(text);
    EXPECT_EQ(fontAt(again, u"bold")->fontName(), u"Helvetica-BoldOblique");
    EXPECT_EQ(fontAt(again, u"plain")->fontName(), u"Helvetica");
}

TEST(WordRunWriting, HoldsSizesToThoseThatWordProcessorsTake)
{
    const auto sized = [](double points) {
        return NSAttributedString(
            u"a", attributesOf({{NSFontAttributeName, NSFont::fontWithName(u"Helvetica", points)}}));
    };
    EXPECT_EQ(fontAt(readAgain(sized(0.25)), u"a")->pointSize(), 1);
    EXPECT_EQ(fontAt(readAgain(sized(5000)), u"a")->pointSize(), 1638);
    EXPECT_EQ(fontAt(readAgain(sized(12.3)), u"a")->pointSize(), 12.5);
}

TEST(WordRunWriting, WritesEveryUnderline)
{
    struct Row {
        int style;
        std::string_view name;
        int read;
    };

    for (const auto& row :
         {Row{1, "single", 1}, Row{2, "thick", 2}, Row{9, "double", 9}, Row{0x8001, "words", 0x8001},
          Row{0x101, "dotted", 0x101}, Row{0x102, "dottedHeavy", 0x102}, Row{0x201, "dash", 0x201},
          Row{0x202, "dashedHeavy", 0x202}, Row{0x301, "dotDash", 0x301}, Row{0x302, "dashDotHeavy", 0x302},
          Row{0x401, "dotDotDash", 0x401}, Row{0x402, "dashDotDotHeavy", 0x402},
          // Without a name: lines of the same weight.
          Row{0x209, "double", 9}, Row{0x8002, "thick", 2}, Row{0x100, "single", 1}}) {
        EXPECT_THAT(runWith(NSUnderlineStyleAttributeName, row.style),
                    HasSubstr("<w:u w:val=\"" + std::string(row.name) + "\"/>"));
        EXPECT_EQ(readWith(NSUnderlineStyleAttributeName, row.style).integerValue(), row.read) << row.name;
    }
    EXPECT_THAT(runWith(NSUnderlineStyleAttributeName, 0), Not(HasSubstr("w:u")));
}

TEST(WordRunWriting, WritesTheColourOfALine)
{
    const NSAttributedString text(
        u"word",
        attributesOf({{NSUnderlineStyleAttributeName, 1},
                      {NSUnderlineColorAttributeName, NSColor::colorWithSRGBRed(1, 0, 0.4, 1)}}));
    EXPECT_THAT(bodyOf(text), HasSubstr("<w:u w:val=\"single\" w:color=\"FF0066\"/>"));
    EXPECT_EQ(rgbAt(readAgain(text), u"word", NSUnderlineColorAttributeName), 0xFF0066);
}

TEST(WordRunWriting, WritesStrikeThrough)
{
    EXPECT_THAT(runWith(NSStrikethroughStyleAttributeName, 1), HasSubstr("<w:strike/>"));
    EXPECT_THAT(runWith(NSStrikethroughStyleAttributeName, 9), HasSubstr("<w:dstrike/>"));
    EXPECT_EQ(readWith(NSStrikethroughStyleAttributeName, 1).integerValue(), 1);
    EXPECT_EQ(readWith(NSStrikethroughStyleAttributeName, 9).integerValue(), 9);
}

TEST(WordRunWriting, RaisesAndLowersText)
{
    EXPECT_THAT(runWith(NSSuperscriptAttributeName, 2), HasSubstr("<w:vertAlign w:val=\"superscript\"/>"));
    EXPECT_THAT(runWith(NSSuperscriptAttributeName, -1), HasSubstr("<w:vertAlign w:val=\"subscript\"/>"));
    EXPECT_THAT(runWith(NSBaselineOffsetAttributeName, -1.5), HasSubstr("<w:position w:val=\"-3\"/>"));
    EXPECT_EQ(readWith(NSSuperscriptAttributeName, 1).integerValue(), 1);
    EXPECT_EQ(readWith(NSSuperscriptAttributeName, -1).integerValue(), -1);
    EXPECT_EQ(readWith(NSBaselineOffsetAttributeName, 2.5).doubleValue(), 2.5);
}

TEST(WordRunWriting, SpacesLetters)
{
    EXPECT_THAT(runWith(NSKernAttributeName, -0.75), HasSubstr("<w:spacing w:val=\"-15\"/>"));
    EXPECT_EQ(readWith(NSKernAttributeName, 2.05).doubleValue(), 2.05);
    EXPECT_THAT(runWith(NSKernAttributeName, std::nan("")), Not(HasSubstr("w:spacing")));
}

TEST(WordRunWriting, WritesColoursAsTheyLookOnPaper)
{
    EXPECT_THAT(runWith(NSForegroundColorAttributeName, NSColor::colorWithSRGBRed(0, 0.2, 1, 1)),
                HasSubstr("<w:color w:val=\"0033FF\"/>"));
    // Half of black on white.
    EXPECT_THAT(runWith(NSForegroundColorAttributeName, NSColor::colorWithSRGBRed(0, 0, 0, 0.5)),
                HasSubstr("<w:color w:val=\"808080\"/>"));
    EXPECT_THAT(runWith(NSForegroundColorAttributeName, NSColor::textColor()),
                HasSubstr("<w:color w:val=\"auto\"/>"));
    EXPECT_THAT(runWith(NSForegroundColorAttributeName, NSColor::clearColor()), Not(HasSubstr("w:color")));
    const auto ground = NSColor::colorWithSRGBRed(1, 1, 0, 1);
    EXPECT_THAT(runWith(NSBackgroundColorAttributeName, ground),
                HasSubstr("<w:shd w:val=\"clear\" w:color=\"auto\" w:fill=\"FFFF00\"/>"));
    EXPECT_TRUE(readWith(NSBackgroundColorAttributeName, ground).object<NSColor>()->isEqual(*ground));
}

TEST(WordRunWriting, WritesHighlightsAsGrounds)
{
    const auto ground = [](std::u16string_view scheme) {
        const NSAttributedString text(
            u"word",
            attributesOf({{NSTextHighlightStyleAttributeName, NSTextHighlightStyleDefault},
                          {NSTextHighlightColorSchemeAttributeName, scheme},
                          {NSBackgroundColorAttributeName, NSColor::redColor()}}));
        return rgbAt(readAgain(text), u"word", NSBackgroundColorAttributeName);
    };
    // Three parts of ten of each colour, of the default one seven of twenty, the rest white.
    EXPECT_EQ(ground(NSTextHighlightColorSchemeDefault), 0xFFEDA6);
    EXPECT_EQ(ground(NSTextHighlightColorSchemeOrange), 0xFFDFB2);
    EXPECT_EQ(ground(NSTextHighlightColorSchemeMint), 0xB2EEEC);
    EXPECT_EQ(ground(NSTextHighlightColorSchemeBlue), 0xB2D7FF);
    EXPECT_EQ(ground(NSTextHighlightColorSchemePink), 0xFFC0CC);
    EXPECT_EQ(ground(NSTextHighlightColorSchemePurple), 0xE7CBF5);
}

TEST(WordRunWriting, GivesTheEndOfAParagraphItsLooks)
{
    const auto large = NSFont::fontWithName(u"Helvetica", 30);
    NSMutableAttributedString text(plain(u"plain text\n"));
    text.appendAttributedString(NSAttributedString(u"\n", attributesOf({{NSFontAttributeName, large}})));
    EXPECT_THAT(bodyOf(text),
                HasSubstr("<w:p><w:pPr><w:rPr><w:sz w:val=\"60\"/><w:szCs w:val=\"60\"/>"
                          "</w:rPr></w:pPr></w:p>"));
    const auto font = readAgain(text).attribute(NSFontAttributeName, 11).object<NSFont>();
    ASSERT_TRUE(font);
    EXPECT_EQ(font->pointSize(), 30);
}

TEST(WordRunWriting, MarksTextFromRightToLeftByItself)
{
    const auto body = bodyOf(plain(u"see \u05D0\u05D1 12, then"));
    EXPECT_THAT(body,
                HasSubstr("<w:r><w:t xml:space=\"preserve\">see </w:t></w:r><w:r><w:rPr><w:rtl/></w:rPr><w:t "
                          "xml:space=\"preserve\">\u05D0\u05D1 12, </w:t></w:r><w:r><w:t "
                          "xml:space=\"preserve\">then</w:t></w:r>"));
    EXPECT_THAT(body, Not(HasSubstr("w:bidi")));
}

TEST(WordRunWriting, RefusesOtherTypesOfDocuments)
{
    NSError error;
    NSAny::Dictionary attributes;
    attributes.emplace(NSDocumentTypeDocumentAttribute, NSRTFTextDocumentType);
    EXPECT_FALSE(
        NSAttributedStringDocumentFormats::WordDocumentFromRange(plain(u"a"), {0, 1}, attributes, &error));
    EXPECT_EQ(error.domain(), NSCocoaErrorDomain);
    EXPECT_EQ(error.code(), static_cast<int>(NSCocoaError::FileWriteInapplicableStringEncoding));
    EXPECT_FALSE(NSAttributedStringDocumentFormats::WordDocumentFromRange(plain(u"a"), {0, 1}, attributes));
    attributes.insert_or_assign(std::u16string(NSDocumentTypeDocumentAttribute),
                                NSOfficeOpenXMLTextDocumentType);
    EXPECT_TRUE(NSAttributedStringDocumentFormats::WordDocumentFromRange(plain(u"a"), {0, 1}, attributes));
}

TEST(WordRunWriting, WritesARangeOnly)
{
    const auto data
        = NSAttributedStringDocumentFormats::WordDocumentFromRange(plain(u"one\ntwo\nthree"), {2, 4});
    ASSERT_TRUE(data);
    const auto again = NSAttributedStringDocumentFormats::initWithWordDocument(*data);
    ASSERT_TRUE(again);
    EXPECT_EQ(again->string(), u"e\ntw\n");
    const auto beyond = NSAttributedStringDocumentFormats::WordDocumentFromRange(plain(u"one"), {2, 400});
    ASSERT_TRUE(beyond);
    EXPECT_EQ(NSAttributedStringDocumentFormats::initWithWordDocument(*beyond)->string(), u"e\n");
}

TEST(WordRunWriting, GivesTheSameBytesForTheSameText)
{
    EXPECT_EQ(wordBytes(plain(u"some text\n")), wordBytes(plain(u"some text\n")));
}
