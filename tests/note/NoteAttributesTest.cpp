#include "note/NoteAttributes.h"

#include "colours/ColourEquality.h"
#include "colours/ColourForms.h"
#include "tests/note/NotePackages.h"

#include <gmock/gmock.h>

using testing::ElementsAre;
using testing::IsEmpty;

namespace {

NoteAttributes read(const NSAny::Dictionary& attributes)
{
    return NoteAttributes::attributesFromData(attributesData(attributes));
}

NoteAttributes readRanges(NSAny ranges)
{
    return read({{u"dividerRanges", std::move(ranges)}});
}

bool saysNothing(const NoteAttributes& attributes)
{
    return !attributes.showSmallImages && !attributes.backgroundColor && attributes.dividerRanges.empty()
        && attributes.drawingDataByAttachmentKey.isNil() && !attributes.usesColorTypes;
}

} // namespace

TEST(NoteAttributes, HaveTheKeysThatPackagesHold)
{
    EXPECT_EQ(kNoteAppIdentifierKey, u"appIdentifier");
    EXPECT_EQ(kNoteAppVersionKey, u"appVersion");
    EXPECT_EQ(kNoteShowSmallImagesKey, u"showSmallImages");
    EXPECT_EQ(kNoteBackgroundColorKey, u"backgroundColor");
    EXPECT_EQ(kNoteDividerRangesKey, u"dividerRanges");
    EXPECT_EQ(kNoteDrawingsDataKey, u"drawingsData");
    EXPECT_EQ(kNoteUsesColorTypesKey, u"usesColorTypes");
}

TEST(NoteAttributes, SayNothingWithoutTheKeys)
{
    EXPECT_TRUE(saysNothing(read({})));
    EXPECT_TRUE(saysNothing(read({{u"appIdentifier", u"com.example"}, {u"ShowSmallImages", true}})));
}

TEST(NoteAttributes, SayNothingWhenTheBytesAreNoPropertyListOfThem)
{
    EXPECT_TRUE(saysNothing(NoteAttributes::attributesFromData("")));
    EXPECT_TRUE(saysNothing(NoteAttributes::attributesFromData("bplist00 and no more")));
    const auto array
        = NSPropertyListSerialization::dataWithPropertyList(NSAny::Array{true}, NSPropertyListFormat::Binary);
    EXPECT_TRUE(saysNothing(NoteAttributes::attributesFromData(array.value().bytes)));
}

TEST(NoteAttributes, AreReadInAnyFormOfPropertyList)
{
    constexpr std::string_view kXML = "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n"
                                      "<plist version=\"1.0\"><dict><key>showSmallImages</key><true/>"
                                      "<key>dividerRanges</key><array><string>{1, 3}</string></array>"
                                      "</dict></plist>";
    const auto attributes = NoteAttributes::attributesFromData(kXML);
    EXPECT_TRUE(attributes.showSmallImages);
    EXPECT_THAT(attributes.dividerRanges, ElementsAre(NSRange{1, 3}));
}

TEST(NoteAttributes, TakeTheBooleanReadingOfTheirFlags)
{
    for (const auto& value : {NSAny(true), NSAny(1), NSAny(0.5), NSAny(u"YES")}) {
        const auto attributes = read({{u"showSmallImages", value}, {u"usesColorTypes", value}});
        EXPECT_TRUE(attributes.showSmallImages);
        EXPECT_TRUE(attributes.usesColorTypes);
    }
    for (const auto& value : {NSAny(false), NSAny(0), NSAny(u"NO"), NSAny(NSAny::Array{true})}) {
        const auto attributes = read({{u"showSmallImages", value}, {u"usesColorTypes", value}});
        EXPECT_FALSE(attributes.showSmallImages);
        EXPECT_FALSE(attributes.usesColorTypes);
    }
}

TEST(NoteAttributes, HaveTheBackgroundColour)
{
    const auto color = NSColor::colorWithDeviceRed(0.25, 0.5, 0.75, 1);
    const auto attributes = read({{u"backgroundColor", CVLExtensions::propertyListRepresentation(*color)}});
    ASSERT_TRUE(attributes.backgroundColor);
    EXPECT_TRUE(CVLExtensions::isEqualToColorCVLVersion(*attributes.backgroundColor, *color));
}

TEST(NoteAttributes, HaveNoBackgroundColourOfWhatIsNone)
{
    EXPECT_FALSE(read({{u"backgroundColor", u"#ffffff"}}).backgroundColor);
    EXPECT_FALSE(read({{u"backgroundColor", NSAny::Array{1, 1, 1, 1}}}).backgroundColor);
}

TEST(NoteAttributes, HaveTheDividerRangesInTheirOrder)
{
    EXPECT_THAT(readRanges(NSAny::Array{u"{2, 3}", u"{10, 3}", u"{4, 0}"}).dividerRanges,
                ElementsAre(NSRange{2, 3}, NSRange{10, 3}, NSRange{4, 0}));
}

TEST(NoteAttributes, TakeNoDividerRangeFromWhatIsNoText)
{
    EXPECT_THAT(readRanges(NSAny::Array{7, u"{1, 3}", NSAny::Dictionary{}}).dividerRanges,
                ElementsAre(NSRange{1, 3}));
    EXPECT_THAT(readRanges(u"{1, 3}").dividerRanges, IsEmpty());
}

TEST(NoteAttributes, TakeTheLastOfMoreDividerRangesThanThereCanBe)
{
    const LogLines log;
    NSAny::Array ranges(NoteAttributes::kMostDividerRanges, u"{5, 3}");
    ranges.insert(ranges.begin(), u"{1, 3}");
    const auto attributes = NoteAttributes::attributesFromData(attributesData({{u"dividerRanges", ranges}}));
    ASSERT_EQ(attributes.dividerRanges.size(), NoteAttributes::kMostDividerRanges);
    EXPECT_EQ(attributes.dividerRanges.front(), (NSRange{5, 3}));
    EXPECT_NE(log.text().find("the first ones stay as text"), std::string::npos);
}

TEST(NoteAttributes, TakeDividerRangesAsThePlatformReadsThem)
{
    EXPECT_THAT(readRanges(NSAny::Array{u"", u"{-1, -3}", u"{99999999999999999999, 99999999999999999999}"})
                    .dividerRanges,
                ElementsAre(NSRange{0, 0}, NSRange{1, 3}, NSRange{NSNotFound, NSNotFound}));
}

TEST(NoteAttributes, HaveTheDrawingsAsTheyAre)
{
    const NSAny drawings = NSAny::Dictionary{{u"key", NSData{"ink"}}, {u"other", NSAny::Array{1, u"two"}}};
    EXPECT_EQ(read({{u"drawingsData", drawings}}).drawingDataByAttachmentKey, drawings);
    EXPECT_TRUE(read({{u"drawingsData", u"ink"}}).drawingDataByAttachmentKey.isNil());
}
