#pragma once

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
