#pragma once

#include <cstddef>
#include <span>
#include <string_view>

/// The letters beyond ASCII that one language writes.
struct LanguageLetters {
    /// ISO 639 code.
    std::string_view language;
    /// The letters, in lower case, most frequent first. Of languages with thousands of them the most frequent
    /// ones.
    std::u16string_view letters;
    /// The share of the listed letters among all letters beyond ASCII in ordinary text.
    double coverage;
    /// How many further letters of the same script may stand in such a text.
    std::size_t furtherLetterCount;
};

/// The languages whose texts are found in encodings older than Unicode.
[[nodiscard]] std::span<const LanguageLetters> knownLanguageLetters();
