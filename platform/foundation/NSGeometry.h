#pragma once

#include <string>
#include <string_view>

/// Points, sizes and rectangles, in points. The origin is the lower left corner unless a use says otherwise.

struct NSPoint {
    double x = 0;
    double y = 0;

    friend bool operator==(const NSPoint&, const NSPoint&) = default;
};

struct NSSize {
    double width = 0;
    double height = 0;

    friend bool operator==(const NSSize&, const NSSize&) = default;
};

struct NSRect {
    NSPoint origin;
    NSSize size;

    friend bool operator==(const NSRect&, const NSRect&) = default;
};

struct NSEdgeInsets {
    double top = 0;
    double left = 0;
    double bottom = 0;
    double right = 0;

    friend bool operator==(const NSEdgeInsets&, const NSEdgeInsets&) = default;
};

[[nodiscard]] constexpr NSPoint NSMakePoint(double x, double y)
{
    return {x, y};
}

[[nodiscard]] constexpr NSSize NSMakeSize(double width, double height)
{
    return {width, height};
}

[[nodiscard]] constexpr NSRect NSMakeRect(double x, double y, double width, double height)
{
    return {{x, y}, {width, height}};
}

/// The rectangle with its vertical edges moved inwards by `dx` and the others by `dy`.
[[nodiscard]] constexpr NSRect NSInsetRect(NSRect rect, double dx, double dy)
{
    return {{rect.origin.x + dx, rect.origin.y + dy}, {rect.size.width - 2 * dx, rect.size.height - 2 * dy}};
}

/// The smallest rectangle of whole numbers that holds the rectangle; empty for one without width or height.
[[nodiscard]] NSRect NSIntegralRect(NSRect rect);

/// Whether the point lies in the rectangle. Of its edges the two at the origin belong to it, in either
/// direction of the y axis.
[[nodiscard]] constexpr bool NSPointInRect(NSPoint point, NSRect rect)
{
    return point.x >= rect.origin.x && point.x < rect.origin.x + rect.size.width && point.y >= rect.origin.y
        && point.y < rect.origin.y + rect.size.height;
}

/// The platform's textual forms: "{1, 2.5}" and "{{1, 2}, {3, 4}}". Each number has the fewest digits that
/// give it back.
[[nodiscard]] std::u16string NSStringFromPoint(NSPoint point);
[[nodiscard]] std::u16string NSStringFromSize(NSSize size);
[[nodiscard]] std::u16string NSStringFromRect(NSRect rect);

/// What the first two (for rectangles four) numbers of a text make, whatever stands between them. A number
/// that is missing is 0.
[[nodiscard]] NSPoint NSPointFromString(std::u16string_view text);
[[nodiscard]] NSSize NSSizeFromString(std::u16string_view text);
[[nodiscard]] NSRect NSRectFromString(std::u16string_view text);
