#include "richtext/Highlights.h"

#include "colours/HighlightAttribute.h"
#include "colours/HighlightColours.h"
#include "platform/text/NSAttributeNames.h"
#include "platform/text/NSColor.h"
#include "richtext/TrimmedPassages.h"

#include <algorithm>
#include <array>

namespace {

constexpr NSInteger kTypeOfOtherSchemes = 1;

struct Mapping {
    std::u16string_view colorScheme;
    NSInteger type;
};

constexpr std::array kMappings{
    Mapping{NSTextHighlightColorSchemeOrange, 1}, Mapping{NSTextHighlightColorSchemeMint, 2},
    Mapping{NSTextHighlightColorSchemeBlue, 3},   Mapping{NSTextHighlightColorSchemePink, 4},
    Mapping{NSTextHighlightColorSchemePurple, 5},
};

NSInteger typeForColorScheme(const NSAny& colorScheme)
{
    const auto* name = colorScheme.string();
    const auto* found = std::find_if(kMappings.begin(), kMappings.end(), [name](const Mapping& mapping) {
        return name && *name == mapping.colorScheme;
    });
    return found == kMappings.end() ? kTypeOfOtherSchemes : found->type;
}

std::u16string_view colorSchemeForType(NSInteger type)
{
    const auto* found = std::find_if(kMappings.begin(), kMappings.end(),
                                     [type](const Mapping& mapping) { return mapping.type == type; });
    return found == kMappings.end() ? NSTextHighlightColorSchemeDefault : found->colorScheme;
}

void addHighlight(NSMutableAttributedString& text, NSInteger type, NSRange range)
{
    const auto color = CVLExtensions::colorForHighlightColorType(type);
    text.addAttributes(
        {
            {std::u16string(NSBackgroundColorAttributeName), CVLExtensions::highlightBackgroundColor(color)},
            {std::u16string(NSForegroundColorAttributeName), CVLExtensions::highlightForegroundColor(color)},
            {std::u16string(CVLHighlightTextAttributeName), type},
        },
        range);
}

void replaceByPlatformHighlight(NSMutableAttributedString& text, NSInteger type, NSRange range)
{
    text.removeAttribute(NSForegroundColorAttributeName, range);
    text.removeAttribute(NSBackgroundColorAttributeName, range);
    text.removeAttribute(CVLHighlightTextAttributeName, range);
    text.addAttributes(
        {
            {std::u16string(NSTextHighlightStyleAttributeName), NSTextHighlightStyleDefault},
            {std::u16string(NSTextHighlightColorSchemeAttributeName), colorSchemeForType(type)},
        },
        range);
}

} // namespace

void DynamicColors::convertNSTextHighlightsToCorvelHighlights(NSMutableAttributedString& text)
{
    const auto highlight = [&text](const NSAny& colorScheme, NSRange range, bool&) {
        if (colorScheme)
            addHighlight(text, typeForColorScheme(colorScheme), range);
    };
    text.enumerateAttribute(NSTextHighlightStyleAttributeName, [&](const NSAny& style, NSRange range, bool&) {
        if (style == NSAny(NSTextHighlightStyleDefault))
            text.enumerateAttribute(NSTextHighlightColorSchemeAttributeName, range, {}, highlight);
    });
}

void DynamicColors::convertCorvelHighlightsToNSTextHighlights(NSMutableAttributedString& text)
{
    text.enumerateAttribute(CVLHighlightTextAttributeName, [&](const NSAny& type, NSRange range, bool&) {
        if (type.boolValue())
            replaceByPlatformHighlight(text, type.integerValue(), range);
    });
}

std::vector<std::u16string> DynamicColors::highlightedStrings(const NSAttributedString& text)
{
    std::vector<std::u16string> passages;
    text.enumerateAttribute(CVLHighlightTextAttributeName, [&](const NSAny& type, NSRange range, bool&) {
        if (type.boolValue())
            appendTrimmedPassage(passages, text, range);
    });
    return passages;
}
