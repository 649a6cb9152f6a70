#include "platform/layout/NSLayoutManager.h"

#include "platform/drawing/CairoTarget.h"
#include "platform/drawing/NSGraphicsContext.h"
#include "platform/layout/LayoutLimits.h"
#include "platform/layout/ParagraphLines.h"
#include "platform/text/NSAttributeNames.h"
#include "platform/text/NSColor.h"
#include "platform/views/NSTextView.h"

#include <algorithm>
#include <span>
#include <utility>

namespace {

/// How far the ink of a line may be outside of its rectangle and still be drawn.
constexpr double kOverhang = 200;

/// What of the column is within the clip.
NSLayoutManager::VerticalSpan visibleSpan(NSGraphicsContext& context, NSPoint origin)
{
    double left = 0;
    double top = 0;
    double right = 0;
    double bottom = 0;
    cairo_clip_extents(context.target().cairo, &left, &top, &right, &bottom);
    return {top - origin.y - kOverhang, bottom - origin.y + kOverhang};
}

bool isTouched(NSRange range, NSRange by)
{
    return range.location < NSMaxRange(by) && by.location < NSMaxRange(range);
}

NSRect movedBy(NSRect rect, NSPoint distance)
{
    return {{rect.origin.x + distance.x, rect.origin.y + distance.y}, rect.size};
}

std::vector<FlowParagraph> paragraphsOf(const NSAttributedString& text)
{
    std::vector<FlowParagraph> paragraphs;
    for (NSUInteger location = 0; location < text.length();) {
        const auto range = text.paragraphRangeAtIndex(location);
        paragraphs.push_back(
            {range, text.attribute(NSParagraphStyleAttributeName, location).object<NSParagraphStyle>()});
        location = NSMaxRange(range);
    }
    const auto end = text.length();
    // The empty line behind the last line end stands in no block.
    if (end > 0 && text.paragraphRangeAtIndex(end).length == 0)
        paragraphs.push_back({{end, 0}, nullptr});
    return paragraphs;
}

bool isEmpty(const NSAttributedString& text, NSRange range)
{
    const auto characters = text.substringWithRange(range);
    return std::all_of(characters.begin(), characters.end(),
                       [](char16_t unit) { return unit == u'\n' || unit == u'\r' || unit == 0x2029; });
}

bool isHidden(const NSAttributedString& text, const PlacedBlock& placed)
{
    const auto* cell = dynamic_cast<const NSTextTableBlock*>(placed.block.get());
    return cell && cell->table() && cell->table()->hidesEmptyCells() && isEmpty(text, placed.range);
}

void fillBorder(const PlacedBlock& placed, NSRectEdge edge, NSRect rect, NSGraphicsContext& context)
{
    const auto& own = placed.block->borderColorForEdge(edge);
    const auto color = own ? own : NSColor::tertiaryLabelColor();
    context.fillRect(rect, *color);
}

void drawBlock(const PlacedBlock& placed, NSPoint corner, NSGraphicsContext& context)
{
    const auto [origin, size] = context.alignedToPixels(movedBy(placed.rect, corner));
    const BlockEdges border{context.wholePixels(placed.border.left), context.wholePixels(placed.border.top),
                            context.wholePixels(placed.border.right),
                            context.wholePixels(placed.border.bottom)};
    if (const auto& ground = placed.block->backgroundColor())
        context.fillRect({origin, size}, *ground);
    const auto right = origin.x + size.width - border.right;
    const auto bottom = origin.y + size.height - border.bottom;
    const auto inner = size.height - border.vertical();
    const auto below = origin.y + border.top;
    fillBorder(placed, NSRectEdge::MinY, {origin, {size.width, border.top}}, context);
    fillBorder(placed, NSRectEdge::MaxY, {{origin.x, bottom}, {size.width, border.bottom}}, context);
    fillBorder(placed, NSRectEdge::MinX, {{origin.x, below}, {border.left, inner}}, context);
    fillBorder(placed, NSRectEdge::MaxX, {{right, below}, {border.right, inner}}, context);
}

} // namespace

NSLayoutManager::NSLayoutManager(const NSTextContainer& container, AttachmentImage image)
    : m_text(container.textStorage() ? *container.textStorage() : NSAttributedString())
    , m_image(std::move(image))
    , m_width(boundedLength(container.size().width, kNarrowestColumn))
{
    const auto paragraphs = paragraphsOf(m_text);
    const LayoutSource source{m_text, m_image};
    m_height = TextFlow(source, m_places).place(paragraphs, 0, {}, m_width);
    m_text.enumerateAttribute(NSBackgroundColorAttributeName,
                              [this](const NSAny& value, NSRange /*range*/, bool& stop) {
                                  m_hasBackgrounds = !value.isNil();
                                  stop = m_hasBackgrounds;
                              });
    m_blockEnds.reserve(m_places.blocks.size());
    for (const auto& placed : m_places.blocks) {
        const auto before = m_blockEnds.empty() ? 0 : m_blockEnds.back();
        m_blockEnds.push_back(std::max(before, NSMaxRange(placed.range)));
    }
}

std::span<const PlacedBlock> NSLayoutManager::blocksAround(NSRange range) const
{
    const auto first = std::upper_bound(m_blockEnds.begin(), m_blockEnds.end(), range.location);
    const auto& blocks = m_places.blocks;
    const auto last = std::lower_bound(
        blocks.begin(), blocks.end(), NSMaxRange(range),
        [](const PlacedBlock& placed, NSUInteger end) { return placed.range.location < end; });
    const auto from = blocks.begin() + (first - m_blockEnds.begin());
    return from < last ? std::span(from, last) : std::span<const PlacedBlock>();
}

const PieceStart* NSLayoutManager::pieceBefore(const PlacedParagraph& paragraph, NSRange range,
                                               VerticalSpan visible) const
{
    const auto& pieces = m_places.pieces;
    const auto locate = [&pieces](NSUInteger location) {
        return std::upper_bound(pieces.begin(), pieces.end(), location,
                                [](NSUInteger at, const PieceStart& piece) { return at < piece.location; });
    };
    const auto first = locate(paragraph.range.location);
    const auto last = std::max(first, locate(NSMaxRange(paragraph.range)));
    const auto top = visible.top - paragraph.rect.origin.y;
    const auto above
        = std::upper_bound(first, last, top, [](double y, const PieceStart& piece) { return y < piece.y; });
    const auto found = std::max(std::min(locate(range.location), last), above);
    return found <= first ? nullptr : &*std::prev(found);
}

void NSLayoutManager::enumerateLines(NSRange range, NSAppearance appearance, VerticalSpan visible,
                                     const PlacedLineVisitor& visit) const
{
    const LayoutSource source{m_text, m_image};
    const auto first = std::lower_bound(
        m_places.paragraphs.begin(), m_places.paragraphs.end(), range.location,
        [](const PlacedParagraph& placed, NSUInteger at) { return NSMaxRange(placed.range) <= at; });
    for (const auto& paragraph : std::span(first, m_places.paragraphs.end())) {
        if (paragraph.range.location >= NSMaxRange(range))
            return;
        const auto top = paragraph.rect.origin.y;
        if (!isTouched(paragraph.range, range) || top > visible.bottom
            || top + paragraph.rect.size.height < visible.top)
            continue;
        (void)::enumerateLines(
            source, paragraph.range, paragraph.rect.size.width, paragraph.isAtTop, appearance,
            [&](const TextLine& line) {
                const auto y = top + line.rect.origin.y;
                if (isTouched(line.range, range) && y + line.rect.size.height >= visible.top)
                    visit(line, paragraph.rect.origin);
                return y <= visible.bottom && NSMaxRange(line.range) < NSMaxRange(range);
            },
            pieceBefore(paragraph, range, visible));
    }
}

void NSLayoutManager::enumerateLineFragmentsForGlyphRange(NSRange range, const LineVisitor& visit) const
{
    enumerateLines(range, NSAppearance::Light, kEverything, [&](const TextLine& line, NSPoint origin) {
        visit({movedBy(line.rect, origin), movedBy(line.usedRect, origin), origin.y + line.baseline,
               line.range});
    });
}

void NSLayoutManager::enumerateAttachmentsForGlyphRange(NSRange range, const AttachmentVisitor& visit) const
{
    enumerateLines(range, NSAppearance::Light, kEverything, [&](const TextLine& line, NSPoint origin) {
        line.enumerateAttachments([&](NSUInteger index, NSRect frame) {
            if (NSLocationInRange(index, range))
                visit(index, movedBy(frame, origin));
        });
    });
}

void NSLayoutManager::enumerateTextBlocks(const BlockVisitor& visit) const
{
    for (const auto& placed : m_places.blocks)
        visit(placed.range, placed.rect);
}

NSRect NSLayoutManager::boundsRectForTextBlock(const NSTextBlock& block) const
{
    const auto found = std::find_if(m_places.blocks.begin(), m_places.blocks.end(),
                                    [&](const PlacedBlock& placed) { return placed.block.get() == &block; });
    return found == m_places.blocks.end() ? NSRect() : found->rect;
}

void NSLayoutManager::drawBackgroundForGlyphRange(NSRange range, NSPoint atPoint, NSTextView& view) const
{
    auto& context = view.graphicsContext();
    const auto visible = visibleSpan(context, atPoint);
    for (const auto& placed : blocksAround(range)) {
        const auto top = placed.rect.origin.y;
        if (isTouched(placed.range, range) && top <= visible.bottom
            && top + placed.rect.size.height >= visible.top && !isHidden(m_text, placed))
            drawBlock(placed, atPoint, context);
    }
    if (!m_hasBackgrounds)
        return;
    enumerateLines(range, context.appearance(), visible, [&](const TextLine& line, NSPoint origin) {
        line.drawBackground(view, {atPoint.x + origin.x, atPoint.y + origin.y});
    });
}

void NSLayoutManager::drawGlyphsForGlyphRange(NSRange range, NSPoint atPoint, NSTextView& view) const
{
    auto& context = view.graphicsContext();
    const LayoutSource source{m_text, m_image};
    enumerateLines(range, context.appearance(), visibleSpan(context, atPoint),
                   [&](const TextLine& line, NSPoint origin) {
                       line.drawText(view, {atPoint.x + origin.x, atPoint.y + origin.y}, source);
                   });
}
