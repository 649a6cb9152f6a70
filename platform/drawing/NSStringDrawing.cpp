#include "platform/drawing/NSStringDrawing.h"

#include "platform/drawing/CairoTarget.h"
#include "platform/drawing/LineLayout.h"

#include <algorithm>
#include <cmath>
#include <functional>

namespace {

/// Calls the visitor with the content of each line until it says no.
void enumerateLines(const NSAttributedString& text, const std::function<bool(NSRange)>& visit)
{
    for (NSUInteger location = 0; location < text.length();) {
        if (!visit(text.lineContentRangeAtIndex(location)))
            return;
        location = NSMaxRange(text.lineRangeAtIndex(location));
    }
    const auto end = text.length();
    if (end > 0 && text.lineRangeAtIndex(end).length == 0)
        visit({end, 0});
}

NSSize sizeWithin(const NSAttributedString& text, std::optional<double> width)
{
    NSSize size;
    enumerateLines(text, [&](NSRange range) {
        const auto line = LineLayout(text, range, width, NSAppearance::Light).size();
        size.width = std::max(size.width, line.width);
        size.height += line.height;
        return true;
    });
    return size;
}

/// The lowest place that can be seen, in the upright coordinates of the text.
double lowestVisible(cairo_t* cairo)
{
    double left = 0;
    double top = 0;
    double right = 0;
    double bottom = 0;
    cairo_clip_extents(cairo, &left, &top, &right, &bottom);
    return bottom;
}

bool isSide(double length)
{
    return length > 0 && std::isfinite(length);
}

} // namespace

NSSize sizeOfAttributedString(const NSAttributedString& text)
{
    return sizeWithin(text, std::nullopt);
}

NSSize sizeOfAttributedString(const NSAttributedString& text, double width)
{
    return sizeWithin(text, std::isfinite(width) ? std::optional(width) : std::nullopt);
}

void drawAttributedString(const NSAttributedString& text, NSRect inRect, NSGraphicsContext& context)
{
    if (!isSide(inRect.size.width) || !isSide(inRect.size.height) || !std::isfinite(inRect.origin.x)
        || !std::isfinite(inRect.origin.y))
        return;
    const UprightOrigin origin(context, inRect);
    auto* cairo = context.target().cairo;
    const auto lowest = std::min(inRect.size.height, lowestVisible(cairo));
    double y = 0;
    enumerateLines(text, [&](NSRange range) {
        const LineLayout line(text, range, inRect.size.width, context.appearance());
        line.draw(cairo, y, lowest);
        y += line.size().height;
        return y < lowest;
    });
}
