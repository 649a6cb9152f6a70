#include "platform/word/WordParagraphReading.h"

#include <algorithm>
#include <array>

namespace {

constexpr double kUnitsPerLine = 240;
/// What the gap is where a document leaves it to the reader.
constexpr double kAutomaticSpacing = 14;
constexpr std::size_t kMostTabStops = 64;

struct Alignment {
    std::string_view name;
    NSTextAlignment alignment;
};

// Left is where lines begin: on the right when the paragraph runs from right to left.
constexpr std::array<Alignment, 10> kAlignments{{{"left", NSTextAlignment::Left},
                                                 {"start", NSTextAlignment::Left},
                                                 {"num", NSTextAlignment::Left},
                                                 {"center", NSTextAlignment::Center},
                                                 {"right", NSTextAlignment::Right},
                                                 {"end", NSTextAlignment::Right},
                                                 {"decimal", NSTextAlignment::Right},
                                                 {"both", NSTextAlignment::Justified},
                                                 {"distribute", NSTextAlignment::Justified},
                                                 {"thaiDistribute", NSTextAlignment::Justified}}};

std::optional<NSTextAlignment> alignmentNamed(std::string_view name)
{
    const auto* const found = std::find_if(kAlignments.begin(), kAlignments.end(),
                                           [name](const Alignment& row) { return row.name == name; });
    return found == kAlignments.end() ? std::nullopt : std::optional(found->alignment);
}

void readLength(std::optional<double>& length, std::string_view text)
{
    if (const auto value = wordLength(text))
        length = value;
}

void readIndents(WordParagraphProperties& properties, const XMLAttributes& attributes)
{
    readLength(properties.leftIndent, attributes.value("left"));
    readLength(properties.leftIndent, attributes.value("start"));
    readLength(properties.rightIndent, attributes.value("right"));
    readLength(properties.rightIndent, attributes.value("end"));
    readLength(properties.firstLineIndent, attributes.value("firstLine"));
    if (const auto hanging = wordLength(attributes.value("hanging")))
        properties.firstLineIndent = -*hanging;
}

void readLine(WordParagraphProperties& properties, const XMLAttributes& attributes)
{
    const auto rule = attributes.value("lineRule");
    if (rule == "exact" || rule == "atLeast")
        properties.lineRule = rule == "exact" ? WordLineRule::Exactly : WordLineRule::AtLeast;
    else
        properties.lineRule = WordLineRule::Multiple;
    const bool isMultiple = properties.lineRule == WordLineRule::Multiple;
    properties.line = wordLength(attributes.value("line"), isMultiple ? kUnitsPerLine : 20);
}

void readSpacing(WordParagraphProperties& properties, const XMLAttributes& attributes)
{
    readLength(properties.spacingBefore, attributes.value("before"));
    readLength(properties.spacingAfter, attributes.value("after"));
    if (isWordValueOn(attributes.value("beforeAutospacing")))
        properties.spacingBefore = kAutomaticSpacing;
    if (isWordValueOn(attributes.value("afterAutospacing")))
        properties.spacingAfter = kAutomaticSpacing;
    if (!attributes.value("line").empty())
        readLine(properties, attributes);
}

void readTabStop(WordParagraphProperties& properties, const XMLAttributes& attributes)
{
    const auto location = wordLength(attributes.value("pos"));
    const auto kind = attributes.value("val");
    const auto alignment = alignmentNamed(kind);
    if (!location || (!alignment && kind != "clear") || properties.tabStops.size() >= kMostTabStops)
        return;
    properties.tabStops.push_back(
        {*location, alignment.value_or(NSTextAlignment::Left), !alignment.has_value()});
}

} // namespace

void readParagraphProperty(WordParagraphProperties& properties, std::string_view element,
                           const XMLAttributes& attributes)
{
    if (element == "jc")
        properties.alignment = alignmentNamed(attributes.value("val"));
    else if (element == "bidi")
        properties.isRightToLeft = isWordPropertyOn(attributes);
    else if (element == "ind")
        readIndents(properties, attributes);
    else if (element == "spacing")
        readSpacing(properties, attributes);
    else if (element == "outlineLvl")
        properties.outlineLevel = wordInteger(attributes.value("val"));
    else if (element == "ilvl")
        properties.listLevel = wordInteger(attributes.value("val"));
    else if (element == "numId")
        properties.listNumber = wordInteger(attributes.value("val"));
    else if (element == "tab")
        readTabStop(properties, attributes);
}
