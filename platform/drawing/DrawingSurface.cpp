#include "platform/drawing/DrawingSurface.h"

#include "platform/drawing/CairoTarget.h"

#include <fmt/format.h>

#include <cairo-pdf.h>
#include <cairo-svg.h>
#include <cmath>
#include <cstring>

namespace {

void tell(NSError* error, DrawingError code, const std::string& description)
{
    setError(error,
             NSError(DrawingErrorDomain, static_cast<int>(code),
                     {{std::string(NSLocalizedDescriptionKey), description}}));
}

bool isDone(cairo_status_t status, NSError* error)
{
    if (status == CAIRO_STATUS_SUCCESS)
        return true;
    const auto code = status == CAIRO_STATUS_NO_MEMORY ? DrawingError::MemoryShort : DrawingError::Failed;
    tell(error, code, fmt::format("The drawing could not be made: {}.", cairo_status_to_string(status)));
    return false;
}

/// The pixels of a side; 0 when it cannot be one.
std::size_t pixelCount(double length, double scale)
{
    const auto pixels = std::ceil(length * scale);
    return pixels >= 1 && pixels <= static_cast<double>(DrawingSurface::kMaximumSide) && scale > 0
        ? static_cast<std::size_t>(pixels)
        : 0;
}

bool isWithin(NSSize size, double maximumSide)
{
    return size.width > 0 && size.width <= maximumSide && size.height > 0 && size.height <= maximumSide;
}

void tellRefusal(NSError* error, NSSize size, double scale = 1)
{
    tell(error, DrawingError::SizeRefused,
         fmt::format("Nothing can be {} x {} points large at {} pixels to a point.", size.width, size.height,
                     scale));
}

/// Calls the drawing with the origin where it expects it.
void draw(cairo_t* cairo, const DrawingSurface& surface, const NSDrawing& drawing)
{
    cairo_save(cairo);
    if (surface.flipped == Flipped::No) {
        cairo_translate(cairo, 0, surface.size.height);
        cairo_scale(cairo, 1, -1);
    }
    {
        CairoTarget target{cairo};
        NSGraphicsContext context(target, surface.appearance, surface.flipped);
        drawing(context);
    }
    cairo_restore(cairo);
}

/// A finished image surface; null with the reason in `error`.
CairoSurface bitmap(const DrawingSurface& description, const NSDrawing& drawing, double scale, NSError* error)
{
    const auto wide = pixelCount(description.size.width, scale);
    const auto high = pixelCount(description.size.height, scale);
    if (wide == 0 || high == 0 || wide * high > DrawingSurface::kMaximumPixels) {
        tellRefusal(error, description.size, scale);
        return nullptr;
    }
    CairoSurface surface(
        cairo_image_surface_create(CAIRO_FORMAT_ARGB32, static_cast<int>(wide), static_cast<int>(high)));
    const CairoContext cairo(cairo_create(surface.get()));
    // What a side has beyond a whole number of pixels is free at the top when the origin is below.
    if (description.flipped == Flipped::No)
        cairo_translate(cairo.get(), 0, static_cast<double>(high) - description.size.height * scale);
    cairo_scale(cairo.get(), scale, scale);
    draw(cairo.get(), description, drawing);
    cairo_surface_flush(surface.get());
    return isDone(cairo_status(cairo.get()), error) ? std::move(surface) : nullptr;
}

cairo_status_t append(void* closure, const unsigned char* bytes, unsigned int length)
{
    try {
        static_cast<std::string*>(closure)->append(reinterpret_cast<const char*>(bytes), length);
        return CAIRO_STATUS_SUCCESS;
    } catch (const std::exception&) {
        return CAIRO_STATUS_NO_MEMORY;
    }
}

using CreateSurface = cairo_surface_t*(cairo_write_func_t, void*, double, double);

/// A file of pages, in the format of `create`.
std::optional<NSData> document(CreateSurface* create, const DrawingSurface& description,
                               const std::vector<NSDrawing>& pages, NSError* error)
{
    NSData data;
    const CairoSurface surface(create(append, &data.bytes, description.size.width, description.size.height));
    const CairoContext cairo(cairo_create(surface.get()));
    for (const auto& drawing : pages) {
        draw(cairo.get(), description, drawing);
        cairo_show_page(cairo.get());
    }
    if (!isDone(cairo_status(cairo.get()), error))
        return std::nullopt;
    cairo_surface_finish(surface.get());
    if (!isDone(cairo_surface_status(surface.get()), error))
        return std::nullopt;
    return data;
}

} // namespace

std::optional<BitmapPixels> DrawingSurface::pixels(const NSDrawing& drawing, double scale,
                                                   NSError* error) const
{
    const auto surface = bitmap(*this, drawing, scale, error);
    if (!surface)
        return std::nullopt;
    BitmapPixels pixels;
    pixels.wide = static_cast<std::size_t>(cairo_image_surface_get_width(surface.get()));
    pixels.high = static_cast<std::size_t>(cairo_image_surface_get_height(surface.get()));
    pixels.values.resize(pixels.wide * pixels.high);
    const auto* rows = cairo_image_surface_get_data(surface.get());
    const auto stride = static_cast<std::size_t>(cairo_image_surface_get_stride(surface.get()));
    for (std::size_t row = 0; row < pixels.high; ++row)
        std::memcpy(&pixels.values[row * pixels.wide], rows + row * stride,
                    pixels.wide * sizeof(std::uint32_t));
    return pixels;
}

std::optional<NSData> DrawingSurface::PNGRepresentation(const NSDrawing& drawing, double scale,
                                                        NSError* error) const
{
    const auto surface = bitmap(*this, drawing, scale, error);
    NSData data;
    if (!surface || !isDone(cairo_surface_write_to_png_stream(surface.get(), append, &data.bytes), error))
        return std::nullopt;
    return data;
}

std::optional<NSData> DrawingSurface::PDFRepresentation(const NSDrawing& drawing, NSError* error) const
{
    return PDFRepresentation(std::vector{drawing}, error);
}

std::optional<NSData> DrawingSurface::PDFRepresentation(const std::vector<NSDrawing>& pages,
                                                        NSError* error) const
{
    if (isWithin(size, kMaximumPageSide) && !pages.empty())
        return document(cairo_pdf_surface_create_for_stream, *this, pages, error);
    tellRefusal(error, size);
    return std::nullopt;
}

std::optional<NSData> DrawingSurface::SVGRepresentation(const NSDrawing& drawing, NSError* error) const
{
    if (isWithin(size, kMaximumVectorSide))
        return document(cairo_svg_surface_create_for_stream, *this, {drawing}, error);
    tellRefusal(error, size);
    return std::nullopt;
}
