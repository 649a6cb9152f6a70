#pragma once

#include <span>
#include <string_view>

/// A kind of image file whose decoder says how large an image is before it takes memory for its pixels. Kinds
/// of which that is not so are left out, however many decoders are installed.
struct ImageFormat {
    /// Of the declared types.
    std::string_view typeIdentifier;
    /// By which the decoder is found.
    const char* mimeType;
    /// What files begin with, '?' for any byte. None for what imageFormatOfBytes finds otherwise.
    std::string_view signature;
    bool isVector = false;
};

/// A row for each signature.
[[nodiscard]] std::span<const ImageFormat> imageFormats();

/// By the first bytes; null for none.
[[nodiscard]] const ImageFormat* imageFormatOfBytes(std::string_view bytes);
