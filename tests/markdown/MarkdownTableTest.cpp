#include "markdown/MarkdownTable.h"

#include "markdown/MarkdownBlocks.h"
#include "markdown/MarkdownExport.h"
#include "markdown/MarkdownImport.h"
#include "platform/foundation/Unicode.h"
#include "platform/html/NSAttributedStringHTML.h"
#include "platform/text/NSAttributeNames.h"
#include "platform/text/NSTextTable.h"

#include <gtest/gtest.h>

namespace {

using Cells = std::vector<std::u16string>;

std::vector<MarkdownBlock> blocksOf(std::u16string_view markdown)
{
    std::vector<MarkdownBlock> blocks;
    readMarkdownBlocks(markdown, [&blocks](const MarkdownBlock& block) { blocks.push_back(block); });
    return blocks;
}

/// The kinds of the blocks: p, t, and so on.
std::string kindsOf(std::u16string_view markdown)
{
    std::string kinds;
    for (const auto& block : blocksOf(markdown))
        kinds += "phcrt"[static_cast<std::size_t>(block.kind)];
    return kinds;
}

NSParagraphStyle::Ref styleAt(const NSAttributedString& text, std::u16string_view words)
{
    return text.attribute(NSParagraphStyleAttributeName, text.string().find(words))
        .object<NSParagraphStyle>();
}

} // namespace

TEST(MarkdownTable, SplitsRowsAtTheirBars)
{
    EXPECT_EQ(markdownCells(u"| a | b c |"), (Cells{u"a", u"b c"}));
    EXPECT_EQ(markdownCells(u"a|b"), (Cells{u"a", u"b"}));
    EXPECT_EQ(markdownCells(u"||a||"), (Cells{u"", u"a", u""}));
    EXPECT_EQ(markdownCells(u" | a | "), (Cells{u"a"}));
}

TEST(MarkdownTable, KeepsBarsBehindBackslashes)
{
    EXPECT_EQ(markdownCells(u"| a\\|b | `c\\|d` |"), (Cells{u"a|b", u"`c|d`"}));
    EXPECT_EQ(markdownCells(u"a\\\\\\|b"), (Cells{u"a\\\\|b"}));
    EXPECT_EQ(markdownCells(u"| a \\|"), (Cells{u"a |"}));
}

TEST(MarkdownTable, ReadsAlignmentsFromColons)
{
    using enum NSTextAlignment;
    EXPECT_EQ(markdownAlignments(u"| --- | :-- | --: | :-: |"), (std::vector{Natural, Left, Right, Center}));
    EXPECT_EQ(markdownAlignments(u"-|-"), (std::vector{Natural, Natural}));
    EXPECT_EQ(markdownAlignments(u"---"), std::nullopt);
    EXPECT_EQ(markdownAlignments(u"| --- | : |"), std::nullopt);
    EXPECT_EQ(markdownAlignments(u"| --- | |"), std::nullopt);
    EXPECT_EQ(markdownAlignments(u"| --- | a |"), std::nullopt);
    EXPECT_EQ(markdownAlignments(u"|"), std::nullopt);
}

TEST(MarkdownTable, HasABoundOfColumns)
{
    std::u16string row = u"|";
    for (int column = 0; column < 128; ++column)
        row += u"-|";
    EXPECT_EQ(markdownAlignments(row)->size(), 128U);
    EXPECT_EQ(markdownAlignments(row + u"-|"), std::nullopt);
}

TEST(MarkdownTable, BeginsWithAHeadAndAlignments)
{
    const auto blocks = blocksOf(u"| a | b |\n| --- | --: |\n| c | d |\ne\n\nf");
    ASSERT_EQ(blocks.size(), 2U);
    EXPECT_EQ(blocks[0].kind, MarkdownBlock::Kind::Table);
    EXPECT_EQ(blocks[0].alignments, (std::vector{NSTextAlignment::Natural, NSTextAlignment::Right}));
    EXPECT_EQ(blocks[0].rows, (std::vector<Cells>{{u"a", u"b"}, {u"c", u"d"}, {u"e"}}));
    EXPECT_EQ(blocks[1].text, u"f");
}

TEST(MarkdownTable, IsNoneWhenTheHeadHasAnotherWidth)
{
    EXPECT_EQ(kindsOf(u"| a |\n| --- | --- |"), "p");
    EXPECT_EQ(kindsOf(u"| --- | --- |"), "p");
}

TEST(MarkdownTable, LeavesOutCellsBeyondTheHead)
{
    EXPECT_EQ(blocksOf(u"|a|\n|-|\n|b|c|").at(0).rows, (std::vector<Cells>{{u"a"}, {u"b"}}));
}

TEST(MarkdownTable, StandsBehindTheTextBeforeIt)
{
    EXPECT_EQ(kindsOf(u"a\n|b|\n|-|"), "pt");
    EXPECT_EQ(kindsOf(u"- |b|\n  |-|\n- c"), "ptp");
    EXPECT_EQ(kindsOf(u"- |b|\n|-|"), "p");
}

TEST(MarkdownTable, EndsWhereAnotherBlockBegins)
{
    EXPECT_EQ(kindsOf(u"|a|\n|-|\n# b"), "th");
    EXPECT_EQ(kindsOf(u"|a|\n|-|\n---"), "tr");
    EXPECT_EQ(kindsOf(u"|a|\n|-|\n- b"), "tp");
    EXPECT_EQ(kindsOf(u"|a|\n|-|\n> b"), "tp");
    EXPECT_EQ(kindsOf(u"- a\n\n  |b|\n  |-|\nc"), "ptp");
}

TEST(MarkdownTable, BecomesCellsOfOneTable)
{
    const auto text = attributedStringWithMarkdown(u"| aa | **b** |\n| :-: | --- |\n| cc | `d\\|e` |\n\nff");
    EXPECT_EQ(text.string(), u"aa\nb\ncc\nd|e\nff");
    const auto style = styleAt(text, u"d|e");
    ASSERT_EQ(style->textBlocks().size(), 1U);
    const auto* const cell = dynamic_cast<const NSTextTableBlock*>(style->textBlocks().front().get());
    ASSERT_TRUE(cell);
    EXPECT_EQ(cell->startingRow(), 1);
    EXPECT_EQ(cell->startingColumn(), 1);
    EXPECT_EQ(cell->table()->numberOfColumns(), 2U);
    const auto other = styleAt(text, u"cc");
    EXPECT_EQ(other->alignment(), NSTextAlignment::Center);
    EXPECT_EQ(dynamic_cast<const NSTextTableBlock&>(*other->textBlocks().front()).table(), cell->table());
    EXPECT_TRUE(styleAt(text, u"ff")->textBlocks().empty());
}

TEST(MarkdownTable, KeepsAnEmptyCellAtTheEnd)
{
    const auto text = attributedStringWithMarkdown(u"|a|\n|-|\n||");
    EXPECT_EQ(text.string(), u"a\n\n");
    EXPECT_EQ(UTF8FromUTF16(markdownWithAttributedString(text)), "| a |\n| --- |\n|  |\n");
}

TEST(MarkdownTable, SurvivesAPage)
{
    namespace Formats = NSAttributedStringDocumentFormats;
    for (const std::u16string markdown : {
             u"| a | *b* |\n| --- | :---: |\n| c\\|d | e<br>f |\n|  | **g** |\n\nh\n",
             u"a\n\n| `b\\|c` |\n| ---: |\n| [d](https://a.example/?e\\|f) |\n",
             u"> | a |\n> | :--- |\n> | b |\n>\n> c\n",
         }) {
        const auto text = attributedStringWithMarkdown(markdown);
        EXPECT_EQ(UTF8FromUTF16(markdownWithAttributedString(text)), UTF8FromUTF16(markdown));
        const auto page = Formats::HTMLFromRange(text, {0, text.length()});
        ASSERT_TRUE(page);
        const auto read = Formats::initWithHTML(*page);
        ASSERT_TRUE(read);
        EXPECT_EQ(UTF8FromUTF16(markdownWithAttributedString(*read)), UTF8FromUTF16(markdown))
            << "through a page";
    }
}

TEST(MarkdownTable, IsNotMadeOfTextThatLooksLikeOne)
{
    const std::u16string text = u"a |\u2028--- | ---\u2028| b";
    const auto markdown = markdownWithAttributedString(NSAttributedString(text));
    EXPECT_EQ(kindsOf(markdown), "p");
    EXPECT_EQ(attributedStringWithMarkdown(markdown).string(), text);
}
