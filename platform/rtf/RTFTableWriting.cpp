#include "platform/rtf/RTFTableWriting.h"

#include "platform/rtf/RTFLimits.h"
#include "platform/rtf/RTFTableWords.h"
#include "platform/rtf/RTFUnits.h"

#include <algorithm>
#include <utility>

namespace {

/// What the platform gives a table's columns together, in equal shares; the cells' own widths count.
constexpr std::size_t kNominalWidth = 8640;

std::size_t boundedCount(NSInteger count)
{
    return static_cast<std::size_t>(std::clamp<NSInteger>(count, 1, kMostRTFColumns));
}

/// Whether the paragraph is in the row: the same cells around the table, and the row's number.
bool isInRow(const RTFTextParagraph& paragraph, const RTFTextParagraph& first, std::size_t level)
{
    if (paragraph.cells.size() <= level)
        return false;
    const auto outerEnd = first.cells.begin() + static_cast<std::ptrdiff_t>(level);
    return std::equal(first.cells.begin(), outerEnd, paragraph.cells.begin())
        && paragraph.cells[level]->table() == first.cells[level]->table()
        && paragraph.cells[level]->startingRow() == first.cells[level]->startingRow();
}

bool isInTable(const RTFTextParagraph& paragraph, const RTFTextParagraph& first, std::size_t level)
{
    if (paragraph.cells.size() <= level)
        return false;
    const auto outerEnd = first.cells.begin() + static_cast<std::ptrdiff_t>(level);
    return std::equal(first.cells.begin(), outerEnd, paragraph.cells.begin())
        && paragraph.cells[level]->table() == first.cells[level]->table();
}

void writeLength(RTFOutput& output, std::string_view word, NSTextBlock::Value length)
{
    if (length.type == NSTextBlockValueType::Absolute && length.value > 0)
        output.word(word, twipsFromPoints(length.value));
}

void writeWidth(RTFOutput& output, std::string_view word, std::string_view unitWord, NSTextBlock::Value width)
{
    if (width.value <= 0)
        return;
    const bool isPart = width.type == NSTextBlockValueType::Percentage;
    output.word(word,
                isPart ? wholeNumber(width.value * kWidthUnitsOfPercent) : twipsFromPoints(width.value));
    output.word(unitWord, isPart ? kPartWidth : kTwipsWidth);
    output.blank();
}

void writeBorder(RTFOutput& output, const std::string& word, const NSTextBlock& block, NSRectEdge edge,
                 RTFColorWriting& colors)
{
    const auto width = block.widthForLayer(NSTextBlockLayer::Border, edge);
    if (width.type != NSTextBlockValueType::Absolute || width.value <= 0)
        return;
    output.word(word);
    output.word("brdrs");
    output.word("brdrw", twipsFromPoints(width.value));
    output.word("brdrcf", colors.numberOf(block.borderColorForEdge(edge)));
    output.blank();
}

std::string_view alignmentWord(NSTextBlockVerticalAlignment alignment)
{
    switch (alignment) {
    case NSTextBlockVerticalAlignment::Middle:
        return "clvertalc";
    case NSTextBlockVerticalAlignment::Bottom:
        return "clvertalb";
    case NSTextBlockVerticalAlignment::Baseline:
        return "clvertalbase";
    default:
        return "clvertalt";
    }
}

void writeSpans(RTFOutput& output, const RTFTableSlot& slot)
{
    if (!slot.cell)
        return;
    if (slot.isFromAbove)
        output.word("clvmrg");
    else if (slot.cell->rowSpan() > 1)
        output.word("clvmgf");
    if (slot.isFromLeft)
        output.word("clmrg");
    else if (slot.cell->columnSpan() > 1)
        output.word("clmgf");
}

void writeBlock(RTFOutput& output, const NSTextBlock& block, RTFColorWriting& colors)
{
    output.word(alignmentWord(block.verticalAlignment()));
    output.blank();
    if (const auto ground = colors.numberOf(block.backgroundColor()))
        output.word("clcbpat", ground);
    else
        output.word("clshdrawnil");
    output.blank();
    writeWidth(output, "clwWidth", "clftsWidth", block.contentWidth());
    writeLength(output, "clheight", block.valueForDimension(NSTextBlockDimension::Height));
    writeLength(output, "clminw", block.valueForDimension(NSTextBlockDimension::MinimumWidth));
    output.blank();
    for (const auto& edge : kTableEdges)
        writeBorder(output, std::string("clbrdr") + edge.letter, block, edge.edge, colors);
    for (const auto& edge : kTableEdges)
        writeLength(output, std::string("clpad") + edge.letter,
                    block.widthForLayer(NSTextBlockLayer::Padding, edge.edge));
    output.blank();
    for (const auto& edge : kTableEdges)
        writeLength(output, std::string("clmar") + edge.letter,
                    block.widthForLayer(NSTextBlockLayer::Margin, edge.edge));
    output.blank();
}

void writeTableBorders(RTFOutput& output, const NSTextTable& table, const RTFTableRow& row,
                       RTFColorWriting& colors)
{
    for (const auto& edge : kTableEdges) {
        const bool isOfRow
            = (edge.edge != NSRectEdge::MinY || row.isFirst) && (edge.edge != NSRectEdge::MaxY || row.isLast);
        if (!isOfRow)
            continue;
        const auto word = std::string("trbrdr") + edge.letter;
        if (table.widthForLayer(NSTextBlockLayer::Border, edge.edge).value > 0)
            writeBorder(output, word, table, edge.edge, colors);
        else
            output.raw("\\" + word + "\\brdrnil ");
    }
}

} // namespace

RTFTableRow RTFTableRows::rowAt(const RTFTextParagraphs& paragraphs, RTFTextParagraph paragraph,
                                std::size_t level)
{
    RTFTableRow row;
    row.number = paragraph.cells[level]->startingRow();
    row.isFirst = !std::exchange(m_hasRows, true);
    const auto first = paragraph;
    NSTextTableBlock::Ref last;
    std::optional<RTFTextParagraph> next = std::move(paragraph);
    for (; next && isInRow(*next, first, level); next = paragraphs.paragraphAt(next->end)) {
        const auto& cell = next->cells[level];
        if (cell != last)
            addCell(cell, row);
        last = cell;
    }
    row.isLast = !next || !isInTable(*next, first, level);
    addSpannedSlots(row);
    return row;
}

/// Fills the columns up to one with what reaches into them from above.
void RTFTableRows::addSlotsBefore(std::size_t column, RTFTableRow& row)
{
    while (row.slots.size() < column) {
        RTFTableSlot slot;
        if (row.slots.size() < m_spans.size()) {
            auto& span = m_spans[row.slots.size()];
            if (span.rowsLeft > 0) {
                --span.rowsLeft;
                slot = {span.cell, span.isFromLeft, true};
            }
        }
        row.slots.push_back(std::move(slot));
    }
}

void RTFTableRows::addCell(const NSTextTableBlock::Ref& cell, RTFTableRow& row)
{
    if (cell->startingColumn() > 0 && cell->startingColumn() < static_cast<NSInteger>(kMostRTFColumns))
        addSlotsBefore(static_cast<std::size_t>(cell->startingColumn()), row);
    const auto columns = row.slots.size() < kMostRTFColumns ? boundedCount(cell->columnSpan()) : 1;
    const auto rowsLeft = static_cast<NSInteger>(boundedCount(cell->rowSpan())) - 1;
    for (std::size_t column = 0; column < columns; ++column) {
        const bool isFromLeft = column > 0;
        const auto place = row.slots.size();
        row.slots.push_back({cell, isFromLeft, false});
        if (place >= kMostRTFColumns)
            continue;
        m_spans.resize(std::max(m_spans.size(), place + 1));
        m_spans[place] = {cell, rowsLeft, isFromLeft};
    }
}

void RTFTableRows::addSpannedSlots(RTFTableRow& row)
{
    const auto isOpen = [](const Span& span) { return span.rowsLeft > 0; };
    const auto behind = std::min(row.slots.size(), m_spans.size());
    const auto last
        = std::find_if(m_spans.rbegin(), m_spans.rend() - static_cast<std::ptrdiff_t>(behind), isOpen);
    addSlotsBefore(static_cast<std::size_t>(m_spans.rend() - last), row);
}

void writeTableRow(RTFOutput& output, const NSTextTable& table, const RTFTableRow& row, std::size_t depth,
                   RTFColorWriting& colors)
{
    output.lineBreak();
    output.word("itap", static_cast<std::int64_t>(depth));
    output.word("trowd");
    output.blank();
    output.word("taflags", table.collapsesBorders() ? kCollapsedBorders : 0);
    output.raw(" \\trgaph108\\trleft-108 ");
    if (const auto ground = colors.numberOf(table.backgroundColor()))
        output.word("trcbpat", ground);
    output.blank();
    writeWidth(output, "trwWidth", "trftsWidth", table.contentWidth());
    writeTableBorders(output, table, row, colors);
    output.lineBreak();
    for (std::size_t index = 0; index < row.slots.size(); ++index) {
        const auto& slot = row.slots[index];
        writeSpans(output, slot);
        static const NSTextBlock kPlain;
        writeBlock(output, slot.cell ? static_cast<const NSTextBlock&>(*slot.cell) : kPlain, colors);
        output.word("gaph");
        output.word("cellx", static_cast<std::int64_t>(kNominalWidth * (index + 1) / row.slots.size()));
        output.lineBreak();
    }
}
