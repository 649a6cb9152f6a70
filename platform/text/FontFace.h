#pragma once

#include "platform/text/NSFontDescriptor.h"

#include <string>

/// The measures of a face, in parts of the point size.
struct FontMetrics {
    double ascender = 0.9;
    /// Negative.
    double descender = -0.25;
    /// What lies between two lines.
    double leading = 0;
    double capHeight = 0.7;
    double xHeight = 0.5;
    /// Negative: below the baseline.
    double underlinePosition = -0.1;
    double underlineThickness = 0.05;
};

/// The steps of weight that faces come in. The font manager's numbers and the descriptors' reals stand for
/// them.
enum class FontWeight { UltraLight, Thin, Light, Regular, Medium, Semibold, Bold, Heavy, Black };

/// From 2 to 12; 5 is regular, 9 bold.
[[nodiscard]] int fontManagerWeight(FontWeight weight);
[[nodiscard]] NSFontWeight descriptorWeight(FontWeight weight);

/// A face of a family, at no size.
struct FontFace {
    std::u16string postScriptName;
    std::u16string familyName;
    /// "Condensed Bold".
    std::u16string faceName;
    FontWeight weight = FontWeight::Regular;
    /// Bits of NSFontSymbolicTraits.
    unsigned traits = 0;
    FontMetrics metrics;
};
