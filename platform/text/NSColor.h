#pragma once

#include "platform/foundation/NSAny.h"
#include "platform/foundation/NSCoding.h"
#include "platform/text/NSAppearance.h"
#include "platform/text/NSColorSpace.h"

#include <array>
#include <cstddef>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <variant>
#include <vector>

/// The numbers are the platform's.
enum class NSColorType { ComponentBased = 0, Pattern = 1, Catalog = 2 };

/// A colour in device RGB. All four from 0 to 1.
struct NSColorRGBA {
    double red = 0;
    double green = 0;
    double blue = 0;
    double alpha = 1;

    friend bool operator==(const NSColorRGBA&, const NSColorRGBA&) = default;
};

/// A colour: components in a colour space; or a name in a catalog, which may stand for different components
/// in a light and a dark appearance; or a pattern, whose image is carried along and not looked at.
///
/// Immutable and shared. Null is "no colour" wherever a colour is returned or taken. What needs components
/// resolves names for the appearance given, light unless said otherwise.
///
/// Conversions are exact where two spaces share their components (device RGB and sRGB do), and map black,
/// white and clear exactly everywhere. ColorConversion.h has the others.
///
/// A colour that came from an archive goes back into one under the keys that it was read with.
class NSColor final : public NSCoding {
public:
    using Ref = std::shared_ptr<const NSColor>;

    /// Components outside of 0 to 1 are taken for 0 and 1; what is no number for 0. `colorWithRed` makes an
    /// sRGB colour.
    [[nodiscard]] static Ref colorWithRed(double red, double green, double blue, double alpha);
    [[nodiscard]] static Ref colorWithSRGBRed(double red, double green, double blue, double alpha);
    [[nodiscard]] static Ref colorWithDeviceRed(double red, double green, double blue, double alpha);
    [[nodiscard]] static Ref colorWithCalibratedRed(double red, double green, double blue, double alpha);
    [[nodiscard]] static Ref colorWithDisplayP3Red(double red, double green, double blue, double alpha);
    /// A grey of generic gamma 2.2.
    [[nodiscard]] static Ref colorWithWhite(double white, double alpha);
    [[nodiscard]] static Ref colorWithDeviceWhite(double white, double alpha);
    [[nodiscard]] static Ref colorWithCalibratedWhite(double white, double alpha);
    [[nodiscard]] static Ref colorWithDeviceCyan(double cyan, double magenta, double yellow, double black,
                                                 double alpha);
    /// Any space; `components` are those of the space, and alpha behind them. Null when their count is not
    /// that of the space.
    [[nodiscard]] static Ref colorWithColorSpace(const NSColorSpace::Ref& space,
                                                 const std::vector<double>& components);

    /// The plain colours, in the calibrated spaces.
    [[nodiscard]] static Ref blackColor();
    [[nodiscard]] static Ref whiteColor();
    [[nodiscard]] static Ref clearColor();
    [[nodiscard]] static Ref darkGrayColor();
    [[nodiscard]] static Ref lightGrayColor();
    [[nodiscard]] static Ref grayColor();
    [[nodiscard]] static Ref redColor();
    [[nodiscard]] static Ref greenColor();
    [[nodiscard]] static Ref blueColor();
    [[nodiscard]] static Ref cyanColor();
    [[nodiscard]] static Ref yellowColor();
    [[nodiscard]] static Ref magentaColor();
    [[nodiscard]] static Ref orangeColor();
    [[nodiscard]] static Ref purpleColor();
    [[nodiscard]] static Ref brownColor();

    /// The dynamic colours of the catalog "System" that the code asks for by name.
    [[nodiscard]] static Ref textColor() { return systemColorNamed(u"textColor"); }

    [[nodiscard]] static Ref labelColor() { return systemColorNamed(u"labelColor"); }

    [[nodiscard]] static Ref secondaryLabelColor() { return systemColorNamed(u"secondaryLabelColor"); }

    [[nodiscard]] static Ref tertiaryLabelColor() { return systemColorNamed(u"tertiaryLabelColor"); }

    [[nodiscard]] static Ref textBackgroundColor() { return systemColorNamed(u"textBackgroundColor"); }

    [[nodiscard]] static Ref controlTextColor() { return systemColorNamed(u"controlTextColor"); }

    [[nodiscard]] static Ref controlBackgroundColor() { return systemColorNamed(u"controlBackgroundColor"); }

    [[nodiscard]] static Ref controlAccentColor() { return systemColorNamed(u"controlAccentColor"); }

    [[nodiscard]] static Ref linkColor() { return systemColorNamed(u"linkColor"); }

    [[nodiscard]] static Ref separatorColor() { return systemColorNamed(u"separatorColor"); }

    [[nodiscard]] static Ref gridColor() { return systemColorNamed(u"gridColor"); }

    /// Any of them, by name; null when the system has none of the name. SystemColors.h lists them.
    [[nodiscard]] static Ref systemColorNamed(std::u16string_view name);

    /// The colour of the application's asset catalog; null when it has none of the name.
    [[nodiscard]] static Ref colorNamed(std::u16string_view name);

    /// A colour known by name, with what stands for it where the name is unknown.
    [[nodiscard]] static Ref colorWithCatalogName(std::u16string_view catalogName,
                                                  std::u16string_view colorName, Ref fallback);

    [[nodiscard]] NSColorType type() const;

    /// Catalog colours only; else empty. "System" and "textColor", for example.
    [[nodiscard]] std::u16string_view catalogNameComponent() const;
    [[nodiscard]] std::u16string_view colorNameComponent() const;

    /// The space of a component-based colour; null for the other types.
    [[nodiscard]] NSColorSpace::Ref colorSpace() const;
    /// The components in its own space, alpha last; empty for the other types.
    [[nodiscard]] std::vector<double> components() const;
    /// 1 for a pattern.
    [[nodiscard]] double alphaComponent(NSAppearance appearance = NSAppearance::Light) const;

    /// The colour in device RGB; none for a pattern.
    [[nodiscard]] std::optional<NSColorRGBA> deviceRGBComponents(NSAppearance appearance
                                                                 = NSAppearance::Light) const;

    /// The colour in the space; null for a pattern, and for a space known by its profile only unless the
    /// colour is of that space.
    [[nodiscard]] Ref colorUsingColorSpace(const NSColorSpace::Ref& space,
                                           NSAppearance appearance = NSAppearance::Light) const;
    /// The colour itself when it is of the type; a name resolved to components; else null.
    [[nodiscard]] Ref colorUsingType(NSColorType type, NSAppearance appearance = NSAppearance::Light) const;

    /// The colour with another alpha; a name is resolved to components. A pattern stays as it is.
    [[nodiscard]] Ref colorWithAlphaComponent(double alpha,
                                              NSAppearance appearance = NSAppearance::Light) const;
    /// The colour mixed with black, or white, in that proportion from 0 to 1; null for a pattern.
    [[nodiscard]] Ref shadowWithLevel(double level, NSAppearance appearance = NSAppearance::Light) const;
    [[nodiscard]] Ref highlightWithLevel(double level, NSAppearance appearance = NSAppearance::Light) const;
    /// The mean of the two in calibrated RGB, where `fraction`, 0 to 1, is the part of `other`; null when one
    /// is a pattern.
    [[nodiscard]] Ref blendedColorWithFraction(double fraction, const NSColor& other,
                                               NSAppearance appearance = NSAppearance::Light) const;

    /// Same space and components, or same names. The comparison of what colours look like is
    /// CVLExtensions::isEqualToColorCVLVersion.
    [[nodiscard]] bool isEqual(const NSObject& other) const override;
    [[nodiscard]] std::size_t hash() const override;

    [[nodiscard]] static const NSClass& classObject();
    [[nodiscard]] const NSClass& classForCoder() const override;
    void encodeWithCoder(NSCoder& coder) const override;

private:
    friend class ColorCoding;

    struct Components {
        NSColorSpace::Ref space;
        std::array<double, 5> values{};
        /// The same colour in a calibrated space, for a space known by its profile only.
        Ref calibrated;
    };

    struct Catalog {
        std::u16string catalogName;
        std::u16string colorName;
        Ref fallback;
    };

    struct Pattern {
        NSAny image;
    };

    /// The values of a colour in an archive that its kind alone does not give.
    struct ArchivedForm;

    using Value = std::variant<Components, Catalog, Pattern>;

    explicit NSColor(Value value);
    static Ref make(Value value);
    static Ref withComponents(NSColorSpace::Name space, const std::array<double, 5>& values);

    Value m_value;
    std::shared_ptr<const ArchivedForm> m_archived;
};
