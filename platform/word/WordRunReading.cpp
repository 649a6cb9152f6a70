#include "platform/word/WordRunReading.h"

#include "platform/word/WordUnderlines.h"

#include <algorithm>
#include <array>

namespace {

constexpr double kHalfPointsPerPoint = 2;
constexpr double kMostFontSize = 1638;
constexpr std::size_t kMostFamilyBytes = 128;

void readUnderline(WordRunProperties& properties, const XMLAttributes& attributes, const WordTheme& theme)
{
    properties.underline = wordUnderlineNamed(attributes.value("val"));
    if (const auto color = theme.color(attributes, WordColorUse::Line))
        properties.underlineColor = color;
}

void readFamily(std::optional<std::string>& family, std::string_view named, std::string_view themed,
                const WordTheme& theme)
{
    auto found = themed.empty() ? std::string() : theme.family(themed);
    if (found.empty() && named.size() <= kMostFamilyBytes)
        found = named;
    if (!found.empty())
        family = std::move(found);
}

void readFonts(WordRunProperties& properties, const XMLAttributes& attributes, const WordTheme& theme)
{
    readFamily(properties.family, attributes.value("hAnsi"), attributes.value("hAnsiTheme"), theme);
    readFamily(properties.family, attributes.value("ascii"), attributes.value("asciiTheme"), theme);
    readFamily(properties.eastAsianFamily, attributes.value("eastAsia"), attributes.value("eastAsiaTheme"),
               theme);
    readFamily(properties.complexFamily, attributes.value("cs"), attributes.value("cstheme"), theme);
}

void readSize(std::optional<double>& size, const XMLAttributes& attributes)
{
    const auto points = wordLength(attributes.value("val"), kHalfPointsPerPoint);
    if (points && *points > 0)
        size = std::min(*points, kMostFontSize);
}

void readVerticalAlignment(WordRunProperties& properties, std::string_view value)
{
    if (value == "superscript")
        properties.superscript = 1;
    else
        properties.superscript = value == "subscript" ? -1 : 0;
}

struct Toggle {
    std::string_view element;
    std::optional<bool> WordRunProperties::*member;
};

constexpr std::array<Toggle, 7> kToggles{{{"b", &WordRunProperties::isBold},
                                          {"i", &WordRunProperties::isItalic},
                                          {"caps", &WordRunProperties::hasCapitals},
                                          {"strike", &WordRunProperties::isStruck},
                                          {"dstrike", &WordRunProperties::isDoubleStruck},
                                          {"rtl", &WordRunProperties::isComplex},
                                          {"cs", &WordRunProperties::isComplex}}};

bool readToggle(WordRunProperties& properties, std::string_view element, const XMLAttributes& attributes)
{
    const auto* const toggle = std::find_if(kToggles.begin(), kToggles.end(),
                                            [element](const Toggle& row) { return row.element == element; });
    if (toggle != kToggles.end())
        properties.*(toggle->member) = isWordPropertyOn(attributes);
    return toggle != kToggles.end();
}

bool readMeasure(WordRunProperties& properties, std::string_view element, const XMLAttributes& attributes)
{
    if (element == "sz")
        readSize(properties.size, attributes);
    else if (element == "szCs")
        readSize(properties.complexSize, attributes);
    else if (element == "position")
        properties.baselineOffset = wordLength(attributes.value("val"), kHalfPointsPerPoint);
    else if (element == "spacing")
        properties.kern = wordLength(attributes.value("val"));
    else
        return false;
    return true;
}

} // namespace

void readRunProperty(WordRunProperties& properties, std::string_view element, const XMLAttributes& attributes,
                     const WordTheme& theme)
{
    if (readToggle(properties, element, attributes) || readMeasure(properties, element, attributes))
        return;
    if (element == "rFonts")
        readFonts(properties, attributes, theme);
    else if (element == "u")
        readUnderline(properties, attributes, theme);
    else if (element == "color")
        properties.color = theme.color(attributes, WordColorUse::Text);
    else if (element == "highlight")
        properties.highlight = wordHighlight(attributes.value("val"));
    else if (element == "shd")
        properties.shading = theme.color(attributes, WordColorUse::Fill);
    else if (element == "vertAlign")
        readVerticalAlignment(properties, attributes.value("val"));
}
