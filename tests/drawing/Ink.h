#pragma once

#include "platform/drawing/DrawingSurface.h"

#include <algorithm>
#include <cstdint>

/// Where a bitmap is not clear, in pixels from the upper left; empty when it is all clear.
struct Ink {
    std::size_t left = 0;
    std::size_t top = 0;
    std::size_t right = 0;
    std::size_t bottom = 0;

    [[nodiscard]] std::size_t width() const { return right - left; }

    [[nodiscard]] std::size_t height() const { return bottom - top; }

    friend bool operator==(const Ink&, const Ink&) = default;
};

[[nodiscard]] inline std::uint32_t pixel(const BitmapPixels& pixels, std::size_t x, std::size_t y)
{
    return pixels.values[y * pixels.wide + x];
}

/// The smallest rectangle with all pixels whose alpha is above `threshold`.
[[nodiscard]] inline Ink inkOf(const BitmapPixels& pixels, std::uint32_t threshold = 0)
{
    Ink ink{pixels.wide, pixels.high, 0, 0};
    for (std::size_t y = 0; y < pixels.high; ++y) {
        for (std::size_t x = 0; x < pixels.wide; ++x) {
            if (pixel(pixels, x, y) >> 24U <= threshold)
                continue;
            ink.left = std::min(ink.left, x);
            ink.top = std::min(ink.top, y);
            ink.right = std::max(ink.right, x + 1);
            ink.bottom = std::max(ink.bottom, y + 1);
        }
    }
    return ink.right == 0 ? Ink{} : ink;
}

/// The sum of all alphas, in whole pixels: how much ink there is.
[[nodiscard]] inline double amountOfInk(const BitmapPixels& pixels)
{
    double sum = 0;
    for (const auto value : pixels.values)
        sum += static_cast<double>(value >> 24U) / 255;
    return sum;
}

[[nodiscard]] inline bool hasColor(const BitmapPixels& pixels, std::uint32_t value)
{
    return std::find(pixels.values.begin(), pixels.values.end(), value) != pixels.values.end();
}
