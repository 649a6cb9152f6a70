// Tables in written documents.

#include "tests/word/WriteWord.h"

#include <gmock/gmock.h>

#include <limits>

using testing::ElementsAre;
using testing::HasSubstr;
using testing::Not;

namespace {

using Blocks = NSParagraphStyle::TextBlocks;

std::shared_ptr<NSTextTable> tableOf(NSUInteger columns)
{
    auto table = std::make_shared<NSTextTable>();
    table->setNumberOfColumns(columns);
    return table;
}

std::shared_ptr<NSTextTableBlock> cell(const NSTextTable::Ref& table, NSInteger row, NSInteger column,
                                       NSInteger rowSpan = 1, NSInteger columnSpan = 1)
{
    return std::make_shared<NSTextTableBlock>(table, row, rowSpan, column, columnSpan);
}

NSAttributedString inBlocks(std::u16string text, Blocks blocks)
{
    NSMutableParagraphStyle style;
    style.setTextBlocks(std::move(blocks));
    return styled(std::move(text), style);
}

NSAttributedString joined(const std::vector<NSAttributedString>& pieces)
{
    NSMutableAttributedString text;
    for (const auto& piece : pieces)
        text.appendAttributedString(piece);
    return text;
}

/// Row, rows, column and columns.
std::vector<NSInteger> placeIn(const NSAttributedString& text, std::u16string_view part)
{
    const auto found = cellAt(text, part);
    if (!found)
        return {};
    return {found->startingRow(), found->rowSpan(), found->startingColumn(), found->columnSpan()};
}

/// A body without properties of cells and tables, and texts by themselves.
std::string outlineOf(const NSAttributedString& text)
{
    auto body = bodyOf(text);
    for (const std::string name : {"w:tcPr", "w:tblPr", "w:tblGrid", "w:pPr", "w:trPr"}) {
        for (auto start = body.find("<" + name + ">"); start != std::string::npos;
             start = body.find("<" + name + ">"))
            body.erase(start, body.find("</" + name + ">", start) + name.size() + 3 - start);
    }
    for (const std::string piece : {"<w:r><w:t xml:space=\"preserve\">", "</w:t></w:r>", "w:"}) {
        for (auto start = body.find(piece); start != std::string::npos; start = body.find(piece))
            body.erase(start, piece.size());
    }
    return body;
}

constexpr auto kMost = std::numeric_limits<NSInteger>::max();
constexpr auto kLeast = std::numeric_limits<NSInteger>::min();

} // namespace

TEST(WordTableWriting, WritesCellsInRows)
{
    const auto table = tableOf(2);
    const auto text = joined({inBlocks(u"a\n", {cell(table, 0, 0)}), inBlocks(u"b\n", {cell(table, 0, 1)}),
                              inBlocks(u"c\n", {cell(table, 1, 0)}), inBlocks(u"d\n", {cell(table, 1, 1)}),
                              NSAttributedString(u"end\n")});
    EXPECT_EQ(outlineOf(text),
              "<tbl><tr><tc><p>a</p></tc><tc><p>b</p></tc></tr>"
              "<tr><tc><p>c</p></tc><tc><p>d</p></tc></tr></tbl><p>end</p>");
    const auto again = readAgain(text);
    EXPECT_EQ(again.string(), text.string());
    EXPECT_THAT(placeIn(again, u"d"), ElementsAre(1, 1, 1, 1));
    EXPECT_EQ(cellAt(again, u"a")->table(), cellAt(again, u"d")->table());
    EXPECT_EQ(cellAt(again, u"end"), nullptr);
}

TEST(WordTableWriting, KeepsTheParagraphsOfACellTogether)
{
    const auto one = cell(tableOf(1), 0, 0);
    const auto text
        = joined({inBlocks(u"a\nb\n", {one}), inBlocks(u"c\n", {one}), NSAttributedString(u"end\n")});
    EXPECT_EQ(outlineOf(text), "<tbl><tr><tc><p>a</p><p>b</p><p>c</p></tc></tr></tbl><p>end</p>");
}

TEST(WordTableWriting, SpansColumnsAndRows)
{
    const auto table = tableOf(3);
    const auto text
        = joined({inBlocks(u"a\n", {cell(table, 0, 0, 1, 2)}), inBlocks(u"b\n", {cell(table, 0, 2, 2, 1)}),
                  inBlocks(u"c\n", {cell(table, 1, 0)}), inBlocks(u"d\n", {cell(table, 1, 1)}),
                  NSAttributedString(u"end\n")});
    const auto body = bodyOf(text);
    EXPECT_THAT(body, HasSubstr("<w:gridSpan w:val=\"2\"/>"));
    EXPECT_THAT(body, HasSubstr("<w:vMerge w:val=\"restart\"/>"));
    EXPECT_THAT(body, HasSubstr("<w:vMerge/>"));
    const auto again = readAgain(text);
    EXPECT_EQ(again.string(), text.string());
    EXPECT_THAT(placeIn(again, u"a"), ElementsAre(0, 1, 0, 2));
    EXPECT_THAT(placeIn(again, u"b"), ElementsAre(0, 2, 2, 1));
    EXPECT_THAT(placeIn(again, u"d"), ElementsAre(1, 1, 1, 1));
}

TEST(WordTableWriting, KeepsAWideCellThatReachesDownWhole)
{
    const auto table = tableOf(3);
    const auto text
        = joined({inBlocks(u"a\n", {cell(table, 0, 0, 2, 2)}), inBlocks(u"b\n", {cell(table, 0, 2)}),
                  inBlocks(u"c\n", {cell(table, 1, 2)}), NSAttributedString(u"end\n")});
    const auto again = readAgain(text);
    EXPECT_THAT(placeIn(again, u"a"), ElementsAre(0, 2, 0, 2));
    EXPECT_THAT(placeIn(again, u"c"), ElementsAre(1, 1, 2, 1));
}

TEST(WordTableWriting, LeavesOutPlacesAtTheSidesAndFillsThoseBetween)
{
    const auto table = tableOf(4);
    const auto text = joined({inBlocks(u"a\n", {cell(table, 0, 1)}), inBlocks(u"b\n", {cell(table, 1, 0)}),
                              inBlocks(u"c\n", {cell(table, 1, 3)}), NSAttributedString(u"end\n")});
    const auto body = bodyOf(text);
    EXPECT_THAT(body, HasSubstr("<w:trPr><w:gridBefore w:val=\"1\"/><w:gridAfter w:val=\"2\"/></w:trPr>"));
    EXPECT_EQ(outlineOf(text),
              "<tbl><tr><tc><p>a</p></tc></tr><tr><tc><p>b</p></tc><tc><p/></tc><tc><p/></tc>"
              "<tc><p>c</p></tc></tr></tbl><p>end</p>");
    EXPECT_THAT(placeIn(readAgain(text), u"a"), ElementsAre(0, 1, 1, 1));
    EXPECT_THAT(placeIn(readAgain(text), u"c"), ElementsAre(1, 1, 3, 1));
}

TEST(WordTableWriting, WritesTablesWithinCells)
{
    const auto outer = cell(tableOf(1), 0, 0);
    const auto inner = tableOf(2);
    const auto text = joined({inBlocks(u"first\n", {outer}), inBlocks(u"a\n", {outer, cell(inner, 0, 0)}),
                              inBlocks(u"b\n", {outer, cell(inner, 0, 1)}), inBlocks(u"last\n", {outer}),
                              NSAttributedString(u"end\n")});
    EXPECT_EQ(outlineOf(text),
              "<tbl><tr><tc><p>first</p><tbl><tr><tc><p>a</p></tc><tc><p>b</p></tc></tr></tbl>"
              "<p>last</p></tc></tr></tbl><p>end</p>");
    const auto again = readAgain(text);
    EXPECT_EQ(again.string(), text.string());
    EXPECT_EQ(styleAt(again, u"b")->textBlocks().size(), 2U);
    EXPECT_THAT(placeIn(again, u"b"), ElementsAre(0, 1, 1, 1));
}

TEST(WordTableWriting, PutsAParagraphWhereThereMustBeOne)
{
    const auto outer = cell(tableOf(1), 0, 0);
    const auto inner = inBlocks(u"inner\n", {outer, cell(tableOf(1), 0, 0)});
    EXPECT_EQ(outlineOf(inner),
              "<tbl><tr><tc><tbl><tr><tc><p>inner</p></tc></tr></tbl><p></p></tc></tr></tbl><p></p>");
    const auto two = joined({inBlocks(u"one\n", {cell(tableOf(1), 0, 0)}),
                             inBlocks(u"two\n", {cell(tableOf(1), 0, 0)}), NSAttributedString(u"end")});
    EXPECT_EQ(outlineOf(two),
              "<tbl><tr><tc><p>one</p></tc></tr></tbl><p></p><tbl><tr><tc><p>two</p></tc></tr></tbl>"
              "<p>end</p>");
}

TEST(WordTableWriting, WritesBordersGroundsPaddingAndAlignment)
{
    const auto table = tableOf(1);
    const auto own = cell(table, 0, 0);
    own->setWidth({2}, NSTextBlockLayer::Border, NSRectEdge::MinX);
    own->setWidth({50}, NSTextBlockLayer::Border, NSRectEdge::MaxY);
    own->setBorderColor(NSColor::colorWithSRGBRed(1, 0, 0, 1), NSRectEdge::MinX);
    own->setBackgroundColor(NSColor::colorWithSRGBRed(0, 0, 1, 1));
    own->setWidth({3}, NSTextBlockLayer::Padding);
    own->setVerticalAlignment(NSTextBlockVerticalAlignment::Middle);
    own->setValue({40}, NSTextBlockDimension::MinimumHeight);
    const auto text = joined({inBlocks(u"a\n", {own}), NSAttributedString(u"end\n")});
    const auto body = bodyOf(text);
    EXPECT_THAT(
        body,
        HasSubstr("<w:tcBorders><w:left w:val=\"single\" w:sz=\"16\" w:space=\"0\" w:color=\"FF0000\"/>"
                  "<w:bottom w:val=\"single\" w:sz=\"96\" w:space=\"0\" w:color=\"auto\"/>"
                  "</w:tcBorders><w:shd w:val=\"clear\" w:color=\"auto\" w:fill=\"0000FF\"/><w:tcMar>"
                  "<w:top w:w=\"60\" w:type=\"dxa\"/>"));
    EXPECT_THAT(body, HasSubstr("<w:vAlign w:val=\"center\"/>"));
    EXPECT_THAT(body, HasSubstr("<w:trHeight w:val=\"800\"/>"));
    const auto read = cellAt(readAgain(text), u"a");
    ASSERT_TRUE(read);
    EXPECT_EQ(read->widthForLayer(NSTextBlockLayer::Border, NSRectEdge::MinX).value, 2);
    EXPECT_EQ(read->widthForLayer(NSTextBlockLayer::Border, NSRectEdge::MinY).value, 0);
    EXPECT_EQ(read->widthForLayer(NSTextBlockLayer::Padding, NSRectEdge::MaxX).value, 3);
    EXPECT_EQ(read->verticalAlignment(), NSTextBlockVerticalAlignment::Middle);
    EXPECT_TRUE(read->backgroundColor()->isEqual(*NSColor::colorWithSRGBRed(0, 0, 1, 1)));
    EXPECT_TRUE(read->borderColorForEdge(NSRectEdge::MinX)->isEqual(*NSColor::colorWithSRGBRed(1, 0, 0, 1)));
}

TEST(WordTableWriting, WritesWidths)
{
    const auto table = tableOf(3);
    table->setContentWidth({80, NSTextBlockValueType::Percentage});
    const auto absolute = cell(table, 0, 0);
    absolute->setContentWidth({100});
    const auto part = cell(table, 0, 1);
    part->setContentWidth({25, NSTextBlockValueType::Percentage});
    const auto text = joined({inBlocks(u"a\n", {absolute}), inBlocks(u"b\n", {part}),
                              inBlocks(u"c\n", {cell(table, 0, 2)}), NSAttributedString(u"end\n")});
    const auto body = bodyOf(text);
    EXPECT_THAT(body, HasSubstr("<w:tblW w:w=\"4000\" w:type=\"pct\"/>"));
    // A quarter of the 468 points between the margins is 117, and what is left 251.
    EXPECT_THAT(body,
                HasSubstr("<w:gridCol w:w=\"2000\"/><w:gridCol w:w=\"2340\"/><w:gridCol w:w=\"5020\"/>"));
    EXPECT_THAT(body, HasSubstr("<w:tcW w:w=\"1250\" w:type=\"pct\"/>"));
    const auto again = readAgain(text);
    EXPECT_EQ(cellAt(again, u"a")->contentWidth(), absolute->contentWidth());
    EXPECT_EQ(cellAt(again, u"b")->contentWidth(), part->contentWidth());
    EXPECT_EQ(cellAt(again, u"c")->contentWidth().value, 0);
    EXPECT_EQ(cellAt(again, u"a")->table()->contentWidth(), table->contentWidth());
}

TEST(WordTableWriting, GivesColumnsWithoutWidthsEqualShares)
{
    const auto table = tableOf(2);
    const auto text = joined({inBlocks(u"a\n", {cell(table, 0, 0)}), inBlocks(u"b\n", {cell(table, 0, 1)})});
    EXPECT_THAT(bodyOf(text),
                HasSubstr("<w:tblLayout w:type=\"fixed\"/></w:tblPr><w:tblGrid><w:gridCol "
                          "w:w=\"4680\"/><w:gridCol w:w=\"4680\"/></w:tblGrid>"));
}

TEST(WordTableWriting, WritesTheBorderAndGroundOfATable)
{
    const auto table = tableOf(1);
    table->setWidth({1}, NSTextBlockLayer::Border);
    table->setBackgroundColor(NSColor::colorWithSRGBRed(1, 1, 0, 1));
    EXPECT_THAT(
        bodyOf(inBlocks(u"a\n", {cell(table, 0, 0)})),
        HasSubstr("<w:tblBorders><w:top w:val=\"single\" w:sz=\"8\" w:space=\"0\" w:color=\"auto\"/>"));
}

TEST(WordTableWriting, TakesCellsInWhateverPlacesTheySay)
{
    const auto table = tableOf(1);
    NSMutableAttributedString text;
    for (const auto row : {NSInteger{5}, NSInteger{-3}, NSInteger{5}, kMost, kLeast}) {
        for (const auto column : {NSInteger{7}, NSInteger{0}, NSInteger{-1}, kMost, kLeast}) {
            for (const auto span : {NSInteger{0}, NSInteger{3}, kMost, kLeast})
                text.appendAttributedString(inBlocks(u"cell\n", {cell(table, row, column, span, span)}));
        }
    }
    text.appendAttributedString(NSAttributedString(u"end\n"));
    std::u16string words;
    const auto again = readAgain(text);
    for (const auto unit : again.string())
        words += unit == u'\n' ? std::u16string() : std::u16string(1, unit);
    std::u16string expected;
    for (int index = 0; index < 100; ++index)
        expected += u"cell";
    EXPECT_EQ(words, expected + u"end");
}

TEST(WordTableWriting, WritesTablesBeyondABoundAsParagraphs)
{
    Blocks blocks;
    for (int depth = 0; depth < 40; ++depth)
        blocks.push_back(cell(tableOf(1), 0, 0));
    const auto text = inBlocks(u"deep\n", blocks);
    EXPECT_EQ(styleAt(readAgain(text), u"deep")->textBlocks().size(), 16U);
}

TEST(WordTableWriting, TakesACellWithoutATableForNone)
{
    EXPECT_THAT(bodyOf(inBlocks(u"lost\n", {cell(nullptr, 0, 0)})), Not(HasSubstr("<w:tbl>")));
}
