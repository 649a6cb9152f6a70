#pragma once

#include "platform/text/FontFace.h"

#include <optional>
#include <string_view>
#include <vector>

/// The scalable fonts that are installed on this machine, with the measures that their files give. Only files
/// that the font configuration lists are opened. Thread-safe. A machine without fonts has none.

/// The face of exactly that PostScript name.
[[nodiscard]] std::optional<FontFace> installedFaceNamed(std::u16string_view postScriptName);

/// In the order of their PostScript names.
[[nodiscard]] std::vector<FontFace> installedFacesOfFamily(std::u16string_view family);
