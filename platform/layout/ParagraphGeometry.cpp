#include "platform/layout/ParagraphGeometry.h"

#include "platform/layout/LayoutLimits.h"

#include <algorithm>
#include <string>
#include <vector>

namespace {

/// Of styles that name none: the distance of the platform's default stops.
constexpr double kDefaultTabInterval = 28;
constexpr double kSmallestTabInterval = 1;
constexpr double kLargestMultiple = 100;
/// Of the font's size, as letters are on average.
constexpr double kLetterWidth = 0.5;

struct TabStop {
    double location = 0;
    PangoTabAlign alignment = PANGO_TAB_LEFT;
    gunichar decimalPoint = 0;
};

double shareBefore(NSTextAlignment alignment, bool isRightToLeft)
{
    switch (alignment) {
    case NSTextAlignment::Left:
        return isRightToLeft ? 1 : 0;
    case NSTextAlignment::Right:
        return isRightToLeft ? 0 : 1;
    case NSTextAlignment::Center:
        return 0.5;
    case NSTextAlignment::Justified:
    case NSTextAlignment::Natural:
        break;
    }
    return 0;
}

/// A character that ends the stop's column, of which the first one is taken; 0 when it has none.
gunichar decimalPoint(const NSTextTab& tab)
{
    const auto found = tab.options().find(NSTabColumnTerminatorsAttributeName);
    const auto* terminators = found == tab.options().end() ? nullptr : found->second.string();
    return terminators && !terminators->empty() ? terminators->front() : 0;
}

TabStop tabStop(const NSTextTab& tab)
{
    const auto location = boundedLength(tab.location(), -1);
    if (const auto point = decimalPoint(tab); point != 0)
        return {location, PANGO_TAB_DECIMAL, point};
    switch (tab.alignment()) {
    case NSTextAlignment::Right:
        return {location, PANGO_TAB_RIGHT};
    case NSTextAlignment::Center:
        return {location, PANGO_TAB_CENTER};
    case NSTextAlignment::Left:
    case NSTextAlignment::Justified:
    case NSTextAlignment::Natural:
        break;
    }
    return {location};
}

/// In the order of their places.
std::vector<TabStop> stopsOfStyle(const NSParagraphStyle& style)
{
    std::vector<TabStop> stops;
    const auto& own = style.tabStops();
    for (std::size_t i = 0; i < std::min(own.size(), kMaximumTabStops); ++i) {
        if (own[i])
            stops.push_back(tabStop(*own[i]));
    }
    std::stable_sort(stops.begin(), stops.end(),
                     [](const TabStop& one, const TabStop& other) { return one.location < other.location; });
    return stops;
}

void addDefaultStops(std::vector<TabStop>& stops, double interval, double limit)
{
    const auto last = stops.empty() ? 0 : std::max(stops.back().location, 0.0);
    for (auto stop = (std::floor(last / interval) + 1) * interval;
         stop <= limit && stops.size() < 2 * kMaximumTabStops; stop += interval)
        stops.push_back({stop});
}

} // namespace

ParagraphGeometry::ParagraphGeometry(const NSParagraphStyle& style, double columnWidth, bool rightToLeft,
                                     double leadingRoom)
    : column(boundedLength(columnWidth, kNarrowestColumn))
    , isRightToLeft(rightToLeft)
    , shareBefore(::shareBefore(style.alignment(), rightToLeft))
    , isJustified(style.alignment() == NSTextAlignment::Justified)
    , lineBreakMode(style.lineBreakMode())
    , minimumLineHeight(boundedLength(style.minimumLineHeight()))
    , lineSpacing(boundedLength(style.lineSpacing()))
    , spacingBefore(boundedLength(style.paragraphSpacingBefore()))
    , spacing(boundedLength(style.paragraphSpacing()))
{
    const auto widest = std::max(column - kNarrowestLine, 0.0);
    indent = boundedLength(style.headIndent(), 0, widest);
    firstIndent = boundedLength(style.firstLineHeadIndent(), 0, widest);
    if (style.firstLineHeadIndent() < 0 && leadingRoom > 0)
        firstIndent = std::max(indent - leadingRoom, -column);
    const auto tail = boundedLength(style.tailIndent(), -kLargestLength);
    const auto narrowest = std::min(std::max(indent, firstIndent) + kNarrowestLine, column);
    limit = std::clamp(tail > 0 ? tail : column + tail, narrowest, column);
    if (style.lineHeightMultiple() > 0)
        lineHeightMultiple = boundedLength(style.lineHeightMultiple(), 0, kLargestMultiple);
    if (style.maximumLineHeight() > 0)
        maximumLineHeight = boundedLength(style.maximumLineHeight());
}

double ParagraphGeometry::lineHeight(double text, double whole) const
{
    const auto multiplied = std::max(text * lineHeightMultiple, minimumLineHeight);
    const auto height = std::min(multiplied, std::max(maximumLineHeight, minimumLineHeight));
    return whole > text ? std::max(whole, height) : height;
}

double ParagraphGeometry::heightOfLetter(double fontSize) const
{
    const auto size = boundedLength(fontSize);
    const auto room = std::max(limit - indent, kNarrowestColumn);
    const auto partOfLine = std::min(size * kLetterWidth / room, 1.0);
    return partOfLine * (lineHeight(size, size) + lineSpacing);
}

TabArray tabStops(const NSParagraphStyle& style, double base, double limit)
{
    auto stops = stopsOfStyle(style);
    const auto interval = boundedLength(style.defaultTabInterval());
    addDefaultStops(stops, interval >= kSmallestTabInterval ? interval : kDefaultTabInterval, limit);
    std::erase_if(stops, [&](const TabStop& stop) { return stop.location - base <= 0; });
    TabArray tabs(pango_tab_array_new(static_cast<gint>(stops.size()), FALSE));
    for (std::size_t i = 0; i < stops.size(); ++i) {
        const auto index = static_cast<gint>(i);
        pango_tab_array_set_tab(tabs.get(), index, stops[i].alignment, pangoUnits(stops[i].location - base));
        pango_tab_array_set_decimal_point(tabs.get(), index, stops[i].decimalPoint);
    }
    return tabs;
}
