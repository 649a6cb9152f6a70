#pragma once

#include "platform/rtf/RTFParameter.h"
#include "platform/text/NSTextBlock.h"

#include <array>
#include <cstddef>
#include <cstdint>
#include <span>
#include <string_view>
#include <vector>

/// A border as RTF has it: a width in twips, a colour by number.
struct RTFBorder {
    bool isDrawn = false;
    std::int32_t width = 0;
    std::int32_t color = 0;
};

/// How a block of a table looks, lengths in twips. Edges are by NSRectEdge.
struct RTFBlockFormat {
    NSTextBlockVerticalAlignment alignment = NSTextBlockVerticalAlignment::Top;
    std::int32_t background = 0;
    std::int32_t width = 0;
    /// What the width is measured in.
    std::int32_t widthUnit = 0;
    std::int32_t height = 0;
    std::int32_t minimumWidth = 0;
    std::array<RTFBorder, 4> borders{};
    std::array<std::int32_t, 4> padding{};
    std::array<std::int32_t, 4> margin{};
};

/// One cell of a row's definition.
struct RTFCellDefinition {
    RTFBlockFormat block;
    std::int32_t columnSpan = 1;
    /// The cell to the left, or above, reaches here.
    bool isFromLeft = false;
    bool isFromAbove = false;
};

/// The definition of a row, from \trowd on.
class RTFRowFormat {
public:
    /// Those that \cellx ended.
    [[nodiscard]] const std::vector<RTFCellDefinition>& cells() const { return m_cells; }

    /// A cell of the definition; a plain one behind the last.
    [[nodiscard]] const RTFCellDefinition& cellAt(std::size_t index) const;

    RTFBlockFormat table;
    bool collapsesBorders = false;
    bool isLast = false;
    /// The cell that is being defined.
    RTFCellDefinition next;
    /// The border that the words about borders mean; null for one that is not kept.
    RTFBorder* border = nullptr;

    RTFRowFormat() = default;
    RTFRowFormat(const RTFRowFormat&) = delete;
    RTFRowFormat& operator=(const RTFRowFormat&) = delete;
    RTFRowFormat(RTFRowFormat&&) = delete;
    RTFRowFormat& operator=(RTFRowFormat&&) = delete;
    ~RTFRowFormat() = default;

    void endCell();

private:
    std::vector<RTFCellDefinition> m_cells;
    /// The cell that those from the left belong to.
    std::size_t m_owner = 0;
};

using RTFRowChange = void (*)(RTFRowFormat& row, RTFParameter parameter);

/// A word that changes the definition of a row.
struct RTFRowWord {
    std::string_view name;
    RTFRowChange change;
};

/// In no order; \trowd, which begins a definition, is not among them.
[[nodiscard]] std::span<const RTFRowWord> rowWords();
