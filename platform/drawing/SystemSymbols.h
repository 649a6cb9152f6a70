#pragma once

#include "platform/drawing/NSBezierPath.h"

#include <cstddef>
#include <string_view>
#include <vector>

/// The side of a symbol's image, in points.
inline constexpr double kSystemSymbolSide = 18;

/// One shape of a symbol, in a square with sides of kSystemSymbolSide and the origin at its lower left.
struct SymbolPart {
    enum class Ink { Fill, Stroke };

    Ink ink;
    NSBezierPath path;
    /// Which colour of the palette it has.
    std::size_t paletteIndex;
};

/// A symbol's shapes, the lowest first; none when there is no symbol of the name. The symbols, with what the
/// colours of their palettes are for:
///
/// - "checkmark.circle.fill": the mark, the disc.
/// - "circle": the ring. What is inside of it stays clear, so that any ground shows through.
[[nodiscard]] std::vector<SymbolPart> systemSymbolParts(std::u16string_view name);
