#pragma once

#include "platform/text/NSColor.h"

/// The comparison of colours that holds everywhere in this system, and what is asked with it.
namespace CVLExtensions {

/// Whether two colours are the same name of a catalog, or have the same components in device RGB to within
/// the machine epsilon. False when one of the two has no components there, as a pattern.
[[nodiscard]] bool isEqualToColorCVLVersion(const NSColor& color, const NSColor& other,
                                            NSAppearance appearance = NSAppearance::Light);
/// The same test under its first name.
[[nodiscard]] bool isEqualToColorTesselVersion(const NSColor& color, const NSColor& other,
                                               NSAppearance appearance = NSAppearance::Light);

/// White and black of the system's lists of colours; the plain ones when a list lacks them.
[[nodiscard]] NSColor::Ref appleWhiteColor();
[[nodiscard]] NSColor::Ref appleBlackColor();
[[nodiscard]] NSColor::Ref crayonsWhiteColor();
[[nodiscard]] NSColor::Ref crayonsBlackColor();

/// Whether the colour equals plain white, or one of the lists' whites; black likewise.
[[nodiscard]] bool isWhiteColor(const NSColor& color);
[[nodiscard]] bool isBlackColor(const NSColor& color);

/// Whether light text is wanted on it: below 0.65 in brightness, and more than half opaque. False for a
/// pattern.
[[nodiscard]] bool isDarkColorCorvel(const NSColor& color, NSAppearance appearance = NSAppearance::Light);

} // namespace CVLExtensions
