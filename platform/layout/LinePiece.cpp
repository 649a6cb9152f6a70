#include "platform/layout/LinePiece.h"

#include "platform/drawing/CairoTarget.h"
#include "platform/drawing/NSGraphicsContext.h"
#include "platform/drawing/PangoFonts.h"
#include "platform/layout/LayoutLimits.h"
#include "platform/layout/LayoutText.h"
#include "platform/layout/TextShadow.h"
#include "platform/text/NSAttributeNames.h"
#include "platform/text/NSColor.h"
#include "platform/text/NSShadow.h"

#include <algorithm>
#include <memory>
#include <span>
#include <string_view>

namespace {

/// The attachment character in UTF-8, as long as what pangoText puts in its place.
constexpr std::string_view kAttachmentBytes = "\xEF\xBF\xBC";

double points(int units)
{
    return static_cast<double>(units) / PANGO_SCALE;
}

/// The height of the fonts of the text: of a line that has no letters, its line end's.
double fontHeight(PangoContext& context, const NSAttributedString& text, NSUInteger length)
{
    const auto attributes
        = text.length() > 0 ? text.attributesAtIndex(std::min(length, text.length() - 1)) : NSAttributes();
    const auto description = fontDescription(*fontOfAttributes(attributes));
    PangoFontMetrics* metrics = pango_context_get_metrics(&context, description.get(), nullptr);
    const auto height
        = points(pango_font_metrics_get_ascent(metrics) + pango_font_metrics_get_descent(metrics));
    pango_font_metrics_unref(metrics);
    return height;
}

} // namespace

LinePiece::LinePiece(const NSAttributedString& text, NSUInteger length, const NSParagraphStyle& style,
                     const ParagraphGeometry& geometry, bool isFirst,
                     std::vector<AttachmentPlace> attachments, NSAppearance appearance)
    : m_text(text)
    , m_length(length)
    , m_geometry(geometry)
    , m_isFirst(isFirst)
    , m_attachments(std::move(attachments))
{
    const auto set = layoutText(text);
    m_content = pangoText(set, {0, length}, appearance);
    const auto context = textContext();
    pango_context_set_base_dir(context.get(),
                               geometry.isRightToLeft ? PANGO_DIRECTION_RTL : PANGO_DIRECTION_LTR);
    // To ask costs as much as to set a short line.
    if (!m_attachments.empty())
        m_fontHeight = fontHeight(*context, set, length);
    m_layout.reset(pango_layout_new(context.get()));
    pango_layout_set_auto_dir(m_layout.get(), FALSE);
    const auto last = set.length() > 0 ? set.attributesAtIndex(set.length() - 1) : NSAttributes();
    const auto font = fontDescription(*fontOfAttributes(last));
    pango_layout_set_font_description(m_layout.get(), font.get());
    makeRoomForAttachments();
    // Where a word is broken for want of room, nobody wrote a hyphen.
    pango_attr_list_insert(m_content.attributes.get(), pango_attr_insert_hyphens_new(FALSE));
    pango_layout_set_text(m_layout.get(), m_content.characters.data(),
                          static_cast<int>(m_content.characters.size()));
    pango_layout_set_attributes(m_layout.get(), m_content.attributes.get());
    setLines(style, isFirst);
}

void LinePiece::makeRoomForAttachments()
{
    for (const auto& [index, room] : m_attachments) {
        const auto start = m_content.offsets[index];
        // A character that can be seen, or Pango takes the place for a blank and lets it go at line ends.
        m_content.characters.replace(start, kAttachmentBytes.size(), kAttachmentBytes);
        const PangoRectangle rect{0, pangoUnits(-room.origin.y - room.size.height),
                                  pangoUnits(room.origin.x + room.size.width), pangoUnits(room.size.height)};
        auto* shape = pango_attr_shape_new(&rect, &rect);
        shape->start_index = start;
        shape->end_index = start + static_cast<guint>(kAttachmentBytes.size());
        pango_attr_list_insert(m_content.attributes.get(), shape);
    }
}

void LinePiece::setLines(const NSParagraphStyle& style, bool isFirst)
{
    auto* layout = m_layout.get();
    const auto mode = m_geometry.lineBreakMode;
    const auto first = isFirst ? m_geometry.firstIndent : m_geometry.indent;
    const auto base = std::min(first, m_geometry.indent);
    pango_layout_set_indent(layout, pangoUnits(first - m_geometry.indent));
    // There may be hundreds, for nothing.
    if (m_content.characters.find('\t') != std::string::npos)
        pango_layout_set_tabs(layout, tabStops(style, base, m_geometry.limit).get());
    pango_layout_set_alignment(layout, m_geometry.isRightToLeft ? PANGO_ALIGN_RIGHT : PANGO_ALIGN_LEFT);
    pango_layout_set_justify(layout, m_geometry.isJustified);
    if (mode == NSLineBreakMode::Clipping)
        return;
    pango_layout_set_width(layout, pangoUnits(m_geometry.limit - base));
    pango_layout_set_ellipsize(layout, ellipsizing(mode));
    pango_layout_set_wrap(layout,
                          mode == NSLineBreakMode::CharWrapping ? PANGO_WRAP_CHAR : PANGO_WRAP_WORD_CHAR);
}

void LinePiece::enumerateLines(const Visitor& visit) const
{
    auto isFirst = m_isFirst;
    for (auto* item = pango_layout_get_lines_readonly(m_layout.get()); item; item = item->next) {
        auto* line = static_cast<PangoLayoutLine*>(item->data);
        PangoRectangle rect{};
        pango_layout_line_get_extents(line, nullptr, &rect);
        PieceLine found;
        found.line = line;
        found.range = rangeOf(*line);
        found.width = points(rect.width);
        found.ascent = points(-rect.y);
        found.height = points(rect.height);
        const auto begin = isFirst ? m_geometry.firstIndent : m_geometry.indent;
        const auto leading
            = begin + std::max(m_geometry.limit - begin - found.width, 0.0) * m_geometry.shareBefore;
        found.x = m_geometry.isRightToLeft ? m_geometry.column - leading - found.width : leading;
        found.textHeight = found.height;
        if (holdsAttachment(found.range))
            found.textHeight = std::min(found.height, m_fontHeight);
        if (!visit(found, !item->next))
            return;
        isFirst = false;
    }
}

bool LinePiece::holdsAttachment(NSRange range) const
{
    return std::any_of(m_attachments.begin(), m_attachments.end(),
                       [&](const AttachmentPlace& place) { return NSLocationInRange(place.index, range); });
}

NSRange LinePiece::rangeOf(const PangoLayoutLine& line) const
{
    const auto start = indexOfByte(line.start_index);
    return {start, indexOfByte(line.start_index + line.length) - start};
}

NSUInteger LinePiece::indexOfByte(int byte) const
{
    const auto& offsets = m_content.offsets;
    const auto found = std::lower_bound(offsets.begin(), offsets.end(), static_cast<guint>(byte));
    return std::min(static_cast<NSUInteger>(found - offsets.begin()), m_length);
}

void LinePiece::enumerateInk(const PieceLine& line, NSRange range,
                             const std::function<void(double x, double width)>& visit) const
{
    const auto whole = bytesOf(line.range);
    const auto origin = visualRanges(*line.line, whole);
    const auto ranges = visualRanges(*line.line, bytesOf(NSIntersectionRange(range, line.range)));
    if (origin.empty())
        return;
    // Pango counts from the layout's edge, not from where the line begins.
    for (const auto& [start, end] : ranges)
        visit(line.x + points(start - origin.front().start), points(end - start));
}

LinePiece::Span LinePiece::bytesOf(NSRange range) const
{
    return {static_cast<int>(m_content.offsets[range.location]),
            static_cast<int>(m_content.offsets[NSMaxRange(range)])};
}

std::vector<LinePiece::Span> LinePiece::visualRanges(PangoLayoutLine& line, Span bytes)
{
    int* edges = nullptr;
    int count = 0;
    pango_layout_line_get_x_ranges(&line, bytes.start, bytes.end, &edges, &count);
    const std::unique_ptr<int, void (*)(gpointer)> owner(edges, g_free);
    const std::span all(edges, 2 * static_cast<std::size_t>(count));
    std::vector<Span> ranges;
    for (std::size_t i = 0; i + 1 < all.size(); i += 2)
        ranges.push_back({all[i], all[i + 1]});
    std::sort(ranges.begin(), ranges.end(),
              [](const Span& one, const Span& other) { return one.start < other.start; });
    return ranges;
}

void LinePiece::drawBackground(const PieceLine& line, NSRect rect, NSGraphicsContext& context) const
{
    const auto visit = [&](const NSAny& value, NSRange run, bool& /*stop*/) {
        const auto color = value.object<NSColor>();
        if (!color)
            return;
        enumerateInk(line, run, [&](double x, double width) {
            context.fillRect({{rect.origin.x + x, rect.origin.y}, {width, rect.size.height}}, *color);
        });
    };
    m_text.enumerateAttribute(NSBackgroundColorAttributeName, line.range, {}, visit);
}

void LinePiece::drawText(const PieceLine& line, NSPoint origin, NSGraphicsContext& context) const
{
    auto* cairo = context.target().cairo;
    // The state must not outlive this drawing: Pango's fonts, kept in it, are of one scale.
    const GraphicsState state(context);
    if (m_geometry.lineBreakMode == NSLineBreakMode::Clipping) {
        const auto left = m_geometry.isRightToLeft ? m_geometry.column - m_geometry.limit : 0;
        context.clipToRect(
            {{origin.x + left, origin.y - kLargestLength}, {m_geometry.limit, 2 * kLargestLength}});
    }
    const auto show = [&] {
        cairo_set_source_rgb(cairo, 0, 0, 0);
        cairo_move_to(cairo, origin.x + line.x, origin.y);
        pango_cairo_show_layout_line(cairo, line.line);
    };
    drawShadows(line, origin, context, show);
    show();
}

void LinePiece::drawShadows(const PieceLine& line, NSPoint origin, NSGraphicsContext& context,
                            const std::function<void()>& show) const
{
    const auto visit = [&](const NSAny& value, NSRange run, bool& /*stop*/) {
        const auto shadow = value.object<NSShadow>();
        if (!shadow)
            return;
        enumerateInk(line, run, [&](double x, double width) {
            const NSRect rect{{origin.x + x, origin.y - line.ascent}, {width, line.height}};
            drawShadow(*shadow, rect, context, show);
        });
    };
    m_text.enumerateAttribute(NSShadowAttributeName, line.range, {}, visit);
}

void LinePiece::enumerateAttachments(const PieceLine& line, const AttachmentVisitor& visit) const
{
    const auto first
        = std::lower_bound(m_attachments.begin(), m_attachments.end(), line.range.location,
                           [](const AttachmentPlace& place, NSUInteger at) { return place.index < at; });
    for (auto place = first; place != m_attachments.end() && place->index < NSMaxRange(line.range); ++place)
        enumerateInk(line, {place->index, 1}, [&](double x, double /*width*/) {
            visit(place->index,
                  {{x + place->room.origin.x, -place->room.origin.y - place->room.size.height},
                   place->room.size});
        });
}
