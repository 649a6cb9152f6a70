#include "richtext/DynamicColours.h"

#include "colours/ColourEquality.h"
#include "colours/HighlightAttribute.h"
#include "platform/text/NSAttributeNames.h"
#include "platform/text/NSColor.h"
#include "richtext/TrimmedPassages.h"

using CVLExtensions::isEqualToColorCVLVersion;

namespace {

bool isBlackOrAbsent(const NSAny& color)
{
    const auto value = color.object<NSColor>();
    return color.isNil() || (value && isEqualToColorCVLVersion(*value, *NSColor::blackColor()));
}

bool isOwnHighlight(const NSAttributedString& text, NSUInteger location)
{
    return text.attribute(CVLHighlightTextAttributeName, location).boolValue();
}

bool isBackground(const NSAny& color)
{
    const auto value = color.object<NSColor>();
    return value && !isEqualToColorCVLVersion(*value, *NSColor::whiteColor())
        && !isEqualToColorCVLVersion(*value, *NSColor::textBackgroundColor());
}

} // namespace

void DynamicColors::convertToDynamicColors(NSMutableAttributedString& text)
{
    const NSAny textColor = NSColor::textColor();
    text.enumerateAttribute(NSForegroundColorAttributeName, [&](const NSAny& color, NSRange range, bool&) {
        if (isBlackOrAbsent(color))
            text.addAttribute(NSForegroundColorAttributeName, textColor, range);
    });
}

NSAttributedString DynamicColors::attributedStringConvertedToDynamicColors(const NSAttributedString& text)
{
    NSMutableAttributedString converted(text);
    convertToDynamicColors(converted);
    return converted.copy();
}

void DynamicColors::convertFromDynamicColors(NSMutableAttributedString& text)
{
    const auto textColor = NSColor::textColor();
    const NSAny black = NSColor::blackColor();
    text.enumerateAttribute(NSForegroundColorAttributeName, [&](const NSAny& color, NSRange range, bool&) {
        const auto value = color.object<NSColor>();
        if (value && isEqualToColorCVLVersion(*value, *textColor))
            text.addAttribute(NSForegroundColorAttributeName, black, range);
    });
}

NSAttributedString DynamicColors::attributedStringConvertedFromDynamicColors(const NSAttributedString& text)
{
    return attributedStringConvertedToDynamicColors(text);
}

void DynamicColors::cleanupTextColorsInRange(NSMutableAttributedString& text, NSRange range)
{
    text.addAttribute(NSForegroundColorAttributeName, NSColor::labelColor(), range);
    const auto removeForeign = [&text](const NSAny& color, NSRange run, bool&) {
        if (color && !isOwnHighlight(text, run.location))
            text.removeAttribute(NSBackgroundColorAttributeName, run);
    };
    text.enumerateAttribute(NSBackgroundColorAttributeName, range, {}, removeForeign);
}

std::vector<std::u16string> DynamicColors::stringsWithBackgroundColor(const NSAttributedString& text)
{
    std::vector<std::u16string> passages;
    text.enumerateAttribute(NSBackgroundColorAttributeName, [&](const NSAny& color, NSRange range, bool&) {
        if (isBackground(color))
            appendTrimmedPassage(passages, text, range);
    });
    return passages;
}
