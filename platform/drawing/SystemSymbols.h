#pragma once

#include "platform/drawing/SymbolParts.h"

#include <string_view>

/// The side of a symbol's image, in points.
inline constexpr double kSystemSymbolSide = 18;

/// A symbol's shapes, in a square with sides of kSystemSymbolSide and the origin at its lower left; none when
/// there is no symbol of the name. The symbols, with what the colours of their palettes are for:
///
/// - "checkmark.circle.fill": the mark, the disc.
/// - "circle": the ring. What is inside of it stays clear, so that any ground shows through.
[[nodiscard]] SymbolParts systemSymbolParts(std::u16string_view name);
