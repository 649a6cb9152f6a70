#include "platform/html/HTMLAttributeStyle.h"

#include "platform/html/CSSValues.h"
#include "platform/html/HTMLListMarkers.h"

#include <algorithm>
#include <array>

namespace {

void setWhenPresent(CSSDeclarations& declarations, const HTMLTag& tag, std::string_view attribute,
                    std::string_view property)
{
    if (const auto value = tag.attribute(attribute); !value.empty())
        declarations.set(property, value);
}

/// A length without a unit counts pixels.
void setLength(CSSDeclarations& declarations, const HTMLTag& tag, std::string_view name)
{
    const auto number = cssNumber(tag.attribute(name));
    if (number)
        declarations.set(name, cssNumberText(number->value) + (number->unit.empty() ? "px" : number->unit));
}

void addFontAttributes(CSSDeclarations& declarations, const HTMLTag& tag)
{
    constexpr std::array<std::string_view, 7> kFontSizes{"x-small", "small",    "medium",   "large",
                                                         "x-large", "xx-large", "xxx-large"};
    setWhenPresent(declarations, tag, "color", "color");
    setWhenPresent(declarations, tag, "face", "font-family");
    const auto text = tag.attribute("size");
    const auto number = cssNumber(text);
    if (!number)
        return;
    const bool isRelative = text.starts_with('+') || text.starts_with('-');
    const auto size = std::clamp(number->value + (isRelative ? 3 : 0), 1.0, 7.0);
    declarations.set("font-size", kFontSizes.at(static_cast<std::size_t>(size) - 1));
}

} // namespace

CSSDeclarations declarationsOfAttributes(const HTMLTag& tag)
{
    CSSDeclarations declarations;
    if (tag.attributes.empty())
        return declarations;
    if (tag.name == "font")
        addFontAttributes(declarations, tag);
    if (tag.name == "body")
        setWhenPresent(declarations, tag, "text", "color");
    if (tag.name != "img" && tag.name != "table")
        setWhenPresent(declarations, tag, "align", "text-align");
    setWhenPresent(declarations, tag, "bgcolor", "background-color");
    setWhenPresent(declarations, tag, "valign", "vertical-align");
    setWhenPresent(declarations, tag, "dir", "direction");
    if (tag.name == "td" || tag.name == "th" || tag.name == "table") {
        setLength(declarations, tag, "width");
        setLength(declarations, tag, "height");
    }
    // The letters of list types are the one thing in which case counts.
    if (tag.name == "ol" || tag.name == "ul") {
        if (const auto format = markerFormatForListStyleType(tag.attribute("type")))
            declarations.set("list-style-type", listStyleTypeForMarkerFormat(*format));
    }
    return declarations;
}

NSInteger integerOf(std::string_view attribute, NSInteger otherwise)
{
    constexpr double kGreatest = 1e9;
    const auto number = cssNumber(attribute);
    if (!number || !number->unit.empty())
        return otherwise;
    return static_cast<NSInteger>(std::clamp(number->value, -kGreatest, kGreatest));
}
