#include "platform/layout/LayoutText.h"

#include "platform/drawing/PangoText.h"
#include "platform/layout/LayoutLimits.h"
#include "platform/text/NSAttributeNames.h"
#include "platform/text/NSColor.h"
#include "platform/text/NSFontManager.h"

#include <cmath>

namespace {

/// Of the font's size.
constexpr double kRaisedSize = 0.7;
constexpr double kRisePerLevel = 0.35;
constexpr double kMostLevels = 3;
/// What a slant or a widening must come up to before it gets a face of its own.
constexpr double kLeastSlant = 0.05;
constexpr double kLeastExpansion = 0.1;

NSAny valueOf(const NSAttributes& attributes, std::u16string_view name)
{
    const auto found = attributes.find(name);
    return found == attributes.end() ? NSAny() : found->second;
}

void resolveColor(NSAttributes& attributes)
{
    const auto set = [&](std::u16string_view name, const NSAny& value) {
        attributes.insert_or_assign(std::u16string(name), value);
    };
    if (!valueOf(attributes, NSLinkAttributeName).isNil()) {
        set(NSForegroundColorAttributeName, NSColor::linkColor());
        set(NSUnderlineStyleAttributeName, NSAny(1));
    } else if (!valueOf(attributes, NSForegroundColorAttributeName).object<NSColor>()) {
        set(NSForegroundColorAttributeName, NSColor::textColor());
    }
}

NSFont::Ref faceOf(const NSAttributes& attributes, NSFont::Ref font)
{
    const auto& manager = NSFontManager::sharedFontManager();
    if (std::abs(valueOf(attributes, NSObliquenessAttributeName).doubleValue()) >= kLeastSlant)
        font = manager.convertFontToHaveTrait(font, NSItalicFontMask);
    const auto expansion = valueOf(attributes, NSExpansionAttributeName).doubleValue();
    if (expansion >= kLeastExpansion)
        font = manager.convertFontToHaveTrait(font, NSExpandedFontMask);
    if (expansion <= -kLeastExpansion)
        font = manager.convertFontToHaveTrait(font, NSCondensedFontMask);
    return font;
}

void resolveFont(NSAttributes& attributes)
{
    auto font = faceOf(attributes, fontOfAttributes(attributes));
    const auto level
        = boundedLength(static_cast<double>(valueOf(attributes, NSSuperscriptAttributeName).integerValue()),
                        -kMostLevels, kMostLevels);
    if (level != 0) {
        const auto offset = boundedLength(valueOf(attributes, NSBaselineOffsetAttributeName).doubleValue(),
                                          -kLargestLength);
        attributes.insert_or_assign(std::u16string(NSBaselineOffsetAttributeName),
                                    offset + level * kRisePerLevel * font->pointSize());
        font = NSFontManager::sharedFontManager().convertFontToSize(font, font->pointSize() * kRaisedSize);
    }
    attributes.insert_or_assign(std::u16string(NSFontAttributeName), font);
}

} // namespace

NSAttributedString layoutText(const NSAttributedString& text)
{
    NSMutableAttributedString result(text);
    text.enumerateAttributesInRange(
        {0, text.length()}, {}, [&](const NSAttributes& attributes, NSRange run, bool&) {
            auto resolved = attributes;
            resolveColor(resolved);
            resolveFont(resolved);
            if (const auto found = resolved.find(NSBackgroundColorAttributeName); found != resolved.end())
                resolved.erase(found);
            result.setAttributes(resolved, run);
        });
    return result.copy();
}
