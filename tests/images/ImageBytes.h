#pragma once

#include <cstddef>
#include <cstdint>
#include <string>

/// Image files made by hand or by the library's encoders.

/// The upper half red, the lower half blue.
[[nodiscard]] std::string twoColouredImage(const char* encoder, int wide, int high);

/// A JPEG image, as it was, with EXIF metadata that give it this orientation.
[[nodiscard]] std::string withOrientation(const std::string& jpeg, char orientation);

/// A PNG file whose header claims that size, with no pixels behind.
[[nodiscard]] std::string pngThatClaims(std::uint32_t wide, std::uint32_t high);

/// A GIF of two pictures, a red and a blue pixel.
[[nodiscard]] std::string animation();
