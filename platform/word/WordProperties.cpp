#include "platform/word/WordProperties.h"

#include <algorithm>

namespace {

/// Beyond it further stops are not kept: styles based on styles would gather them without end.
constexpr std::size_t kMostTabStops = 64;

template <typename Value> void replace(std::optional<Value>& value, const std::optional<Value>& other)
{
    if (other)
        value = other;
}

void toggle(std::optional<bool>& value, const std::optional<bool>& other)
{
    if (other)
        value = value.value_or(false) != *other;
}

void replaceTabStop(std::vector<WordTabStop>& stops, const WordTabStop& stop)
{
    const auto place = std::find_if(stops.begin(), stops.end(), [&stop](const WordTabStop& one) {
        return one.location >= stop.location;
    });
    if (place != stops.end() && place->location == stop.location)
        *place = stop;
    else if (stops.size() < kMostTabStops)
        stops.insert(place, stop);
}

} // namespace

void WordRunProperties::overrideWith(const WordRunProperties& other)
{
    replace(isBold, other.isBold);
    replace(isItalic, other.isItalic);
    replace(hasCapitals, other.hasCapitals);
    replace(isStruck, other.isStruck);
    replace(isDoubleStruck, other.isDoubleStruck);
    replace(underline, other.underline);
    replace(underlineColor, other.underlineColor);
    replace(color, other.color);
    replace(highlight, other.highlight);
    replace(shading, other.shading);
    replace(family, other.family);
    replace(eastAsianFamily, other.eastAsianFamily);
    replace(complexFamily, other.complexFamily);
    replace(size, other.size);
    replace(complexSize, other.complexSize);
    replace(superscript, other.superscript);
    replace(baselineOffset, other.baselineOffset);
    replace(kern, other.kern);
    replace(isComplex, other.isComplex);
}

void WordRunProperties::combineWith(const WordRunProperties& style)
{
    auto combined = style;
    const auto combine = [&](std::optional<bool> WordRunProperties::*member) {
        auto value = this->*member;
        toggle(value, style.*member);
        combined.*member = value;
    };
    combine(&WordRunProperties::isBold);
    combine(&WordRunProperties::isItalic);
    combine(&WordRunProperties::hasCapitals);
    combine(&WordRunProperties::isStruck);
    combine(&WordRunProperties::isDoubleStruck);
    overrideWith(combined);
}

void WordParagraphProperties::overrideWith(const WordParagraphProperties& other)
{
    replace(alignment, other.alignment);
    replace(isRightToLeft, other.isRightToLeft);
    replace(leftIndent, other.leftIndent);
    replace(rightIndent, other.rightIndent);
    replace(firstLineIndent, other.firstLineIndent);
    replace(spacingBefore, other.spacingBefore);
    replace(spacingAfter, other.spacingAfter);
    replace(line, other.line);
    replace(lineRule, other.lineRule);
    replace(outlineLevel, other.outlineLevel);
    replace(listLevel, other.listLevel);
    replace(listNumber, other.listNumber);
    for (const auto& stop : other.tabStops)
        replaceTabStop(tabStops, stop);
}
