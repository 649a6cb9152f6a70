#pragma once

#include "platform/drawing/PangoHandles.h"

class NSFont;

/// How Pango finds the file that a font is drawn with: the family itself where it is installed, with its
/// weight, slant and width; else one of the same character (fixed pitch, serifs or none) of those installed.
/// The size is in points, whatever the surface.
[[nodiscard]] FontDescription fontDescription(const NSFont& font);

/// A context for text whose measures are the same for every surface: no hinting, no rounding to pixels, one
/// unit a point. For this thread only, and for one line: between lines, fonts that are not needed may go.
[[nodiscard]] TextContext textContext();
