#include "platform/text/InstalledFonts.h"

#include "platform/foundation/Unicode.h"

#include <fontconfig/fontconfig.h>
#include <ft2build.h>
// The library's headers are named by its own macros.
#include FT_FREETYPE_H
#include FT_TRUETYPE_TABLES_H

#include <algorithm>
#include <array>
#include <memory>
#include <mutex>
#include <string>

namespace {

struct PatternDeleter {
    void operator()(FcPattern* pattern) const { FcPatternDestroy(pattern); }
};

struct ObjectSetDeleter {
    void operator()(FcObjectSet* objects) const { FcObjectSetDestroy(objects); }
};

struct FontSetDeleter {
    void operator()(FcFontSet* fonts) const { FcFontSetDestroy(fonts); }
};

struct LibraryDeleter {
    void operator()(FT_Library library) const { FT_Done_FreeType(library); }
};

struct FaceDeleter {
    void operator()(FT_Face face) const { FT_Done_Face(face); }
};

using Pattern = std::unique_ptr<FcPattern, PatternDeleter>;
using ObjectSet = std::unique_ptr<FcObjectSet, ObjectSetDeleter>;
using FontSet = std::unique_ptr<FcFontSet, FontSetDeleter>;
using Library = std::unique_ptr<std::remove_pointer_t<FT_Library>, LibraryDeleter>;
using Face = std::unique_ptr<std::remove_pointer_t<FT_Face>, FaceDeleter>;

/// FreeType's library object is for one thread at a time.
std::mutex& fontFilesMutex()
{
    static std::mutex mutex;
    return mutex;
}

std::string text(FcPattern* font, const char* property)
{
    FcChar8* value = nullptr;
    if (FcPatternGetString(font, property, 0, &value) != FcResultMatch)
        return {};
    return reinterpret_cast<const char*>(value);
}

int number(FcPattern* font, const char* property, int otherwise)
{
    auto value = otherwise;
    return FcPatternGetInteger(font, property, 0, &value) == FcResultMatch ? value : otherwise;
}

FontWeight weightOf(int weight)
{
    struct Step {
        int upTo;
        FontWeight weight;
    };

    static constexpr std::array kSteps{
        Step{FC_WEIGHT_THIN, FontWeight::UltraLight}, Step{FC_WEIGHT_EXTRALIGHT, FontWeight::Thin},
        Step{FC_WEIGHT_SEMILIGHT, FontWeight::Light}, Step{FC_WEIGHT_REGULAR, FontWeight::Regular},
        Step{FC_WEIGHT_MEDIUM, FontWeight::Medium},   Step{FC_WEIGHT_SEMIBOLD, FontWeight::Semibold},
        Step{FC_WEIGHT_BOLD, FontWeight::Bold},       Step{FC_WEIGHT_EXTRABOLD, FontWeight::Heavy},
    };
    for (const auto& step : kSteps) {
        if (weight <= step.upTo)
            return step.weight;
    }
    return FontWeight::Black;
}

unsigned traitsOf(FcPattern* font)
{
    unsigned traits = 0;
    if (number(font, FC_SLANT, FC_SLANT_ROMAN) != FC_SLANT_ROMAN)
        traits |= NSFontItalicTrait;
    if (number(font, FC_WEIGHT, FC_WEIGHT_REGULAR) >= FC_WEIGHT_SEMIBOLD)
        traits |= NSFontBoldTrait;
    const auto width = number(font, FC_WIDTH, FC_WIDTH_NORMAL);
    if (width < FC_WIDTH_NORMAL)
        traits |= NSFontCondensedTrait;
    if (width > FC_WIDTH_NORMAL)
        traits |= NSFontExpandedTrait;
    const auto spacing = number(font, FC_SPACING, FC_PROPORTIONAL);
    if (spacing == FC_MONO || spacing == FC_CHARCELL)
        traits |= NSFontMonoSpaceTrait;
    return traits;
}

FontMetrics metricsOfFile(const std::string& path, int index)
{
    const std::lock_guard lock(fontFilesMutex());
    FT_Library newLibrary = nullptr;
    if (FT_Init_FreeType(&newLibrary) != FT_Err_Ok)
        return {};
    const Library library(newLibrary);
    FT_Face newFace = nullptr;
    if (FT_New_Face(library.get(), path.c_str(), index, &newFace) != FT_Err_Ok)
        return {};
    const Face face(newFace);
    if (face->units_per_EM == 0)
        return {};
    const auto part = [&](FT_Long units) { return static_cast<double>(units) / face->units_per_EM; };
    FontMetrics metrics;
    metrics.ascender = part(face->ascender);
    metrics.descender = -std::abs(part(face->descender));
    metrics.leading = std::max(0.0, part(face->height) - metrics.ascender + metrics.descender);
    metrics.underlinePosition = part(face->underline_position);
    metrics.underlineThickness = part(face->underline_thickness);
    const auto* os2 = static_cast<const TT_OS2*>(FT_Get_Sfnt_Table(face.get(), FT_SFNT_OS2));
    // Only from its second version on does the table have these two.
    if (os2 && os2->version >= 2 && os2->version != 0xffff) {
        metrics.capHeight = part(os2->sCapHeight);
        metrics.xHeight = part(os2->sxHeight);
    }
    return metrics;
}

FontFace faceOf(FcPattern* font)
{
    FontFace face;
    face.postScriptName = UTF16FromUTF8(text(font, FC_POSTSCRIPT_NAME));
    face.familyName = UTF16FromUTF8(text(font, FC_FAMILY));
    face.faceName = UTF16FromUTF8(text(font, FC_STYLE));
    face.weight = weightOf(number(font, FC_WEIGHT, FC_WEIGHT_REGULAR));
    face.traits = traitsOf(font);
    face.metrics = metricsOfFile(text(font, FC_FILE), number(font, FC_INDEX, 0));
    return face;
}

/// The scalable fonts with that value. Fontconfig's list, unlike its match, substitutes nothing, but it does
/// not tell upper from lower case.
std::vector<FontFace> facesWith(const char* property, std::u16string_view value)
{
    const Pattern pattern(FcPatternCreate());
    const ObjectSet properties(FcObjectSetBuild(FC_POSTSCRIPT_NAME, FC_FAMILY, FC_STYLE, FC_WEIGHT, FC_SLANT,
                                                FC_WIDTH, FC_SPACING, FC_FILE, FC_INDEX, nullptr));
    const auto wanted = UTF8FromUTF16(value);
    if (!pattern || !properties
        || !FcPatternAddString(pattern.get(), property, reinterpret_cast<const FcChar8*>(wanted.c_str()))
        || !FcPatternAddBool(pattern.get(), FC_SCALABLE, FcTrue))
        return {};
    const FontSet fonts(FcFontList(nullptr, pattern.get(), properties.get()));
    std::vector<FontFace> faces;
    for (int i = 0; fonts && i < fonts->nfont; ++i) {
        auto* font = fonts->fonts[i];
        // Variable fonts list themselves without an index that can be opened.
        if (text(font, property) == wanted && (number(font, FC_INDEX, 0) >> 16) == 0)
            faces.push_back(faceOf(font));
    }
    std::sort(faces.begin(), faces.end(), [](const FontFace& one, const FontFace& other) {
        return one.postScriptName < other.postScriptName;
    });
    return faces;
}

} // namespace

#ifdef __SANITIZE_ADDRESS__
// The library loses 288 bytes when it reads its configuration, in the smallest program too. Nothing of ours
// is in them. NOLINTBEGIN(bugprone-reserved-identifier,readability-identifier-naming): the sanitizer's own
// names
extern "C" const char* __lsan_default_suppressions();
extern "C" const char* __lsan_default_options();

extern "C" const char* __lsan_default_suppressions()
{
    return "leak:libfontconfig";
}

extern "C" const char* __lsan_default_options()
{
    return "print_suppressions=0";
}

// NOLINTEND(bugprone-reserved-identifier,readability-identifier-naming)
#endif

std::optional<FontFace> installedFaceNamed(std::u16string_view postScriptName)
{
    auto faces = facesWith(FC_POSTSCRIPT_NAME, postScriptName);
    return faces.empty() ? std::nullopt : std::optional(std::move(faces.front()));
}

std::vector<FontFace> installedFacesOfFamily(std::u16string_view family)
{
    return facesWith(FC_FAMILY, family);
}
