#include "platform/rtf/NSAttributedStringRTF.h"
#include "platform/text/NSAttributeNames.h"
#include "platform/text/NSParagraphStyle.h"
#include "platform/text/NSTextTable.h"

#include <gmock/gmock.h>

#include <string>
#include <string_view>

using testing::EndsWith;
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

std::shared_ptr<NSTextTableBlock> cellOf(const NSTextTable::Ref& table, NSInteger row, NSInteger column,
                                         NSInteger rowSpan = 1, NSInteger columnSpan = 1)
{
    return std::make_shared<NSTextTableBlock>(table, row, rowSpan, column, columnSpan);
}

class TextInTables {
public:
    void add(std::u16string_view text, Blocks blocks = {})
    {
        NSMutableParagraphStyle style;
        style.setTabStops({});
        style.setTextBlocks(std::move(blocks));
        m_text.appendAttributedString(NSAttributedString(
            std::u16string(text), {{std::u16string(NSParagraphStyleAttributeName), style.copy()}}));
    }

    /// The document from its first row on.
    [[nodiscard]] std::string written() const
    {
        const auto document
            = NSAttributedStringDocumentFormats::RTFFromRange(m_text, {0, m_text.length()})->bytes;
        const auto start = document.find("\\itap1\\trowd");
        return start == std::string::npos ? document : document.substr(start);
    }

private:
    NSMutableAttributedString m_text;
};

constexpr std::string_view kRowStart = "\\itap1\\trowd \\taflags0 \\trgaph108\\trleft-108 ";
constexpr std::string_view kFirstAndLast
    = "\\trbrdrt\\brdrnil \\trbrdrl\\brdrnil \\trbrdrb\\brdrnil \\trbrdrr\\brdrnil \n";
constexpr std::string_view kPlainCell = "\\clvertalt \\clshdrawnil ";

std::string operator+(std::string_view one, const std::string& other)
{
    return std::string(one) + other;
}

} // namespace

TEST(RTFTableWriting, WritesARowWithItsCells)
{
    const auto table = tableOf(2);
    TextInTables text;
    text.add(u"A\n", {cellOf(table, 0, 0)});
    text.add(u"B\n", {cellOf(table, 0, 1)});
    text.add(u"after");
    EXPECT_EQ(text.written(),
              kRowStart + std::string(kFirstAndLast) + std::string(kPlainCell) + "\\gaph\\cellx4320\n"
                  + std::string(kPlainCell)
                  + "\\gaph\\cellx8640\n"
                    "\\pard\\intbl\\itap1\\pardirnatural\\partightenfactor0\n\n\\f0\\fs24 \\cf0 A\\cell \n"
                    "\\pard\\intbl\\itap1\\pardirnatural\\partightenfactor0\n\\cf0 B\\cell \n"
                    "\\lastrow\\row\n"
                    "\\pard\\pardirnatural\\partightenfactor0\n\\cf0 after}");
}

TEST(RTFTableWriting, MarksTheLastRowOnly)
{
    const auto table = tableOf(1);
    TextInTables text;
    text.add(u"A\n", {cellOf(table, 0, 0)});
    text.add(u"B\n", {cellOf(table, 1, 0)});
    const auto document = text.written();
    EXPECT_THAT(document, HasSubstr("A\\cell \n\\row\n\n\\itap1\\trowd"));
    EXPECT_THAT(document, EndsWith("B\\cell \n\\lastrow\\row\n}"));
}

TEST(RTFTableWriting, KeepsTwoTablesApart)
{
    TextInTables text;
    text.add(u"A\n", {cellOf(tableOf(1), 0, 0)});
    text.add(u"B\n", {cellOf(tableOf(1), 0, 0)});
    EXPECT_THAT(text.written(), HasSubstr("A\\cell \n\\lastrow\\row\n"));
}

TEST(RTFTableWriting, EndsParagraphsWithinACellAsOutsideOfIt)
{
    const auto cell = cellOf(tableOf(1), 0, 0);
    TextInTables text;
    text.add(u"one\ntwo\n", {cell});
    EXPECT_THAT(text.written(), HasSubstr("one\\\ntwo\\cell \n"));
}

TEST(RTFTableWriting, WritesPlacesForSpans)
{
    const auto table = tableOf(2);
    TextInTables text;
    text.add(u"wide\n", {cellOf(table, 0, 0, 1, 2)});
    text.add(u"tall\n", {cellOf(table, 1, 0, 2, 1)});
    text.add(u"B\n", {cellOf(table, 1, 1)});
    text.add(u"C\n", {cellOf(table, 2, 1)});
    const auto document = text.written();
    EXPECT_THAT(document,
                HasSubstr("\\clmgf\\clvertalt \\clshdrawnil \\gaph\\cellx4320\n"
                          "\\clmrg\\clvertalt \\clshdrawnil \\gaph\\cellx8640\n"));
    EXPECT_THAT(document, HasSubstr("wide\\cell \n\\pard\\intbl\\itap1\\cell \n\\row\n"));
    EXPECT_THAT(document, HasSubstr("\\clvmgf\\clvertalt \\clshdrawnil \\gaph\\cellx4320\n"));
    EXPECT_THAT(document, HasSubstr("\\clvmrg\\clvertalt \\clshdrawnil \\gaph\\cellx4320\n"));
    EXPECT_THAT(document,
                HasSubstr("\\pard\\intbl\\itap1\\cell \n\\pard\\intbl\\itap1\\pardirnatural"
                          "\\partightenfactor0\n\\cf0 C\\cell \n\\lastrow\\row\n"));
}

TEST(RTFTableWriting, WritesTablesInCells)
{
    const auto outer = cellOf(tableOf(1), 0, 0);
    const auto inner = cellOf(tableOf(1), 0, 0);
    TextInTables text;
    text.add(u"before\n", {outer});
    text.add(u"inner\n", {outer, inner});
    text.add(u"behind\n", {outer});
    const auto document = text.written();
    EXPECT_THAT(document, HasSubstr("before\\\n\n\\itap2\\trowd "));
    EXPECT_THAT(document,
                HasSubstr("\\pard\\intbl\\itap2\\pardirnatural\\partightenfactor0\n\\cf0 inner"
                          "\\nestcell \n\\lastrow\\nestrow\n\\pard\\intbl\\itap1"));
    EXPECT_THAT(document, EndsWith("behind\\cell \n\\lastrow\\row\n}"));
}

TEST(RTFTableWriting, EndsACellThatEndsWithATableWithoutAnotherParagraph)
{
    const auto outer = cellOf(tableOf(1), 0, 0);
    TextInTables text;
    text.add(u"inner\n", {outer, cellOf(tableOf(1), 0, 0)});
    EXPECT_THAT(text.written(),
                EndsWith("inner\\nestcell \n\\lastrow\\nestrow\n\\itap1\\cell \n\\lastrow\\row\n}"));
}

TEST(RTFTableWriting, WritesTheLooksOfCells)
{
    const auto table = tableOf(1);
    table->setCollapsesBorders(true);
    table->setContentWidth({50, NSTextBlockValueType::Percentage});
    table->setBackgroundColor(NSColor::colorWithSRGBRed(0, 1, 0, 1));
    const auto cell = cellOf(table, 0, 0);
    cell->setContentWidth({152, NSTextBlockValueType::Absolute});
    cell->setValue({14, NSTextBlockValueType::Absolute}, NSTextBlockDimension::Height);
    cell->setValue({10, NSTextBlockValueType::Absolute}, NSTextBlockDimension::MinimumWidth);
    cell->setWidth({1, NSTextBlockValueType::Absolute}, NSTextBlockLayer::Border, NSRectEdge::MinX);
    cell->setBorderColor(NSColor::colorWithSRGBRed(1, 0, 0, 1), NSRectEdge::MinX);
    cell->setWidth({4, NSTextBlockValueType::Absolute}, NSTextBlockLayer::Padding);
    cell->setWidth({2, NSTextBlockValueType::Absolute}, NSTextBlockLayer::Margin, NSRectEdge::MaxY);
    cell->setVerticalAlignment(NSTextBlockVerticalAlignment::Middle);
    cell->setBackgroundColor(NSColor::colorWithSRGBRed(0, 0, 1, 1));
    TextInTables text;
    text.add(u"x\n", {cell});
    EXPECT_THAT(text.written(),
                HasSubstr("\\taflags1 \\trgaph108\\trleft-108 \\trcbpat2 \\trwWidth2500\\trftsWidth2 "));
    EXPECT_THAT(text.written(),
                HasSubstr("\\clvertalc \\clcbpat3 \\clwWidth3040\\clftsWidth3 \\clheight280\\clminw200 "
                          "\\clbrdrl\\brdrs\\brdrw20\\brdrcf4 \\clpadt80\\clpadl80\\clpadb80\\clpadr80 "
                          "\\clmarb40 \\gaph\\cellx8640\n"));
}

TEST(RTFTableWriting, BoundsSpansAndColumnsThatNoTableHas)
{
    const auto table = tableOf(1'000'000'000);
    TextInTables text;
    text.add(u"a\n", {cellOf(table, 0, 0, 1'000'000'000, 1'000'000'000)});
    text.add(u"b\n", {cellOf(table, 1, 1'000'000'000)});
    text.add(u"c\n", {cellOf(table, 2, -7, -7, -7)});
    EXPECT_LT(text.written().size(), 1'000'000U);
}

TEST(RTFTableWriting, WritesBlocksThatAreNoCellsAsPlainParagraphs)
{
    TextInTables text;
    text.add(u"x\n", {std::make_shared<NSTextBlock>()});
    text.add(u"y\n", {std::make_shared<NSTextTableBlock>(nullptr, 0, 1, 0, 1)});
    EXPECT_THAT(text.written(), Not(HasSubstr("intbl")));
}
