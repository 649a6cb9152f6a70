#pragma once

#include <cstdint>
#include <optional>
#include <vector>

enum class RTFTabKind : std::uint8_t { Left, Right, Center, Decimal };

struct RTFTab {
    RTFTabKind kind = RTFTabKind::Left;
    std::int32_t location = 0;

    friend bool operator==(const RTFTab&, const RTFTab&) = default;
};

enum class RTFAlignment : std::uint8_t {
    /// Nothing said: left, or natural in a paragraph of natural direction.
    None,
    Left,
    Right,
    Center,
    Justified,
    Natural
};

enum class RTFDirection : std::uint8_t { LeftToRight, RightToLeft, Natural };

/// How a paragraph is set, in RTF's own numbers, lengths in twips: what the writer's words set and the
/// reader's words change. The values here are those behind \pard.
struct RTFParagraphFormat {
    std::vector<RTFTab> tabs;
    /// While a document is read: of the tab to come.
    RTFTabKind nextTabKind = RTFTabKind::Left;
    /// The document's, when none.
    std::optional<std::int32_t> defaultTab;
    std::int32_t headIndent = 0;
    /// Of the first line, from the head indent.
    std::int32_t firstIndent = 0;
    /// From the right margin to the left.
    std::int32_t rightIndent = 0;
    /// A minimum; negative: a fixed height; of a multiple: in parts of 240.
    std::int32_t lineHeight = 0;
    bool isLineHeightMultiple = false;
    std::int32_t minimumLineHeight = 0;
    std::int32_t maximumLineHeight = 0;
    std::int32_t lineSpacing = 0;
    std::int32_t spaceBefore = 0;
    std::int32_t spaceAfter = 0;
    /// Percent.
    std::int32_t hyphenation = 0;
    RTFDirection direction = RTFDirection::LeftToRight;
    RTFAlignment alignment = RTFAlignment::None;
    /// From 0; none is text.
    std::optional<std::int32_t> outlineLevel;
    /// The number of a list, 0 for none, and the level in it.
    std::int32_t list = 0;
    std::int32_t listLevel = 0;
    bool isInTable = false;
    /// Of tables in tables, from 1; 0 when nothing was said.
    std::int32_t tableDepth = 0;

    friend bool operator==(const RTFParagraphFormat&, const RTFParagraphFormat&) = default;
};

/// Line heights that are multiples are written times this.
inline constexpr double kLineHeightUnits = 240;
/// Hyphenation factors are written times this.
inline constexpr double kHyphenationUnits = 100;
