#include "platform/text/ColorCoding.h"

#include "platform/foundation/NSCoder.h"
#include "platform/text/ColorComponentText.h"
#include "platform/text/PatternImage.h"

#include <algorithm>
#include <array>
#include <span>

namespace {

using Name = NSColorSpace::Name;

/// The values of NSColorSpace in a colour's archive: which form the colour has.
enum class Form : std::int64_t {
    CalibratedRGB = 1,
    DeviceRGB = 2,
    CalibratedWhite = 3,
    DeviceWhite = 4,
    CMYK = 5,
    Catalog = 6,
    Pattern = 10,
};

struct ComponentForm {
    Form form;
    /// The space of the components when no other is given.
    Name space;
    std::string_view key;
    std::size_t count;
};

constexpr std::array kComponentForms{
    ComponentForm{Form::CalibratedRGB, Name::GenericRGB, "NSRGB", 3},
    ComponentForm{Form::DeviceRGB, Name::DeviceRGB, "NSRGB", 3},
    ComponentForm{Form::CalibratedWhite, Name::GenericGray, "NSWhite", 1},
    ComponentForm{Form::DeviceWhite, Name::DeviceGray, "NSWhite", 1},
    ComponentForm{Form::CMYK, Name::DeviceCMYK, "NSCMYK", 4},
};

constexpr std::string_view kComponentsKey = "NSComponents";
/// Written by one implementation in place of NSCMYK.
constexpr std::string_view kMisspeltCMYKKey = "NSCYMK";
/// Written by newer systems; kept and not used.
constexpr std::string_view kLinearExposureKey = "NSLinearExposure";

/// How deep the fallbacks of named colours may nest.
constexpr int kMaximumFallbackDepth = 4;

const ComponentForm* componentForm(std::int64_t number)
{
    const auto* const found
        = std::find_if(kComponentForms.begin(), kComponentForms.end(),
                       [&](const auto& each) { return static_cast<std::int64_t>(each.form) == number; });
    return found == kComponentForms.end() ? nullptr : found;
}

const ComponentForm& formForModel(NSColorSpaceModel model)
{
    switch (model) {
    case NSColorSpaceModel::Gray:
        return kComponentForms[2];
    case NSColorSpaceModel::CMYK:
        return kComponentForms[4];
    default:
        return kComponentForms[0];
    }
}

void fail(NSCoder& coder, std::string_view description)
{
    coder.failWithError(NSError::errorWithCode(NSCocoaError::CoderReadCorrupt, description));
}

/// Components without alpha when that is 1, ended by a NUL as the platform ends them.
std::string terminatedText(std::span<const double> components)
{
    const bool isOpaque = components.back() == 1;
    return textFromComponents(isOpaque ? components.first(components.size() - 1) : components) + '\0';
}

NSColor::Ref colorInSpace(const NSColorSpace::Ref& space, std::vector<double> components)
{
    if (components.size() == space->numberOfColorComponents())
        components.push_back(1);
    return NSColor::colorWithColorSpace(space, components);
}

NSColor::Ref colorFromBytes(const std::optional<std::string>& bytes, const NSColorSpace::Ref& space)
{
    const auto components
        = bytes ? componentsFromText(*bytes, space->numberOfColorComponents()) : std::nullopt;
    return components ? colorInSpace(space, *components) : nullptr;
}

} // namespace

NSColor::Ref ColorCoding::componentColor(NSCoder& coder, std::int64_t colorSpace)
{
    const auto& form = *componentForm(colorSpace);
    auto archived = std::make_shared<NSColor::ArchivedForm>();
    archived->colorSpace = colorSpace;
    const auto take = [&](std::string_view key) {
        auto bytes = coder.decodeBytesForKey(key);
        if (bytes)
            archived->bytes.emplace_back(key, *bytes);
        return bytes;
    };
    auto plain = take(form.key);
    if (!plain && form.form == Form::CMYK)
        plain = coder.decodeBytesForKey(kMisspeltCMYKKey);
    const auto exact = take(kComponentsKey);
    (void)take(kLinearExposureKey);
    archived->customSpace
        = coder.decodeObjectOfClass(NSColorSpace::classObject(), "NSCustomColorSpace").object<NSColorSpace>();

    const auto plainColor = colorFromBytes(plain, NSColorSpace::colorSpaceWithName(form.space));
    if (plain && !plainColor)
        return nullptr;
    auto color = plainColor;
    const auto& custom = archived->customSpace;
    if (custom && exact) {
        color = colorFromBytes(exact, custom);
    } else if (custom && custom->name() != Name::None && plain) {
        color = colorFromBytes(plain, custom);
    }
    if (!color)
        return nullptr;
    NSColor kept(*color);
    // The writer of a space that is unknown here converted the colour for those who do not know it.
    if (custom && custom->name() == Name::None)
        std::get<NSColor::Components>(kept.m_value).calibrated = plainColor;
    if (!archived->bytes.empty())
        kept.m_archived = std::move(archived);
    return std::make_shared<const NSColor>(std::move(kept));
}

NSColor::Ref ColorCoding::catalogColor(NSCoder& coder)
{
    const auto catalogName = coder.decodeStringForKey("NSCatalogName");
    const auto colorName = coder.decodeStringForKey("NSColorName");
    if (!catalogName || !colorName)
        return nullptr;
    auto fallback = coder.decodeObjectOfClass(NSColor::classObject(), "NSColor").object<NSColor>();
    auto depth = 0;
    for (const auto* color = fallback.get(); color && color->type() == NSColorType::Catalog; ++depth)
        color = std::get<NSColor::Catalog>(color->m_value).fallback.get();
    if (depth > kMaximumFallbackDepth)
        return nullptr;
    return NSColor::colorWithCatalogName(*catalogName, *colorName, std::move(fallback));
}

NSAny ColorCoding::colorFromCoder(NSCoder& coder)
{
    const auto colorSpace = coder.decodeIntegerForKey("NSColorSpace");
    NSColor::Ref color;
    if (componentForm(colorSpace))
        color = componentColor(coder, colorSpace);
    else if (colorSpace == static_cast<std::int64_t>(Form::Catalog))
        color = catalogColor(coder);
    else if (colorSpace == static_cast<std::int64_t>(Form::Pattern))
        color = NSColor::make(
            NSColor::Pattern{coder.decodeObjectOfClass(PatternImage::imageClass(), "NSImage")});
    if (!color)
        fail(coder, "An archived colour has no form, or no components, that a colour can have.");
    return color ? NSAny(color) : NSAny();
}

NSAny ColorCoding::colorFromMobileCoder(NSCoder& coder)
{
    if (coder.containsValueForKey("NSColorSpace"))
        return colorFromCoder(coder);
    const auto alpha = coder.containsValueForKey("UIAlpha") ? coder.decodeDoubleForKey("UIAlpha") : 1;
    if (coder.containsValueForKey("UIWhite"))
        return NSAny(NSColor::colorWithWhite(coder.decodeDoubleForKey("UIWhite"), alpha));
    if (coder.containsValueForKey("UIRed"))
        return NSAny(NSColor::colorWithSRGBRed(coder.decodeDoubleForKey("UIRed"),
                                               coder.decodeDoubleForKey("UIGreen"),
                                               coder.decodeDoubleForKey("UIBlue"), alpha));
    fail(coder, "An archived colour has no components.");
    return {};
}

void ColorCoding::encodeComponents(const NSColor::Components& components, NSCoder& coder)
{
    const auto count = components.space->numberOfColorComponents();
    const std::span<const double> exact(components.values.data(), count + 1);
    const auto* const simple
        = std::find_if(kComponentForms.begin(), kComponentForms.end(),
                       [&](const auto& each) { return each.space == components.space->name(); });
    if (simple != kComponentForms.end()) {
        coder.encodeInteger(static_cast<std::int64_t>(simple->form), "NSColorSpace");
        coder.encodeBytes(terminatedText(exact), simple->key);
        return;
    }
    // For readers that do not know the space, the colour in the generic space of the same model stands beside
    // it.
    const auto& form = formForModel(components.space->colorSpaceModel());
    coder.encodeInteger(static_cast<std::int64_t>(form.form), "NSColorSpace");
    const auto generic
        = NSColor::make(components)->colorUsingColorSpace(NSColorSpace::colorSpaceWithName(form.space));
    if (generic)
        coder.encodeBytes(terminatedText(generic->components()), form.key);
    coder.encodeBytes(textFromComponents(exact), kComponentsKey);
    coder.encodeObject(NSAny(components.space), "NSCustomColorSpace");
}

void ColorCoding::encode(const NSColor& color, NSCoder& coder)
{
    if (const auto& archived = color.m_archived) {
        coder.encodeInteger(archived->colorSpace, "NSColorSpace");
        for (const auto& [key, bytes] : archived->bytes)
            coder.encodeBytes(bytes, key);
        if (archived->customSpace)
            coder.encodeObject(NSAny(archived->customSpace), "NSCustomColorSpace");
        return;
    }
    if (const auto* components = std::get_if<NSColor::Components>(&color.m_value)) {
        encodeComponents(*components, coder);
        return;
    }
    if (const auto* pattern = std::get_if<NSColor::Pattern>(&color.m_value)) {
        coder.encodeInteger(static_cast<std::int64_t>(Form::Pattern), "NSColorSpace");
        coder.encodeObject(pattern->image, "NSImage");
        return;
    }
    const auto& catalog = std::get<NSColor::Catalog>(color.m_value);
    coder.encodeInteger(static_cast<std::int64_t>(Form::Catalog), "NSColorSpace");
    coder.encodeObject(catalog.catalogName, "NSCatalogName");
    coder.encodeObject(catalog.colorName, "NSColorName");
    coder.encodeObject(NSAny(catalog.fallback), "NSColor");
}

const NSClass& UIColorClass()
{
    static const NSClass kClass{"UIColor", &NSColor::classObject(), &ColorCoding::colorFromMobileCoder};
    return kClass;
}
