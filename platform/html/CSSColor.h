#pragma once

#include "platform/text/NSColor.h"

#include <optional>
#include <string>
#include <string_view>

/// The colour as a style sheet has it: "#rrggbb", or "rgba(255,0,0,0.5)" when it is not opaque.
[[nodiscard]] std::string cssColor(const NSColorRGBA& color);

/// A colour of a style sheet or of an attribute such as `bgcolor`: a name, three to eight hexadecimal digits
/// behind a number sign, rgb(), rgba(), hsl() or hsla(), and "transparent". None for everything else.
[[nodiscard]] std::optional<NSColorRGBA> colorFromCSS(std::string_view text);

/// The same as a colour in sRGB; null for none.
[[nodiscard]] NSColor::Ref nsColorFromCSS(std::string_view text);

/// The first of the text's words that is a colour; null when none is.
[[nodiscard]] NSColor::Ref firstColorInCSS(std::string_view text);

/// The colour that CSS names so, 0xRRGGBB; the name is in lower case.
[[nodiscard]] std::optional<unsigned> namedCSSColor(std::string_view name);
