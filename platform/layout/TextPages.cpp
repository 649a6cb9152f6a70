#include "platform/layout/TextPages.h"

#include "platform/layout/LayoutLimits.h"
#include "platform/layout/OffscreenTextView.h"
#include "platform/layout/PageCuts.h"

#include <algorithm>
#include <utility>

namespace {

/// Of the borders and paddings around a line that stay with it; what is more is empty room.
constexpr double kBorderOfLine = 20;

TextPagesOptions bounded(TextPagesOptions options)
{
    options.paper = {boundedLength(options.paper.width, kNarrowestColumn),
                     boundedLength(options.paper.height, kNarrowestColumn)};
    auto& margins = options.margins;
    margins = {boundedLength(margins.top), boundedLength(margins.left), boundedLength(margins.bottom),
               boundedLength(margins.right)};
    return options;
}

NSSize columnSize(const TextPagesOptions& options)
{
    const auto& [paper, margins, color, appearance, image] = options;
    return {std::max(paper.width - margins.left - margins.right, kNarrowestColumn),
            std::max(paper.height - margins.top - margins.bottom, kNarrowestColumn)};
}

/// The line that holds the character; null for none.
PageLine* lineAt(std::vector<PageLine>& lines, NSUInteger index)
{
    const auto found
        = std::lower_bound(lines.begin(), lines.end(), index,
                           [](const PageLine& line, NSUInteger at) { return NSMaxRange(line.range) <= at; });
    return found == lines.end() || !NSLocationInRange(index, found->range) ? nullptr : &*found;
}

std::vector<PageLine> linesOf(const NSLayoutManager& manager, NSUInteger length)
{
    std::vector<PageLine> lines;
    manager.enumerateLineFragmentsForGlyphRange({0, length}, [&](const NSLayoutManager::LineFragment& line) {
        const auto top = line.rect.origin.y;
        lines.push_back({line.range, top, top + line.rect.size.height});
    });
    manager.enumerateTextBlocks([&](NSRange range, NSRect rect) {
        if (auto* first = lineAt(lines, range.location))
            first->top = std::max(std::min(first->top, rect.origin.y), first->top - kBorderOfLine);
        const auto end = rect.origin.y + rect.size.height;
        if (auto* last = range.length > 0 ? lineAt(lines, NSMaxRange(range) - 1) : nullptr)
            last->bottom = std::min(std::max(last->bottom, end), last->bottom + kBorderOfLine);
    });
    return lines;
}

} // namespace

TextPages::TextPages(NSAttributedString text, TextPagesOptions options)
    : m_text(std::move(text))
    , m_options(bounded(std::move(options)))
    , m_container({columnSize(m_options).width, kLargestLength}, &m_text)
    , m_layoutManager(m_container, m_options.image)
    , m_pages(cutIntoPages(linesOf(m_layoutManager, m_text.length()), columnSize(m_options).height))
{
    if (m_pages.empty())
        m_pages.emplace_back();
}

DrawingSurface TextPages::surface() const
{
    return {m_options.paper, m_options.appearance, Flipped::Yes};
}

std::vector<NSDrawing> TextPages::drawings() const
{
    std::vector<NSDrawing> drawings;
    drawings.reserve(m_pages.size());
    for (const auto& page : m_pages)
        drawings.emplace_back([this, &page](NSGraphicsContext& context) { draw(page, context); });
    return drawings;
}

void TextPages::draw(const Page& page, NSGraphicsContext& context) const
{
    if (m_options.backgroundColor)
        context.fillRect({{}, m_options.paper}, *m_options.backgroundColor);
    OffscreenTextView view(context, m_container);
    const auto& margins = m_options.margins;
    const NSPoint corner{margins.left, margins.top - page.top};
    {
        // Blocks go on over the page's end.
        const GraphicsState state(context);
        context.clipToRect({{0, margins.top}, {m_options.paper.width, page.bottom - page.top}});
        for (const auto range : page.ranges)
            m_layoutManager.drawBackgroundForGlyphRange(range, corner, view);
    }
    for (const auto range : page.ranges)
        m_layoutManager.drawGlyphsForGlyphRange(range, corner, view);
}
