// Tables: the grid, merged cells, cells within cells, and how cells look.

#include "tests/word/ReadWord.h"

namespace {

std::string cell(std::string_view content, std::string_view properties = {})
{
    std::string xml = "<w:tc>";
    if (!properties.empty())
        xml.append("<w:tcPr>").append(properties).append("</w:tcPr>");
    return xml.append(content).append("</w:tc>");
}

std::string row(std::string_view cells, std::string_view properties = {})
{
    std::string xml = "<w:tr>";
    if (!properties.empty())
        xml.append("<w:trPr>").append(properties).append("</w:trPr>");
    return xml.append(cells).append("</w:tr>");
}

std::string table(std::string_view rows, std::string_view properties = {})
{
    return "<w:tbl><w:tblPr>" + std::string(properties) + "</w:tblPr>" + std::string(rows) + "</w:tbl>";
}

void expectPlace(const NSTextTableBlock::Ref& block, NSInteger firstRow, NSInteger rows, NSInteger column,
                 NSInteger columns)
{
    ASSERT_TRUE(block);
    EXPECT_EQ(block->startingRow(), firstRow);
    EXPECT_EQ(block->rowSpan(), rows);
    EXPECT_EQ(block->startingColumn(), column);
    EXPECT_EQ(block->columnSpan(), columns);
}

constexpr auto kMinX = NSRectEdge::MinX;
constexpr auto kMinY = NSRectEdge::MinY;
constexpr auto kMaxX = NSRectEdge::MaxX;
constexpr auto kMaxY = NSRectEdge::MaxY;

} // namespace

TEST(WordTables, HaveACellForEveryCell)
{
    const auto text
        = textOfWordBody(table(row(cell(wordParagraph("a")) + cell(wordParagraph("b") + wordParagraph("c")))
                               + row(cell(wordParagraph("d")) + cell("")))
                         + wordParagraph("after"));
    EXPECT_EQ(text.string(), u"a\nb\nc\nd\n\nafter\n");
    expectPlace(cellAt(text, u"a"), 0, 1, 0, 1);
    expectPlace(cellAt(text, u"b"), 0, 1, 1, 1);
    EXPECT_EQ(cellAt(text, u"b"), cellAt(text, u"c"));
    expectPlace(cellAt(text, u"d"), 1, 1, 0, 1);
    expectPlace(cellAt(text, u"\nafter"), 1, 1, 1, 1);
    EXPECT_EQ(cellAt(text, u"a")->table(), cellAt(text, u"d")->table());
    EXPECT_EQ(cellAt(text, u"a")->table()->numberOfColumns(), 2U);
    EXPECT_FALSE(cellAt(text, u"after"));
}

TEST(WordTables, MergeCellsAcrossAndDown)
{
    const auto text = textOfWordBody(table(
        row(cell(wordParagraph("wide"), "<w:gridSpan w:val='2'/>")
            + cell(wordParagraph("tall"), "<w:vMerge w:val='restart'/>"))
        + row(cell(wordParagraph("x")) + cell(wordParagraph("y")) + cell("<w:p/>", "<w:vMerge/>"))
        + row(cell(wordParagraph("z")) + cell("<w:p/>") + cell("<w:p/>", "<w:vMerge w:val='continue'/>"))));
    EXPECT_EQ(text.string(), u"wide\ntall\nx\ny\nz\n\n");
    expectPlace(cellAt(text, u"wide"), 0, 1, 0, 2);
    expectPlace(cellAt(text, u"tall"), 0, 3, 2, 1);
    expectPlace(cellAt(text, u"y"), 1, 1, 1, 1);
    EXPECT_EQ(cellAt(text, u"x")->table()->numberOfColumns(), 3U);
}

TEST(WordTables, KeepTheTextOfAMergedCellInACellOfItsOwn)
{
    const auto text = textOfWordBody(table(row(cell(wordParagraph("a"), "<w:vMerge w:val='restart'/>"))
                                           + row(cell(wordParagraph("b"), "<w:vMerge/>"))
                                           + row(cell("<w:p/>", "<w:vMerge/>"))));
    EXPECT_EQ(text.string(), u"a\nb\n");
    expectPlace(cellAt(text, u"a"), 0, 1, 0, 1);
    expectPlace(cellAt(text, u"b"), 1, 2, 0, 1);
}

TEST(WordTables, LeaveColumnsBeforeARowFree)
{
    const auto text = textOfWordBody(table(row(cell(wordParagraph("a")) + cell(wordParagraph("b")))
                                           + row(cell(wordParagraph("c")), "<w:gridBefore w:val='1'/>")));
    expectPlace(cellAt(text, u"c"), 1, 1, 1, 1);
}

TEST(WordTables, StandWithinCells)
{
    const auto inner = table(row(cell(wordParagraph("inner"))));
    const auto text = textOfWordBody(table(row(cell(wordParagraph("outer") + inner + wordParagraph("below"))))
                                     + wordParagraph("after"));
    EXPECT_EQ(text.string(), u"outer\ninner\nbelow\nafter\n");
    const auto& blocks = styleAt(text, u"inner")->textBlocks();
    ASSERT_EQ(blocks.size(), 2U);
    EXPECT_EQ(blocks[0], styleAt(text, u"outer")->textBlocks().at(0));
    EXPECT_EQ(blocks[0], styleAt(text, u"below")->textBlocks().at(0));
    EXPECT_NE(blocks[0], blocks[1]);
}

TEST(WordTables, KeepTheTextOfShapesInTheirCells)
{
    const auto text = textOfWordBody(
        table(row(cell("<w:p><w:r><w:t>a</w:t><w:pict><v:textbox><w:txbxContent>" + wordParagraph("box")
                       + "</w:txbxContent></v:textbox></w:pict></w:r></w:p>"))));
    EXPECT_EQ(text.string(), u"a\nbox\n");
    EXPECT_EQ(cellAt(text, u"box"), cellAt(text, u"a"));
    EXPECT_TRUE(cellAt(text, u"box"));
}

TEST(WordTables, HaveBordersOfTheTableAndOfTheCell)
{
    const auto text = textOfWordBody(table(
        row(cell(wordParagraph("a"), "<w:tcBorders><w:left w:val='nil'/></w:tcBorders>")
            + cell(wordParagraph("b"))),
        "<w:tblBorders><w:top w:val='single' w:sz='16' w:color='FF0000'/><w:left w:val='single' w:sz='8'/>"
        "<w:bottom w:val='single' w:sz='8'/><w:right w:val='single' w:sz='8'/>"
        "<w:insideV w:val='single' w:sz='4'/></w:tblBorders>"));
    const auto first = cellAt(text, u"a");
    const auto second = cellAt(text, u"b");
    ASSERT_TRUE(first && second);
    constexpr auto kBorder = NSTextBlockLayer::Border;
    EXPECT_EQ(first->widthForLayer(kBorder, kMinX).value, 0);
    EXPECT_EQ(first->widthForLayer(kBorder, kMinY).value, 2);
    EXPECT_EQ(first->widthForLayer(kBorder, kMaxX).value, 0.5);
    EXPECT_EQ(second->widthForLayer(kBorder, kMinX).value, 0.5);
    EXPECT_EQ(second->widthForLayer(kBorder, kMaxX).value, 1);
    EXPECT_EQ(second->widthForLayer(kBorder, kMaxY).value, 1);
    ASSERT_TRUE(first->borderColorForEdge(kMinY));
    EXPECT_TRUE(first->borderColorForEdge(kMinY)->isEqual(*NSColor::colorWithSRGBRed(1, 0, 0, 1)));
    EXPECT_FALSE(first->borderColorForEdge(kMaxY));
}

TEST(WordTables, HaveGroundWidthPaddingAndAlignment)
{
    const auto text = textOfWordBody(
        table(row(cell(wordParagraph("a"),
                       "<w:tcW w:w='1440' w:type='dxa'/><w:shd w:fill='00FF00'/>"
                       "<w:vAlign w:val='center'/><w:tcMar><w:top w:w='40'/></w:tcMar>")
                  + cell(wordParagraph("b"), "<w:tcW w:w='2500' w:type='pct'/><w:vAlign w:val='bottom'/>")
                  + cell(wordParagraph("c"), "<w:tcW w:w='0' w:type='auto'/>"))));
    const auto first = cellAt(text, u"a");
    const auto second = cellAt(text, u"b");
    const auto third = cellAt(text, u"c");
    ASSERT_TRUE(first && second && third);
    EXPECT_EQ(first->contentWidth(), (NSTextBlock::Value{72, NSTextBlockValueType::Absolute}));
    EXPECT_EQ(second->contentWidth(), (NSTextBlock::Value{50, NSTextBlockValueType::Percentage}));
    EXPECT_EQ(third->contentWidth(), NSTextBlock::Value{});
    ASSERT_TRUE(first->backgroundColor());
    EXPECT_TRUE(first->backgroundColor()->isEqual(*NSColor::colorWithSRGBRed(0, 1, 0, 1)));
    EXPECT_EQ(first->verticalAlignment(), NSTextBlockVerticalAlignment::Middle);
    EXPECT_EQ(second->verticalAlignment(), NSTextBlockVerticalAlignment::Bottom);
    EXPECT_EQ(first->widthForLayer(NSTextBlockLayer::Padding, kMinY).value, 2);
    EXPECT_EQ(first->widthForLayer(NSTextBlockLayer::Padding, kMinX).value, 5.4);
}

TEST(WordTables, TakeTheLooksOfTheirStyle)
{
    WordPackageBytes document;
    document.parts.push_back(
        {"s", "styles", "styles.xml",
         wordRoot("styles",
                  "<w:style w:type='table' w:styleId='T'><w:pPr><w:spacing w:after='100'/></w:pPr>"
                  "<w:rPr><w:i/></w:rPr><w:tblPr><w:tblBorders><w:top w:val='single' w:sz='8'/>"
                  "</w:tblBorders></w:tblPr><w:tblStylePr w:type='firstRow'><w:rPr><w:b/></w:rPr>"
                  "</w:tblStylePr></w:style>")});
    document.body = table(row(cell(wordParagraph("a"))), "<w:tblStyle w:val='T'/>") + wordParagraph("after");
    const auto text = textOfWord(document);
    EXPECT_EQ(fontAt(text, u"a")->fontName(), u"TimesNewRomanPS-ItalicMT");
    EXPECT_EQ(styleAt(text, u"a")->paragraphSpacing(), 5);
    ASSERT_TRUE(cellAt(text, u"a"));
    EXPECT_EQ(cellAt(text, u"a")->widthForLayer(NSTextBlockLayer::Border, kMinY).value, 1);
    EXPECT_EQ(fontAt(text, u"after")->fontName(), u"TimesNewRomanPSMT");
}
