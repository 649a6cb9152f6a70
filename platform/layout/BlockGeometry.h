#pragma once

#include "platform/text/NSTextBlock.h"

/// Widths along the four edges of a block, in points.
struct BlockEdges {
    double left = 0;
    double top = 0;
    double right = 0;
    double bottom = 0;

    [[nodiscard]] double horizontal() const { return left + right; }

    [[nodiscard]] double vertical() const { return top + bottom; }
};

/// A value in points: percentages are of `column`. Never negative.
[[nodiscard]] double pointsOf(NSTextBlock::Value value, double column);

/// What a block has around its content in a column of that width, with all lengths in bounds.
struct BlockGeometry {
    BlockGeometry(const NSTextBlock& block, double columnWidth);

    [[nodiscard]] double horizontal() const
    {
        return margin.horizontal() + border.horizontal() + padding.horizontal();
    }

    [[nodiscard]] double vertical() const
    {
        return margin.vertical() + border.vertical() + padding.vertical();
    }

    /// From the outer corner to the content's.
    [[nodiscard]] double left() const { return margin.left + border.left + padding.left; }

    [[nodiscard]] double top() const { return margin.top + border.top + padding.top; }

    BlockEdges margin;
    BlockEdges border;
    BlockEdges padding;
};

/// The width of a block's content: as the block says, but not more than `available`, which is what it has
/// when it says nothing.
[[nodiscard]] double contentWidth(const NSTextBlock& block, double columnWidth, double available);

/// The height of a block's content, whose text needs that much. Percentages of heights count for nothing.
[[nodiscard]] double contentHeight(const NSTextBlock& block, double needed);
