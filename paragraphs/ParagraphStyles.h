#pragma once

#include "platform/foundation/NSRange.h"
#include "platform/text/NSParagraphStyle.h"

#include <array>
#include <string>

/// The geometry of list paragraphs, and the spacing of lines.
namespace CVLExtensions {

/// The multiples of the line height that users choose from.
[[nodiscard]] constexpr std::array<double, 12> userInterfaceLineHeightMultiples()
{
    return {0.5, 0.6, 0.7, 0.8, 0.9, 1.0, 1.1, 1.2, 1.3, 1.4, 1.5, 2.0};
}

/// The default paragraph style with the indents and tab stops of a list: markers at 11 points, text at 36.
[[nodiscard]] NSMutableParagraphStyle listParagraphStyle();

/// The marker between two tabs: a bullet for style 1, a hyphen for 2, "3." for 3; empty for any other style.
[[nodiscard]] std::u16string listMarkerForListStyle(NSInteger listStyle, NSInteger itemNumber);

/// Whether the paragraph is set like one of a list: it has the geometry of listParagraphStyle, or any hanging
/// indent of exactly 36 points. The second takes nested lists in, whatever their depth.
[[nodiscard]] bool isListParagraphStyle(const NSParagraphStyle& style);

/// Whether all six values of line spacing are the same, to within the machine epsilon: line height multiple,
/// line spacing, paragraph spacing behind and before, minimum and maximum line height.
[[nodiscard]] bool lineSpacingMatchesStyle(const NSParagraphStyle& style, const NSParagraphStyle& other);

/// Whether two styles are the same to the user: alignment and line spacing. Tabs, indents and lists do not
/// count.
[[nodiscard]] bool isEqualToParagraphStyle(const NSParagraphStyle& style, const NSParagraphStyle& other);

/// The style with its line and paragraph spacings and line heights multiplied. The line height multiple is
/// relative to the font already and stays.
[[nodiscard]] NSMutableParagraphStyle scaledParagraphStyle(const NSParagraphStyle& style, double factor);

/// Takes the six values of line spacing over.
void applyLineSpacingFromStyle(NSMutableParagraphStyle& style, const NSParagraphStyle& other);

} // namespace CVLExtensions
