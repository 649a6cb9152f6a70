#include "platform/html/HTMLDeclarations.h"

#include "platform/html/CSSColor.h"
#include "platform/text/SystemColors.h"

#include <algorithm>
#include <array>

namespace {

void append(std::string& declarations, std::string_view property, std::string_view value)
{
    if (!declarations.empty())
        declarations += ';';
    declarations.append(property).append(":").append(value);
}

} // namespace

void HTMLDeclarations::add(std::string_view property, std::string_view value)
{
    append(light, property, value);
    append(dark, property, value);
}

void HTMLDeclarations::add(std::string_view property, const NSColor& color)
{
    add(property, {}, color);
}

void HTMLDeclarations::add(std::string_view property, std::string_view value, const NSColor& color)
{
    const auto inLight = color.deviceRGBComponents(NSAppearance::Light);
    const auto inDark = color.deviceRGBComponents(NSAppearance::Dark);
    if (!inLight || !inDark)
        return;
    append(light, property, std::string(value) + cssColor(*inLight));
    append(dark, property, std::string(value) + cssColor(*inDark));
    hasFixedColor = hasFixedColor || color.type() != NSColorType::Catalog;
}

bool isDefaultHTMLColor(const NSColor& color)
{
    static constexpr std::array<std::u16string_view, 4> kNames{u"textColor", u"labelColor",
                                                               u"controlTextColor", u"textBackgroundColor"};
    return color.catalogNameComponent() == kSystemCatalogName
        && std::find(kNames.begin(), kNames.end(), color.colorNameComponent()) != kNames.end();
}
