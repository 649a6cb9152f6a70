#include "platform/drawing/LineLayout.h"

#include "platform/drawing/PangoFonts.h"
#include "platform/drawing/PangoText.h"
#include "platform/text/NSAttributeNames.h"

#include <unicode/ubidi.h>

#include <algorithm>
#include <array>
#include <span>

namespace {

NSParagraphStyle::Ref styleOf(const NSAttributes& attributes)
{
    const auto found = attributes.find(NSParagraphStyleAttributeName);
    const auto style = found == attributes.end() ? nullptr : found->second.object<NSParagraphStyle>();
    return style ? style : NSParagraphStyle::defaultParagraphStyle();
}

/// The attributes that an empty line has too: those of its line end, at the text's end those before it.
NSAttributes attributesOfLine(const NSAttributedString& text, NSRange range)
{
    if (text.length() == 0)
        return {};
    return text.attributesAtIndex(std::min(range.location, text.length() - 1));
}

double largestFontSize(const NSAttributedString& text, NSRange range)
{
    double largest = 1;
    text.enumerateAttribute(NSFontAttributeName, range, {}, [&](const NSAny& value, NSRange, bool&) {
        const auto font = value.object<NSFont>();
        largest = std::max(largest, font ? font->pointSize() : NSFont::kDefaultSize);
    });
    return largest;
}

/// The line without what would be too much of it.
NSAttributedString shortened(const NSAttributedString& line, NSUInteger length, NSLineBreakMode mode)
{
    auto head = length;
    if (mode == NSLineBreakMode::TruncatingHead)
        head = 0;
    if (mode == NSLineBreakMode::TruncatingMiddle)
        head = length / 2;
    NSMutableAttributedString result(line.attributedSubstringFromRange({0, head}));
    const auto tail = length - head;
    result.appendAttributedString(line.attributedSubstringFromRange({line.length() - tail, tail}));
    return result;
}

PangoText textWithinBounds(const NSAttributedString& text, NSRange range, NSLineBreakMode mode,
                           NSAppearance appearance)
{
    const auto most
        = static_cast<NSUInteger>(std::max(1.0, kMaximumTextExtent / largestFontSize(text, range)));
    if (range.length <= most)
        return pangoText(text, range, appearance);
    const auto line = shortened(text.attributedSubstringFromRange(range), most, mode);
    return pangoText(line, {0, line.length()}, appearance);
}

/// By the style, else by the first letter that has a direction.
bool isRightToLeft(const std::u16string& line, NSWritingDirection direction)
{
    if (direction != NSWritingDirection::Natural)
        return direction == NSWritingDirection::RightToLeft;
    return ubidi_getBaseDirection(line.data(), static_cast<int32_t>(line.size())) == UBIDI_RTL;
}

/// How much wider than its glyphs the ellipsis is: Pango lets it fill what the cut left free.
int ellipsisExcess(const PangoLayoutLine& line)
{
    int excess = 0;
    for (const auto* run = line.runs; run; run = run->next) {
        const auto* glyphItem = static_cast<const PangoGlyphItem*>(run->data);
        const auto& analysis = glyphItem->item->analysis;
        if ((analysis.flags & PANGO_ANALYSIS_FLAG_IS_ELLIPSIS) == 0 || !analysis.font)
            continue;
        const std::span glyphs(glyphItem->glyphs->glyphs,
                               static_cast<std::size_t>(glyphItem->glyphs->num_glyphs));
        for (const auto& glyph : glyphs) {
            PangoRectangle natural{};
            pango_font_get_glyph_extents(analysis.font, glyph.glyph, nullptr, &natural);
            excess += glyph.geometry.width - natural.width;
        }
    }
    return excess;
}

double points(int units)
{
    return static_cast<double>(units) / PANGO_SCALE;
}

} // namespace

LineLayout::LineLayout(const NSAttributedString& text, NSRange range, std::optional<double> width,
                       NSAppearance appearance)
{
    const auto attributes = attributesOfLine(text, range);
    const auto style = styleOf(attributes);
    const auto context = textContext();
    m_layout.reset(pango_layout_new(context.get()));
    const auto font = fontDescription(*fontOfAttributes(attributes));
    pango_layout_set_font_description(m_layout.get(), font.get());
    const auto content = textWithinBounds(text, range, style->lineBreakMode(), appearance);
    pango_layout_set_text(m_layout.get(), content.characters.data(),
                          static_cast<int>(content.characters.size()));
    pango_layout_set_attributes(m_layout.get(), content.attributes.get());
    m_isRightToLeft = isRightToLeft(text.substringWithRange(range), style->baseWritingDirection());
    setDirection(*context);
    setAlignment(*style);
    if (width)
        setWidth(*width, style->lineBreakMode());
}

NSSize LineLayout::size() const
{
    int width = 0;
    int height = 0;
    pango_layout_get_size(m_layout.get(), &width, &height);
    return {points(std::max(width, 0)), points(std::max(height, 0))};
}

void LineLayout::draw(cairo_t* cairo, double y, double lowest) const
{
    // The state must not outlive this drawing: Pango's fonts, kept in it, are of one scale.
    cairo_save(cairo);
    if (m_clippedWidth) {
        cairo_rectangle(cairo, 0, y, *m_clippedWidth, size().height);
        cairo_clip(cairo);
    }
    cairo_set_source_rgb(cairo, 0, 0, 0);
    const LayoutIterator line(pango_layout_get_iter(m_layout.get()));
    do {
        PangoRectangle rect{};
        pango_layout_iter_get_line_extents(line.get(), nullptr, &rect);
        if (y + points(rect.y) >= lowest)
            break;
        cairo_move_to(cairo, m_start + points(rect.x),
                      y + points(pango_layout_iter_get_baseline(line.get())));
        pango_cairo_show_layout_line(cairo, pango_layout_iter_get_line_readonly(line.get()));
    } while (pango_layout_iter_next_line(line.get()));
    cairo_restore(cairo);
}

void LineLayout::setDirection(PangoContext& context)
{
    // With both told, Pango finds no direction of its own and turns no sides round.
    pango_context_set_base_dir(&context, m_isRightToLeft ? PANGO_DIRECTION_RTL : PANGO_DIRECTION_LTR);
    pango_layout_set_auto_dir(m_layout.get(), FALSE);
    pango_layout_context_changed(m_layout.get());
}

void LineLayout::setAlignment(const NSParagraphStyle& style)
{
    switch (style.alignment()) {
    case NSTextAlignment::Left:
        m_side = Side::Left;
        break;
    case NSTextAlignment::Right:
        m_side = Side::Right;
        break;
    case NSTextAlignment::Center:
        m_side = Side::Center;
        break;
    case NSTextAlignment::Justified:
    case NSTextAlignment::Natural:
        m_side = m_isRightToLeft ? Side::Right : Side::Left;
        break;
    }
    constexpr std::array kSides{PANGO_ALIGN_LEFT, PANGO_ALIGN_CENTER, PANGO_ALIGN_RIGHT};
    pango_layout_set_alignment(m_layout.get(), kSides[static_cast<std::size_t>(m_side)]);
    pango_layout_set_justify(m_layout.get(), style.alignment() == NSTextAlignment::Justified);
}

void LineLayout::setWidth(double width, NSLineBreakMode mode)
{
    if (mode == NSLineBreakMode::Clipping)
        return clip(width);
    pango_layout_set_width(m_layout.get(), pangoUnits(std::max(width, 0.0)));
    pango_layout_set_ellipsize(m_layout.get(), ellipsizing(mode));
    pango_layout_set_wrap(m_layout.get(),
                          mode == NSLineBreakMode::CharWrapping ? PANGO_WRAP_CHAR : PANGO_WRAP_WORD_CHAR);
    if (pango_layout_is_ellipsized(m_layout.get()))
        tightenEllipsis(width);
}

void LineLayout::clip(double width)
{
    m_clippedWidth = width;
    const auto room = width - size().width;
    // What is too long shows its beginning.
    if (room < 0)
        m_start = m_isRightToLeft ? room : 0;
    else
        m_start = room * static_cast<double>(m_side) / 2;
}

void LineLayout::tightenEllipsis(double width)
{
    const auto excess = ellipsisExcess(*pango_layout_get_line_readonly(m_layout.get(), 0));
    if (excess <= 0)
        return;
    pango_layout_set_width(m_layout.get(), pangoUnits(width) - excess);
    m_start = points(excess) * static_cast<double>(m_side) / 2;
}
