#include "platform/word/WordDirections.h"

#include "platform/foundation/Unicode.h"

#include <unicode/uchar.h>

#include <algorithm>

namespace {

enum class Direction { None, LeftToRight, RightToLeft };

/// The first letter from right to left is beyond all that most texts have.
constexpr char16_t kFirstRightToLeft = 0x0590;

Direction directionOf(char32_t character)
{
    switch (u_charDirection(static_cast<UChar32>(character))) {
    case U_LEFT_TO_RIGHT:
        return Direction::LeftToRight;
    case U_RIGHT_TO_LEFT:
    case U_RIGHT_TO_LEFT_ARABIC:
        return Direction::RightToLeft;
    default:
        return Direction::None;
    }
}

} // namespace

WordDirectionPiece wordDirectionPiece(std::u16string_view text)
{
    const bool isPlain
        = std::all_of(text.begin(), text.end(), [](char16_t unit) { return unit < kFirstRightToLeft; });
    if (isPlain)
        return {text.size(), false};
    auto direction = Direction::None;
    for (std::size_t offset = 0; offset < text.size();) {
        const auto start = offset;
        const auto own = directionOf(nextCodePoint(text, offset));
        if (own == Direction::None || own == direction)
            continue;
        if (direction != Direction::None)
            return {start, direction == Direction::RightToLeft};
        direction = own;
    }
    return {text.size(), direction == Direction::RightToLeft};
}

bool beginsRightToLeft(std::u16string_view text)
{
    for (std::size_t offset = 0; offset < text.size();) {
        const auto direction = directionOf(nextCodePoint(text, offset));
        if (direction != Direction::None)
            return direction == Direction::RightToLeft;
    }
    return false;
}
