#pragma once

#include "platform/drawing/NSGraphicsContext.h"
#include "platform/foundation/NSAny.h"
#include "platform/foundation/NSError.h"

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string_view>
#include <vector>

inline constexpr std::string_view DrawingErrorDomain = "DrawingErrorDomain";

/// Why nothing was drawn.
enum class DrawingError : int {
    /// A side or the scale is no positive number, or beyond the limits of DrawingSurface.
    SizeRefused = 1,
    MemoryShort = 2,
    /// The library refused; its reason is in the description.
    Failed = 3,
};

/// Rows from the top, pixels from the left, without gaps: 0xAARRGGBB in sRGB, multiplied by alpha.
struct BitmapPixels {
    std::size_t wide = 0;
    std::size_t high = 0;
    std::vector<std::uint32_t> values;

    friend bool operator==(const BitmapPixels&, const BitmapPixels&) = default;
};

/// What a drawing is made on: so large, in this appearance, with the origin there. Each of the functions
/// calls the drawing once and gives what it made; nothing, with the reason in `error` (a DrawingError of
/// DrawingErrorDomain), when the size is refused or the library fails. What the drawing throws passes
/// through.
///
/// One drawing gives the same in every form; PDF and SVG keep lines and text as such, and know no pixels.
struct DrawingSurface {
    /// The largest side of a bitmap in pixels, and how many it may have altogether (256 MB).
    static constexpr std::size_t kMaximumSide = 16384;
    static constexpr std::size_t kMaximumPixels = 64UL << 20U;
    /// The largest side of a page, which is the format's own limit, and of an SVG image; in points.
    static constexpr double kMaximumPageSide = 14400;
    static constexpr double kMaximumVectorSide = 100000;

    /// In points.
    NSSize size;
    NSAppearance appearance = NSAppearance::Light;
    Flipped flipped = Flipped::No;

    /// With `scale` pixels to a point; a side that is no whole number of pixels is rounded up.
    [[nodiscard]] std::optional<BitmapPixels> pixels(const NSDrawing& drawing, double scale = 1,
                                                     NSError* error = nullptr) const;
    /// The same as a PNG file.
    [[nodiscard]] std::optional<NSData> PNGRepresentation(const NSDrawing& drawing, double scale = 1,
                                                          NSError* error = nullptr) const;
    /// A document of one page.
    [[nodiscard]] std::optional<NSData> PDFRepresentation(const NSDrawing& drawing,
                                                          NSError* error = nullptr) const;
    /// A document of a page for each drawing, at least one; all of the same size.
    [[nodiscard]] std::optional<NSData> PDFRepresentation(const std::vector<NSDrawing>& pages,
                                                          NSError* error = nullptr) const;
    [[nodiscard]] std::optional<NSData> SVGRepresentation(const NSDrawing& drawing,
                                                          NSError* error = nullptr) const;
};
