#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>

using NSUInteger = std::size_t;
using NSInteger = std::ptrdiff_t;

/// The location of what was looked for and is not there.
inline constexpr NSUInteger NSNotFound = PTRDIFF_MAX;

/// A part of a sequence; in texts both numbers count UTF-16 code units.
struct NSRange {
    NSUInteger location = 0;
    NSUInteger length = 0;

    friend bool operator==(const NSRange&, const NSRange&) = default;
};

[[nodiscard]] constexpr NSRange NSMakeRange(NSUInteger location, NSUInteger length)
{
    return {location, length};
}

/// The first location behind the range.
[[nodiscard]] constexpr NSUInteger NSMaxRange(NSRange range)
{
    return range.location + range.length;
}

[[nodiscard]] constexpr bool NSLocationInRange(NSUInteger location, NSRange range)
{
    return location >= range.location && location - range.location < range.length;
}

/// What both ranges cover; {0, 0} when they share nothing.
[[nodiscard]] NSRange NSIntersectionRange(NSRange one, NSRange other);

/// The smallest range that covers both.
[[nodiscard]] NSRange NSUnionRange(NSRange one, NSRange other);

/// The platform's textual form: "{10, 3}".
[[nodiscard]] std::u16string NSStringFromRange(NSRange range);

/// The range that the text's first two whole numbers make, whatever stands between them. A number that is
/// missing is 0; one too large for the platform is NSNotFound.
[[nodiscard]] NSRange NSRangeFromString(std::u16string_view text);
