// How the characters of a document look: own formatting, styles, toggles, fonts, colours and symbols.

#include "tests/word/ReadWord.h"

namespace {

NSAttributedString textWithRun(std::string_view properties)
{
    return textOfWordBody("<w:p>" + wordRun("word", properties) + "</w:p>");
}

/// A text of one run, with this theme and these styles.
WordPackageBytes styledDocument(std::string_view styles, std::string body)
{
    WordPackageBytes document;
    document.body = std::move(body);
    document.parts.push_back({"s", "styles", "styles.xml", wordRoot("styles", styles)});
    return document;
}

constexpr std::string_view kTheme
    = "<a:theme xmlns:a='a'><a:themeElements><a:clrScheme><a:dk1><a:sysClr lastClr='101010'/></a:dk1>"
      "<a:accent1><a:srgbClr val='204060'/></a:accent1></a:clrScheme><a:fontScheme><a:majorFont>"
      "<a:latin typeface='Courier New'/></a:majorFont><a:minorFont><a:latin typeface='Helvetica'/>"
      "<a:cs typeface='Times New Roman'/></a:minorFont></a:fontScheme></a:themeElements></a:theme>";

} // namespace

TEST(WordRuns, AreTimesNewRomanOfTenPointsWhereADocumentSaysNothing)
{
    const auto font = fontAt(textWithRun(""), u"word");
    ASSERT_TRUE(font);
    EXPECT_EQ(font->familyName(), u"Times New Roman");
    EXPECT_EQ(font->pointSize(), 10);
}

TEST(WordRuns, AreBoldAndItalic)
{
    EXPECT_EQ(fontAt(textWithRun("<w:b/><w:i w:val='1'/>"), u"word")->fontName(),
              u"TimesNewRomanPS-BoldItalicMT");
    for (const auto* const off : {"0", "false", "off"}) {
        const auto text = textWithRun("<w:b w:val='" + std::string(off) + "'/>");
        EXPECT_EQ(fontAt(text, u"word")->fontName(), u"TimesNewRomanPSMT") << off;
    }
}

TEST(WordRuns, HaveTheirFamilyAndHalfPoints)
{
    const auto font = fontAt(textWithRun("<w:rFonts w:ascii='Courier New'/><w:sz w:val='27'/>"), u"word");
    EXPECT_EQ(font->familyName(), u"Courier New");
    EXPECT_EQ(font->pointSize(), 13.5);
    EXPECT_EQ(fontAt(textWithRun("<w:sz w:val='14pt'/>"), u"word")->pointSize(), 14);
    EXPECT_EQ(fontAt(textWithRun("<w:sz w:val='-4'/>"), u"word")->pointSize(), 10);
}

TEST(WordRuns, AreUnderlinedAndStruck)
{
    struct Row {
        const char* properties;
        std::u16string_view attribute;
        int value;
    };

    constexpr std::array<Row, 9> kRows{{{"<w:u w:val='single'/>", NSUnderlineStyleAttributeName, 1},
                                        {"<w:u w:val='words'/>", NSUnderlineStyleAttributeName, 0x8001},
                                        {"<w:u w:val='double'/>", NSUnderlineStyleAttributeName, 9},
                                        {"<w:u w:val='thick'/>", NSUnderlineStyleAttributeName, 2},
                                        {"<w:u w:val='dotted'/>", NSUnderlineStyleAttributeName, 0x101},
                                        {"<w:u w:val='dashedHeavy'/>", NSUnderlineStyleAttributeName, 0x202},
                                        {"<w:u w:val='dotDotDash'/>", NSUnderlineStyleAttributeName, 0x401},
                                        {"<w:strike/>", NSStrikethroughStyleAttributeName, 1},
                                        {"<w:dstrike/>", NSStrikethroughStyleAttributeName, 9}}};
    for (const auto& row : kRows)
        EXPECT_EQ(attributeAt(textWithRun(row.properties), u"word", row.attribute), NSAny(row.value))
            << row.properties;
    EXPECT_FALSE(attributeAt(textWithRun("<w:u w:val='none'/>"), u"word", NSUnderlineStyleAttributeName));
    EXPECT_EQ(
        rgbAt(textWithRun("<w:u w:val='single' w:color='FF0080'/>"), u"word", NSUnderlineColorAttributeName),
        0xFF0080);
}

TEST(WordRuns, AreRaisedLoweredAndSpaced)
{
    EXPECT_EQ(
        attributeAt(textWithRun("<w:vertAlign w:val='superscript'/>"), u"word", NSSuperscriptAttributeName),
        NSAny(1));
    EXPECT_EQ(
        attributeAt(textWithRun("<w:vertAlign w:val='subscript'/>"), u"word", NSSuperscriptAttributeName),
        NSAny(-1));
    EXPECT_FALSE(
        attributeAt(textWithRun("<w:vertAlign w:val='baseline'/>"), u"word", NSSuperscriptAttributeName));
    EXPECT_EQ(attributeAt(textWithRun("<w:position w:val='-6'/>"), u"word", NSBaselineOffsetAttributeName),
              NSAny(-3.0));
    EXPECT_EQ(attributeAt(textWithRun("<w:spacing w:val='30'/>"), u"word", NSKernAttributeName), NSAny(1.5));
}

TEST(WordRuns, HaveColoursHighlightsAndShading)
{
    EXPECT_EQ(rgbAt(textWithRun("<w:color w:val='12AB9F'/>"), u"word", NSForegroundColorAttributeName),
              0x12AB9F);
    EXPECT_FALSE(
        attributeAt(textWithRun("<w:color w:val='auto'/>"), u"word", NSForegroundColorAttributeName));
    EXPECT_FALSE(
        attributeAt(textWithRun("<w:color w:val='12AB9'/>"), u"word", NSForegroundColorAttributeName));
    EXPECT_EQ(rgbAt(textWithRun("<w:highlight w:val='yellow'/>"), u"word", NSBackgroundColorAttributeName),
              0xFFFF00);
    EXPECT_EQ(rgbAt(textWithRun("<w:shd w:fill='C0FFEE'/>"), u"word", NSBackgroundColorAttributeName),
              0xC0FFEE);
    EXPECT_EQ(rgbAt(textWithRun("<w:highlight w:val='red'/><w:shd w:fill='C0FFEE'/>"), u"word",
                    NSBackgroundColorAttributeName),
              0xFF0000);
}

TEST(WordRuns, InCapitalsAreStillFoundByTheirLetters)
{
    EXPECT_EQ(textOfWordBody("<w:p>" + wordRun("straße é1", "<w:caps/>") + "</w:p>").string(),
              u"STRAßE É1\n");
}

TEST(WordRuns, TakeFontsAndColoursOfTheTheme)
{
    WordPackageBytes document;
    document.parts.push_back({"t", "theme", "theme/theme1.xml", std::string(kTheme)});
    document.body = "<w:p>" + wordRun("major", "<w:rFonts w:asciiTheme='majorHAnsi' w:ascii='Georgia'/>")
        + wordRun("minor", "<w:rFonts w:asciiTheme='minorHAnsi'/><w:color w:themeColor='accent1'/>")
        + wordRun("dark", "<w:color w:val='auto' w:themeColor='text1' w:themeShade='80'/>")
        + wordRun("light", "<w:color w:themeColor='accent1' w:themeTint='80'/>")
        + wordRun("ready", "<w:color w:val='0A0B0C' w:themeColor='accent1'/>") + "</w:p>";
    const auto text = textOfWord(document);
    EXPECT_EQ(fontAt(text, u"major")->familyName(), u"Courier New");
    EXPECT_EQ(fontAt(text, u"minor")->familyName(), u"Helvetica");
    EXPECT_EQ(rgbAt(text, u"minor", NSForegroundColorAttributeName), 0x204060);
    // Half of each channel is left: 0x10 * 128 / 255 is 8.03.
    EXPECT_EQ(rgbAt(text, u"dark", NSForegroundColorAttributeName), 0x080808);
    // 0x20 * 128 / 255 + 127 is 143.06, for 0x40 159.13, for 0x60 175.19.
    EXPECT_EQ(rgbAt(text, u"light", NSForegroundColorAttributeName), 0x8F9FAF);
    EXPECT_EQ(rgbAt(text, u"ready", NSForegroundColorAttributeName), 0x0A0B0C);
}

TEST(WordRuns, OfUnknownFamiliesTakeTheAlternativeOrTheKind)
{
    WordPackageBytes document;
    document.parts.push_back(
        {"f", "fontTable", "fontTable.xml",
         wordRoot("fonts",
                  "<w:font w:name='No Such One'><w:altName w:val='Georgia'/></w:font>"
                  "<w:font w:name='No Such Two'><w:family w:val='roman'/></w:font>"
                  "<w:font w:name='No Such Three'><w:family w:val='modern'/></w:font>")});
    document.body = "<w:p>" + wordRun("one", "<w:rFonts w:ascii='No Such One'/>")
        + wordRun("two", "<w:rFonts w:ascii='No Such Two'/>")
        + wordRun("three", "<w:rFonts w:ascii='No Such Three'/>")
        + wordRun("four", "<w:rFonts w:ascii='No Such Four'/>") + "</w:p>";
    const auto text = textOfWord(document);
    EXPECT_EQ(fontAt(text, u"one")->familyName(), u"Georgia");
    EXPECT_EQ(fontAt(text, u"two")->familyName(), u"Times New Roman");
    EXPECT_EQ(fontAt(text, u"three")->familyName(), u"Courier New");
    EXPECT_EQ(fontAt(text, u"four")->familyName(), u"Helvetica");
}

TEST(WordRuns, HaveFontsByTheirScript)
{
    const std::string fonts = "<w:rFonts w:ascii='Helvetica' w:eastAsia='Georgia' w:cs='Courier New'/>"
                              "<w:sz w:val='20'/><w:szCs w:val='40'/>";
    const auto text = textOfWordBody("<w:p>" + wordRun("abc", fonts) + "</w:p><w:p>" + wordRun("中文", fonts)
                                     + "</w:p><w:p>" + wordRun("سلام", fonts) + "</w:p>");
    EXPECT_EQ(fontAt(text, u"abc")->familyName(), u"Helvetica");
    EXPECT_EQ(fontAt(text, u"中文")->familyName(), u"Georgia");
    EXPECT_EQ(fontAt(text, u"سلام")->familyName(), u"Courier New");
    EXPECT_EQ(fontAt(text, u"سلام")->pointSize(), 20);
}

TEST(WordRuns, InheritFromDefaultsAndStyles)
{
    const auto text = textOfWord(styledDocument(
        "<w:docDefaults><w:rPrDefault><w:rPr><w:sz w:val='22'/></w:rPr></w:rPrDefault></w:docDefaults>"
        "<w:style w:type='paragraph' w:default='1' w:styleId='Normal'><w:rPr><w:color "
        "w:val='010203'/></w:rPr>"
        "</w:style><w:style w:type='paragraph' w:styleId='Base'><w:rPr><w:i/><w:sz "
        "w:val='30'/></w:rPr></w:style>"
        "<w:style w:type='paragraph' w:styleId='Derived'><w:basedOn w:val='Base'/><w:rPr><w:sz w:val='40'/>"
        "</w:rPr></w:style>",
        wordParagraph("plain") + wordParagraph("derived", "<w:pStyle w:val='Derived'/>")));
    EXPECT_EQ(fontAt(text, u"plain")->pointSize(), 11);
    EXPECT_EQ(rgbAt(text, u"plain", NSForegroundColorAttributeName), 0x010203);
    EXPECT_EQ(fontAt(text, u"derived")->fontName(), u"TimesNewRomanPS-ItalicMT");
    EXPECT_EQ(fontAt(text, u"derived")->pointSize(), 20);
    EXPECT_FALSE(attributeAt(text, u"derived", NSForegroundColorAttributeName));
}

TEST(WordRuns, LoseAToggleThatTwoStylesHaveAndKeepTheirOwn)
{
    const auto text = textOfWord(styledDocument(
        "<w:style w:type='paragraph' w:styleId='P'><w:rPr><w:b/></w:rPr></w:style>"
        "<w:style w:type='character' w:styleId='C'><w:rPr><w:b/></w:rPr></w:style>",
        "<w:p><w:pPr><w:pStyle w:val='P'/></w:pPr>" + wordRun("one") + wordRun("two", "<w:rStyle w:val='C'/>")
            + wordRun("three", "<w:rStyle w:val='C'/><w:b/>") + "</w:p>"));
    EXPECT_EQ(fontAt(text, u"one")->fontName(), u"TimesNewRomanPS-BoldMT");
    EXPECT_EQ(fontAt(text, u"two")->fontName(), u"TimesNewRomanPSMT");
    EXPECT_EQ(fontAt(text, u"three")->fontName(), u"TimesNewRomanPS-BoldMT");
}

TEST(WordRuns, OfStylesThatAreBasedOnEachOtherAreRead)
{
    const auto text = textOfWord(
        styledDocument("<w:style w:type='paragraph' w:styleId='A'><w:basedOn w:val='B'/><w:rPr><w:b/></w:rPr>"
                       "</w:style><w:style w:type='paragraph' w:styleId='B'><w:basedOn w:val='A'/></w:style>",
                       wordParagraph("word", "<w:pStyle w:val='A'/>")));
    EXPECT_EQ(fontAt(text, u"word")->fontName(), u"TimesNewRomanPS-BoldMT");
}

TEST(WordRuns, IgnoreFormerLooksOfTrackedChanges)
{
    const auto text = textWithRun("<w:b/><w:rPrChange><w:rPr><w:i/><w:sz w:val='80'/></w:rPr></w:rPrChange>");
    EXPECT_EQ(fontAt(text, u"word")->fontName(), u"TimesNewRomanPS-BoldMT");
    EXPECT_EQ(fontAt(text, u"word")->pointSize(), 10);
}

TEST(WordRuns, ShowSymbolsAsCharacters)
{
    const auto text = textOfWordBody("<w:p><w:r><w:sym w:font='Symbol' w:char='F061'/>"
                                     "<w:sym w:font='Wingdings' w:char='F0FC'/>"
                                     "<w:sym w:font='Arial' w:char='2192'/><w:sym w:font='Wingdings' "
                                     "w:char='F001'/><w:sym w:font='Symbol' w:char='none'/></w:r></w:p>");
    EXPECT_EQ(text.string(), u"α✓→\n");
}
