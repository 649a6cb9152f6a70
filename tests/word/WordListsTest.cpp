// Lists: what their items begin with, how they count, and the lists that their paragraphs are in.

#include "platform/foundation/Unicode.h"
#include "platform/word/WordListMarkers.h"
#include "tests/word/ReadWord.h"

namespace {

std::string level(int place, std::string_view format, std::string_view text, std::string_view more = {})
{
    std::string xml = "<w:lvl w:ilvl='" + std::to_string(place) + "'><w:start w:val='1'/><w:numFmt w:val='";
    xml.append(format).append("'/><w:lvlText w:val='").append(text).append("'/>").append(more);
    return xml + "</w:lvl>";
}

std::string list(int number, int abstractNumber, std::string_view more = {})
{
    return "<w:num w:numId='" + std::to_string(number) + "'><w:abstractNumId w:val='"
        + std::to_string(abstractNumber) + "'/>" + std::string(more) + "</w:num>";
}

std::string abstractList(int number, std::string_view levels)
{
    return "<w:abstractNum w:abstractNumId='" + std::to_string(number) + "'>" + std::string(levels)
        + "</w:abstractNum>";
}

std::string item(std::string_view text, int place = 0, int number = 1)
{
    return wordParagraph(text,
                         "<w:numPr><w:ilvl w:val='" + std::to_string(place) + "'/><w:numId w:val='"
                             + std::to_string(number) + "'/></w:numPr>");
}

NSAttributedString textWith(std::string_view numbering, std::string body, std::string_view styles = {})
{
    WordPackageBytes document;
    document.body = std::move(body);
    document.parts.push_back({"n", "numbering", "numbering.xml", wordRoot("numbering", numbering)});
    document.parts.push_back({"s", "styles", "styles.xml", wordRoot("styles", styles)});
    return textOfWord(document);
}

const std::string kOutline
    = abstractList(
          0, level(0, "decimal", "%1.") + level(1, "lowerLetter", "%2)") + level(2, "decimal", "%1.%2.%3"))
    + list(1, 0);

} // namespace

TEST(WordLists, BeginItemsWithTheirMarkerBetweenTabs)
{
    const auto text = textWith(kOutline, item("one") + item("two"));
    EXPECT_EQ(text.string(), u"\t1.\tone\n\t2.\ttwo\n");
    const auto& lists = styleAt(text, u"one")->textLists();
    ASSERT_EQ(lists.size(), 1U);
    EXPECT_EQ(lists[0]->markerFormat(), u"{decimal}.");
    EXPECT_EQ(styleAt(text, u"two")->textLists(), lists);
}

TEST(WordLists, CountLevelsAnewUnderEachItem)
{
    const auto text = textWith(
        kOutline, item("a") + item("b", 1) + item("c", 1) + item("d") + item("e", 1) + item("f", 2));
    EXPECT_EQ(text.string(), u"\t1.\ta\n\ta)\tb\n\tb)\tc\n\t2.\td\n\ta)\te\n\t2.a.1\tf\n");
    const auto& first = styleAt(text, u"b\n")->textLists();
    const auto& second = styleAt(text, u"e\n")->textLists();
    const auto& third = styleAt(text, u"f\n")->textLists();
    ASSERT_EQ(first.size(), 2U);
    ASSERT_EQ(second.size(), 2U);
    ASSERT_EQ(third.size(), 3U);
    EXPECT_EQ(first[0], second[0]);
    EXPECT_NE(first[1], second[1]);
    EXPECT_EQ(third[1], second[1]);
    EXPECT_EQ(third[2]->markerFormat(), u"2.a.{decimal}");
    EXPECT_EQ(third[2]->markerForItemNumber(1), u"2.a.1");
}

TEST(WordLists, CountOnBehindOtherParagraphsAndAcrossListsOfOneDefinition)
{
    const auto text = textWith(kOutline + list(2, 0),
                               item("one") + wordParagraph("between") + item("two") + item("three", 0, 2));
    EXPECT_EQ(text.string(), u"\t1.\tone\nbetween\n\t2.\ttwo\n\t3.\tthree\n");
    EXPECT_TRUE(styleAt(text, u"between")->textLists().empty());
}

TEST(WordLists, StartWhereTheyAreToldTo)
{
    const auto restarted
        = list(2, 0, "<w:lvlOverride w:ilvl='0'><w:startOverride w:val='7'/></w:lvlOverride>");
    const auto text = textWith(kOutline + restarted, item("one") + item("seven", 0, 2) + item("eight", 0, 2));
    EXPECT_EQ(text.string(), u"\t1.\tone\n\t7.\tseven\n\t8.\teight\n");
    const auto& lists = styleAt(text, u"seven")->textLists();
    ASSERT_EQ(lists.size(), 1U);
    EXPECT_EQ(lists[0]->startingItemNumber(), 7);
    EXPECT_NE(lists[0], styleAt(text, u"one")->textLists()[0]);
}

TEST(WordLists, CountThroughWhereALevelNeverRestarts)
{
    const auto numbering
        = abstractList(0,
                       level(0, "decimal", "%1.") + level(1, "decimal", "%2)", "<w:lvlRestart w:val='0'/>"))
        + list(1, 0);
    EXPECT_EQ(textWith(numbering, item("a") + item("b", 1) + item("c") + item("d", 1)).string(),
              u"\t1.\ta\n\t1)\tb\n\t2.\tc\n\t2)\td\n");
}

TEST(WordLists, ShowOuterNumbersInDecimalsWhereALevelIsLegal)
{
    const auto numbering
        = abstractList(0, level(0, "upperRoman", "%1.") + level(1, "decimal", "%1.%2", "<w:isLgl/>"))
        + list(1, 0);
    EXPECT_EQ(textWith(numbering, item("a") + item("b", 1)).string(), u"\tI.\ta\n\t1.1\tb\n");
}

TEST(WordLists, TakeALevelThatTheListOverrides)
{
    const auto numbering = kOutline
        + list(2, 0, "<w:lvlOverride w:ilvl='0'>" + level(0, "upperLetter", "(%1)") + "</w:lvlOverride>");
    EXPECT_EQ(textWith(numbering, item("a", 0, 2)).string(), u"\t(A)\ta\n");
}

TEST(WordLists, HaveBulletsWhoseSignsEveryFontHas)
{
    struct Row {
        const char* sign;
        std::u16string_view format;
        std::u16string_view marker;
    };

    const std::array<Row, 8> kRows{{{"\uF0B7", NSTextListMarkerDisc, u"•"},
                                    {"•", NSTextListMarkerDisc, u"•"},
                                    {"o", NSTextListMarkerHyphen, u"⁃"},
                                    {"–", NSTextListMarkerHyphen, u"⁃"},
                                    {"\uF0A7", NSTextListMarkerSquare, u"▪"},
                                    {"\uF0FC", u"\u2713", u"\u2713"},
                                    {"\uF001", NSTextListMarkerDisc, u"•"},
                                    {"*", u"*", u"*"}}};
    for (const auto& row : kRows) {
        const auto text = textWith(abstractList(0, level(0, "bullet", row.sign)) + list(1, 0), item("word"));
        const auto& lists = styleAt(text, u"word")->textLists();
        ASSERT_EQ(lists.size(), 1U) << row.sign;
        EXPECT_EQ(lists[0]->markerFormat(), row.format) << row.sign;
        EXPECT_EQ(text.string(), u"\t" + std::u16string(row.marker) + u"\tword\n") << row.sign;
    }
}

TEST(WordLists, CountInEveryFormat)
{
    struct Row {
        WordNumberFormat format;
        NSInteger number;
        std::u16string_view numeral;
    };

    constexpr std::array<Row, 13> kRows{{{WordNumberFormat::Decimal, 12, u"12"},
                                         {WordNumberFormat::DecimalZero, 9, u"09"},
                                         {WordNumberFormat::DecimalZero, 10, u"10"},
                                         {WordNumberFormat::LowerLetter, 1, u"a"},
                                         {WordNumberFormat::LowerLetter, 26, u"z"},
                                         {WordNumberFormat::LowerLetter, 27, u"aa"},
                                         {WordNumberFormat::UpperLetter, 28, u"BB"},
                                         {WordNumberFormat::LowerLetter, 261, u"261"},
                                         {WordNumberFormat::LowerLetter, 0, u"0"},
                                         {WordNumberFormat::LowerRoman, 14, u"xiv"},
                                         {WordNumberFormat::UpperRoman, 4, u"IV"},
                                         {WordNumberFormat::None, 3, u""},
                                         {WordNumberFormat::Bullet, 3, u""}}};
    for (const auto& row : kRows)
        EXPECT_EQ(wordNumeral(row.number, row.format), row.numeral) << row.number;
}

TEST(WordLists, StandAsListsOfThePlatformDo)
{
    const auto numbering
        = abstractList(0, level(0, "decimal", "%1.", "<w:pPr><w:ind w:left='720' w:hanging='360'/></w:pPr>"))
        + list(1, 0);
    const auto style = styleAt(textWith(numbering, item("word")), u"word");
    // The marker at 18 points, the text at 36.
    EXPECT_EQ(style->firstLineHeadIndent(), 7);
    EXPECT_EQ(style->headIndent(), 36);
    ASSERT_EQ(style->tabStops().size(), 2U);
    EXPECT_EQ(style->tabStops()[0]->location(), 18);
    EXPECT_EQ(style->tabStops()[1]->location(), 36);
}

TEST(WordLists, OfStylesAreCountedAndLeftByNumberZero)
{
    const std::string styles
        = "<w:style w:type='paragraph' w:styleId='L'><w:pPr><w:numPr><w:numId w:val='1'/>"
          "</w:numPr></w:pPr></w:style>";
    const auto text
        = textWith(kOutline,
                   wordParagraph("one", "<w:pStyle w:val='L'/>")
                       + wordParagraph("none", "<w:pStyle w:val='L'/><w:numPr><w:numId w:val='0'/></w:numPr>")
                       + wordParagraph("two", "<w:pStyle w:val='L'/>"),
                   styles);
    EXPECT_EQ(text.string(), u"\t1.\tone\nnone\n\t2.\ttwo\n");
}

TEST(WordLists, ThatOnlyNameAStyleAreThoseOfTheStyle)
{
    const std::string styles
        = "<w:style w:type='numbering' w:styleId='L'><w:pPr><w:numPr><w:numId w:val='1'/>"
          "</w:numPr></w:pPr></w:style>";
    const auto numbering = kOutline + abstractList(5, "<w:numStyleLink w:val='L'/>") + list(9, 5);
    EXPECT_EQ(textWith(numbering, item("one", 1, 9), styles).string(), u"\ta)\tone\n");
}

TEST(WordLists, WithoutAMarkerOrADefinitionAreParagraphs)
{
    const auto numbering = abstractList(0, level(0, "none", "")) + list(1, 0);
    const auto text = textWith(numbering, item("one") + item("two", 0, 77) + item("three", 99));
    EXPECT_EQ(text.string(), u"one\ntwo\nthree\n");
    EXPECT_TRUE(styleAt(text, u"one")->textLists().empty());
}

TEST(WordLists, TakeBallotBoxesForThoseOfChecklists)
{
    for (const auto& [sign, format] :
         {std::pair(u"\u2610", NSTextListMarkerCircle), std::pair(u"\u2611", NSTextListMarkerCheck),
          std::pair(u"\u2612", NSTextListMarkerCheck)}) {
        const auto text
            = textWith(abstractList(0, level(0, "bullet", UTF8FromUTF16(sign))) + list(1, 0), item("text"));
        EXPECT_EQ(styleAt(text, u"text")->textLists().at(0)->markerFormat(), format);
    }
}
