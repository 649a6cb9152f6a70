#include "platform/text/NSColor.h"

#include "platform/text/ColorCoding.h"
#include "platform/text/ColorConversion.h"
#include "platform/text/SystemColors.h"

#include <algorithm>
#include <cmath>
#include <functional>
#include <utility>

namespace {

using Name = NSColorSpace::Name;

/// Within 0 to 1; what is no number is 0.
double held(double component)
{
    return component > 0 ? std::min(component, 1.0) : 0.0;
}

ColorComponents withoutAlpha(const std::array<double, 5>& values, std::size_t count)
{
    ColorComponents components{};
    std::copy_n(values.begin(), count, components.begin());
    return components;
}

/// The space whose meaning the components of a space known by its profile are given, when nothing says more.
Name likelyName(const NSColorSpace& space)
{
    if (space.name() != Name::None)
        return space.name();
    switch (space.colorSpaceModel()) {
    case NSColorSpaceModel::Gray:
        return Name::GenericGamma22Gray;
    case NSColorSpaceModel::CMYK:
        return Name::DeviceCMYK;
    default:
        return Name::SRGB;
    }
}

double part(std::uint32_t color, unsigned shift)
{
    return static_cast<double>((color >> shift) & 0xffU) / 255.0;
}

} // namespace

NSColor::NSColor(Value value)
    : m_value(std::move(value))
{
}

NSColor::Ref NSColor::make(Value value)
{
    return std::make_shared<NSColor>(NSColor(std::move(value)));
}

NSColor::Ref NSColor::withComponents(Name space, const std::array<double, 5>& values)
{
    auto heldValues = values;
    for (auto& value : heldValues)
        value = held(value);
    return make(Components{NSColorSpace::colorSpaceWithName(space), heldValues, nullptr});
}

NSColor::Ref NSColor::colorWithRed(double red, double green, double blue, double alpha)
{
    return colorWithSRGBRed(red, green, blue, alpha);
}

NSColor::Ref NSColor::colorWithSRGBRed(double red, double green, double blue, double alpha)
{
    return withComponents(Name::SRGB, {red, green, blue, alpha});
}

NSColor::Ref NSColor::colorWithDeviceRed(double red, double green, double blue, double alpha)
{
    return withComponents(Name::DeviceRGB, {red, green, blue, alpha});
}

NSColor::Ref NSColor::colorWithCalibratedRed(double red, double green, double blue, double alpha)
{
    return withComponents(Name::GenericRGB, {red, green, blue, alpha});
}

NSColor::Ref NSColor::colorWithDisplayP3Red(double red, double green, double blue, double alpha)
{
    return withComponents(Name::DisplayP3, {red, green, blue, alpha});
}

NSColor::Ref NSColor::colorWithWhite(double white, double alpha)
{
    return withComponents(Name::GenericGamma22Gray, {white, alpha});
}

NSColor::Ref NSColor::colorWithDeviceWhite(double white, double alpha)
{
    return withComponents(Name::DeviceGray, {white, alpha});
}

NSColor::Ref NSColor::colorWithCalibratedWhite(double white, double alpha)
{
    return withComponents(Name::GenericGray, {white, alpha});
}

NSColor::Ref NSColor::colorWithDeviceCyan(double cyan, double magenta, double yellow, double black,
                                          double alpha)
{
    return withComponents(Name::DeviceCMYK, {cyan, magenta, yellow, black, alpha});
}

NSColor::Ref NSColor::colorWithColorSpace(const NSColorSpace::Ref& space,
                                          const std::vector<double>& components)
{
    if (!space || components.size() != space->numberOfColorComponents() + 1)
        return nullptr;
    Components made{space, {}, nullptr};
    for (std::size_t i = 0; i + 1 < components.size(); ++i) {
        const auto isKept = space->isExtended() && std::isfinite(components[i]);
        made.values[i] = isKept ? components[i] : held(components[i]);
    }
    made.values[components.size() - 1] = held(components.back());
    return make(std::move(made));
}

NSColor::Ref NSColor::blackColor()
{
    return colorWithCalibratedWhite(0, 1);
}

NSColor::Ref NSColor::whiteColor()
{
    return colorWithCalibratedWhite(1, 1);
}

NSColor::Ref NSColor::clearColor()
{
    return colorWithCalibratedWhite(0, 0);
}

NSColor::Ref NSColor::darkGrayColor()
{
    return colorWithCalibratedWhite(1.0 / 3, 1);
}

NSColor::Ref NSColor::lightGrayColor()
{
    return colorWithCalibratedWhite(2.0 / 3, 1);
}

NSColor::Ref NSColor::grayColor()
{
    return colorWithCalibratedWhite(0.5, 1);
}

NSColor::Ref NSColor::redColor()
{
    return colorWithCalibratedRed(1, 0, 0, 1);
}

NSColor::Ref NSColor::greenColor()
{
    return colorWithCalibratedRed(0, 1, 0, 1);
}

NSColor::Ref NSColor::blueColor()
{
    return colorWithCalibratedRed(0, 0, 1, 1);
}

NSColor::Ref NSColor::cyanColor()
{
    return colorWithCalibratedRed(0, 1, 1, 1);
}

NSColor::Ref NSColor::yellowColor()
{
    return colorWithCalibratedRed(1, 1, 0, 1);
}

NSColor::Ref NSColor::magentaColor()
{
    return colorWithCalibratedRed(1, 0, 1, 1);
}

NSColor::Ref NSColor::orangeColor()
{
    return colorWithCalibratedRed(1, 0.5, 0, 1);
}

NSColor::Ref NSColor::purpleColor()
{
    return colorWithCalibratedRed(0.5, 0, 0.5, 1);
}

NSColor::Ref NSColor::brownColor()
{
    return colorWithCalibratedRed(0.6, 0.4, 0.2, 1);
}

namespace {

/// The value of a dynamic colour, as a grey when it is one.
NSColor::Ref colorFromNumber(std::uint32_t color)
{
    const auto red = part(color, 24);
    const auto green = part(color, 16);
    const auto blue = part(color, 8);
    const auto alpha = part(color, 0);
    if (red != green || green != blue)
        return NSColor::colorWithSRGBRed(red, green, blue, alpha);
    // Black and white are the same in every grey, and shortest in this one.
    if (red == 0 || red == 1)
        return NSColor::colorWithCalibratedWhite(red, alpha);
    return NSColor::colorWithWhite(red, alpha);
}

NSColor::Ref catalogColorNamed(std::u16string_view catalogName, std::span<const DynamicColor> colors,
                               std::u16string_view name)
{
    const auto* found = dynamicColorNamed(colors, name);
    return found ? NSColor::colorWithCatalogName(catalogName, name, colorFromNumber(found->light)) : nullptr;
}

} // namespace

NSColor::Ref NSColor::systemColorNamed(std::u16string_view name)
{
    return catalogColorNamed(kSystemCatalogName, systemColors(), name);
}

NSColor::Ref NSColor::colorNamed(std::u16string_view name)
{
    return catalogColorNamed(kAssetCatalogName, assetColors(), name);
}

NSColor::Ref NSColor::colorWithCatalogName(std::u16string_view catalogName, std::u16string_view colorName,
                                           Ref fallback)
{
    return make(Catalog{std::u16string(catalogName), std::u16string(colorName), std::move(fallback)});
}

NSColorType NSColor::type() const
{
    if (std::holds_alternative<Components>(m_value))
        return NSColorType::ComponentBased;
    return std::holds_alternative<Catalog>(m_value) ? NSColorType::Catalog : NSColorType::Pattern;
}

std::u16string_view NSColor::catalogNameComponent() const
{
    const auto* catalog = std::get_if<Catalog>(&m_value);
    return catalog ? std::u16string_view(catalog->catalogName) : std::u16string_view();
}

std::u16string_view NSColor::colorNameComponent() const
{
    const auto* catalog = std::get_if<Catalog>(&m_value);
    return catalog ? std::u16string_view(catalog->colorName) : std::u16string_view();
}

NSColorSpace::Ref NSColor::colorSpace() const
{
    const auto* components = std::get_if<Components>(&m_value);
    return components ? components->space : nullptr;
}

std::vector<double> NSColor::components() const
{
    const auto* own = std::get_if<Components>(&m_value);
    if (!own)
        return {};
    return std::vector<double>(
        own->values.begin(),
        std::next(own->values.begin(),
                  static_cast<std::ptrdiff_t>(own->space->numberOfColorComponents() + 1)));
}

double NSColor::alphaComponent(NSAppearance appearance) const
{
    const auto color = colorUsingType(NSColorType::ComponentBased, appearance);
    return color ? color->components().back() : 1;
}

NSColor::Ref NSColor::colorUsingType(NSColorType type, NSAppearance appearance) const
{
    if (type == this->type())
        return std::make_shared<const NSColor>(*this);
    const auto* catalog = std::get_if<Catalog>(&m_value);
    if (!catalog || type != NSColorType::ComponentBased)
        return nullptr;
    // Names of the system mean the system's values; any other catalog is the application's.
    const auto known = catalog->catalogName == kSystemCatalogName ? systemColors() : assetColors();
    if (const auto* dynamic = dynamicColorNamed(known, catalog->colorName))
        return colorFromNumber(appearance == NSAppearance::Dark ? dynamic->dark : dynamic->light);
    return catalog->fallback ? catalog->fallback->colorUsingType(type, appearance) : nullptr;
}

std::optional<NSColorRGBA> NSColor::deviceRGBComponents(NSAppearance appearance) const
{
    const auto color = colorUsingColorSpace(NSColorSpace::deviceRGBColorSpace(), appearance);
    if (!color)
        return std::nullopt;
    const auto& values = std::get<Components>(color->m_value).values;
    return NSColorRGBA{values[0], values[1], values[2], values[3]};
}

NSColor::Ref NSColor::colorUsingColorSpace(const NSColorSpace::Ref& space, NSAppearance appearance) const
{
    auto color = colorUsingType(NSColorType::ComponentBased, appearance);
    if (!color || !space)
        return nullptr;
    const auto& own = std::get<Components>(color->m_value);
    if (own.space->isEqual(*space))
        return color;
    if (own.space->name() == Name::None && own.calibrated)
        return own.calibrated->colorUsingColorSpace(space, appearance);
    if (space->name() == Name::None)
        return nullptr;
    const auto count = own.space->numberOfColorComponents();
    const auto shared = extendedSRGBFromComponents(likelyName(*own.space), withoutAlpha(own.values, count));
    const auto converted = componentsFromExtendedSRGB(space->name(), shared);
    Components made{space, {}, nullptr};
    std::copy(converted.begin(), converted.end(), made.values.begin());
    made.values[space->numberOfColorComponents()] = own.values[count];
    return make(std::move(made));
}

NSColor::Ref NSColor::colorWithAlphaComponent(double alpha, NSAppearance appearance) const
{
    const auto color = colorUsingType(NSColorType::ComponentBased, appearance);
    if (!color)
        return std::make_shared<const NSColor>(*this);
    auto made = std::get<Components>(color->m_value);
    made.values[made.space->numberOfColorComponents()] = held(alpha);
    if (made.calibrated)
        made.calibrated = made.calibrated->colorWithAlphaComponent(alpha);
    return make(std::move(made));
}

NSColor::Ref NSColor::shadowWithLevel(double level, NSAppearance appearance) const
{
    return blendedColorWithFraction(level, *blackColor(), appearance);
}

NSColor::Ref NSColor::highlightWithLevel(double level, NSAppearance appearance) const
{
    return blendedColorWithFraction(level, *whiteColor(), appearance);
}

NSColor::Ref NSColor::blendedColorWithFraction(double fraction, const NSColor& other,
                                               NSAppearance appearance) const
{
    const auto one = colorUsingColorSpace(NSColorSpace::genericRGBColorSpace(), appearance);
    const auto two = other.colorUsingColorSpace(NSColorSpace::genericRGBColorSpace(), appearance);
    if (!one || !two)
        return nullptr;
    auto mixed = std::get<Components>(one->m_value).values;
    const auto& added = std::get<Components>(two->m_value).values;
    const auto portion = held(fraction);
    for (std::size_t i = 0; i < mixed.size(); ++i)
        mixed[i] = mixed[i] * (1 - portion) + added[i] * portion;
    return withComponents(Name::GenericRGB, mixed);
}

bool NSColor::isEqual(const NSObject& other) const
{
    const auto* color = dynamic_cast<const NSColor*>(&other);
    if (!color || color->type() != type())
        return false;
    if (const auto* own = std::get_if<Components>(&m_value)) {
        const auto& others = std::get<Components>(color->m_value);
        return own->values == others.values && own->space->isEqual(*others.space);
    }
    if (const auto* catalog = std::get_if<Catalog>(&m_value)) {
        const auto& others = std::get<Catalog>(color->m_value);
        return catalog->catalogName == others.catalogName && catalog->colorName == others.colorName;
    }
    return std::get<Pattern>(m_value).image == std::get<Pattern>(color->m_value).image;
}

std::size_t NSColor::hash() const
{
    if (const auto* catalog = std::get_if<Catalog>(&m_value))
        return std::hash<std::u16string>()(catalog->colorName);
    const auto* own = std::get_if<Components>(&m_value);
    if (!own)
        return 0;
    auto hash = own->space->hash();
    for (const auto value : own->values)
        hash = hash * 31 + std::hash<double>()(value);
    return hash;
}

const NSClass& NSColor::classObject()
{
    static constexpr NSClass kClass{"NSColor", &NSObjectClass, &ColorCoding::colorFromCoder};
    return kClass;
}

const NSClass& NSColor::classForCoder() const
{
    return classObject();
}

void NSColor::encodeWithCoder(NSCoder& coder) const
{
    ColorCoding::encode(*this, coder);
}
