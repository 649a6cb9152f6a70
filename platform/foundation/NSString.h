#pragma once

#include "platform/foundation/NSCharacterSet.h"
#include "platform/foundation/NSRange.h"

#include <functional>
#include <string>
#include <string_view>
#include <vector>

/// The platform's operations on strings that have no header of their own; comparison is in
/// NSStringComparison.h, searching in NSStringSearch.h, paths are in NSStringPaths.h. A string is UTF-16, and
/// every length and range counts code units. Each operation costs one pass over what it looks at.

/// Whether the text begins, or ends, with these characters. As in searches, canonically equivalent texts are
/// the same, and a letter without its marks is not the letter: "e" does not begin "e" with an accent. False
/// for the empty text, as the platform has it. Costs what the prefix costs, however long the text is.
[[nodiscard]] bool hasPrefix(std::u16string_view text, std::u16string_view prefix);
[[nodiscard]] bool hasSuffix(std::u16string_view text, std::u16string_view suffix);

/// The pieces between the separators, which are looked for unit by unit; always one more than there are
/// separators. An empty separator separates nothing.
[[nodiscard]] std::vector<std::u16string> componentsSeparatedByString(std::u16string_view text,
                                                                      std::u16string_view separator);
[[nodiscard]] std::vector<std::u16string>
componentsSeparatedByCharactersInSet(std::u16string_view text, const NSCharacterSet& separators);
[[nodiscard]] std::u16string componentsJoinedByString(const std::vector<std::u16string>& components,
                                                      std::u16string_view separator);

/// Every occurrence of `target`, unit by unit and front to back, replaced. What a replacement makes is not
/// looked at again.
[[nodiscard]] std::u16string stringByReplacingOccurrencesOfString(std::u16string_view text,
                                                                  std::u16string_view target,
                                                                  std::u16string_view replacement);

/// The first letter of each word in its title form and the others small, by the rules of the user's
/// language.
[[nodiscard]] std::u16string localizedCapitalizedString(std::u16string_view text);
/// The same by the rules of a given locale.
[[nodiscard]] std::u16string capitalizedStringWithLocale(std::u16string_view text,
                                                         const std::string& localeIdentifier);

/// A line: where it starts, where its characters end and where the next line starts.
struct NSLineBounds {
    NSUInteger start = 0;
    NSUInteger contentsEnd = 0;
    NSUInteger end = 0;

    friend bool operator==(const NSLineBounds&, const NSLineBounds&) = default;
};

/// The lines that `range` touches, taken as one. Lines end with CR LF, with LF, CR, VT, FF, U+0085, U+2028 or
/// U+2029. A range past the end is cut off.
[[nodiscard]] NSLineBounds getLineStart(std::u16string_view text, NSRange range);

/// Calls `visit` for each line with its characters, the line's end left out. A text that ends with a line end
/// has no empty line behind it. Stops when `visit` gives false.
void enumerateLines(std::u16string_view text, const std::function<bool(std::u16string_view line)>& visit);
