#include "tests/images/ImageBytes.h"

#include <array>
#include <gdk-pixbuf/gdk-pixbuf.h>
#include <memory>
#include <span>
#include <stdexcept>

namespace {

std::string bigEndian(std::uint32_t value)
{
    return {static_cast<char>(value >> 24U), static_cast<char>(value >> 16U), static_cast<char>(value >> 8U),
            static_cast<char>(value)};
}

std::uint32_t checksum(const std::string& bytes)
{
    std::uint32_t sum = 0xFFFFFFFF;
    for (const auto byte : bytes) {
        sum ^= static_cast<unsigned char>(byte);
        for (int bit = 0; bit < 8; ++bit)
            sum = (sum >> 1U) ^ ((sum & 1U) != 0 ? 0xEDB88320U : 0U);
    }
    return ~sum;
}

std::string pngChunk(const std::string& content)
{
    constexpr std::uint32_t kTypeLength = 4;
    return bigEndian(static_cast<std::uint32_t>(content.size()) - kTypeLength) + content
        + bigEndian(checksum(content));
}

} // namespace

std::string twoColouredImage(const char* encoder, int wide, int high)
{
    const std::unique_ptr<GdkPixbuf, void (*)(gpointer)> image(
        gdk_pixbuf_new(GDK_COLORSPACE_RGB, FALSE, 8, wide, high), g_object_unref);
    const std::span samples(gdk_pixbuf_get_pixels(image.get()), gdk_pixbuf_get_byte_length(image.get()));
    const auto stride = static_cast<std::size_t>(gdk_pixbuf_get_rowstride(image.get()));
    for (std::size_t y = 0; y < static_cast<std::size_t>(high); ++y) {
        for (std::size_t x = 0; x < static_cast<std::size_t>(wide); ++x) {
            const auto isUpper = y < static_cast<std::size_t>(high) / 2;
            samples[y * stride + 3 * x] = isUpper ? 255 : 0;
            samples[y * stride + 3 * x + 1] = 0;
            samples[y * stride + 3 * x + 2] = isUpper ? 0 : 255;
        }
    }
    gchar* bytes = nullptr;
    gsize count = 0;
    if (!gdk_pixbuf_save_to_buffer(image.get(), &bytes, &count, encoder, nullptr, nullptr))
        throw std::runtime_error(std::string("no encoder for ") + encoder);
    std::string file(bytes, count);
    g_free(bytes);
    return file;
}

std::string withOrientation(const std::string& jpeg, char orientation)
{
    using namespace std::string_literals;
    // An application segment with a directory of one entry: tag 0x0112, one short number.
    const auto exif
        = "Exif\0\0MM\0*\0\0\0\x08\0\x01\x01\x12\0\x03\0\0\0\x01\0"s + orientation + "\0\0\0\0\0\0"s;
    const auto length = exif.size() + 2;
    return jpeg.substr(0, 2) + "\xff\xe1"s + static_cast<char>(length >> 8U) + static_cast<char>(length)
        + exif + jpeg.substr(2);
}

std::string pngThatClaims(std::uint32_t wide, std::uint32_t high)
{
    using namespace std::string_literals;
    return "\x89PNG\r\n\x1a\n"s + pngChunk("IHDR"s + bigEndian(wide) + bigEndian(high) + "\x08\x02\0\0\0"s)
        + pngChunk("IDAT"s) + pngChunk("IEND"s);
}

std::string animation()
{
    using namespace std::string_literals;
    const auto picture = [](char code) {
        return "!\xf9\x04\x04\x0a\0\0\0,\0\0\0\0\x01\0\x01\0\0\x02\x02"s + code + "\x01\0"s;
    };
    // One by one pixel; a table of red, blue and two more colours. A picture is clear, its colour, end.
    return "GIF89a\x01\0\x01\0\x81\0\0\xff\0\0\0\0\xff\0\0\0\0\0\0"s + picture('\x44') + picture('\x4c')
        + ";"s;
}
