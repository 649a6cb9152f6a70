// Lists in written documents: numbering in place of markers.

#include "platform/word/WordListWriting.h"

#include "tests/word/WriteWord.h"

#include <gmock/gmock.h>

using testing::ElementsAre;
using testing::HasSubstr;
using testing::Not;

namespace {

NSTextList::Ref list(std::u16string_view format, NSInteger start = 1)
{
    return std::make_shared<const NSTextList>(format, 0, start);
}

NSAttributedString item(std::u16string_view marker, std::u16string_view text,
                        NSParagraphStyle::TextLists lists)
{
    NSMutableParagraphStyle style;
    style.setHeadIndent(36);
    style.setTabStops({std::make_shared<const NSTextTab>(NSTextAlignment::Left, 11),
                       std::make_shared<const NSTextTab>(NSTextAlignment::Left, 36)});
    style.setTextLists(std::move(lists));
    const auto start = marker.empty() ? std::u16string() : u"\t" + std::u16string(marker) + u"\t";
    return styled(start + std::u16string(text) + u"\n", style);
}

NSAttributedString joined(const std::vector<NSAttributedString>& pieces)
{
    NSMutableAttributedString text;
    for (const auto& piece : pieces)
        text.appendAttributedString(piece);
    return text;
}

std::string numberingOf(const NSAttributedString& text)
{
    return memberOf(wordBytes(text), "word/numbering.xml");
}

std::size_t countOf(std::string_view text, std::string_view part)
{
    std::size_t count = 0;
    for (auto place = text.find(part); place != std::string_view::npos; place = text.find(part, place + 1))
        ++count;
    return count;
}

class MarkersOutsideOfTexts {
public:
    MarkersOutsideOfTexts() { NSTextList::setIncludesTextListMarkers(false); }

    ~MarkersOutsideOfTexts() { NSTextList::setIncludesTextListMarkers(true); }

    MarkersOutsideOfTexts(const MarkersOutsideOfTexts&) = delete;
    MarkersOutsideOfTexts& operator=(const MarkersOutsideOfTexts&) = delete;
};

} // namespace

TEST(WordListWriting, PutsNumberingInPlaceOfMarkers)
{
    const auto numbers = list(u"{decimal}.");
    const auto text = joined({item(u"1.", u"one", {numbers}), item(u"2.", u"two", {numbers})});
    const auto body = bodyOf(text);
    EXPECT_THAT(body,
                HasSubstr("<w:pStyle w:val=\"ListParagraph\"/><w:numPr><w:ilvl w:val=\"0\"/><w:numId "
                          "w:val=\"1\"/></w:numPr><w:ind w:left=\"720\" w:hanging=\"500\"/></w:pPr><w:r><w:t "
                          "xml:space=\"preserve\">one</w:t>"));
    EXPECT_THAT(body, Not(HasSubstr("<w:tab/>")));
    EXPECT_THAT(numberingOf(text),
                HasSubstr("<w:lvl w:ilvl=\"0\"><w:start w:val=\"1\"/><w:numFmt w:val=\"decimal\"/><w:lvlText "
                          "w:val=\"%1.\"/>"));
    const auto again = readAgain(text);
    EXPECT_EQ(again.string(), text.string());
    EXPECT_EQ(styleAt(again, u"one")->textLists(), styleAt(again, u"two")->textLists());
    EXPECT_EQ(styleAt(again, u"one")->headIndent(), 36);
    EXPECT_EQ(styleAt(again, u"one")->firstLineHeadIndent(), 0);
}

TEST(WordListWriting, HasAFormForEveryMarker)
{
    struct Row {
        std::u16string_view format;
        std::string_view numberFormat;
        std::u16string_view text;
    };

    for (const auto& row : {Row{NSTextListMarkerDecimal, "decimal", u"%1"},
                            Row{NSTextListMarkerOctal, "decimal", u"%1"},
                            Row{NSTextListMarkerLowercaseHexadecimal, "decimal", u"%1"},
                            Row{NSTextListMarkerUppercaseHexadecimal, "decimal", u"%1"},
                            Row{NSTextListMarkerLowercaseAlpha, "lowerLetter", u"%1"},
                            Row{NSTextListMarkerLowercaseLatin, "lowerLetter", u"%1"},
                            Row{NSTextListMarkerUppercaseAlpha, "upperLetter", u"%1"},
                            Row{NSTextListMarkerUppercaseLatin, "upperLetter", u"%1"},
                            Row{NSTextListMarkerLowercaseRoman, "lowerRoman", u"%1"},
                            Row{NSTextListMarkerUppercaseRoman, "upperRoman", u"%1"},
                            Row{NSTextListMarkerDisc, "bullet", u"\u2022"},
                            Row{NSTextListMarkerHyphen, "bullet", u"\u2013"},
                            Row{NSTextListMarkerSquare, "bullet", u"\u25AA"},
                            Row{NSTextListMarkerDiamond, "bullet", u"\u25C6"},
                            Row{NSTextListMarkerBox, "bullet", u"\u25A1"},
                            Row{NSTextListMarkerCircle, "bullet", u"\u2610"},
                            Row{NSTextListMarkerCheck, "bullet", u"\u2611"},
                            Row{NSTextListMarkerNone, "none", u""},
                            Row{u"\u2192", "bullet", u"\u2192"},
                            Row{u"({upper-roman})", "upperRoman", u"(%1)"},
                            Row{u"{decimal}.{lower-roman}", "decimal", u"%1.%1"},
                            Row{u"%5{decimal}", "decimal", u"\uFF055%1"},
                            Row{u"{unknown}", "bullet", u"{unknown}"},
                            Row{u"", "none", u""}}) {
        const auto form = wordLevelForm(*list(row.format), 0);
        EXPECT_EQ(form.numberFormat, row.numberFormat);
        EXPECT_EQ(form.text, row.text);
    }
    EXPECT_EQ(wordLevelForm(*list(u"{decimal})"), 8).text, u"%9)");
}

TEST(WordListWriting, KeepsMarkerFormatsThroughTheReader)
{
    for (const auto format :
         {NSTextListMarkerDisc, NSTextListMarkerHyphen, NSTextListMarkerSquare, NSTextListMarkerDiamond,
          NSTextListMarkerBox, NSTextListMarkerCircle, NSTextListMarkerCheck,
          std::u16string_view(u"{decimal})"), std::u16string_view(u"({lower-alpha})"),
          std::u16string_view(u"{upper-alpha}."), std::u16string_view(u"{lower-roman}"),
          std::u16string_view(u"{upper-roman}."), std::u16string_view(u"\u2192")}) {
        const auto own = list(format);
        const auto text = item(own->markerForItemNumber(1), u"text", {own});
        const auto again = readAgain(text);
        EXPECT_EQ(again.string(), text.string());
        ASSERT_EQ(styleAt(again, u"text")->textLists().size(), 1U);
        EXPECT_EQ(styleAt(again, u"text")->textLists()[0]->markerFormat(), format);
    }
}

TEST(WordListWriting, ShowsTheStateOfChecklistsByTheirBoxes)
{
    // As checklists are exported: each item is a list of its own.
    const auto text = joined({item(u"\u25E6", u"open", {list(NSTextListMarkerCircle)}),
                              item(u"\u2713", u"done", {list(NSTextListMarkerCheck)}),
                              item(u"\u25E6", u"open too", {list(NSTextListMarkerCircle)})});
    const auto numbering = numberingOf(text);
    EXPECT_EQ(countOf(numbering, "<w:abstractNum "), 2U);
    EXPECT_EQ(countOf(numbering, "<w:num "), 2U);
    EXPECT_THAT(numbering, HasSubstr("<w:lvlText w:val=\"\u2610\"/>"));
    EXPECT_THAT(numbering, HasSubstr("<w:lvlText w:val=\"\u2611\"/>"));
    const auto again = readAgain(text);
    EXPECT_EQ(again.string(), text.string());
    EXPECT_EQ(styleAt(again, u"done")->textLists().back()->markerFormat(), NSTextListMarkerCheck);
    EXPECT_EQ(styleAt(again, u"open too")->textLists().back()->markerFormat(), NSTextListMarkerCircle);
}

TEST(WordListWriting, CountsFromTheStartingNumber)
{
    const auto numbers = list(u"{decimal}.", 7);
    const auto text = joined({item(u"7.", u"one", {numbers}), item(u"8.", u"two", {numbers})});
    EXPECT_THAT(numberingOf(text), HasSubstr("<w:start w:val=\"7\"/>"));
    EXPECT_EQ(readAgain(text).string(), text.string());
    EXPECT_EQ(styleAt(readAgain(text), u"one")->textLists()[0]->startingItemNumber(), 7);
}

TEST(WordListWriting, HoldsStartingNumbersToThoseOfTheFormat)
{
    EXPECT_EQ(wordLevelForm(*list(u"{decimal}", -5), 0).start, 0);
    EXPECT_EQ(wordLevelForm(*list(u"{decimal}", 1'000'000), 0).start, 32'767);
}

TEST(WordListWriting, MakesOneListOfEachIdentity)
{
    const auto one = list(u"{decimal}.");
    const auto other = list(u"{decimal}.");
    const auto text
        = joined({item(u"1.", u"a", {one}), item(u"1.", u"b", {other}), item(u"2.", u"c", {one})});
    EXPECT_EQ(countOf(numberingOf(text), "<w:num "), 2U);
    const auto again = readAgain(text);
    EXPECT_EQ(again.string(), text.string());
    EXPECT_EQ(styleAt(again, u"a")->textLists(), styleAt(again, u"c")->textLists());
    EXPECT_NE(styleAt(again, u"a")->textLists(), styleAt(again, u"b")->textLists());
}

TEST(WordListWriting, MakesLevelsOfListsWithinLists)
{
    const auto outer = list(u"{decimal}.");
    const auto first = list(NSTextListMarkerDisc);
    const auto second = list(u"{lower-alpha})");
    const auto text = joined({item(u"1.", u"one", {outer}), item(u"\u2022", u"sub", {outer, first}),
                              item(u"2.", u"two", {outer}), item(u"a)", u"letter", {outer, second}),
                              item(u"b)", u"next", {outer, second}), item(u"3.", u"three", {outer})});
    const auto numbering = numberingOf(text);
    EXPECT_EQ(countOf(numbering, "<w:abstractNum "), 1U);
    EXPECT_THAT(numbering,
                HasSubstr("<w:lvlOverride w:ilvl=\"1\"><w:lvl w:ilvl=\"1\"><w:start w:val=\"1\"/><w:numFmt "
                          "w:val=\"lowerLetter\"/><w:lvlText w:val=\"%2)\"/>"));
    const auto again = readAgain(text);
    EXPECT_EQ(again.string(), text.string());
    EXPECT_EQ(styleAt(again, u"letter")->textLists().size(), 2U);
    EXPECT_EQ(styleAt(again, u"letter")->textLists(), styleAt(again, u"next")->textLists());
    EXPECT_EQ(styleAt(again, u"three")->textLists(), styleAt(again, u"one")->textLists());
}

TEST(WordListWriting, BeginsToCountAnewWhereMarkersJump)
{
    const auto numbers = list(u"{decimal}.");
    const auto text = joined({item(u"1.", u"one", {numbers}), item(u"5.", u"five", {numbers}),
                              item(u"6.", u"six", {numbers}), item(u"2.", u"two", {numbers})});
    EXPECT_THAT(numberingOf(text), HasSubstr("<w:startOverride w:val=\"5\"/>"));
    EXPECT_EQ(readAgain(text).string(), text.string());
}

TEST(WordListWriting, BeginsAnotherListWithinOneItemAnew)
{
    const auto outer = list(u"{decimal}.");
    const auto text = joined({item(u"1.", u"one", {outer}), item(u"1)", u"a", {outer, list(u"{decimal})")}),
                              item(u"1)", u"b", {outer, list(u"{decimal})")})});
    const auto again = readAgain(text);
    EXPECT_EQ(again.string(), text.string());
    EXPECT_NE(styleAt(again, u"a")->textLists()[1], styleAt(again, u"b")->textLists()[1]);
}

TEST(WordListWriting, CountsDeeperLevelsAnewBeneathEachItem)
{
    const auto outer = list(u"{decimal}.");
    const auto inner = list(u"{decimal})");
    const auto text = joined({item(u"1.", u"one", {outer}), item(u"1)", u"a", {outer, inner}),
                              item(u"2.", u"two", {outer}), item(u"2)", u"b", {outer, inner})});
    // The inner list is one, and so goes on where word processors would begin again.
    EXPECT_EQ(readAgain(text).string(), text.string());
}

TEST(WordListWriting, TakesTheDeepestLevelForThoseBeyond)
{
    NSParagraphStyle::TextLists lists;
    for (int level = 0; level < 12; ++level)
        lists.push_back(list(u"{decimal}."));
    const auto text = item(u"1.", u"deep", lists);
    EXPECT_THAT(bodyOf(text), HasSubstr("<w:ilvl w:val=\"8\"/>"));
    EXPECT_EQ(styleAt(readAgain(text), u"deep")->textLists().size(), 9U);
}

TEST(WordListWriting, NumbersNoParagraphWithoutAMarker)
{
    const auto disc = list(NSTextListMarkerDisc);
    const auto text = joined({item(u"\u2022", u"item", {disc}), item(u"", u"goes on", {disc})});
    EXPECT_EQ(countOf(bodyOf(text), "<w:numPr>"), 1U);
    EXPECT_EQ(countOf(bodyOf(text), "<w:pStyle w:val=\"ListParagraph\"/>"), 2U);
    EXPECT_EQ(readAgain(text).string(), text.string());
}

TEST(WordListWriting, NumbersAllParagraphsWhereTextsHoldNoMarkers)
{
    const MarkersOutsideOfTexts setting;
    const auto numbers = list(u"{decimal}.");
    const auto text = joined({item(u"", u"one", {numbers}), item(u"", u"two", {numbers})});
    EXPECT_EQ(countOf(bodyOf(text), "<w:numPr>"), 2U);
}

TEST(WordListWriting, KeepsTabsBehindTheTextOfAnItemOnly)
{
    NSMutableParagraphStyle style;
    style.setHeadIndent(40);
    style.setTabStops({std::make_shared<const NSTextTab>(NSTextAlignment::Left, 11),
                       std::make_shared<const NSTextTab>(NSTextAlignment::Left, 40),
                       std::make_shared<const NSTextTab>(NSTextAlignment::Right, 100)});
    style.setTextLists({list(NSTextListMarkerDisc)});
    EXPECT_THAT(bodyOf(styled(u"\t\u2022\ttext\tend", style)),
                HasSubstr("<w:tabs><w:tab w:val=\"right\" w:pos=\"2000\"/></w:tabs>"));
}

TEST(WordListWriting, WritesNoNumberingForTextWithoutLists)
{
    const auto package = wordBytes(NSAttributedString(u"text"));
    EXPECT_EQ(memberOf(package, "word/numbering.xml"), "");
    EXPECT_THAT(memberOf(package, "[Content_Types].xml"), Not(HasSubstr("numbering")));
}
