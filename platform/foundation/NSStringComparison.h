#pragma once

#include "platform/foundation/NSRange.h"

#include <string>
#include <string_view>

/// How texts are compared and searched: a sum of the constants below, with the platform's numbers.
using NSStringCompareOptions = NSUInteger;

inline constexpr NSStringCompareOptions NSCaseInsensitiveSearch = 1;
/// Code unit by code unit. Without it, texts that Unicode holds canonically equivalent are the same ("é" in
/// one character or in two), and a match never begins or ends between a letter and its marks.
inline constexpr NSStringCompareOptions NSLiteralSearch = 2;
/// The last match instead of the first; for searches only.
inline constexpr NSStringCompareOptions NSBackwardsSearch = 4;
/// "é" is "e", and Arabic and Hebrew points do not count. Marks that make another letter or syllable do:
/// Indic vowels and viramas, the voicing marks of kana.
inline constexpr NSStringCompareOptions NSDiacriticInsensitiveSearch = 128;
/// Full-width Latin is Latin, half-width kana is kana.
inline constexpr NSStringCompareOptions NSWidthInsensitiveSearch = 256;

enum class NSComparisonResult : int {
    NSOrderedAscending = -1,
    NSOrderedSame = 0,
    NSOrderedDescending = 1,
};

/// Orders two texts by their code units once everything that `options` ignores is taken out. The locale's
/// identifier matters only to the case of Turkic letters. Costs a pass over both texts.
[[nodiscard]] NSComparisonResult compare(std::u16string_view one, std::u16string_view other,
                                         NSStringCompareOptions options = 0,
                                         std::string_view localeIdentifier = {});

/// Orders two texts as a file manager lists names, in the user's locale: by letters first, then by accents,
/// then by case, and numbers by their value ("Note 2" before "Note 10"). NSOrderedSame for texts that a
/// reader of that language cannot tell apart. Safe on any thread.
[[nodiscard]] NSComparisonResult localizedStandardCompare(std::u16string_view one, std::u16string_view other);

/// The same by the rules of a given locale; the empty identifier stands for those of no language.
[[nodiscard]] NSComparisonResult localizedStandardCompare(std::u16string_view one, std::u16string_view other,
                                                          const std::string& localeIdentifier);
