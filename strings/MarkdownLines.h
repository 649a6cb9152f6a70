#pragma once

#include "platform/foundation/NSRange.h"

#include <string>
#include <string_view>

/// What one line, or one piece of a line, of Markdown is. Out-parameters may be absent; they are set only
/// when the answer is yes.
namespace CVLMarkdown {

enum class ListType : int {
    None = 0,
    Ordered = 1,
    Unordered = 2,
};

/// Whether the line is a list item. The bullet is what stands before the item's text, quote marks (">") and
/// indentation included: "  > - " or "12. ". `listNumber` is set for ordered items only; a number too large
/// for the platform is its largest.
///
/// An item's number may have words behind it: "2 pears. Ripe" has the bullet "2 pears. ". And what comes
/// before
/// ". " only has to be less than the line, so that quote marks or indentation make an item of a line without
/// ". " too; its bullet is the whole line with ". " behind it.
[[nodiscard]] ListType getListTypeAndCurrentBullet(std::u16string_view line, std::u16string* bullet = nullptr,
                                                   NSInteger* listNumber = nullptr);

/// Whether the text begins and ends with "**", the marker then, or else with "__". The two may be one: "**"
/// is strong.
[[nodiscard]] bool isStrong(std::u16string_view text, std::u16string* marker = nullptr);

/// Whether the text begins and ends with "*", the marker then, or else with "_". Of a strong text that is
/// asked of what stands between its markers, so that "**a**" is only strong and "***a***" both.
[[nodiscard]] bool isEmphasized(std::u16string_view text, std::u16string* marker = nullptr);

/// Whether the text begins and ends with "~".
[[nodiscard]] bool isStruckthrough(std::u16string_view text);

/// Whether the text begins with "<mark>" and ends with "</mark>".
[[nodiscard]] bool isHighlighted(std::u16string_view text);

/// The number of "#" at the line's start, its last character not counted: "#" is no heading yet, and "###" is
/// of level 2.
[[nodiscard]] NSUInteger headingLevel(std::u16string_view line);

} // namespace CVLMarkdown
