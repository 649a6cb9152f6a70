#include "platform/text/NSFontManager.h"

#include "platform/text/FontCatalog.h"
#include "platform/text/FontFace.h"

#include <algorithm>
#include <array>

namespace {

/// The traits that make another shape of a face; bold is a weight.
constexpr unsigned kShapeTraits = NSFontItalicTrait | NSFontCondensedTrait | NSFontExpandedTrait;

unsigned symbolicTraits(unsigned mask)
{
    unsigned traits = 0;
    if (mask & NSItalicFontMask)
        traits |= NSFontItalicTrait;
    if (mask & (NSCondensedFontMask | NSNarrowFontMask))
        traits |= NSFontCondensedTrait;
    if (mask & NSExpandedFontMask)
        traits |= NSFontExpandedTrait;
    return traits;
}

NSFontWeight descriptorWeightOfNumber(int number)
{
    static constexpr std::array kSteps{FontWeight::UltraLight, FontWeight::Thin,   FontWeight::Light,
                                       FontWeight::Regular,    FontWeight::Medium, FontWeight::Semibold,
                                       FontWeight::Bold,       FontWeight::Heavy,  FontWeight::Black};
    const auto* const step = std::find_if(kSteps.begin(), kSteps.end(), [number](FontWeight weight) {
        return number <= fontManagerWeight(weight);
    });
    return descriptorWeight(step == kSteps.end() ? FontWeight::Black : *step);
}

constexpr int kRegularWeight = 5;
constexpr int kBoldWeight = 9;

} // namespace

const NSFontManager& NSFontManager::sharedFontManager()
{
    static const NSFontManager manager;
    return manager;
}

unsigned NSFontManager::traitsOfFont(const NSFont& font) const
{
    const auto traits = font.symbolicTraits();
    unsigned mask = 0;
    if (traits & NSFontItalicTrait)
        mask |= NSItalicFontMask;
    if (traits & NSFontBoldTrait)
        mask |= NSBoldFontMask;
    if (traits & NSFontCondensedTrait)
        mask |= NSCondensedFontMask;
    if (traits & NSFontExpandedTrait)
        mask |= NSExpandedFontMask;
    if (traits & NSFontMonoSpaceTrait)
        mask |= NSFixedPitchFontMask;
    return mask;
}

int NSFontManager::weightOfFont(const NSFont& font) const
{
    return fontManagerWeight(font.face().weight);
}

NSFont::Ref NSFontManager::fontWithFamily(std::u16string_view family, unsigned traits, int weight,
                                          double size) const
{
    const bool wantsBold = (traits & NSBoldFontMask) != 0;
    if (wantsBold)
        weight = std::max(weight, kBoldWeight);
    if (traits & NSUnboldFontMask)
        weight = std::min(weight, kRegularWeight);
    auto face = nearestFace(facesOfFamily(family), symbolicTraits(traits), kShapeTraits,
                            descriptorWeightOfNumber(weight));
    if (face && wantsBold && !(face->traits & NSFontBoldTrait))
        return nullptr;
    return NSFont::make(std::move(face), size);
}

NSFont::Ref NSFontManager::convertFontToHaveTrait(const NSFont::Ref& font, NSFontTraitMask trait) const
{
    if (trait == NSUnboldFontMask)
        return convertFontToNotHaveTrait(font, NSBoldFontMask);
    if (trait == NSUnitalicFontMask)
        return convertFontToNotHaveTrait(font, NSItalicFontMask);
    const auto traits = traitsOfFont(*font);
    if ((traits & trait) == trait)
        return font;
    const auto converted
        = fontWithFamily(font->familyName(), traits | trait, weightOfFont(*font), font->pointSize());
    return converted ? converted : font;
}

NSFont::Ref NSFontManager::convertFontToNotHaveTrait(const NSFont::Ref& font, NSFontTraitMask trait) const
{
    auto traits = traitsOfFont(*font);
    if ((traits & trait) == 0)
        return font;
    traits &= ~static_cast<unsigned>(trait);
    if (trait == NSBoldFontMask)
        traits |= NSUnboldFontMask;
    const auto converted = fontWithFamily(font->familyName(), traits, weightOfFont(*font), font->pointSize());
    return converted ? converted : font;
}

NSFont::Ref NSFontManager::convertFontToSize(const NSFont::Ref& font, double size) const
{
    return NSFont::make(font->m_face, size);
}

NSFont::Ref NSFontManager::convertFontToFamily(const NSFont::Ref& font, std::u16string_view family) const
{
    const auto converted
        = fontWithFamily(family, traitsOfFont(*font), weightOfFont(*font), font->pointSize());
    return converted ? converted : font;
}
