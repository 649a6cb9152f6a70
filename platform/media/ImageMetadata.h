#pragma once

#include <string>
#include <string_view>
#include <vector>

/// A text that describes an image.
struct ImageDescription {
    /// "title", "author", "subject", "keywords" or "description".
    std::string_view fieldName;
    /// UTF-8, trimmed, not empty.
    std::string text;
};

/// The texts in an image's EXIF, IPTC and XMP metadata and its comment. `bytes` is the image or the start of
/// it; what is broken or not known gives what can be read of it, possibly nothing. No pixel is decoded. From
/// any thread.
[[nodiscard]] std::vector<ImageDescription> descriptionsInImageMetadata(std::string_view bytes);

/// How the pixels of an image lie, as its EXIF metadata have it: 1 as they are to be shown, 2 to 8 turned or
/// mirrored. 1 for an image that says nothing, or something else.
[[nodiscard]] int orientationInImageMetadata(std::string_view bytes);
