#pragma once

#include "platform/drawing/NSBezierPath.h"
#include "platform/text/NSColor.h"

#include <cstddef>
#include <vector>

class NSGraphicsContext;

/// One shape of a symbol.
struct SymbolPart {
    enum class Ink { Fill, Stroke };

    Ink ink;
    NSBezierPath path;
    /// Which colour of the palette it has.
    std::size_t paletteIndex = 0;
};

/// A symbol's shapes, the lowest first.
using SymbolParts = std::vector<SymbolPart>;

/// Draws the parts in the colours of the palette. What has no colour there, or a null one, is left out.
void drawSymbolParts(const SymbolParts& parts, const std::vector<NSColor::Ref>& palette,
                     NSGraphicsContext& context);
