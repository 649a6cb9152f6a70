#include "platform/rtf/NSAttributedStringRTF.h"
#include "platform/text/NSAttributeNames.h"
#include "platform/text/NSParagraphStyle.h"
#include "platform/text/NSTextTable.h"

#include <gmock/gmock.h>

#include <string>
#include <string_view>

namespace {

NSAttributedString read(std::string_view body)
{
    return *NSAttributedStringDocumentFormats::initWithRTF(
        {"{\\rtf1\\cocoartf1{\\colortbl;\\red255\\green255\\blue255;\\red255\\green0\\blue0;}"
         + std::string(body) + "}"});
}

std::vector<std::shared_ptr<const NSTextTableBlock>> cellsAt(const NSAttributedString& text,
                                                             NSUInteger location)
{
    std::vector<std::shared_ptr<const NSTextTableBlock>> cells;
    const auto style = text.attribute(NSParagraphStyleAttributeName, location).object<NSParagraphStyle>();
    for (const auto& block : style ? style->textBlocks() : NSParagraphStyle::TextBlocks())
        cells.push_back(std::dynamic_pointer_cast<const NSTextTableBlock>(block));
    return cells;
}

/// Row, rows, column, columns.
std::array<NSInteger, 4> placeAt(const NSAttributedString& text, NSUInteger location)
{
    const auto cells = cellsAt(text, location);
    if (cells.size() != 1)
        return {-1, -1, -1, -1};
    return {cells[0]->startingRow(), cells[0]->rowSpan(), cells[0]->startingColumn(), cells[0]->columnSpan()};
}

using Place = std::array<NSInteger, 4>;

} // namespace

TEST(RTFTableReading, PutsTextIntoCells)
{
    const auto text = read("\\trowd\\cellx100\\cellx200\\pard\\intbl A\\cell B\\par C\\cell\\row"
                           "\\pard\\intbl D\\cell E\\cell\\lastrow\\row\\pard after");
    EXPECT_EQ(text.string(), u"A\nB\nC\nD\nE\nafter");
    EXPECT_EQ(placeAt(text, 0), (Place{0, 1, 0, 1}));
    EXPECT_EQ(placeAt(text, 2), (Place{0, 1, 1, 1}));
    EXPECT_EQ(cellsAt(text, 2)[0], cellsAt(text, 4)[0]);
    EXPECT_EQ(placeAt(text, 6), (Place{1, 1, 0, 1}));
    EXPECT_EQ(placeAt(text, 8), (Place{1, 1, 1, 1}));
    EXPECT_EQ(cellsAt(text, 0)[0]->table(), cellsAt(text, 8)[0]->table());
    EXPECT_EQ(cellsAt(text, 0)[0]->table()->numberOfColumns(), 2U);
    EXPECT_TRUE(cellsAt(text, 10).empty());
}

TEST(RTFTableReading, EndsATableAtItsLastRowAndAtTextBehindIt)
{
    const auto text = read("\\trowd\\cellx1\\pard\\intbl A\\cell\\lastrow\\row\\trowd\\cellx1 B\\cell\\row"
                           "\\pard between\\par\\trowd\\cellx1\\pard\\intbl C\\cell\\row");
    const auto tableAt = [&text](NSUInteger location) { return cellsAt(text, location).at(0)->table(); };
    EXPECT_NE(tableAt(0), tableAt(2));
    EXPECT_NE(tableAt(2), tableAt(12));
    EXPECT_TRUE(cellsAt(text, 4).empty());
}

TEST(RTFTableReading, ReadsSpans)
{
    const auto text = read("\\trowd\\clmgf\\cellx1\\clmrg\\cellx2\\pard\\intbl wide\\cell\\cell\\row"
                           "\\trowd\\clvmgf\\cellx1\\cellx2\\pard\\intbl tall\\cell B\\cell\\row"
                           "\\trowd\\clvmrg\\cellx1\\cellx2\\pard\\intbl\\cell C\\cell\\row");
    EXPECT_EQ(text.string(), u"wide\ntall\nB\nC\n");
    EXPECT_EQ(placeAt(text, 0), (Place{0, 1, 0, 2}));
    EXPECT_EQ(placeAt(text, 5), (Place{1, 2, 0, 1}));
    EXPECT_EQ(placeAt(text, 10), (Place{1, 1, 1, 1}));
    EXPECT_EQ(placeAt(text, 12), (Place{2, 1, 1, 1}));
}

TEST(RTFTableReading, ReadsTablesInCellsOfThePlatform)
{
    const auto text
        = read("\\itap1\\trowd\\cellx1\\pard\\intbl\\itap1 before\\par\\itap2\\trowd\\cellx1"
               "\\pard\\intbl\\itap2 inner\\nestcell\\lastrow\\nestrow\\pard\\intbl\\itap1 behind\\cell"
               "\\lastrow\\row");
    EXPECT_EQ(text.string(), u"before\ninner\nbehind\n");
    ASSERT_EQ(cellsAt(text, 7).size(), 2U);
    EXPECT_EQ(cellsAt(text, 7)[0], cellsAt(text, 0)[0]);
    EXPECT_EQ(cellsAt(text, 13), cellsAt(text, 0));
}

TEST(RTFTableReading, ReadsTablesInCellsOfOtherWriters)
{
    const auto text
        = read("\\trowd\\cellx1\\pard\\intbl\\itap2 inner\\nestcell{\\*\\nesttableprops\\trowd\\clcbpat2"
               "\\cellx1\\nestrow}{\\nonesttables\\par}\\pard\\intbl behind\\cell\\row");
    EXPECT_EQ(text.string(), u"inner\nbehind\n");
    ASSERT_EQ(cellsAt(text, 0).size(), 2U);
    EXPECT_TRUE(cellsAt(text, 0)[1]->backgroundColor());
    EXPECT_EQ(cellsAt(text, 6).size(), 1U);
}

TEST(RTFTableReading, AddsNoParagraphBehindATableThatEndsACell)
{
    EXPECT_EQ(read("\\pard\\intbl\\itap2 a\\nestcell\\nestrow\\cell\\row").string(), u"a\n");
    EXPECT_EQ(read("\\pard\\intbl\\itap2 a\\nestcell\\nestrow\\pard\\intbl\\cell\\row").string(), u"a\n\n");
}

TEST(RTFTableReading, ReadsTheLooksOfCells)
{
    const auto text
        = read("\\itap1\\trowd \\taflags1 \\trcbpat2 \\trwWidth2500\\trftsWidth2 \\trbrdrt\\brdrnil "
               "\\clvertalc\\clcbpat2\\clwWidth3040\\clftsWidth3\\clheight280\\clminw200"
               "\\clbrdrl\\brdrs\\brdrw20\\brdrcf2 \\clbrdrr\\brdrnil\\clpadt80\\clmarb40 \\gaph\\cellx1"
               "\\pard\\intbl\\itap1 x\\cell\\row");
    const auto cell = cellsAt(text, 0).at(0);
    using Type = NSTextBlockValueType;
    EXPECT_EQ(cell->contentWidth(), (NSTextBlock::Value{152, Type::Absolute}));
    EXPECT_EQ(cell->valueForDimension(NSTextBlockDimension::Height),
              (NSTextBlock::Value{14, Type::Absolute}));
    EXPECT_EQ(cell->valueForDimension(NSTextBlockDimension::MinimumWidth),
              (NSTextBlock::Value{10, Type::Absolute}));
    EXPECT_EQ(cell->widthForLayer(NSTextBlockLayer::Border, NSRectEdge::MinX).value, 1);
    EXPECT_EQ(cell->widthForLayer(NSTextBlockLayer::Border, NSRectEdge::MaxX).value, 0);
    EXPECT_TRUE(cell->borderColorForEdge(NSRectEdge::MinX));
    EXPECT_EQ(cell->widthForLayer(NSTextBlockLayer::Padding, NSRectEdge::MinY).value, 4);
    EXPECT_EQ(cell->widthForLayer(NSTextBlockLayer::Margin, NSRectEdge::MaxY).value, 2);
    EXPECT_EQ(cell->verticalAlignment(), NSTextBlockVerticalAlignment::Middle);
    EXPECT_TRUE(cell->backgroundColor());
    EXPECT_TRUE(cell->table()->collapsesBorders());
    EXPECT_TRUE(cell->table()->backgroundColor());
    EXPECT_EQ(cell->table()->contentWidth(), (NSTextBlock::Value{50, Type::Percentage}));
}

TEST(RTFTableReading, SurvivesTablesThatAreNone)
{
    EXPECT_EQ(read("a\\cell b\\cell\\row c").string(), u"a\nb\nc");
    EXPECT_EQ(read("\\row\\nestrow\\cellx1\\cell\\nestcell x").string(), u"\n\nx");
    EXPECT_EQ(read("\\trowd\\cellx1\\pard\\intbl a\\cell b\\cell c\\cell\\row").string(), u"a\nb\nc\n");
    EXPECT_EQ(read("\\trowd\\cellx9\\cellx1\\pard\\intbl a\\cell\\pard b").string(), u"a\nb");
    EXPECT_EQ(read("\\pard\\intbl\\itap9999999 a\\nestcell\\nestrow b").string(), u"a\nb");
    EXPECT_EQ(read("\\pard\\intbl\\itap-5 a\\cell\\row").string(), u"a\n");
}
