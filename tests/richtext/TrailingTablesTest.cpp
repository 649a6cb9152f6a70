#include "richtext/TrailingTables.h"

#include "platform/text/NSTextAttachment.h"
#include "platform/text/NSTextTable.h"
#include "tests/richtext/NoteText.h"

#include <gtest/gtest.h>

using namespace DynamicColors;

namespace {

NSMutableParagraphStyle inCell(const NSTextTable::Ref& table, NSInteger row)
{
    NSMutableParagraphStyle style;
    style.setTextBlocks({std::make_shared<const NSTextTableBlock>(table, row, 1, 0, 1)});
    return style;
}

std::u16string fixed(const NSAttributedString& text)
{
    NSMutableAttributedString changed(text);
    fixTrailingTables(changed);
    return std::u16string(changed.string());
}

class TrailingTables : public testing::Test {
protected:
    const NSTextTable::Ref m_table = std::make_shared<const NSTextTable>();
    const NSTextTable::Ref m_other = std::make_shared<const NSTextTable>();
};

} // namespace

TEST_F(TrailingTables, GetALineBreakBehindThem)
{
    EXPECT_EQ(fixed(NoteText().add(u"a\n", inCell(m_table, 0)).text()), u"a\n\n");
    EXPECT_EQ(fixed(NoteText().add(u"before\n").add(u"a", inCell(m_table, 0)).text()), u"before\na\n");
}

TEST_F(TrailingTables, GetOneLineBreakHoweverManyCellsTheyHave)
{
    const auto text = NoteText().add(u"a\n", inCell(m_table, 0)).add(u"b\n", inCell(m_table, 1)).text();
    EXPECT_EQ(fixed(text), u"a\nb\n\n");
}

TEST_F(TrailingTables, AreEndedByTheLineBreak)
{
    NSMutableAttributedString text(NoteText().add(u"a\n", inCell(m_table, 0)).text());
    fixTrailingTables(text);
    fixTrailingTables(text);
    EXPECT_EQ(text.string(), u"a\n\n");
}

TEST_F(TrailingTables, AreNoneWhenTextFollows)
{
    EXPECT_EQ(fixed(NoteText().add(u"a\n", inCell(m_table, 0)).add(u"end").text()), u"a\nend");
    EXPECT_EQ(
        fixed(NoteText().add(u"a\n", inCell(m_table, 0)).add(u"end\n", NSMutableParagraphStyle()).text()),
        u"a\nend\n");
}

TEST_F(TrailingTables, AreNoneInATextWithoutTables)
{
    EXPECT_EQ(fixed(NSAttributedString()), u"");
    EXPECT_EQ(fixed(NoteText().add(u"a\n").text()), u"a\n");
    NSMutableParagraphStyle inBlock;
    inBlock.setTextBlocks({std::make_shared<const NSTextBlock>()});
    EXPECT_EQ(fixed(NoteText().add(u"a\n", inBlock).text()), u"a\n");
}

TEST_F(TrailingTables, CountByTheOutermostBlock)
{
    auto style = inCell(m_table, 0);
    auto blocks = style.textBlocks();
    blocks.insert(blocks.begin(), std::make_shared<const NSTextBlock>());
    style.setTextBlocks(blocks);
    EXPECT_EQ(fixed(NoteText().add(u"a\n", style).text()), u"a\n");
}

TEST_F(TrailingTables, GiveTheLineBreakTheLastAttributesButThePlainParagraphStyle)
{
    auto attributes = withFont(u"Menlo-Regular", 12);
    attributes.emplace(NSParagraphStyleAttributeName, inCell(m_table, 0).copy());
    NSMutableAttributedString text(NoteText().add(u"a\n", attributes).text());
    fixTrailingTables(text);
    ASSERT_EQ(text.length(), 3U);
    EXPECT_EQ(text.attributesAtIndex(2), withFont(u"Menlo-Regular", 12));
}

TEST_F(TrailingTables, GiveTheLineBreakNoAttachment)
{
    NSMutableAttributedString text(
        NoteText()
            .addAttachment(std::make_shared<NSTextAttachment>(),
                           {{std::u16string(NSParagraphStyleAttributeName), inCell(m_table, 0).copy()}})
            .text());
    fixTrailingTables(text);
    ASSERT_EQ(text.length(), 2U);
    EXPECT_TRUE(text.attributesAtIndex(1).empty());
}

TEST_F(TrailingTables, AreNotSeenDirectlyBehindAnotherTable)
{
    const auto two = NoteText().add(u"a\n", inCell(m_table, 0)).add(u"b\n", inCell(m_other, 0)).text();
    EXPECT_EQ(fixed(two), u"a\nb\n");
}

TEST_F(TrailingTables, AreSeenWhenTheFirstOfTwoComesAgain)
{
    const auto text = NoteText()
                          .add(u"a\n", inCell(m_table, 0))
                          .add(u"b\n", inCell(m_other, 0))
                          .add(u"c\n", inCell(m_table, 1))
                          .text();
    EXPECT_EQ(fixed(text), u"a\nb\nc\n\n");
}

TEST_F(TrailingTables, AreSeenBehindATableThatTextEnded)
{
    const auto text
        = NoteText().add(u"a\n", inCell(m_table, 0)).add(u"between\n").add(u"b\n", inCell(m_other, 0)).text();
    EXPECT_EQ(fixed(text), u"a\nbetween\nb\n\n");
}
