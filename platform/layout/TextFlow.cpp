#include "platform/layout/TextFlow.h"

#include "platform/layout/LayoutLimits.h"
#include "platform/layout/TableFlow.h"

#include <algorithm>
#include <utility>

namespace {

/// Longer text is wider than any column.
constexpr NSUInteger kLongestMeasured = 2000;

NSTextBlock::Ref blockAt(const FlowParagraph& paragraph, std::size_t depth)
{
    if (!paragraph.style || depth >= kDeepestBlock)
        return nullptr;
    const auto& blocks = paragraph.style->textBlocks();
    return depth < blocks.size() ? blocks[depth] : nullptr;
}

/// What keeps paragraphs together: the table of their cells, else their block.
struct Group {
    NSTextTable::Ref table;
    NSTextBlock::Ref block;

    [[nodiscard]] bool isNone() const { return !table && !block; }

    friend bool operator==(const Group&, const Group&) = default;
};

Group groupAt(const FlowParagraph& paragraph, std::size_t depth)
{
    auto block = blockAt(paragraph, depth);
    const auto* cell = dynamic_cast<const NSTextTableBlock*>(block.get());
    if (cell && cell->table())
        return {cell->table(), nullptr};
    return {nullptr, std::move(block)};
}

} // namespace

NSRange rangeOf(TextFlow::Paragraphs paragraphs)
{
    const auto start = paragraphs.front().range.location;
    return {start, NSMaxRange(paragraphs.back().range) - start};
}

double TextFlow::place(Paragraphs paragraphs, std::size_t depth, NSPoint corner, double width)
{
    double height = 0;
    for (std::size_t i = 0; i < paragraphs.size();) {
        const auto group = groupAt(paragraphs[i], depth);
        // Within a block its first paragraph stands at the top: what is to be before it is before the block.
        if (!group.isNone() && i > 0)
            height += boundedLength(paragraphs[i].style->paragraphSpacingBefore());
        const NSPoint here{corner.x, corner.y + height};
        auto end = i + 1;
        while (!group.isNone() && end < paragraphs.size() && groupAt(paragraphs[end], depth) == group)
            ++end;
        const auto together = paragraphs.subspan(i, end - i);
        if (group.isNone())
            height += placeParagraph(paragraphs[i], here, width, i == 0);
        else if (group.table)
            height += placeTable(*this, group.table, together, depth, here, width);
        else
            height += placeBlock(together, depth, here, width);
        i = end;
    }
    return height;
}

double TextFlow::placeParagraph(const FlowParagraph& paragraph, NSPoint corner, double width, bool isAtTop)
{
    auto piece = paragraph.range.location;
    const auto visit = [&](const TextLine& line) {
        if (line.pieceLocation != piece)
            m_places.pieces.push_back({line.pieceLocation, line.rect.origin.y});
        piece = line.pieceLocation;
        return true;
    };
    const auto height = enumerateLines(m_source, paragraph.range, width, isAtTop, NSAppearance::Light, visit);
    m_places.paragraphs.push_back({paragraph.range, {corner, {width, height}}, isAtTop});
    return height;
}

double TextFlow::placeBlock(Paragraphs paragraphs, std::size_t depth, NSPoint corner, double width)
{
    const auto block = blockAt(paragraphs.front(), depth);
    const BlockGeometry geometry(*block, width);
    const auto content = contentWidth(*block, width, width - geometry.horizontal());
    const auto index = m_places.blocks.size();
    m_places.blocks.push_back({rangeOf(paragraphs), block, {}, geometry.border});
    const auto needed
        = place(paragraphs, depth + 1, {corner.x + geometry.left(), corner.y + geometry.top()}, content);
    const auto height = contentHeight(*block, needed) + geometry.vertical();
    m_places.blocks[index].rect = {{corner.x + geometry.margin.left, corner.y + geometry.margin.top},
                                   {content + geometry.border.horizontal() + geometry.padding.horizontal(),
                                    height - geometry.margin.vertical()}};
    return height;
}

double TextFlow::naturalWidth(Paragraphs paragraphs, double most) const
{
    if (rangeOf(paragraphs).length > kLongestMeasured)
        return most;
    double width = 0;
    for (const auto& paragraph : paragraphs) {
        (void)enumerateLines(m_source, paragraph.range, kLargestLength, true, NSAppearance::Light,
                             [&](const TextLine& line) {
                                 const auto indent = paragraph.style ? paragraph.style->headIndent() : 0;
                                 width = std::max(width, line.usedRect.size.width + boundedLength(indent));
                                 return true;
                             });
    }
    // So that rounding breaks no line.
    return std::min(width + 1, most);
}

void TextFlow::move(Mark from, Mark to, double distance)
{
    for (auto i = from.paragraph; i < to.paragraph; ++i)
        m_places.paragraphs[i].rect.origin.y += distance;
    for (auto i = from.block; i < to.block; ++i)
        m_places.blocks[i].rect.origin.y += distance;
}
