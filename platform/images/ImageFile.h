#pragma once

#include "platform/drawing/NSImage.h"
#include "platform/foundation/NSError.h"

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

/// Images as files have them, made into pixels. Their bytes may be anything: nothing is decoded before the
/// image's own measures are known to be within ContentLimits, and what cannot be decoded gives none, with a
/// reason. An animation gives its first picture. From any thread.

inline constexpr std::string_view ImageErrorDomain = "ImageErrorDomain";

enum class ImageError : int {
    /// No image, or of a kind for which no decoder is installed.
    UnknownFormat = 1,
    /// More bytes or more pixels than ContentLimits allow.
    TooLarge = 2,
    Broken = 3,
};

/// How large the image is when it stands upright, in points: one for each pixel, whatever resolution the file
/// claims. No pixel is decoded for it.
/// @return none with an ImageError of ImageErrorDomain.
[[nodiscard]] std::optional<NSSize> sizeOfImage(std::string_view bytes, NSError* error = nullptr);

/// The image, upright, as large in points as sizeOfImage says. When it has more pixels than fill
/// `largestShown`, in proportion, it is decoded with that many only; a side of 0 stands for any length.
/// @return null with an ImageError of ImageErrorDomain.
[[nodiscard]] NSImage::Ref imageWithData(std::string_view bytes, NSSize largestShown = {},
                                         NSError* error = nullptr);

/// The types of images that can be decoded here, by which decoders are installed.
[[nodiscard]] std::vector<std::string> readableImageTypeIdentifiers();
