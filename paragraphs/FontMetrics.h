#pragma once

#include "platform/text/NSFont.h"

namespace CVLExtensions {

/// The height of a line of the font, in whole points.
[[nodiscard]] double lineHeight(const NSFont& font);

/// The same from a font's metrics in points; the descender may have either sign. The sum is rounded up after
/// it was brought to single precision, so that what is a whole number but for a rounding error stays one.
[[nodiscard]] double lineHeightFromMetrics(double ascender, double descender, double leading);

} // namespace CVLExtensions
