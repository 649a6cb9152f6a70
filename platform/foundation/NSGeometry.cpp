#include "platform/foundation/NSGeometry.h"

#include "platform/foundation/Unicode.h"

#include <fmt/format.h>

#include <array>
#include <charconv>
#include <cmath>

namespace {

bool canStartNumber(char character)
{
    return (character >= '0' && character <= '9') || character == '-' || character == '.';
}

template <std::size_t Count> std::array<double, Count> numbersIn(std::u16string_view text)
{
    const auto characters = UTF8FromUTF16(text);
    std::array<double, Count> numbers{};
    const char* position = characters.data();
    const char* const end = position + characters.size();
    for (auto number = numbers.begin(); position != end && number != numbers.end();) {
        if (!canStartNumber(*position)) {
            ++position;
            continue;
        }
        const auto [stop, status] = std::from_chars(position, end, *number);
        position = status == std::errc::invalid_argument ? position + 1 : stop;
        if (status == std::errc())
            ++number;
    }
    return numbers;
}

std::u16string pair(double first, double second)
{
    return UTF16FromUTF8(fmt::format("{{{}, {}}}", first, second));
}

} // namespace

NSRect NSIntegralRect(NSRect rect)
{
    if (!(rect.size.width > 0) || !(rect.size.height > 0))
        return {};
    const auto left = std::floor(rect.origin.x);
    const auto bottom = std::floor(rect.origin.y);
    return {{left, bottom},
            {std::ceil(rect.origin.x + rect.size.width) - left,
             std::ceil(rect.origin.y + rect.size.height) - bottom}};
}

std::u16string NSStringFromPoint(NSPoint point)
{
    return pair(point.x, point.y);
}

std::u16string NSStringFromSize(NSSize size)
{
    return pair(size.width, size.height);
}

std::u16string NSStringFromRect(NSRect rect)
{
    return u"{" + NSStringFromPoint(rect.origin) + u", " + NSStringFromSize(rect.size) + u"}";
}

NSPoint NSPointFromString(std::u16string_view text)
{
    const auto [x, y] = numbersIn<2>(text);
    return {x, y};
}

NSSize NSSizeFromString(std::u16string_view text)
{
    const auto [width, height] = numbersIn<2>(text);
    return {width, height};
}

NSRect NSRectFromString(std::u16string_view text)
{
    const auto [x, y, width, height] = numbersIn<4>(text);
    return {{x, y}, {width, height}};
}
