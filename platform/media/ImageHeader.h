#pragma once

#include "platform/foundation/NSGeometry.h"

#include <cstdint>
#include <optional>
#include <string_view>

/// The kinds of pictures that other programs' documents hold.
enum class ImageKind : std::uint8_t { PNG, JPEG, GIF, TIFF, BMP, WebP, SVG };

struct ImageHeader {
    ImageKind kind = ImageKind::PNG;
    /// In pixels; zero where the header does not say, and for SVG, which has none.
    NSSize pixelSize;
};

/// What the first bytes of a picture say of it, whatever the file's name; none for what is no picture of
/// these kinds. No pixel is decoded, and damage costs the size only. Takes time in proportion to the bytes at
/// most.
[[nodiscard]] std::optional<ImageHeader> imageHeader(std::string_view bytes);
