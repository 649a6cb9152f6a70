#pragma once

#include <cstdint>

/// How lines stand between the margins. The numbers are those that archives hold on every machine: 1 is right
/// and 2 is centre.
enum class NSTextAlignment { Left = 0, Right = 1, Center = 2, Justified = 3, Natural = 4 };

/// The alignment of an archive's number; left for what is none.
[[nodiscard]] constexpr NSTextAlignment textAlignmentFromNumber(std::int64_t number)
{
    return number >= 0 && number <= 4 ? static_cast<NSTextAlignment>(number) : NSTextAlignment::Left;
}
