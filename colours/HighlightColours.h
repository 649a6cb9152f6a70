#pragma once

#include "platform/foundation/NSRange.h"
#include "platform/text/NSColor.h"

#include <string>
#include <vector>

/// The five colours that text is highlighted with. Types are 1 yellow, 2 green, 3 blue, 4 pink, 5 purple;
/// they are stored in notes.
namespace CVLExtensions {

[[nodiscard]] NSColor::Ref yellowHighlightColor();
[[nodiscard]] NSColor::Ref greenHighlightColor();
[[nodiscard]] NSColor::Ref blueHighlightColor();
[[nodiscard]] NSColor::Ref pinkHighlightColor();
[[nodiscard]] NSColor::Ref purpleHighlightColor();

/// In the order of the types.
[[nodiscard]] std::vector<NSColor::Ref> allHighlightColors();
/// In the user's language, in the order of the types.
[[nodiscard]] std::vector<std::u16string> allHighlightColorNames();
/// 1, 2, 3, 4, 5.
[[nodiscard]] std::vector<NSInteger> allHighlightColorTypes();

/// Null for what is no type from 1 to 5.
[[nodiscard]] NSColor::Ref colorForHighlightColorType(NSInteger type);

/// The first type whose colour equals this one; 0 when none does.
[[nodiscard]] NSInteger highlightColorType(const NSColor& color);

/// The colour with alpha 0.15, for the ground of highlighted text. `appearance` resolves a dynamic colour.
[[nodiscard]] NSColor::Ref highlightBackgroundColor(const NSColor::Ref& color,
                                                    NSAppearance appearance = NSAppearance::Light);
/// The colour itself, for the highlighted text.
[[nodiscard]] NSColor::Ref highlightForegroundColor(const NSColor::Ref& color);

} // namespace CVLExtensions
