#pragma once

#include "platform/foundation/NSStringComparison.h"

#include <string>
#include <string_view>
#include <vector>

/// Takes out of texts what a comparison ignores, one character after the other. A character is a code point
/// with the marks that combine with it; for literal comparisons, the code point alone.
class StringFolder {
public:
    /// The locale's identifier decides on the case of Turkic letters only.
    explicit StringFolder(NSStringCompareOptions options, std::string_view localeIdentifier = {});

    /// Folds the character at `position`, which must be below the length, onto the end of `folded`, and moves
    /// `position` behind it. May append nothing: a mark by itself, where marks do not count.
    void foldNext(std::u16string_view text, std::size_t& position, std::u16string& folded) const;

    [[nodiscard]] std::u16string folded(std::u16string_view text) const;

private:
    [[nodiscard]] bool has(NSStringCompareOptions option) const { return (m_options & option) != 0; }

    [[nodiscard]] std::size_t endOfCharacter(std::u16string_view text, std::size_t position) const;
    void foldCharacter(std::u16string_view character, std::u16string& folded) const;

    NSStringCompareOptions m_options;
    bool m_isTurkic;
};

/// A folded text that knows where its units come from.
class FoldedText {
public:
    FoldedText(std::u16string_view text, const StringFolder& folder);

    [[nodiscard]] std::u16string_view units() const { return m_units; }

    /// Whether folded position `position`, up to and including the length, lies between two characters.
    [[nodiscard]] bool isCharacterBorder(std::size_t position) const;
    /// The place in the source of folded units from `start` to `end`.
    [[nodiscard]] NSRange sourceRange(std::size_t start, std::size_t end) const;
    /// The first folded position that comes from source location `location` or behind it.
    [[nodiscard]] std::size_t positionOf(NSUInteger location) const;

private:
    std::u16string m_units;
    /// For each folded unit where its character begins in the source, and the source's length last.
    std::vector<NSUInteger> m_starts;
};
