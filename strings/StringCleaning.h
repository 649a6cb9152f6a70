#pragma once

#include "platform/foundation/NSCharacterSet.h"
#include "platform/foundation/NSStringEncoding.h"

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>

/// Cleans and escapes strings. Each operation gives a new string, costs one pass, and cannot fail.
namespace TSExtensions {

/// Line ends and tabs become spaces, runs of spaces one space, and both ends lose white space and line ends.
[[nodiscard]] std::u16string stringByRemovingNewlinesAndTabs(std::u16string_view text);

/// LF and CR become spaces, and both ends lose spaces and tabs.
[[nodiscard]] std::u16string stringByRemovingNewlines(std::u16string_view text);

/// Doubles every backslash.
[[nodiscard]] std::u16string stringByEscapingBackslashes(std::u16string_view text);

/// A backslash before every single and every double quote; the backslashes that are there stay as they are.
[[nodiscard]] std::u16string stringByEscapingQuotes(std::u16string_view text);

/// Both ends lose white space and line ends.
[[nodiscard]] std::u16string stringByTrimmingWhitespace(std::u16string_view text);

/// The same in place.
void trimWhitespace(std::u16string& text);

/// Without control characters, what Unicode assigns no character to, and surrogates, so that characters
/// written as pairs go. The last surrogate of each block, U+DBFF and U+DFFF, is left out of the set, so that
/// one stays of a pair that holds it.
[[nodiscard]] std::u16string stringByRemovingControlAndIllegalCharacters(std::u16string_view text);

/// Without the members of `set`: the code units that are, and the pairs of units that stand for one.
[[nodiscard]] std::u16string stringByRemovingCharactersInSet(std::u16string_view text,
                                                             const NSCharacterSet& set);

/// CR LF, LF CR and CR become LF.
[[nodiscard]] std::u16string stringByStandardizingNewlines(std::u16string_view text);

/// Without the characters that stand for attachments (U+FFFC).
[[nodiscard]] std::u16string stringWithoutAttachments(std::u16string_view text);

/// As a URL: what may not stand in one is percent-encoded as UTF-8. What is encoded already is kept; a
/// percent sign that encodes nothing becomes %25. Unpaired surrogates are encoded as U+FFFD.
[[nodiscard]] std::u16string percentEncodedURLString(std::u16string_view text);

/// What a C string in the given encoding says; none when its bytes mean nothing in it, the encoding is
/// unknown or there is no string. It ends at its NUL: `length` is not used, as callers pass what they have.
[[nodiscard]] std::optional<std::u16string> stringWithCString(const char* cString, NSStringEncoding encoding,
                                                              std::size_t length);

} // namespace TSExtensions
