#include "platform/layout/NSLayoutManager.h"

#include "platform/drawing/CairoTarget.h"
#include "platform/drawing/NSGraphicsContext.h"
#include "platform/layout/LayoutLimits.h"
#include "platform/layout/ParagraphLines.h"
#include "platform/views/NSTextView.h"

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

} // namespace

NSLayoutManager::NSLayoutManager(const NSTextContainer& container, AttachmentImage image)
    : m_text(container.textStorage() ? *container.textStorage() : NSAttributedString())
    , m_image(std::move(image))
    , m_width(boundedLength(container.size().width, kNarrowestColumn))
{
    for (NSUInteger location = 0; location < m_text.length();) {
        const auto range = m_text.paragraphRangeAtIndex(location);
        placeParagraph(range);
        location = NSMaxRange(range);
    }
    const auto end = m_text.length();
    if (end > 0 && m_text.paragraphRangeAtIndex(end).length == 0)
        placeParagraph({end, 0});
}

void NSLayoutManager::placeParagraph(NSRange range)
{
    const auto isAtTop = m_paragraphs.empty();
    const auto height = ::enumerateLines({m_text, m_image}, range, m_width, isAtTop, NSAppearance::Light,
                                         [](const TextLine&) { return true; });
    m_paragraphs.push_back({range, {{0, m_height}, {m_width, height}}, isAtTop});
    m_height += height;
}

void NSLayoutManager::enumerateLines(NSRange range, NSAppearance appearance, VerticalSpan visible,
                                     const PlacedLineVisitor& visit) const
{
    const LayoutSource source{m_text, m_image};
    for (const auto& paragraph : m_paragraphs) {
        const auto top = paragraph.rect.origin.y;
        if (!isTouched(paragraph.range, range) || top > visible.bottom
            || top + paragraph.rect.size.height < visible.top)
            continue;
        (void)::enumerateLines(source, paragraph.range, paragraph.rect.size.width, paragraph.isAtTop,
                               appearance, [&](const TextLine& line) {
                                   const auto y = top + line.rect.origin.y;
                                   if (isTouched(line.range, range)
                                       && y + line.rect.size.height >= visible.top)
                                       visit(line, paragraph.rect.origin);
                                   return y <= visible.bottom;
                               });
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

void NSLayoutManager::drawBackgroundForGlyphRange(NSRange range, NSPoint atPoint, NSTextView& view) const
{
    auto& context = view.graphicsContext();
    enumerateLines(range, context.appearance(), visibleSpan(context, atPoint),
                   [&](const TextLine& line, NSPoint origin) {
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
