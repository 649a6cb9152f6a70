#pragma once

#include "platform/foundation/NSCoding.h"

#include <cstddef>
#include <memory>
#include <optional>
#include <string>
#include <string_view>

/// The kinds of components, with the numbers that archives hold.
enum class NSColorSpaceModel { Gray = 0, RGB = 1, CMYK = 2 };

/// What the components of a colour mean. The named spaces are known by number; any other space is its ICC
/// profile, which is kept and not interpreted.
///
/// Immutable. Two spaces are equal when they are the same named space, or have the same profile.
class NSColorSpace final : public NSCoding {
public:
    /// The numbers of the named spaces in archives. 1 to 9 stand under NSID, those above under NSSpaceID.
    enum class Name {
        /// Known by its profile only.
        None = 0,
        GenericRGB = 1,
        GenericGray = 2,
        GenericCMYK = 3,
        DeviceRGB = 4,
        DeviceGray = 5,
        DeviceCMYK = 6,
        SRGB = 7,
        AdobeRGB1998 = 8,
        GenericGamma22Gray = 9,
        DisplayP3 = 12,
        DCIP3 = 13,
        ExtendedSRGB = 14,
        ExtendedGenericGamma22Gray = 15,
        LinearSRGB = 16,
        ExtendedLinearSRGB = 17,
    };

    using Ref = std::shared_ptr<const NSColorSpace>;

    [[nodiscard]] static Ref deviceRGBColorSpace() { return colorSpaceWithName(Name::DeviceRGB); }

    [[nodiscard]] static Ref genericRGBColorSpace() { return colorSpaceWithName(Name::GenericRGB); }

    [[nodiscard]] static Ref sRGBColorSpace() { return colorSpaceWithName(Name::SRGB); }

    [[nodiscard]] static Ref displayP3ColorSpace() { return colorSpaceWithName(Name::DisplayP3); }

    [[nodiscard]] static Ref deviceGrayColorSpace() { return colorSpaceWithName(Name::DeviceGray); }

    [[nodiscard]] static Ref genericGrayColorSpace() { return colorSpaceWithName(Name::GenericGray); }

    [[nodiscard]] static Ref genericGamma22GrayColorSpace()
    {
        return colorSpaceWithName(Name::GenericGamma22Gray);
    }

    [[nodiscard]] static Ref deviceCMYKColorSpace() { return colorSpaceWithName(Name::DeviceCMYK); }

    [[nodiscard]] static Ref genericCMYKColorSpace() { return colorSpaceWithName(Name::GenericCMYK); }

    /// A named space. Always the same object for the same name; null for Name::None.
    [[nodiscard]] static Ref colorSpaceWithName(Name name);
    /// The space of a profile: the named space if it is that of sRGB, else one known by its profile.
    [[nodiscard]] static Ref colorSpaceWithICCProfileData(std::string_view profile, NSColorSpaceModel model);

    [[nodiscard]] Name name() const { return m_name; }

    [[nodiscard]] NSColorSpaceModel colorSpaceModel() const { return m_model; }

    /// Without alpha: 1, 3 or 4.
    [[nodiscard]] std::size_t numberOfColorComponents() const;

    /// Whether components below 0 and above 1 have a meaning.
    [[nodiscard]] bool isExtended() const;

    /// The profile that the space was made with or read with.
    [[nodiscard]] const std::optional<std::string>& iccProfileData() const { return m_iccProfile; }

    [[nodiscard]] bool isEqual(const NSObject& other) const override;
    [[nodiscard]] std::size_t hash() const override;

    [[nodiscard]] static const NSClass& classObject();
    [[nodiscard]] const NSClass& classForCoder() const override;
    void encodeWithCoder(NSCoder& coder) const override;

private:
    NSColorSpace(Name name, NSColorSpaceModel model);
    static NSAny initWithCoder(NSCoder& coder);

    Name m_name;
    NSColorSpaceModel m_model;
    /// Whether the number was read, or is implied by a profile that was read without one.
    bool m_isNameArchived = true;
    std::optional<std::string> m_iccProfile;
};
