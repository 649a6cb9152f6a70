#pragma once

#include "platform/drawing/DrawingSurface.h"

/// Pixels are stored as cameras see them, with a number from 1 to 8 (EXIF's) that says how they are to be
/// shown.

/// Whether rows are shown as columns.
[[nodiscard]] constexpr bool isTurnedOnSide(int orientation)
{
    return orientation >= 5;
}

/// The pixels as they are to be shown.
[[nodiscard]] BitmapPixels uprightPixels(BitmapPixels stored, int orientation);
