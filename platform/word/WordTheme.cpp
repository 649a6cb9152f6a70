#include "platform/word/WordTheme.h"

#include <algorithm>
#include <array>
#include <charconv>

namespace {

constexpr std::size_t kMostFamilyBytes = 128;

constexpr std::array<std::string_view, 12> kColorNames{"dk1",     "lt1",     "dk2",     "lt2",
                                                       "accent1", "accent2", "accent3", "accent4",
                                                       "accent5", "accent6", "hlink",   "folHlink"};

struct Synonym {
    std::string_view name;
    std::string_view colorName;
};

/// What text calls the colours that the theme calls otherwise.
constexpr std::array<Synonym, 10> kSynonyms{{{"background1", "lt1"},
                                             {"background2", "lt2"},
                                             {"dark1", "dk1"},
                                             {"dark2", "dk2"},
                                             {"followedHyperlink", "folHlink"},
                                             {"hyperlink", "hlink"},
                                             {"light1", "lt1"},
                                             {"light2", "lt2"},
                                             {"text1", "dk1"},
                                             {"text2", "dk2"}}};

struct ColorAttributes {
    std::string_view value;
    std::string_view theme;
    std::string_view tint;
    std::string_view shade;
};

/// By use.
constexpr std::array<ColorAttributes, 3> kColorAttributes{
    {{"val", "themeColor", "themeTint", "themeShade"},
     {"color", "themeColor", "themeTint", "themeShade"},
     {"fill", "themeFill", "themeFillTint", "themeFillShade"}}};

std::string_view colorNameOf(std::string_view name)
{
    const auto* const found = std::find_if(kSynonyms.begin(), kSynonyms.end(),
                                           [name](const Synonym& row) { return row.name == name; });
    return found == kSynonyms.end() ? name : found->colorName;
}

/// Of two hexadecimal digits; the whole for anything else.
double fractionOf(std::string_view digits)
{
    unsigned number = 0;
    const auto result = std::from_chars(digits.data(), digits.data() + digits.size(), number, 16);
    return result.ec == std::errc() && number <= 0xFF ? number / 255.0 : 1.0;
}

/// Every channel brought towards `target` (0 or 255), with `fraction` left of what it was.
std::uint32_t blended(std::uint32_t rgb, double fraction, double target)
{
    std::uint32_t result = 0;
    for (unsigned shift = 0; shift <= 16; shift += 8) {
        const auto channel = static_cast<double>((rgb >> shift) & 0xFFU);
        result |= static_cast<std::uint32_t>(channel * fraction + target * (1 - fraction) + 0.5) << shift;
    }
    return result;
}

} // namespace

std::string WordTheme::family(std::string_view themeFont) const
{
    std::string key(themeFont.starts_with("major") ? "majorFont/" : "minorFont/");
    if (themeFont.ends_with("EastAsia"))
        key += "ea";
    else
        key += themeFont.ends_with("Bidi") ? "cs" : "latin";
    const auto found = m_families.find(key);
    return found == m_families.end() ? std::string() : found->second;
}

std::optional<WordColor> WordTheme::color(const XMLAttributes& attributes, WordColorUse use) const
{
    const auto& names = kColorAttributes.at(static_cast<std::size_t>(use));
    // Beside a theme's colour stands what it came to when the document was written, tint and all.
    const auto plain = wordColor(attributes.value(names.value));
    const auto found = m_colors.find(colorNameOf(attributes.value(names.theme)));
    if (found == m_colors.end() || (plain && !plain->isAutomatic))
        return plain;
    auto color = found->second;
    color.rgb = blended(color.rgb, fractionOf(attributes.value(names.shade)), 0);
    color.rgb = blended(color.rgb, fractionOf(attributes.value(names.tint)), 255);
    return color;
}

void WordThemeHandler::startElement(std::string_view localName, const XMLAttributes& attributes)
{
    if (std::find(kColorNames.begin(), kColorNames.end(), localName) != kColorNames.end())
        m_color = localName;
    else if (localName == "fontScheme" || localName == "fmtScheme" || localName == "objectDefaults")
        m_color.clear();
    else if (localName == "majorFont" || localName == "minorFont")
        m_font = localName;

    if (!m_color.empty() && (localName == "srgbClr" || localName == "sysClr")) {
        const auto color = wordColor(attributes.value(localName == "sysClr" ? "lastClr" : "val"));
        if (color)
            m_theme.m_colors.emplace(m_color, *color);
    }
    const auto family = attributes.value("typeface");
    const bool isFamily = localName == "latin" || localName == "ea" || localName == "cs";
    if (isFamily && !m_font.empty() && !family.empty() && family.size() <= kMostFamilyBytes)
        m_theme.m_families.emplace(m_font + "/" + std::string(localName), family);
}
