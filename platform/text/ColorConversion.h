#pragma once

#include "platform/text/NSColorSpace.h"

#include <array>

/// Colours as components of one space turned into those of another. All spaces meet in sRGB, encoded as sRGB
/// and not held to its gamut: what lies outside is below 0 or above 1.
///
/// Device RGB, sRGB and their extended form share their components, as do device grey and grey of generic
/// gamma 2.2, so nothing is computed between them. Greys stay greys, and 0 and 1 stay 0 and 1, exactly.
/// Between sRGB and generic RGB the result is within 0.00003 of what the platform computes, which lets its
/// white become 1, 0.999974, 0.999991. CMYK is taken for the plain complement of RGB.

/// Components without alpha; those behind the space's own count are 0.
using ColorComponents = std::array<double, 4>;

/// The space must be a named one.
[[nodiscard]] std::array<double, 3> extendedSRGBFromComponents(NSColorSpace::Name space,
                                                               const ColorComponents& components);

/// Held to 0 to 1 unless the space is an extended one.
[[nodiscard]] ColorComponents componentsFromExtendedSRGB(NSColorSpace::Name space,
                                                         const std::array<double, 3>& color);
