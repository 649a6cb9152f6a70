#include "platform/text/ColorCoding.h"

#include "platform/foundation/NSKeyedArchiver.h"
#include "platform/foundation/NSKeyedUnarchiver.h"
#include "platform/foundation/NSPropertyList.h"
#include "platform/text/TextClasses.h"

#include <gtest/gtest.h>

#include <string>
#include <utility>
#include <vector>

namespace {

using Values = std::vector<double>;
using Name = NSColorSpace::Name;

NSAny uid(std::uint64_t number)
{
    return NSAny(std::shared_ptr<const NSKeyedArchiverUID>(std::make_shared<NSKeyedArchiverUID>(number)));
}

NSAny bytes(std::string_view text)
{
    return NSAny(NSData{std::string(text)});
}

NSAny classRecord(std::u16string_view name)
{
    return NSAny(NSAny::Dictionary{
        {u"$classname", NSAny(name)},
        {u"$classes", NSAny(NSAny::Array{NSAny(name), NSAny(u"NSObject")})},
    });
}

/// An archive whose root has these keys; `others` are the objects from number 3 on.
std::string archiveOf(NSAny::Dictionary root, std::u16string_view className, const NSAny::Array& others = {})
{
    root[u"$class"] = uid(2);
    NSAny::Array objects{NSAny(u"$null"), NSAny(std::move(root)), classRecord(className)};
    objects.insert(objects.end(), others.begin(), others.end());
    const NSAny archive(NSAny::Dictionary{
        {u"$version", NSAny(100000)},
        {u"$archiver", NSAny(u"NSKeyedArchiver")},
        {u"$top", NSAny(NSAny::Dictionary{{u"root", uid(1)}})},
        {u"$objects", NSAny(std::move(objects))},
    });
    return NSPropertyListSerialization::dataWithPropertyList(archive, NSPropertyListFormat::Binary)->bytes;
}

NSColor::Ref colorIn(std::string_view archive, NSError* error = nullptr)
{
    return NSKeyedUnarchiver::unarchivedObjectOfClass(NSColor::classObject(), archive, textClasses(), error)
        .object<NSColor>();
}

NSColor::Ref colorWith(NSAny::Dictionary root, const NSAny::Array& others = {})
{
    return colorIn(archiveOf(std::move(root), u"NSColor", others));
}

std::string archived(const NSColor::Ref& color)
{
    const auto data = NSKeyedArchiver::archivedDataWithRootObject(NSAny(color), true);
    return data ? data->bytes : std::string();
}

/// The keys of the root object of an archive, without its class.
NSAny::Dictionary rootKeys(std::string_view archive)
{
    const auto list = NSPropertyListSerialization::propertyListWithData(archive);
    auto root = *(*list.dictionary()->at(u"$objects").array())[1].dictionary();
    root.erase(u"$class");
    return root;
}

std::string data(const NSAny::Dictionary& keys, std::u16string_view key)
{
    const auto found = keys.find(key);
    return found == keys.end() || !found->second.data() ? "absent" : found->second.data()->bytes;
}

TEST(ColorCoding, ReadsEveryComponentForm)
{
    struct Case {
        int form;
        std::u16string key;
        std::string text;
        Name space;
        Values components;
    };

    const std::vector<Case> cases{
        {1, u"NSRGB", std::string("0.25 0.5 0\0", 11), Name::GenericRGB, {0.25, 0.5, 0, 1}},
        {1, u"NSRGB", "0.034578395 0 0.91326531 0.65", Name::GenericRGB, {0.034578395, 0, 0.91326531, 0.65}},
        {2,
         u"NSRGB",
         std::string("1 0.4745098039 0.7764705882\0", 28),
         Name::DeviceRGB,
         {1, 0.4745098039, 0.7764705882, 1}},
        {3, u"NSWhite", std::string("0 0.89999998\0", 13), Name::GenericGray, {0, 0.89999998}},
        {4, u"NSWhite", "0.5", Name::DeviceGray, {0.5, 1}},
        {5, u"NSCMYK", "0.1 0.2 0.3 0.4", Name::DeviceCMYK, {0.1, 0.2, 0.3, 0.4, 1}},
        {5, u"NSCYMK", "0.1 0.2 0.3 0.4 0.5", Name::DeviceCMYK, {0.1, 0.2, 0.3, 0.4, 0.5}},
    };
    for (const auto& each : cases) {
        const auto color = colorWith({{u"NSColorSpace", NSAny(each.form)}, {each.key, bytes(each.text)}});
        ASSERT_NE(color, nullptr) << each.text;
        EXPECT_EQ(color->colorSpace()->name(), each.space);
        EXPECT_EQ(color->components(), each.components);
    }
}

TEST(ColorCoding, PrefersTheComponentsOfACustomSpace)
{
    const NSAny space(NSAny::Dictionary{{u"NSID", NSAny(7)}, {u"$class", uid(4)}});
    const auto color = colorWith({{u"NSColorSpace", NSAny(1)},
                                  {u"NSRGB", bytes("0.1564897001 0.413073808 0.9984152317")},
                                  {u"NSComponents", bytes("0.1973060291 0.5129697036 1 0.5")},
                                  {u"NSCustomColorSpace", uid(3)}},
                                 {space, classRecord(u"NSColorSpace")});
    ASSERT_NE(color, nullptr);
    EXPECT_EQ(color->colorSpace()->name(), Name::SRGB);
    EXPECT_EQ(color->deviceRGBComponents(), (NSColorRGBA{0.1973060291, 0.5129697036, 1, 0.5}));
}

TEST(ColorCoding, TakesThePlainComponentsForThoseOfACustomSpaceWithoutItsOwn)
{
    const NSAny space(NSAny::Dictionary{{u"NSID", NSAny(1)}, {u"$class", uid(4)}});
    const auto color = colorWith(
        {{u"NSColorSpace", NSAny(1)}, {u"NSRGB", bytes("0 0.5 0")}, {u"NSCustomColorSpace", uid(3)}},
        {space, classRecord(u"NSColorSpace")});
    ASSERT_NE(color, nullptr);
    EXPECT_EQ(color->colorSpace()->name(), Name::GenericRGB);
    EXPECT_EQ(color->components(), (Values{0, 0.5, 0, 1}));
}

TEST(ColorCoding, ShowsAColourOfAnUnknownProfileByItsCalibratedForm)
{
    const NSAny space(NSAny::Dictionary{{u"NSICC", uid(5)}, {u"$class", uid(4)}});
    const auto color = colorWith({{u"NSColorSpace", NSAny(1)},
                                  {u"NSRGB", bytes("1 1 1")},
                                  {u"NSComponents", bytes("0.9 0.9 0.9 1")},
                                  {u"NSCustomColorSpace", uid(3)}},
                                 {space, classRecord(u"NSColorSpace"), bytes("a display's profile")});
    ASSERT_NE(color, nullptr);
    EXPECT_EQ(color->colorSpace()->iccProfileData(), "a display's profile");
    EXPECT_EQ(color->components(), (Values{0.9, 0.9, 0.9, 1}));
    EXPECT_EQ(color->deviceRGBComponents(), (NSColorRGBA{1, 1, 1, 1}));
}

TEST(ColorCoding, KeepsTheKeysThatAColourWasReadWith)
{
    const NSAny space(NSAny::Dictionary{{u"NSSpaceID", NSAny(12)}, {u"NSICC", uid(5)}, {u"$class", uid(4)}});
    const std::string exact = "0.3333333333333333 0.5 1.0 1";
    const auto color = colorWith({{u"NSColorSpace", NSAny(1)},
                                  {u"NSRGB", bytes("0.33333334 0.5 1")},
                                  {u"NSComponents", bytes(exact)},
                                  {u"NSLinearExposure", bytes("1")},
                                  {u"NSCustomColorSpace", uid(3)}},
                                 {space, classRecord(u"NSColorSpace"), bytes("profile")});
    ASSERT_NE(color, nullptr);
    const auto again = archived(color);
    const auto keys = rootKeys(again);
    EXPECT_EQ(keys.size(), 5U);
    EXPECT_EQ(data(keys, u"NSRGB"), "0.33333334 0.5 1");
    EXPECT_EQ(data(keys, u"NSComponents"), exact);
    EXPECT_EQ(data(keys, u"NSLinearExposure"), "1");
    const auto reread = colorIn(again);
    ASSERT_NE(reread, nullptr);
    EXPECT_EQ(reread->colorSpace()->name(), Name::DisplayP3);
    EXPECT_EQ(reread->colorSpace()->iccProfileData(), "profile");
    // A changed colour is a new one.
    const auto changed = rootKeys(archived(color->colorWithAlphaComponent(0.5)));
    EXPECT_EQ(data(changed, u"NSComponents"), "0.3333333333 0.5 1 0.5");
}

TEST(ColorCoding, WritesTheSimpleForms)
{
    struct Case {
        NSColor::Ref color;
        int form;
        std::u16string key;
        std::string text;
    };

    const std::vector<Case> cases{
        {NSColor::colorWithDeviceRed(0.25, 1, 0, 1), 2, u"NSRGB", "0.25 1 0"},
        {NSColor::colorWithCalibratedRed(1.0 / 3, 0, 0, 0.5), 1, u"NSRGB", "0.3333333333 0 0 0.5"},
        {NSColor::blackColor(), 3, u"NSWhite", "0"},
        {NSColor::colorWithDeviceWhite(0.5, 0), 4, u"NSWhite", "0.5 0"},
        {NSColor::colorWithDeviceCyan(0, 0.5, 1, 0, 1), 5, u"NSCMYK", "0 0.5 1 0"},
    };
    for (const auto& each : cases) {
        const auto keys = rootKeys(archived(each.color));
        EXPECT_EQ(keys.size(), 2U);
        EXPECT_EQ(keys.at(u"NSColorSpace"), NSAny(each.form));
        EXPECT_EQ(data(keys, each.key), each.text + '\0');
    }
}

TEST(ColorCoding, WritesSRGBWithItsSpaceAndTheConvertedColour)
{
    const auto archive = archived(NSColor::colorWithRed(0.1973060291, 0.5129697036, 1, 1));
    const auto keys = rootKeys(archive);
    EXPECT_EQ(keys.at(u"NSColorSpace"), NSAny(1));
    EXPECT_EQ(data(keys, u"NSComponents"), "0.1973060291 0.5129697036 1 1");
    // The platform writes 0.1564897001 0.413073808 0.9984152317.
    EXPECT_EQ(data(keys, u"NSRGB").substr(0, 6), "0.1564");
    EXPECT_EQ(data(keys, u"NSRGB").back(), '\0');
    EXPECT_EQ(colorIn(archive)->colorSpace()->name(), Name::SRGB);
    EXPECT_TRUE(colorIn(archive)->isEqual(*NSColor::colorWithRed(0.1973060291, 0.5129697036, 1, 1)));
}

TEST(ColorCoding, ReturnsEveryMadeColourAsItWas)
{
    for (const auto& color :
         {NSColor::colorWithWhite(0.25, 0.5), NSColor::colorWithDisplayP3Red(0.5, 0.25, 1, 1),
          NSColor::textColor(), NSColor::linkColor(), NSColor::colorNamed(u"PinkHighlightColor"),
          NSColor::colorWithColorSpace(NSColorSpace::colorSpaceWithName(Name::ExtendedSRGB),
                                       {-0.5, 1.25, 0, 1}),
          NSColor::colorWithColorSpace(
              NSColorSpace::colorSpaceWithICCProfileData("profile", NSColorSpaceModel::RGB),
              {0.5, 0, 0, 1})}) {
        const auto again = colorIn(archived(color));
        ASSERT_NE(again, nullptr);
        EXPECT_TRUE(again->isEqual(*color));
    }
}

TEST(ColorCoding, WritesASystemColourWithItsFallback)
{
    const auto list = NSPropertyListSerialization::propertyListWithData(archived(NSColor::textColor()));
    const auto again = colorIn(archived(NSColor::textColor()));
    EXPECT_EQ(rootKeys(archived(NSColor::textColor())).at(u"NSColorSpace"), NSAny(6));
    EXPECT_EQ(again->catalogNameComponent(), u"System");
    EXPECT_EQ(again->colorNameComponent(), u"textColor");
    bool hasFallback = false;
    for (const auto& object : *list.dictionary()->at(u"$objects").array()) {
        const auto* keys = object.dictionary();
        if (keys && keys->contains(u"NSWhite"))
            hasFallback = data(*keys, u"NSWhite") == std::string("0\0", 2);
    }
    EXPECT_TRUE(hasFallback);
}

TEST(ColorCoding, ReadsANamedColourThatIsUnknownHere)
{
    const NSAny fallback(
        NSAny::Dictionary{{u"NSColorSpace", NSAny(2)}, {u"NSRGB", bytes("1 0 0")}, {u"$class", uid(2)}});
    const auto color = colorWith({{u"NSColorSpace", NSAny(6)},
                                  {u"NSCatalogName", uid(3)},
                                  {u"NSColorName", uid(4)},
                                  {u"NSColor", uid(5)}},
                                 {NSAny(u"Developer"), NSAny(u"brand"), fallback});
    ASSERT_NE(color, nullptr);
    EXPECT_EQ(color->colorNameComponent(), u"brand");
    EXPECT_EQ(color->deviceRGBComponents(), (NSColorRGBA{1, 0, 0, 1}));
}

TEST(ColorCoding, ReadsColoursOfThePlatformsSmallerSibling)
{
    const auto rgb = colorIn(archiveOf(
        {{u"UIRed", NSAny(0.5)}, {u"UIGreen", NSAny(0)}, {u"UIBlue", NSAny(1)}, {u"UIAlpha", NSAny(0.25)}},
        u"UIColor"));
    ASSERT_NE(rgb, nullptr);
    EXPECT_EQ(rgb->deviceRGBComponents(), (NSColorRGBA{0.5, 0, 1, 0.25}));
    const auto white = colorIn(archiveOf({{u"UIWhite", NSAny(1)}}, u"UIColor"));
    EXPECT_EQ(white->deviceRGBComponents(), (NSColorRGBA{1, 1, 1, 1}));
    const auto both = colorIn(archiveOf(
        {{u"UIRed", NSAny(0.5)}, {u"NSColorSpace", NSAny(2)}, {u"NSRGB", bytes("0.25 0 0")}}, u"UIColor"));
    EXPECT_EQ(both->components(), (Values{0.25, 0, 0, 1}));
}

/// A pattern colour whose image has a bitmap and a background, in the form of the platform.
std::string patternArchive()
{
    const auto array = [](NSAny::Array elements) {
        return NSAny(NSAny::Dictionary{{u"NS.objects", NSAny(std::move(elements))}, {u"$class", uid(9)}});
    };
    return archiveOf({{u"NSColorSpace", NSAny(10)}, {u"NSImage", uid(3)}}, u"NSColor",
                     {
                         NSAny(NSAny::Dictionary{{u"NSSize", uid(10)},
                                                 {u"NSImageFlags", NSAny(12582912)},
                                                 {u"NSReps", uid(5)},
                                                 {u"NSColor", uid(12)},
                                                 {u"$class", uid(4)}}),
                         classRecord(u"NSImage"),
                         array({uid(6)}),
                         array({uid(11), uid(7)}),
                         NSAny(NSAny::Dictionary{{u"NSTIFFRepresentation", uid(13)}, {u"$class", uid(8)}}),
                         classRecord(u"NSBitmapImageRep"),
                         classRecord(u"NSArray"),
                         NSAny(u"{8, 8}"),
                         NSAny(0),
                         NSAny(NSAny::Dictionary{
                             {u"NSColorSpace", NSAny(3)}, {u"NSWhite", bytes("0 0")}, {u"$class", uid(2)}}),
                         bytes("II*"),
                     });
}

TEST(ColorCoding, CarriesTheImageOfAPatternAlong)
{
    const auto pattern = colorIn(patternArchive());
    ASSERT_NE(pattern, nullptr);
    EXPECT_EQ(pattern->type(), NSColorType::Pattern);
    const auto archive = archived(pattern);
    const auto again = colorIn(archive);
    ASSERT_NE(again, nullptr);
    EXPECT_TRUE(again->isEqual(*pattern));
    EXPECT_NE(archive.find("II*"), std::string::npos);
    EXPECT_NE(archive.find("{8, 8}"), std::string::npos);
}

TEST(ColorCoding, HasNoComponentsForAPattern)
{
    const auto pattern = colorIn(patternArchive());
    ASSERT_NE(pattern, nullptr);
    EXPECT_EQ(pattern->deviceRGBComponents(), std::nullopt);
    EXPECT_EQ(pattern->colorUsingType(NSColorType::ComponentBased), nullptr);
    EXPECT_EQ(pattern->colorUsingColorSpace(NSColorSpace::sRGBColorSpace()), nullptr);
    EXPECT_EQ(pattern->shadowWithLevel(0.5), nullptr);
    EXPECT_EQ(pattern->alphaComponent(), 1);
    EXPECT_TRUE(pattern->colorWithAlphaComponent(0.5)->isEqual(*pattern));
    EXPECT_FALSE(pattern->isEqual(*NSColor::blackColor()));
}

TEST(ColorCoding, FailsForWhatIsNoColour)
{
    const std::vector<NSAny::Dictionary> broken{
        {},
        {{u"NSColorSpace", NSAny(7)}, {u"NSRGB", bytes("0 0 0")}},
        {{u"NSColorSpace", NSAny(1)}},
        {{u"NSColorSpace", NSAny(1)}, {u"NSRGB", bytes("0 0")}},
        {{u"NSColorSpace", NSAny(1)}, {u"NSRGB", bytes("red green blue")}},
        {{u"NSColorSpace", NSAny(2)}, {u"NSWhite", bytes("0")}},
        {{u"NSColorSpace", NSAny(6)}},
    };
    for (const auto& root : broken) {
        NSError error;
        EXPECT_EQ(colorIn(archiveOf(root, u"NSColor"), &error), nullptr);
        EXPECT_EQ(error.domain(), NSCocoaErrorDomain);
        EXPECT_EQ(error.code(), static_cast<int>(NSCocoaError::CoderReadCorrupt));
    }
}

TEST(ColorCoding, FailsForACustomSpaceThatDoesNotFit)
{
    const auto withSpace = [](NSAny::Dictionary space, std::string_view components) {
        space[u"$class"] = uid(4);
        return colorWith({{u"NSColorSpace", NSAny(1)},
                          {u"NSComponents", bytes(components)},
                          {u"NSCustomColorSpace", uid(3)}},
                         {NSAny(std::move(space)), classRecord(u"NSColorSpace")});
    };
    EXPECT_EQ(withSpace({{u"NSID", NSAny(9)}}, "0 0 0 1"), nullptr);
    EXPECT_EQ(withSpace({{u"NSID", NSAny(7)}, {u"NSModel", NSAny(0)}}, "0 0 0 1"), nullptr);
    EXPECT_EQ(withSpace({{u"NSModel", NSAny(9)}}, "0 0 0 1"), nullptr);
    EXPECT_NE(withSpace({{u"NSID", NSAny(7)}}, "0 0 0 1"), nullptr);
    EXPECT_NE(withSpace({{u"NSID", NSAny(9)}, {u"NSModel", NSAny(0)}}, "0 1"), nullptr);
}

} // namespace
