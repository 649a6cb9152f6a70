#pragma once

#include "platform/foundation/NSGeometry.h"
#include "platform/foundation/NSObject.h"
#include "platform/text/NSAppearance.h"
#include "platform/text/NSColor.h"

#include <cstddef>
#include <cstdint>
#include <functional>
#include <memory>
#include <vector>

/// What an image is drawn with. The origin is the lower left corner, lengths are points, edges are smooth.
class NSGraphicsContext {
public:
    NSGraphicsContext(const NSGraphicsContext&) = delete;
    NSGraphicsContext& operator=(const NSGraphicsContext&) = delete;
    virtual ~NSGraphicsContext() = default;

    /// The ellipse in the rectangle; nothing for a pattern or an empty rectangle.
    virtual void fillOvalInRect(NSRect rect, const NSColor& color) = 0;
    /// The outline of the ellipse, half of its width on either side of it.
    virtual void strokeOvalInRect(NSRect rect, double lineWidth, const NSColor& color) = 0;

protected:
    NSGraphicsContext() = default;
};

/// A drawn image: its size in points, and its pixels. Immutable and shared.
class NSImage final : public NSObject {
public:
    using Ref = std::shared_ptr<const NSImage>;
    using Drawing = std::function<void(NSGraphicsContext&)>;

    /// The largest side of an image, in pixels.
    static constexpr std::size_t kMaximumPixels = 16384;

    /// An image of the size, drawn once, with `scale` pixels to a point. Null when a side is not a positive
    /// number or gives more than kMaximumPixels pixels, or when memory is short. Dynamic colours are drawn as
    /// in `appearance`.
    [[nodiscard]] static Ref imageWithSize(NSSize size, const Drawing& drawing, double scale = 1.0,
                                           NSAppearance appearance = NSAppearance::Light);

    [[nodiscard]] NSSize size() const { return m_size; }

    [[nodiscard]] std::size_t pixelsWide() const { return m_pixelsWide; }

    [[nodiscard]] std::size_t pixelsHigh() const { return m_pixelsHigh; }

    /// Rows from the top, pixels from the left, without gaps: 0xAARRGGBB in sRGB, multiplied by alpha.
    [[nodiscard]] const std::vector<std::uint32_t>& pixels() const { return m_pixels; }

    /// Same size and pixels.
    [[nodiscard]] bool isEqual(const NSObject& other) const override;
    [[nodiscard]] std::size_t hash() const override;

private:
    NSImage() = default;

    NSSize m_size;
    std::size_t m_pixelsWide = 0;
    std::size_t m_pixelsHigh = 0;
    std::vector<std::uint32_t> m_pixels;
};
