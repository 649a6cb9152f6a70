#include "platform/foundation/NSKeyedArchiver.h"
#include "platform/foundation/NSKeyedUnarchiver.h"
#include "platform/foundation/NSPropertyList.h"
#include "platform/text/NSColor.h"
#include "platform/text/NSFont.h"
#include "platform/text/TextClasses.h"

#include <gtest/gtest.h>

#include <cmath>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <string>

namespace {

/// Settings of a terminal program: a property list with archived colours and fonts as data values.
class ColorSamplesTest : public testing::Test {
protected:
    void SetUp() override
    {
        if (!std::filesystem::is_directory(folder()))
            GTEST_SKIP() << "no sample archives in " << folder();
    }

    static std::filesystem::path folder() { return std::filesystem::path(CORVEL_SAMPLES_DIR) / "keyed"; }

    static std::string bytesOf(const std::filesystem::path& path)
    {
        std::ifstream file(path, std::ios::binary);
        return {std::istreambuf_iterator<char>(file), {}};
    }

    static NSAny settings(const std::string& name)
    {
        return NSPropertyListSerialization::propertyListWithData(bytesOf(folder() / name));
    }

    static std::string archive(const NSAny& settings, std::u16string_view key)
    {
        const auto* dictionary = settings.dictionary();
        const auto found = dictionary ? dictionary->find(key) : NSAny::Dictionary::const_iterator();
        return dictionary && found != dictionary->end() && found->second.data() ? found->second.data()->bytes
                                                                                : std::string();
    }

    template <typename Class> static std::shared_ptr<const Class> decoded(const std::string& archive)
    {
        return NSKeyedUnarchiver::unarchivedObjectOfClass(Class::classObject(), archive, textClasses())
            .template object<Class>();
    }

    /// The first object of an archive that has the key.
    static NSAny::Dictionary objectWith(std::string_view archive, std::u16string_view key)
    {
        const auto list = NSPropertyListSerialization::propertyListWithData(archive);
        for (const auto& object : *list.dictionary()->at(u"$objects").array()) {
            if (object.dictionary() && object.dictionary()->contains(key))
                return *object.dictionary();
        }
        return {};
    }

    /// The inline values of a colour's object: all that does not depend on the numbering of objects.
    static NSAny::Dictionary inlineValues(std::string_view archive)
    {
        auto values = objectWith(archive, u"NSColorSpace");
        std::erase_if(values, [](const auto& entry) { return entry.second.anyObject() != nullptr; });
        return values;
    }
};

TEST_F(ColorSamplesTest, AreReadWithTheirExactComponents)
{
    const auto alucard = settings("Alucard.terminal");
    const auto blue = decoded<NSColor>(archive(alucard, u"ANSIBlueColor"));
    ASSERT_NE(blue, nullptr);
    EXPECT_EQ(blue->colorSpace()->name(), NSColorSpace::Name::SRGB);
    EXPECT_EQ(blue->deviceRGBComponents(), (NSColorRGBA{0.1973060291, 0.5129697036, 1, 1}));
    const auto magenta = decoded<NSColor>(archive(alucard, u"ANSIBrightMagentaColor"));
    EXPECT_EQ(magenta->colorSpace()->name(), NSColorSpace::Name::DeviceRGB);
    EXPECT_EQ(magenta->deviceRGBComponents(), (NSColorRGBA{1, 0.4745098039, 0.7764705882, 1}));

    const auto background = decoded<NSColor>(archive(settings("myGrass.terminal"), u"BackgroundColor"));
    EXPECT_EQ(background->deviceRGBComponents(),
              (NSColorRGBA{0.074509807, 0.4666667, 0.2392157, 0.9048274928}));
}

TEST_F(ColorSamplesTest, HoldFontsByNameAndSize)
{
    const auto menlo = decoded<NSFont>(archive(settings("Alucard.terminal"), u"Font"));
    ASSERT_NE(menlo, nullptr);
    EXPECT_EQ(menlo->fontName(), u"Menlo-Regular");
    EXPECT_EQ(menlo->pointSize(), 14);
    const auto courier = decoded<NSFont>(archive(settings("myGrass.terminal"), u"Font"));
    EXPECT_EQ(courier->fontName(), u"Courier");
    EXPECT_TRUE(courier->isFixedPitch());
}

TEST_F(ColorSamplesTest, AreWrittenBackWithTheirOwnKeysAndProfiles)
{
    int colours = 0;
    for (const auto* file : {"Alucard.terminal", "Renault_Style_Light.terminal",
                             "Solarized_Dark_ansi.terminal", "Source_Code_X.terminal", "myGrass.terminal"}) {
        const auto all = settings(file);
        ASSERT_TRUE(all.dictionary()) << file;
        for (const auto& [key, value] : *all.dictionary()) {
            if (!value.data() || !key.ends_with(u"Color"))
                continue;
            const auto color = decoded<NSColor>(value.data()->bytes);
            ASSERT_NE(color, nullptr) << file;
            const auto again = NSKeyedArchiver::archivedDataWithRootObject(NSAny(color), true);
            ASSERT_TRUE(again);
            EXPECT_EQ(inlineValues(again->bytes), inlineValues(value.data()->bytes)) << file;
            const auto reread = decoded<NSColor>(again->bytes);
            EXPECT_TRUE(reread->isEqual(*color));
            EXPECT_EQ(reread->colorSpace()->iccProfileData(), color->colorSpace()->iccProfileData());
            ++colours;
        }
    }
    EXPECT_GT(colours, 40);
}

TEST_F(ColorSamplesTest, AgreeWithTheConversionToGenericRGB)
{
    for (const auto* file : {"Alucard.terminal", "Renault_Style_Light.terminal", "myGrass.terminal"}) {
        const auto all = settings(file);
        for (const auto& [key, value] : *all.dictionary()) {
            const auto object
                = value.data() ? objectWith(value.data()->bytes, u"NSComponents") : NSAny::Dictionary();
            if (!object.contains(u"NSRGB"))
                continue;
            const auto color = decoded<NSColor>(value.data()->bytes);
            const auto generic = color->colorUsingColorSpace(NSColorSpace::genericRGBColorSpace());
            auto text = object.at(u"NSRGB").data()->bytes;
            for (const auto component : {0U, 1U, 2U}) {
                std::size_t length = 0;
                EXPECT_NEAR(generic->components()[component], std::stod(text, &length), 3e-5);
                text.erase(0, length);
            }
        }
    }
}

TEST_F(ColorSamplesTest, IncludeABareCalibratedColour)
{
    const auto color = decoded<NSColor>(bytesOf(folder() / "latexit-automator-color.archive"));
    ASSERT_NE(color, nullptr);
    EXPECT_EQ(color->colorSpace()->name(), NSColorSpace::Name::GenericRGB);
    EXPECT_EQ(color->deviceRGBComponents(), (NSColorRGBA{0, 0, 0, 1}));
}

TEST_F(ColorSamplesTest, IncludeAFontDescriptor)
{
    const auto descriptor
        = decoded<NSFontDescriptor>(bytesOf(folder() / "sketch-lists-NSFontDescriptor-1.archive"));
    ASSERT_NE(descriptor, nullptr);
    EXPECT_EQ(descriptor->postscriptName(), u"PingFangSC-Regular");
    EXPECT_EQ(descriptor->pointSize(), 16);
    EXPECT_EQ(NSFont::fontWithDescriptor(*descriptor, 0)->familyName(), u"PingFang SC");
}

} // namespace
