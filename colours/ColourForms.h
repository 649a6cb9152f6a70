#pragma once

#include "platform/foundation/NSAny.h"
#include "platform/text/NSColor.h"

#include <optional>
#include <string>

/// Colours as text, as dictionaries and as decimal numbers.
namespace CVLExtensions {

/// "#rrggbb" of the colour in device RGB, without its alpha; none for a pattern.
[[nodiscard]] std::optional<std::u16string> hexadecimalString(const NSColor& color,
                                                              NSAppearance appearance = NSAppearance::Light);

/// The colour in the form in which the hexadecimal string is all of it: the same red, green and blue, opaque.
/// Null for a pattern.
[[nodiscard]] NSColor::Ref colorSuitableForHexNoAlpha(const NSColor& color,
                                                      NSAppearance appearance = NSAppearance::Light);

/// The four components in device RGB under "red", "green", "blue" and "alpha". Empty for a pattern.
[[nodiscard]] NSAny::Dictionary propertyListRepresentation(const NSColor& color,
                                                           NSAppearance appearance = NSAppearance::Light);

/// The colour of such a dictionary. Values are taken in single precision, so a colour that comes back may
/// differ from the one that was written; what is missing or no number is 0.
[[nodiscard]] NSColor::Ref colorFromPropertyListRepresentation(const NSAny::Dictionary& representation);

/// The component rounded to three decimal places, halves away from zero, as a decimal number in text:
/// "0.123", "1". It passes through six decimal places first. "NaN" for what is no number.
[[nodiscard]] std::string decimalNumberForColorComponent(double component);

} // namespace CVLExtensions
