#include "platform/images/ImageLoader.h"

#include <algorithm>
#include <exception>
#include <gdk-pixbuf/gdk-pixbuf.h>
#include <memory>
#include <span>

namespace {

/// Small enough that little is decoded behind what is asked for.
constexpr std::size_t kPortion = 65536;

struct LoaderDeleter {
    void operator()(GdkPixbufLoader* loader) const { g_object_unref(loader); }
};

struct FormatListDeleter {
    void operator()(GSList* list) const { g_slist_free(list); }
};

struct TextListDeleter {
    void operator()(gchar** texts) const { g_strfreev(texts); }
};

/// The library's error; its slot may be used once.
class LoaderError {
public:
    LoaderError() = default;
    LoaderError(const LoaderError&) = delete;
    LoaderError& operator=(const LoaderError&) = delete;

    ~LoaderError() { g_clear_error(&m_error); }

    [[nodiscard]] GError** slot() { return &m_error; }

    [[nodiscard]] std::string message() const { return m_error ? m_error->message : "the data end early"; }

private:
    GError* m_error = nullptr;
};

/// What is asked when the library knows the size.
struct Question {
    const DecodedSize& decodedSize;
    bool isAsked = false;
    bool isRefused = false;
};

void sizePrepared(GdkPixbufLoader* loader, int width, int height, gpointer data)
{
    auto& question = *static_cast<Question*>(data);
    if (question.isAsked)
        return;
    question.isAsked = true;
    std::optional<PixelSize> decoded;
    if (width > 0 && height > 0) {
        try {
            decoded
                = question.decodedSize({static_cast<std::size_t>(width), static_cast<std::size_t>(height)});
        } catch (const std::exception&) {
            decoded.reset(); // As if refused: the library knows no exceptions.
        }
    }
    question.isRefused = !decoded;
    // No size at all makes decoders stop before they take memory.
    gdk_pixbuf_loader_set_size(loader, decoded ? static_cast<int>(decoded->wide) : 0,
                               decoded ? static_cast<int>(decoded->high) : 0);
}

/// Gives the decoder its bytes, until it refuses or the question was answered with no.
bool feed(GdkPixbufLoader& loader, std::string_view bytes, const Question& question, GError** error)
{
    for (std::size_t at = 0; at < bytes.size() && !question.isRefused; at += kPortion) {
        const auto portion = bytes.substr(at, kPortion);
        if (!gdk_pixbuf_loader_write(&loader, reinterpret_cast<const guchar*>(portion.data()), portion.size(),
                                     error))
            return false;
    }
    return true;
}

std::uint32_t premultiplied(std::uint32_t value, std::uint32_t alpha)
{
    constexpr std::uint32_t kOpaque = 255;
    return (value * alpha + kOpaque / 2) / kOpaque;
}

std::uint32_t pixelOf(const guchar* samples, bool hasAlpha)
{
    const std::uint32_t alpha = hasAlpha ? samples[3] : 255;
    return alpha << 24U | premultiplied(samples[0], alpha) << 16U | premultiplied(samples[1], alpha) << 8U
        | premultiplied(samples[2], alpha);
}

BitmapPixels pixelsOf(const GdkPixbuf& image)
{
    BitmapPixels pixels;
    pixels.wide = static_cast<std::size_t>(gdk_pixbuf_get_width(&image));
    pixels.high = static_cast<std::size_t>(gdk_pixbuf_get_height(&image));
    pixels.values.reserve(pixels.wide * pixels.high);
    const auto* samples = gdk_pixbuf_read_pixels(&image);
    const auto stride = static_cast<std::size_t>(gdk_pixbuf_get_rowstride(&image));
    const auto channels = static_cast<std::size_t>(gdk_pixbuf_get_n_channels(&image));
    const bool hasAlpha = gdk_pixbuf_get_has_alpha(&image);
    for (std::size_t y = 0; y < pixels.high; ++y) {
        for (std::size_t x = 0; x < pixels.wide; ++x)
            pixels.values.push_back(pixelOf(samples + y * stride + x * channels, hasAlpha));
    }
    return pixels;
}

} // namespace

std::optional<BitmapPixels> decodeImage(std::string_view bytes, const char* mimeType,
                                        const DecodedSize& decodedSize, std::string& reason)
{
    LoaderError opening;
    const std::unique_ptr<GdkPixbufLoader, LoaderDeleter> loader(
        gdk_pixbuf_loader_new_with_mime_type(mimeType, opening.slot()));
    if (!loader) {
        reason = opening.message();
        return std::nullopt;
    }
    Question question{decodedSize};
    g_signal_connect(loader.get(), "size-prepared", G_CALLBACK(sizePrepared), &question);
    LoaderError feeding;
    LoaderError closing;
    const auto isFed = feed(*loader, bytes, question, feeding.slot());
    const auto isClosed = gdk_pixbuf_loader_close(loader.get(), closing.slot()) != FALSE;
    // Of an image that breaks off, what there is of it is shown.
    const auto* image = gdk_pixbuf_loader_get_pixbuf(loader.get());
    if (!image || !question.isAsked || question.isRefused) {
        reason = isFed && !isClosed ? closing.message() : feeding.message();
        return std::nullopt;
    }
    return pixelsOf(*image);
}

bool hasImageDecoder(std::string_view mimeType)
{
    const std::unique_ptr<GSList, FormatListDeleter> formats(gdk_pixbuf_get_formats());
    for (auto* item = formats.get(); item; item = item->next) {
        const std::unique_ptr<gchar*, TextListDeleter> types(
            gdk_pixbuf_format_get_mime_types(static_cast<GdkPixbufFormat*>(item->data)));
        const std::span all(types.get(), g_strv_length(types.get()));
        if (std::find(all.begin(), all.end(), mimeType) != all.end())
            return true;
    }
    return false;
}
