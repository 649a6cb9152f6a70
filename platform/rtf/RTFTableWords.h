#pragma once

#include "platform/text/NSTextBlock.h"

#include <array>
#include <cstdint>

/// Words of tables end in a letter for the edge that they are about.
struct RTFTableEdge {
    char letter;
    NSRectEdge edge;
};

/// In the platform's order.
inline constexpr std::array kTableEdges{
    RTFTableEdge{'t', NSRectEdge::MinY}, RTFTableEdge{'l', NSRectEdge::MinX},
    RTFTableEdge{'b', NSRectEdge::MaxY}, RTFTableEdge{'r', NSRectEdge::MaxX}};

/// What a width is measured in: fiftieths of a percent, or twips.
inline constexpr std::int32_t kPartWidth = 2;
inline constexpr std::int32_t kTwipsWidth = 3;
inline constexpr double kWidthUnitsOfPercent = 50;

/// The bit of \taflags for borders that neighbours share.
inline constexpr std::int32_t kCollapsedBorders = 1;
