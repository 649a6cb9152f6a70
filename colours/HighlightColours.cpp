#include "colours/HighlightColours.h"

#include "colours/ColourEquality.h"
#include "platform/foundation/NSBundle.h"

#include <algorithm>
#include <array>

namespace {

struct HighlightColour {
    NSInteger type;
    std::u16string_view name;
    std::u16string_view displayNameKey;
};

// The first colour is called Orange where users see it, and yellow everywhere else; both names are in use.
constexpr std::array kHighlightColours{
    HighlightColour{1, u"YellowHighlightColor", u"Orange"},
    HighlightColour{2, u"GreenHighlightColor", u"Green"},
    HighlightColour{3, u"BlueHighlightColor", u"Blue"},
    HighlightColour{4, u"PinkHighlightColor", u"Pink"},
    HighlightColour{5, u"PurpleHighlightColor", u"Purple"},
};

constexpr double kBackgroundAlpha = 0.15;

} // namespace

namespace CVLExtensions {

NSColor::Ref yellowHighlightColor()
{
    return colorForHighlightColorType(1);
}

NSColor::Ref greenHighlightColor()
{
    return colorForHighlightColorType(2);
}

NSColor::Ref blueHighlightColor()
{
    return colorForHighlightColorType(3);
}

NSColor::Ref pinkHighlightColor()
{
    return colorForHighlightColorType(4);
}

NSColor::Ref purpleHighlightColor()
{
    return colorForHighlightColorType(5);
}

std::vector<NSColor::Ref> allHighlightColors()
{
    std::vector<NSColor::Ref> colors;
    colors.reserve(kHighlightColours.size());
    for (const auto& each : kHighlightColours)
        colors.push_back(NSColor::colorNamed(each.name));
    return colors;
}

std::vector<std::u16string> allHighlightColorNames()
{
    std::vector<std::u16string> names;
    names.reserve(kHighlightColours.size());
    for (const auto& each : kHighlightColours)
        names.push_back(NSBundle::mainBundle().localizedStringForKey(each.displayNameKey));
    return names;
}

std::vector<NSInteger> allHighlightColorTypes()
{
    std::vector<NSInteger> types;
    types.reserve(kHighlightColours.size());
    for (const auto& each : kHighlightColours)
        types.push_back(each.type);
    return types;
}

NSColor::Ref colorForHighlightColorType(NSInteger type)
{
    const auto* const found = std::find_if(kHighlightColours.begin(), kHighlightColours.end(),
                                           [type](const auto& each) { return each.type == type; });
    return found == kHighlightColours.end() ? nullptr : NSColor::colorNamed(found->name);
}

NSInteger highlightColorType(const NSColor& color)
{
    const auto* const found
        = std::find_if(kHighlightColours.begin(), kHighlightColours.end(), [&color](const auto& each) {
              return isEqualToColorCVLVersion(*NSColor::colorNamed(each.name), color);
          });
    return found == kHighlightColours.end() ? 0 : found->type;
}

NSColor::Ref highlightBackgroundColor(const NSColor::Ref& color, NSAppearance appearance)
{
    return color ? color->colorWithAlphaComponent(kBackgroundAlpha, appearance) : nullptr;
}

NSColor::Ref highlightForegroundColor(const NSColor::Ref& color)
{
    return color;
}

} // namespace CVLExtensions
