#pragma once

#include "platform/drawing/SymbolParts.h"

#include <string_view>

class UTType;

/// How the icon of a kind of document looks.
struct IconKind {
    /// All types that conform to it are of the kind, unless a kind before it in the table has them.
    std::string_view typeIdentifier;
    /// One of the system's colours by name.
    std::u16string_view colorName;
    /// IconGlyphs.h
    SymbolParts (*glyph)();
};

/// The first kind of the table that the type is of; one without a glyph for what is of none.
[[nodiscard]] const IconKind& iconKindOfType(const UTType& type);
