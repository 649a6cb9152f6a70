#pragma once

#include "platform/text/NSFont.h"

#include <string_view>

/// Bits; the numbers are the platform's.
enum NSFontTraitMask : unsigned {
    NSItalicFontMask = 0x01,
    NSBoldFontMask = 0x02,
    NSUnboldFontMask = 0x04,
    NSNarrowFontMask = 0x10,
    NSExpandedFontMask = 0x20,
    NSCondensedFontMask = 0x40,
    NSFixedPitchFontMask = 0x400,
    NSUnitalicFontMask = 0x1000000,
};

/// Finds the faces of families. Has no state of its own.
class NSFontManager {
public:
    [[nodiscard]] static const NSFontManager& sharedFontManager();

    /// Bits of NSFontTraitMask.
    [[nodiscard]] unsigned traitsOfFont(const NSFont& font) const;
    /// From 0 to 15: 5 is regular, 6 medium, 9 bold.
    [[nodiscard]] int weightOfFont(const NSFont& font) const;

    /// Of the family, the face of those traits (NSItalicFontMask, NSCondensedFontMask, NSExpandedFontMask)
    /// whose weight is nearest; NSBoldFontMask asks for at least weight 9 and NSUnboldFontMask for at most 5.
    /// Null when the family is unknown or has no face of those traits.
    [[nodiscard]] NSFont::Ref fontWithFamily(std::u16string_view family, unsigned traits, int weight,
                                             double size) const;

    /// The font of the same family, or size, with what is asked for; the font itself when there is none.
    [[nodiscard]] NSFont::Ref convertFontToHaveTrait(const NSFont::Ref& font, NSFontTraitMask trait) const;
    [[nodiscard]] NSFont::Ref convertFontToNotHaveTrait(const NSFont::Ref& font, NSFontTraitMask trait) const;
    [[nodiscard]] NSFont::Ref convertFontToSize(const NSFont::Ref& font, double size) const;
    /// Traits and weight of the font in another family; the font itself when there is none.
    [[nodiscard]] NSFont::Ref convertFontToFamily(const NSFont::Ref& font, std::u16string_view family) const;

private:
    NSFontManager() = default;
};
