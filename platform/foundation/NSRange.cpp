#include "platform/foundation/NSRange.h"

#include <algorithm>

namespace {

bool isDigit(char16_t unit)
{
    return unit >= u'0' && unit <= u'9';
}

/// Reads the first whole number at or behind `position`, which is moved behind it.
NSUInteger scanNumber(std::u16string_view text, std::size_t& position)
{
    while (position < text.size() && !isDigit(text[position]))
        ++position;
    NSUInteger number = 0;
    for (; position < text.size() && isDigit(text[position]); ++position) {
        const auto digit = static_cast<NSUInteger>(text[position] - u'0');
        number = number > (NSNotFound - digit) / 10 ? NSNotFound : number * 10 + digit;
    }
    return number;
}

void appendNumber(std::u16string& text, NSUInteger number)
{
    for (const char digit : std::to_string(number))
        text.push_back(static_cast<char16_t>(digit));
}

} // namespace

NSRange NSIntersectionRange(NSRange one, NSRange other)
{
    const auto start = std::max(one.location, other.location);
    const auto end = std::min(NSMaxRange(one), NSMaxRange(other));
    return start < end ? NSMakeRange(start, end - start) : NSRange();
}

NSRange NSUnionRange(NSRange one, NSRange other)
{
    const auto start = std::min(one.location, other.location);
    return {start, std::max(NSMaxRange(one), NSMaxRange(other)) - start};
}

std::u16string NSStringFromRange(NSRange range)
{
    std::u16string text = u"{";
    appendNumber(text, range.location);
    text += u", ";
    appendNumber(text, range.length);
    text += u'}';
    return text;
}

NSRange NSRangeFromString(std::u16string_view text)
{
    std::size_t position = 0;
    const auto location = scanNumber(text, position);
    const auto length = scanNumber(text, position);
    return {location, length};
}
