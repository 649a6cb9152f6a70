#include "colours/ColourEquality.h"

#include "platform/text/NSColorList.h"

#include <cmath>
#include <limits>

namespace {

bool isClose(double one, double other)
{
    return std::abs(one - other) <= std::numeric_limits<double>::epsilon();
}

NSColor::Ref listColor(std::u16string_view listName, std::u16string_view key, const NSColor::Ref& otherwise)
{
    const auto* list = NSColorList::colorListNamed(listName);
    auto color = list ? list->colorWithKey(key) : nullptr;
    return color ? color : otherwise;
}

} // namespace

namespace CVLExtensions {

bool isEqualToColorTesselVersion(const NSColor& color, const NSColor& other, NSAppearance appearance)
{
    // The name of the colour within its catalog decides, not that of the catalog: all of the system's colours
    // share one, and text in the link colour is no text in the text colour.
    if (color.type() == NSColorType::Catalog && other.type() == NSColorType::Catalog
        && color.colorNameComponent() == other.colorNameComponent())
        return true;
    const auto one = color.deviceRGBComponents(appearance);
    const auto two = other.deviceRGBComponents(appearance);
    return one && two && isClose(one->red, two->red) && isClose(one->green, two->green)
        && isClose(one->blue, two->blue) && isClose(one->alpha, two->alpha);
}

bool isEqualToColorCVLVersion(const NSColor& color, const NSColor& other, NSAppearance appearance)
{
    return isEqualToColorTesselVersion(color, other, appearance);
}

NSColor::Ref appleWhiteColor()
{
    return listColor(u"Apple", u"White", NSColor::whiteColor());
}

NSColor::Ref appleBlackColor()
{
    return listColor(u"Apple", u"Black", NSColor::blackColor());
}

NSColor::Ref crayonsWhiteColor()
{
    return listColor(u"Crayons", u"Snow", NSColor::whiteColor());
}

NSColor::Ref crayonsBlackColor()
{
    return listColor(u"Crayons", u"Licorice", NSColor::blackColor());
}

bool isWhiteColor(const NSColor& color)
{
    return isEqualToColorCVLVersion(color, *NSColor::whiteColor())
        || isEqualToColorCVLVersion(color, *appleWhiteColor())
        || isEqualToColorCVLVersion(color, *crayonsWhiteColor());
}

bool isBlackColor(const NSColor& color)
{
    return isEqualToColorCVLVersion(color, *NSColor::blackColor())
        || isEqualToColorCVLVersion(color, *appleBlackColor())
        || isEqualToColorCVLVersion(color, *crayonsBlackColor());
}

bool isDarkColorCorvel(const NSColor& color, NSAppearance appearance)
{
    constexpr double kDarkBelow = 0.65;
    constexpr double kSolidAbove = 0.5;
    const auto rgba = color.deviceRGBComponents(appearance);
    if (!rgba)
        return false;
    const auto brightness = (rgba->red * 299 + rgba->green * 587 + rgba->blue * 114) / 1000;
    return brightness < kDarkBelow && rgba->alpha > kSolidAbove;
}

} // namespace CVLExtensions
