#pragma once

#include "platform/foundation/NSAny.h"
#include "platform/foundation/NSCoding.h"

#include <memory>
#include <string_view>

/// A PostScript name.
inline constexpr std::u16string_view NSFontNameAttribute = u"NSFontNameAttribute";
/// Real, points.
inline constexpr std::u16string_view NSFontSizeAttribute = u"NSFontSizeAttribute";
inline constexpr std::u16string_view NSFontFamilyAttribute = u"NSFontFamilyAttribute";
/// A face within the family: "Bold Italic".
inline constexpr std::u16string_view NSFontFaceAttribute = u"NSFontFaceAttribute";
/// A dictionary of the traits below.
inline constexpr std::u16string_view NSFontTraitsAttribute = u"NSFontTraitsAttribute";

/// NSFontSymbolicTraits.
inline constexpr std::u16string_view NSFontSymbolicTrait = u"NSCTFontSymbolicTrait";
/// Real from -1 to 1; 0 is regular.
inline constexpr std::u16string_view NSFontWeightTrait = u"NSCTFontWeightTrait";
inline constexpr std::u16string_view NSFontWidthTrait = u"NSCTFontProportionTrait";
inline constexpr std::u16string_view NSFontSlantTrait = u"NSCTFontSlantTrait";

using NSFontWeight = double;
inline constexpr NSFontWeight NSFontWeightUltraLight = -0.8;
inline constexpr NSFontWeight NSFontWeightThin = -0.6;
inline constexpr NSFontWeight NSFontWeightLight = -0.4;
inline constexpr NSFontWeight NSFontWeightRegular = 0.0;
inline constexpr NSFontWeight NSFontWeightMedium = 0.23;
inline constexpr NSFontWeight NSFontWeightSemibold = 0.3;
inline constexpr NSFontWeight NSFontWeightBold = 0.4;
inline constexpr NSFontWeight NSFontWeightHeavy = 0.56;
inline constexpr NSFontWeight NSFontWeightBlack = 0.62;

/// Bits of NSFontSymbolicTrait.
enum NSFontSymbolicTraits : unsigned {
    NSFontItalicTrait = 1U << 0U,
    NSFontBoldTrait = 1U << 1U,
    NSFontExpandedTrait = 1U << 5U,
    NSFontCondensedTrait = 1U << 6U,
    NSFontMonoSpaceTrait = 1U << 10U,
};

/// What a font should be like, as attributes. Immutable and shared; NSFont::fontWithDescriptor finds the
/// font.
class NSFontDescriptor final : public NSCoding {
public:
    using Ref = std::shared_ptr<const NSFontDescriptor>;

    [[nodiscard]] static Ref fontDescriptorWithFontAttributes(NSAny::Dictionary attributes);
    [[nodiscard]] static Ref fontDescriptorWithName(std::u16string_view postScriptName, double size);

    [[nodiscard]] const NSAny::Dictionary& fontAttributes() const { return m_attributes; }

    /// Nil when absent.
    [[nodiscard]] NSAny objectForKey(std::u16string_view attribute) const;
    /// The name attribute; empty when absent.
    [[nodiscard]] std::u16string_view postscriptName() const;
    /// The size attribute; 0 when absent.
    [[nodiscard]] double pointSize() const;

    /// With further attributes; those given replace those there.
    [[nodiscard]] Ref fontDescriptorByAddingAttributes(const NSAny::Dictionary& attributes) const;

    /// Same attributes.
    [[nodiscard]] bool isEqual(const NSObject& other) const override;
    [[nodiscard]] std::size_t hash() const override;

    [[nodiscard]] static const NSClass& classObject();
    [[nodiscard]] const NSClass& classForCoder() const override;
    void encodeWithCoder(NSCoder& coder) const override;

private:
    explicit NSFontDescriptor(NSAny::Dictionary attributes);
    static NSAny initWithCoder(NSCoder& coder);

    NSAny::Dictionary m_attributes;
};
