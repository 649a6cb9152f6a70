#pragma once

#include "platform/text/FontFace.h"

#include <memory>
#include <string_view>
#include <vector>

/// All faces that there are: those of the platform's table first, then the installed ones. What was found
/// once is kept; thread-safe.

/// The face of exactly that PostScript name; null when there is none. A name that starts with a dot is the
/// system's font, whose weight and slant are read off its end.
[[nodiscard]] std::shared_ptr<const FontFace> faceNamed(std::u16string_view postScriptName);

/// A face for a name that is not known here, with that name, what its end tells of weight and slant, and the
/// measures of an average face. Text keeps its font's name with it.
[[nodiscard]] std::shared_ptr<const FontFace> standInForFaceNamed(std::u16string_view postScriptName);

/// Empty when there is no such family.
[[nodiscard]] std::vector<std::shared_ptr<const FontFace>> facesOfFamily(std::u16string_view family);

/// Of the faces with the traits in `mask` as given, the one whose weight is nearest; the lighter of two for
/// regular weight and below, the heavier above. Null when no face has those traits.
[[nodiscard]] std::shared_ptr<const FontFace>
nearestFace(const std::vector<std::shared_ptr<const FontFace>>& faces, unsigned traits, unsigned mask,
            double weight);

/// The family of the system's fonts.
inline constexpr std::u16string_view kSystemFontFamily = u".AppleSystemUIFont";
