#include "platform/images/ImageFormats.h"

#include <algorithm>
#include <array>

namespace {

using namespace std::string_view_literals;

/// How far into a file its first element may begin.
constexpr std::size_t kLongestProlog = 4096;

constexpr auto kFormats = std::to_array<ImageFormat>({
    {"public.png", "image/png", "\x89PNG\r\n\x1a\n"sv},
    {"public.jpeg", "image/jpeg", "\xff\xd8\xff"sv},
    {"com.compuserve.gif", "image/gif", "GIF87a"sv},
    {"com.compuserve.gif", "image/gif", "GIF89a"sv},
    {"public.tiff", "image/tiff", "II*\0"sv},
    {"public.tiff", "image/tiff", "MM\0*"sv},
    {"com.microsoft.bmp", "image/bmp", "BM????\0\0\0\0"sv},
    {"com.microsoft.ico", "image/x-icon", "\0\0\1\0"sv},
    {"org.webmproject.webp", "image/webp", "RIFF????WEBP"sv},
    {"public.avif", "image/avif", "????ftypavif"sv},
    {"public.heic", "image/heic", "????ftyphei"sv},
    {"public.heic", "image/heic", "????ftypmif1"sv},
    {"public.svg-image", "image/svg+xml", {}, true},
});

bool beginsWith(std::string_view bytes, std::string_view signature)
{
    return bytes.size() >= signature.size()
        && std::equal(signature.begin(), signature.end(), bytes.begin(),
                      [](char wanted, char byte) { return wanted == '?' || wanted == byte; });
}

bool isSVG(std::string_view bytes)
{
    constexpr std::string_view kByteOrderMark = "\xEF\xBB\xBF";
    if (bytes.starts_with(kByteOrderMark))
        bytes.remove_prefix(kByteOrderMark.size());
    const auto start = bytes.find_first_not_of(" \t\r\n");
    return start != std::string_view::npos && bytes[start] == '<'
        && bytes.substr(0, kLongestProlog).find("<svg") != std::string_view::npos;
}

} // namespace

std::span<const ImageFormat> imageFormats()
{
    return kFormats;
}

const ImageFormat* imageFormatOfBytes(std::string_view bytes)
{
    const auto* found = std::find_if(kFormats.begin(), kFormats.end(), [bytes](const ImageFormat& format) {
        return format.signature.empty() ? isSVG(bytes) : beginsWith(bytes, format.signature);
    });
    return found == kFormats.end() ? nullptr : found;
}
