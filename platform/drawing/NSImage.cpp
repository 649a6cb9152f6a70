#include "platform/drawing/NSImage.h"

#include "platform/drawing/CairoTarget.h"

#include <cmath>
#include <cstring>

namespace {

bool isSide(double length)
{
    return length > 0 && std::isfinite(length);
}

/// A surface of the library's own memory, which a PDF or SVG surface may keep until it is finished.
CairoSurface surfaceWithPixels(const BitmapPixels& pixels)
{
    CairoSurface surface(cairo_image_surface_create(CAIRO_FORMAT_ARGB32, static_cast<int>(pixels.wide),
                                                    static_cast<int>(pixels.high)));
    auto* rows = cairo_image_surface_get_data(surface.get());
    const auto stride = static_cast<std::size_t>(cairo_image_surface_get_stride(surface.get()));
    for (std::size_t row = 0; rows && row < pixels.high; ++row)
        std::memcpy(rows + row * stride, &pixels.values[row * pixels.wide],
                    pixels.wide * sizeof(std::uint32_t));
    cairo_surface_mark_dirty(surface.get());
    return surface;
}

} // namespace

NSImage::Ref NSImage::imageWithSize(NSSize size, const Drawing& drawing, double scale,
                                    NSAppearance appearance)
{
    auto pixels = DrawingSurface{size, appearance}.pixels(drawing, scale);
    if (!pixels)
        return nullptr;
    NSImage image;
    image.m_size = size;
    image.m_pixels = std::move(*pixels);
    return std::make_shared<NSImage>(std::move(image));
}

NSImage::Ref NSImage::imageWithPixels(BitmapPixels pixels, NSSize size)
{
    const auto isWhole = !pixels.values.empty() && pixels.values.size() == pixels.wide * pixels.high;
    if (!isWhole || !isSide(size.width) || !isSide(size.height))
        return nullptr;
    NSImage image;
    image.m_size = size;
    image.m_pixels = std::move(pixels);
    return std::make_shared<NSImage>(std::move(image));
}

NSImage::Ref NSImage::imageWithSize(NSSize size, Flipped flipped, Drawing drawingHandler)
{
    if (!drawingHandler || !isSide(size.width) || !isSide(size.height))
        return nullptr;
    NSImage image;
    image.m_size = size;
    image.m_drawing = std::make_shared<const Drawing>(std::move(drawingHandler));
    image.m_flipped = flipped;
    return std::make_shared<NSImage>(std::move(image));
}

NSImage::Ref NSImage::copy() const
{
    return std::make_shared<NSImage>(*this);
}

void NSImage::drawInRect(NSRect rect, NSGraphicsContext& context) const
{
    if (!isSide(rect.size.width) || !isSide(rect.size.height))
        return;
    const GraphicsState state(context);
    // From here on the context's coordinates are the image's own, upright and not flipped.
    context.translate(rect.origin.x, rect.origin.y + (context.isFlipped() ? rect.size.height : 0));
    context.scale(rect.size.width / m_size.width,
                  rect.size.height / m_size.height * (context.isFlipped() ? -1 : 1));
    context.clipToRect({{}, m_size});
    if (!m_drawing)
        return drawPixels(context);
    if (m_flipped == Flipped::Yes) {
        context.translate(0, m_size.height);
        context.scale(1, -1);
    }
    NSGraphicsContext inner(context.target(), context.appearance(), m_flipped);
    (*m_drawing)(inner);
}

void NSImage::drawPixels(NSGraphicsContext& context) const
{
    const auto surface = surfaceWithPixels(m_pixels);
    auto* cairo = context.target().cairo;
    cairo_translate(cairo, 0, m_size.height);
    cairo_scale(cairo, m_size.width / static_cast<double>(m_pixels.wide),
                -m_size.height / static_cast<double>(m_pixels.high));
    cairo_set_source_surface(cairo, surface.get(), 0, 0);
    // Without it, edges of an enlarged image fade into nothing.
    cairo_pattern_set_extend(cairo_get_source(cairo), CAIRO_EXTEND_PAD);
    cairo_paint(cairo);
}

bool NSImage::isEqual(const NSObject& other) const
{
    const auto* image = dynamic_cast<const NSImage*>(&other);
    return image && image->m_size == m_size && image->m_drawing == m_drawing && image->m_pixels == m_pixels;
}

std::size_t NSImage::hash() const
{
    return std::hash<const void*>{}(m_drawing.get()) + m_pixels.wide * 31 + m_pixels.high;
}
