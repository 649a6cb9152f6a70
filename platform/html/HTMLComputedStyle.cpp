#include "platform/html/HTMLComputedStyle.h"

#include "platform/html/CSSBoxProperties.h"
#include "platform/html/CSSFontProperties.h"
#include "platform/html/CSSTextProperties.h"
#include "platform/html/CSSValues.h"

#include <algorithm>

namespace {

/// The names of families keep their case.
bool isCaseKept(std::string_view property)
{
    return property == "font" || property == "font-family";
}

} // namespace

bool HTMLBox::hasBorder() const
{
    return std::any_of(borderWidth.begin(), borderWidth.end(), [](double edge) { return edge > 0; });
}

std::optional<double> HTMLComputedStyle::length(std::string_view text) const
{
    return cssLength(text, {fontSize, rootFontSize});
}

HTMLComputedStyle HTMLComputedStyle::styleWith(const std::vector<const CSSDeclarations*>& cascade) const
{
    auto style = *this;
    style.box = {};
    // Fonts first, because other lengths depend on them.
    for (const auto* declarations : cascade) {
        for (const auto& [property, value] : declarations->all())
            setFontProperty(property, isCaseKept(property) ? value : inASCIILowerCase(value), *this, style);
    }
    for (const auto* declarations : cascade) {
        for (const auto& [property, value] : declarations->all()) {
            const auto lower = inASCIILowerCase(value);
            if (!setTextProperty(property, lower, *this, style))
                setBoxProperty(property, lower, style);
        }
    }
    return style;
}
