#pragma once

#include "platform/foundation/NSCoding.h"
#include "platform/text/NSFontDescriptor.h"

#include <memory>
#include <string>
#include <string_view>

struct FontFace;

/// A face at a size. Immutable and shared; null is "no such font".
///
/// The faces are those that the platform ships, by a table, whether they are installed here or not, and those
/// that are installed. The metrics of the table's main families stand in the table and are the same on every
/// machine; others are those of the installed file, or of an average face.
class NSFont final : public NSCoding {
public:
    using Ref = std::shared_ptr<const NSFont>;

    /// The size of a font that was asked for without one.
    static constexpr double kDefaultSize = 12.0;

    /// The size of the system font in small controls and beneath icons.
    [[nodiscard]] static constexpr double smallSystemFontSize() { return 11.0; }

    /// The font of exactly that PostScript name, "HelveticaNeue-Bold"; null when there is no such face. A
    /// size that is not a positive number means kDefaultSize.
    [[nodiscard]] static Ref fontWithName(std::u16string_view postScriptName, double size);
    /// The face that the name attribute names, else of the family the one nearest to the traits. A size of 0
    /// means the descriptor's own. Null when neither name nor family is known.
    [[nodiscard]] static Ref fontWithDescriptor(const NSFontDescriptor& descriptor, double size);

    [[nodiscard]] static Ref systemFontOfSize(double size, NSFontWeight weight = NSFontWeightRegular);
    [[nodiscard]] static Ref boldSystemFontOfSize(double size);
    /// The user's default font for documents: Helvetica.
    [[nodiscard]] static Ref userFontOfSize(double size);
    /// The user's default fixed-pitch font: Menlo.
    [[nodiscard]] static Ref userFixedPitchFontOfSize(double size);

    /// The PostScript name.
    [[nodiscard]] const std::u16string& fontName() const;
    [[nodiscard]] const std::u16string& familyName() const;
    /// "Helvetica Neue Bold".
    [[nodiscard]] std::u16string displayName() const;
    /// The face within its family: "Bold".
    [[nodiscard]] const std::u16string& faceName() const;

    [[nodiscard]] double pointSize() const { return m_pointSize; }

    /// In points. The descender is negative, the leading is what lies between two lines.
    [[nodiscard]] double ascender() const;
    [[nodiscard]] double descender() const;
    [[nodiscard]] double leading() const;
    [[nodiscard]] double capHeight() const;
    [[nodiscard]] double xHeight() const;
    /// In points; the position is negative, below the baseline.
    [[nodiscard]] double underlinePosition() const;
    [[nodiscard]] double underlineThickness() const;

    [[nodiscard]] bool isFixedPitch() const;
    /// -1 to 1; see NSFontWeightRegular.
    [[nodiscard]] NSFontWeight weight() const;
    /// Bits of NSFontSymbolicTraits.
    [[nodiscard]] unsigned symbolicTraits() const;
    [[nodiscard]] NSFontDescriptor::Ref fontDescriptor() const;

    /// What the font manager knows of the face. Lives as long as the process.
    [[nodiscard]] const FontFace& face() const { return *m_face; }

    /// Same name and size.
    [[nodiscard]] bool isEqual(const NSObject& other) const override;
    [[nodiscard]] std::size_t hash() const override;

    [[nodiscard]] static const NSClass& classObject();
    [[nodiscard]] const NSClass& classForCoder() const override;
    void encodeWithCoder(NSCoder& coder) const override;

private:
    friend class FontCoding;
    friend class NSFontManager;

    NSFont(std::shared_ptr<const FontFace> face, double pointSize);
    static Ref make(std::shared_ptr<const FontFace> face, double pointSize);

    std::shared_ptr<const FontFace> m_face;
    double m_pointSize;
};
