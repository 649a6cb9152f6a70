#include "platform/layout/TextSheet.h"

#include "platform/layout/LayoutLimits.h"
#include "platform/layout/OffscreenTextView.h"

#include <utility>

namespace {

NSEdgeInsets bounded(NSEdgeInsets insets)
{
    return {boundedLength(insets.top), boundedLength(insets.left), boundedLength(insets.bottom),
            boundedLength(insets.right)};
}

TextSheetOptions bounded(TextSheetOptions options)
{
    options.width = boundedLength(options.width, kNarrowestColumn);
    options.margins = bounded(options.margins);
    return options;
}

double columnWidth(const TextSheetOptions& options)
{
    return std::max(options.width - options.margins.left - options.margins.right, kNarrowestColumn);
}

} // namespace

TextSheet::TextSheet(NSAttributedString text, TextSheetOptions options)
    : m_text(std::move(text))
    , m_options(bounded(std::move(options)))
    , m_container({columnWidth(m_options), kLargestLength}, &m_text)
    , m_layoutManager(m_container, m_options.image)
{
}

DrawingSurface TextSheet::surface() const
{
    const auto& margins = m_options.margins;
    const auto height = margins.top + m_layoutManager.usedRect().size.height + margins.bottom;
    // A last row of pixels that is covered in part would be of a colour between.
    return {{m_options.width, std::max(std::ceil(height), 1.0)}, m_options.appearance, Flipped::Yes};
}

NSDrawing TextSheet::drawing() const
{
    return [this](NSGraphicsContext& context) { draw(context); };
}

void TextSheet::draw(NSGraphicsContext& context) const
{
    if (m_options.backgroundColor)
        context.fillRect({{}, surface().size}, *m_options.backgroundColor);
    OffscreenTextView view(context, m_container);
    const NSPoint corner{m_options.margins.left, m_options.margins.top};
    const NSRange all{0, m_text.length()};
    m_layoutManager.drawBackgroundForGlyphRange(all, corner, view);
    m_layoutManager.drawGlyphsForGlyphRange(all, corner, view);
}
