#include "platform/drawing/PangoFonts.h"

#include "platform/foundation/Unicode.h"
#include "platform/text/FontFace.h"
#include "platform/text/NSFont.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <string>
#include <unordered_set>

namespace {

/// Smaller and larger ones are taken for these.
constexpr double kMinimumSize = 0.1;
constexpr double kMaximumSize = 4096;
constexpr std::size_t kMaximumFontsOfThread = 256;

/// Families with serifs, by how their names begin. Faces do not say so themselves.
constexpr std::array<std::u16string_view, 22> kSerifFamilies{
    u"American Typewriter",
    u"Baskerville",
    u"Bodoni",
    u"Bookman",
    u"Cambria",
    u"Century",
    u"Charter",
    u"Cochin",
    u"Constantia",
    u"Copperplate",
    u"Didot",
    u"Garamond",
    u"Georgia",
    u"Hiragino Mincho",
    u"Hoefler",
    u"Iowan",
    u"New York",
    u"Noto Serif",
    u"Palatino",
    u"Rockwell",
    u"Songti",
    u"Times",
};

const char* genericFamily(const FontFace& face)
{
    if ((face.traits & NSFontMonoSpaceTrait) != 0)
        return "monospace";
    const auto isOfFace = [&](std::u16string_view family) { return face.familyName.starts_with(family); };
    return std::any_of(kSerifFamilies.begin(), kSerifFamilies.end(), isOfFace) ? "serif" : "sans-serif";
}

/// The families to look for in turn, as a list with commas.
std::string families(const FontFace& face)
{
    const auto* generic = genericFamily(face);
    // The system's own families have names with a dot that are installed nowhere else.
    if (face.familyName.empty() || face.familyName.front() == u'.')
        return generic;
    auto family = UTF8FromUTF16(face.familyName);
    std::replace_if(
        family.begin(), family.end(), [](char c) { return c == ',' || c == '\0'; }, ' ');
    return family + "," + generic;
}

PangoWeight pangoWeight(FontWeight weight)
{
    switch (weight) {
    case FontWeight::UltraLight:
        return PANGO_WEIGHT_THIN;
    case FontWeight::Thin:
        return PANGO_WEIGHT_ULTRALIGHT;
    case FontWeight::Light:
        return PANGO_WEIGHT_LIGHT;
    case FontWeight::Regular:
        return PANGO_WEIGHT_NORMAL;
    case FontWeight::Medium:
        return PANGO_WEIGHT_MEDIUM;
    case FontWeight::Semibold:
        return PANGO_WEIGHT_SEMIBOLD;
    case FontWeight::Bold:
        return PANGO_WEIGHT_BOLD;
    case FontWeight::Heavy:
        return PANGO_WEIGHT_ULTRABOLD;
    case FontWeight::Black:
        return PANGO_WEIGHT_HEAVY;
    }
    return PANGO_WEIGHT_NORMAL;
}

PangoStretch pangoStretch(unsigned traits)
{
    if ((traits & NSFontCondensedTrait) != 0)
        return PANGO_STRETCH_CONDENSED;
    return (traits & NSFontExpandedTrait) != 0 ? PANGO_STRETCH_EXPANDED : PANGO_STRETCH_NORMAL;
}

/// The fonts of a thread. Pango keeps every font that it was ever asked for, at every size, some 26 KB each:
/// here they go all at once when there have been too many.
class ThreadFonts {
public:
    static ThreadFonts& ofThisThread()
    {
        thread_local ThreadFonts fonts;
        return fonts;
    }

    void note(const PangoFontDescription& description)
    {
        m_descriptions.insert(pango_font_description_hash(&description));
    }

    PangoFontMap& map()
    {
        if (m_map && m_descriptions.size() <= kMaximumFontsOfThread)
            return *m_map;
        m_descriptions.clear();
        m_map.reset(pango_cairo_font_map_new());
        return *m_map;
    }

private:
    std::unique_ptr<PangoFontMap, GObjectDeleter> m_map;
    std::unordered_set<guint> m_descriptions;
};

struct FontOptionsDeleter {
    void operator()(cairo_font_options_t* options) const { cairo_font_options_destroy(options); }
};

} // namespace

int pangoUnits(double points)
{
    return static_cast<int>(
        std::lround(std::clamp(points, -kMaximumTextExtent, kMaximumTextExtent) * PANGO_SCALE));
}

FontDescription fontDescription(const NSFont& font)
{
    const auto& face = font.face();
    FontDescription description(pango_font_description_new());
    pango_font_description_set_family(description.get(), families(face).c_str());
    pango_font_description_set_weight(description.get(), pangoWeight(face.weight));
    pango_font_description_set_stretch(description.get(), pangoStretch(face.traits));
    const auto isItalic = (face.traits & NSFontItalicTrait) != 0;
    pango_font_description_set_style(description.get(), isItalic ? PANGO_STYLE_ITALIC : PANGO_STYLE_NORMAL);
    const auto size = std::clamp(font.pointSize(), kMinimumSize, kMaximumSize);
    pango_font_description_set_absolute_size(description.get(), pangoUnits(size));
    ThreadFonts::ofThisThread().note(*description);
    return description;
}

TextContext textContext()
{
    TextContext context(pango_font_map_create_context(&ThreadFonts::ofThisThread().map()));
    const std::unique_ptr<cairo_font_options_t, FontOptionsDeleter> options(cairo_font_options_create());
    cairo_font_options_set_hint_style(options.get(), CAIRO_HINT_STYLE_NONE);
    cairo_font_options_set_hint_metrics(options.get(), CAIRO_HINT_METRICS_OFF);
    cairo_font_options_set_antialias(options.get(), CAIRO_ANTIALIAS_GRAY);
    pango_cairo_context_set_font_options(context.get(), options.get());
    pango_cairo_context_set_resolution(context.get(), 72);
    pango_context_set_round_glyph_positions(context.get(), FALSE);
    return context;
}
