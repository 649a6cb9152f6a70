#pragma once

#include "platform/drawing/SymbolParts.h"

#include <initializer_list>

/// The few shapes that glyphs are made of.
namespace GlyphShapes {

/// Of the palette of a glyph.
inline constexpr std::size_t kKindColor = 0;
inline constexpr std::size_t kPageColor = 1;

/// A line through the points, with round ends and corners.
[[nodiscard]] SymbolPart line(std::initializer_list<NSPoint> points, double width,
                              std::size_t color = kKindColor);
[[nodiscard]] SymbolPart polygon(std::initializer_list<NSPoint> points, std::size_t color = kKindColor);
[[nodiscard]] SymbolPart disc(NSPoint centre, double radius, std::size_t color = kKindColor);
[[nodiscard]] SymbolPart box(NSRect rect, double radius, std::size_t color = kKindColor);
/// The outlines of an oval and of a box with round corners.
[[nodiscard]] SymbolPart ring(NSRect rect, double width);
[[nodiscard]] SymbolPart frame(NSRect rect, double radius, double width);

} // namespace GlyphShapes
