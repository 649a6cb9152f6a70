#pragma once

#include "platform/drawing/SymbolParts.h"

/// What stands on the icon of a document to say of which kind it is, in a square with sides of kIconGlyphSide
/// and the origin at its lower left. Of the palette, the first colour is that of the kind and the second that
/// of the page.
namespace IconGlyphs {

inline constexpr double kIconGlyphSide = 16;

/// IconGlyphsOfDocuments.cpp
[[nodiscard]] SymbolParts text();
[[nodiscard]] SymbolParts richText();
[[nodiscard]] SymbolParts note();
[[nodiscard]] SymbolParts pages();
[[nodiscard]] SymbolParts spreadsheet();
[[nodiscard]] SymbolParts presentation();
[[nodiscard]] SymbolParts mail();
[[nodiscard]] SymbolParts sourceCode();
[[nodiscard]] SymbolParts book();
[[nodiscard]] SymbolParts contact();
[[nodiscard]] SymbolParts calendar();

/// IconGlyphsOfMedia.cpp
[[nodiscard]] SymbolParts image();
[[nodiscard]] SymbolParts movie();
[[nodiscard]] SymbolParts audio();
[[nodiscard]] SymbolParts web();
[[nodiscard]] SymbolParts font();
[[nodiscard]] SymbolParts archive();
[[nodiscard]] SymbolParts program();
[[nodiscard]] SymbolParts database();
/// Nothing.
[[nodiscard]] SymbolParts none();

} // namespace IconGlyphs
