#pragma once

#include "platform/drawing/DrawingSurface.h"

#include <cstddef>
#include <functional>
#include <optional>
#include <string>
#include <string_view>

/// How many pixels an image has; both sides are above 0.
struct PixelSize {
    std::size_t wide = 0;
    std::size_t high = 0;

    friend bool operator==(const PixelSize&, const PixelSize&) = default;
};

/// Given an image's own size before anything is decoded; says with how many pixels it is to be. None ends it.
using DecodedSize = std::function<std::optional<PixelSize>(PixelSize size)>;

/// The library's decoder for files of a MIME type. The pixels of the first picture, as they lie in the file;
/// none with the library's reason when the decoder is missing or refuses, or `decodedSize` ended it.
[[nodiscard]] std::optional<BitmapPixels> decodeImage(std::string_view bytes, const char* mimeType,
                                                      const DecodedSize& decodedSize, std::string& reason);

/// Whether there is such a decoder.
[[nodiscard]] bool hasImageDecoder(std::string_view mimeType);
