#include "platform/text/NSColorSpace.h"

#include "platform/foundation/NSAny.h"
#include "platform/foundation/NSCoder.h"

#include <array>
#include <functional>

namespace {

using Name = NSColorSpace::Name;

constexpr std::array kNames{Name::GenericRGB,
                            Name::GenericGray,
                            Name::GenericCMYK,
                            Name::DeviceRGB,
                            Name::DeviceGray,
                            Name::DeviceCMYK,
                            Name::SRGB,
                            Name::AdobeRGB1998,
                            Name::GenericGamma22Gray,
                            Name::DisplayP3,
                            Name::DCIP3,
                            Name::ExtendedSRGB,
                            Name::LinearSRGB,
                            Name::ExtendedGenericGamma22Gray,
                            Name::ExtendedLinearSRGB};

NSColorSpaceModel modelOfName(Name name)
{
    switch (name) {
    case Name::GenericGray:
    case Name::DeviceGray:
    case Name::GenericGamma22Gray:
    case Name::ExtendedGenericGamma22Gray:
        return NSColorSpaceModel::Gray;
    case Name::GenericCMYK:
    case Name::DeviceCMYK:
        return NSColorSpaceModel::CMYK;
    default:
        return NSColorSpaceModel::RGB;
    }
}

Name nameWithNumber(std::int64_t number)
{
    for (const auto name : kNames) {
        if (static_cast<std::int64_t>(name) == number)
            return name;
    }
    return Name::None;
}

/// The profile that the platform stores for sRGB, and no other of the many that mention it.
bool isSRGBProfile(std::string_view profile)
{
    constexpr std::size_t kLength = 3144;
    return profile.size() == kLength && profile.find("sRGB IEC61966-2.1") != std::string_view::npos;
}

std::optional<NSColorSpaceModel> modelWithNumber(std::int64_t number)
{
    if (number < 0 || number > 2)
        return std::nullopt;
    return static_cast<NSColorSpaceModel>(number);
}

constexpr std::int64_t kFirstSpaceID = 12;

} // namespace

NSColorSpace::NSColorSpace(Name name, NSColorSpaceModel model)
    : m_name(name)
    , m_model(model)
{
}

NSColorSpace::Ref NSColorSpace::colorSpaceWithName(Name name)
{
    static const auto spaces = [] {
        std::array<Ref, kNames.size()> made;
        for (std::size_t i = 0; i < kNames.size(); ++i)
            made[i] = Ref(std::make_shared<NSColorSpace>(NSColorSpace(kNames[i], modelOfName(kNames[i]))));
        return made;
    }();
    for (const auto& space : spaces) {
        if (space->m_name == name)
            return space;
    }
    return nullptr;
}

NSColorSpace::Ref NSColorSpace::colorSpaceWithICCProfileData(std::string_view profile,
                                                             NSColorSpaceModel model)
{
    if (isSRGBProfile(profile))
        return sRGBColorSpace();
    NSColorSpace space(Name::None, model);
    space.m_iccProfile = std::string(profile);
    return std::make_shared<NSColorSpace>(std::move(space));
}

std::size_t NSColorSpace::numberOfColorComponents() const
{
    switch (m_model) {
    case NSColorSpaceModel::Gray:
        return 1;
    case NSColorSpaceModel::CMYK:
        return 4;
    default:
        return 3;
    }
}

bool NSColorSpace::isExtended() const
{
    return m_name == Name::ExtendedSRGB || m_name == Name::ExtendedGenericGamma22Gray
        || m_name == Name::ExtendedLinearSRGB;
}

bool NSColorSpace::isEqual(const NSObject& other) const
{
    const auto* space = dynamic_cast<const NSColorSpace*>(&other);
    if (!space || space->m_name != m_name)
        return false;
    return m_name != Name::None || (space->m_model == m_model && space->m_iccProfile == m_iccProfile);
}

std::size_t NSColorSpace::hash() const
{
    if (m_name != Name::None)
        return static_cast<std::size_t>(m_name);
    return std::hash<std::string>()(m_iccProfile.value_or(std::string()));
}

const NSClass& NSColorSpace::classObject()
{
    static constexpr NSClass kClass{"NSColorSpace", &NSObjectClass, &NSColorSpace::initWithCoder};
    return kClass;
}

const NSClass& NSColorSpace::classForCoder() const
{
    return classObject();
}

void NSColorSpace::encodeWithCoder(NSCoder& coder) const
{
    const auto number = static_cast<std::int64_t>(m_name);
    if (m_name != Name::None && m_isNameArchived)
        coder.encodeInteger(number, number < kFirstSpaceID ? "NSID" : "NSSpaceID");
    if (m_iccProfile)
        coder.encodeObject(NSData{*m_iccProfile}, "NSICC");
    if (m_model != NSColorSpaceModel::RGB)
        coder.encodeInteger(static_cast<std::int64_t>(m_model), "NSModel");
}

NSAny NSColorSpace::initWithCoder(NSCoder& coder)
{
    auto name = nameWithNumber(coder.decodeIntegerForKey("NSID"));
    if (name == Name::None)
        name = nameWithNumber(coder.decodeIntegerForKey("NSSpaceID"));
    auto profile = coder.decodeBytesForKey("NSICC");
    const bool isNameArchived = name != Name::None;
    if (!isNameArchived && profile && isSRGBProfile(*profile))
        name = Name::SRGB;
    const auto model = coder.containsValueForKey("NSModel")
        ? modelWithNumber(coder.decodeIntegerForKey("NSModel"))
        : modelOfName(name);
    if (!model || (name != Name::None && *model != modelOfName(name))) {
        coder.failWithError(NSError::errorWithCode(NSCocoaError::CoderReadCorrupt,
                                                   "A colour space has a colour model that it cannot have."));
        return {};
    }
    NSColorSpace space(name, *model);
    space.m_isNameArchived = isNameArchived;
    space.m_iccProfile = std::move(profile);
    return NSAny(Ref(std::make_shared<NSColorSpace>(std::move(space))));
}
