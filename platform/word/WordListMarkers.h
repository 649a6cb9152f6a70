#pragma once

#include "platform/word/WordNumbering.h"

#include <array>
#include <string>

/// How the markers of a level's items look.
struct WordMarker {
    /// What the item begins with.
    std::u16string text;
    /// The same with the level's own number as a token, as NSTextList has it.
    std::u16string format;
};

/// The marker of an item of a level; both texts are empty for a level without markers. `numbers` are those of
/// all levels, `levels` how they count.
[[nodiscard]] WordMarker wordMarker(std::size_t level,
                                    const std::array<NSInteger, kWordListLevelCount>& numbers,
                                    const std::array<const WordListLevel*, kWordListLevelCount>& levels);

/// A number as a level counts; empty for a level without numbers.
[[nodiscard]] std::u16string wordNumeral(NSInteger number, WordNumberFormat format);
