#pragma once

#include "platform/text/FontFace.h"

#include <span>
#include <string_view>

/// The faces that the platform ships, whether installed on this machine or not: documents name them.

struct TableFace {
    std::u16string_view family;
    std::u16string_view face;
    std::u16string_view postScriptName;
    FontWeight weight;
    /// Bits of NSFontSymbolicTraits.
    unsigned traits;
    FontMetrics metrics;
};

/// All of them, ordered by family.
[[nodiscard]] std::span<const TableFace> platformFaces();

/// Empty when the platform has no such family.
[[nodiscard]] std::span<const TableFace> platformFacesOfFamily(std::u16string_view family);
