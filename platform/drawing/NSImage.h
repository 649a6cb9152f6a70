#pragma once

#include "platform/drawing/DrawingSurface.h"
#include "platform/foundation/NSGeometry.h"
#include "platform/foundation/NSObject.h"
#include "platform/text/NSColor.h"

#include <cstddef>
#include <cstdint>
#include <memory>
#include <string_view>
#include <vector>

/// An image: its size in points, and either pixels (a bitmap) or a drawing, which is made anew wherever the
/// image is drawn, at the scale and in the appearance of that place. Immutable and shared.
class NSImage final : public NSObject {
public:
    using Ref = std::shared_ptr<const NSImage>;
    using Drawing = NSDrawing;

    /// A bitmap of the size, drawn once, with `scale` pixels to a point, dynamic colours as in `appearance`.
    /// Null when DrawingSurface refuses the size, or when memory is short.
    [[nodiscard]] static Ref imageWithSize(NSSize size, const Drawing& drawing, double scale = 1.0,
                                           NSAppearance appearance = NSAppearance::Light);

    /// A bitmap of these pixels, that large in points. Null when they are none, or a side is not a positive
    /// number.
    [[nodiscard]] static Ref imageWithPixels(BitmapPixels pixels, NSSize size);

    /// An image that is drawn by the handler, which must work as long as the image lives, on every thread
    /// that draws it. Null without a handler or when a side is not a positive number.
    [[nodiscard]] static Ref imageWithSize(NSSize size, Flipped flipped, Drawing drawingHandler);

    /// A symbol of the system, drawn in the palette's colours: SystemSymbols.h lists them with what the
    /// colours are for. A colour that is missing or null leaves its part out. Null when there is none of the
    /// name.
    [[nodiscard]] static Ref imageWithSystemSymbolName(std::u16string_view name,
                                                       const std::vector<NSColor::Ref>& paletteColors);

    /// Another object with the same size, and the same pixels or drawing.
    [[nodiscard]] Ref copy() const;

    [[nodiscard]] NSSize size() const { return m_size; }

    /// Zero and none for an image that is a drawing.
    [[nodiscard]] std::size_t pixelsWide() const { return m_pixels.wide; }

    [[nodiscard]] std::size_t pixelsHigh() const { return m_pixels.high; }

    /// As in BitmapPixels.
    [[nodiscard]] const std::vector<std::uint32_t>& pixels() const { return m_pixels.values; }

    /// Draws the image so that it fills the rectangle, upright. Nothing in an empty rectangle.
    void drawInRect(NSRect rect, NSGraphicsContext& context) const;

    /// Same size and pixels; for drawings, the same size and one and the same drawing, as a copy has.
    [[nodiscard]] bool isEqual(const NSObject& other) const override;
    [[nodiscard]] std::size_t hash() const override;

private:
    NSImage() = default;
    void drawPixels(NSGraphicsContext& context) const;

    NSSize m_size;
    BitmapPixels m_pixels;
    /// Null for a bitmap.
    std::shared_ptr<const Drawing> m_drawing;
    Flipped m_flipped = Flipped::No;
};
