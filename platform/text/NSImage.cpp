#include "platform/text/NSImage.h"

#include <cairo.h>
#include <cmath>
#include <cstring>
#include <numbers>

namespace {

struct SurfaceDeleter {
    void operator()(cairo_surface_t* surface) const { cairo_surface_destroy(surface); }
};

struct ContextDeleter {
    void operator()(cairo_t* context) const { cairo_destroy(context); }
};

using Surface = std::unique_ptr<cairo_surface_t, SurfaceDeleter>;
using Context = std::unique_ptr<cairo_t, ContextDeleter>;

class CairoGraphicsContext final : public NSGraphicsContext {
public:
    CairoGraphicsContext(cairo_t& cairo, NSAppearance appearance)
        : m_cairo(cairo)
        , m_appearance(appearance)
    {
    }

    void fillOvalInRect(NSRect rect, const NSColor& color) override
    {
        if (setColor(color) && addOval(rect))
            cairo_fill(&m_cairo);
    }

    void strokeOvalInRect(NSRect rect, double lineWidth, const NSColor& color) override
    {
        if (!setColor(color) || !addOval(rect))
            return;
        cairo_set_line_width(&m_cairo, lineWidth);
        cairo_stroke(&m_cairo);
    }

private:
    bool setColor(const NSColor& color)
    {
        const auto rgba = color.deviceRGBComponents(m_appearance);
        if (rgba)
            cairo_set_source_rgba(&m_cairo, rgba->red, rgba->green, rgba->blue, rgba->alpha);
        return rgba.has_value();
    }

    bool addOval(NSRect rect)
    {
        if (!(rect.size.width > 0) || !(rect.size.height > 0))
            return false;
        // The circle is scaled, the pen is not: the line is equally wide all around.
        cairo_save(&m_cairo);
        cairo_translate(&m_cairo, rect.origin.x + rect.size.width / 2, rect.origin.y + rect.size.height / 2);
        cairo_scale(&m_cairo, rect.size.width / 2, rect.size.height / 2);
        cairo_new_sub_path(&m_cairo);
        cairo_arc(&m_cairo, 0, 0, 1, 0, 2 * std::numbers::pi);
        cairo_close_path(&m_cairo);
        cairo_restore(&m_cairo);
        return true;
    }

    cairo_t& m_cairo;
    NSAppearance m_appearance;
};

/// The pixels of a side; 0 when it cannot be one.
std::size_t pixelCount(double length, double scale)
{
    const auto pixels = std::ceil(length * scale);
    return pixels >= 1 && pixels <= static_cast<double>(NSImage::kMaximumPixels)
        ? static_cast<std::size_t>(pixels)
        : 0;
}

} // namespace

NSImage::Ref NSImage::imageWithSize(NSSize size, const Drawing& drawing, double scale,
                                    NSAppearance appearance)
{
    NSImage image;
    image.m_size = size;
    image.m_pixelsWide = pixelCount(size.width, scale);
    image.m_pixelsHigh = pixelCount(size.height, scale);
    if (image.m_pixelsWide == 0 || image.m_pixelsHigh == 0)
        return nullptr;

    const Surface surface(cairo_image_surface_create(
        CAIRO_FORMAT_ARGB32, static_cast<int>(image.m_pixelsWide), static_cast<int>(image.m_pixelsHigh)));
    const Context cairo(cairo_create(surface.get()));
    // Cairo's rows go down from the top, the image's coordinates up from the bottom.
    cairo_translate(cairo.get(), 0, static_cast<double>(image.m_pixelsHigh));
    cairo_scale(cairo.get(), scale, -scale);
    CairoGraphicsContext context(*cairo, appearance);
    drawing(context);
    cairo_surface_flush(surface.get());
    if (cairo_status(cairo.get()) != CAIRO_STATUS_SUCCESS)
        return nullptr;

    const auto* rows = cairo_image_surface_get_data(surface.get());
    const auto stride = static_cast<std::size_t>(cairo_image_surface_get_stride(surface.get()));
    const auto rowLength = image.m_pixelsWide * sizeof(std::uint32_t);
    image.m_pixels.resize(image.m_pixelsWide * image.m_pixelsHigh);
    for (std::size_t row = 0; row < image.m_pixelsHigh; ++row)
        std::memcpy(&image.m_pixels[row * image.m_pixelsWide], rows + row * stride, rowLength);
    return std::make_shared<NSImage>(std::move(image));
}

bool NSImage::isEqual(const NSObject& other) const
{
    const auto* image = dynamic_cast<const NSImage*>(&other);
    return image && image->m_size == m_size && image->m_pixelsWide == m_pixelsWide
        && image->m_pixels == m_pixels;
}

std::size_t NSImage::hash() const
{
    return m_pixelsWide * 31 + m_pixelsHigh;
}
