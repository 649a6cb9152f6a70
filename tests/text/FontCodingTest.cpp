#include "platform/text/FontCoding.h"

#include "platform/foundation/NSKeyedArchiver.h"
#include "platform/foundation/NSKeyedUnarchiver.h"
#include "platform/foundation/NSPropertyList.h"
#include "platform/text/TextClasses.h"

#include <gtest/gtest.h>

#include <string>

namespace {

NSAny uid(std::uint64_t number)
{
    return NSAny(std::shared_ptr<const NSKeyedArchiverUID>(std::make_shared<NSKeyedArchiverUID>(number)));
}

std::string archiveOf(NSAny::Dictionary root, std::u16string_view className, NSAny third)
{
    root[u"$class"] = uid(2);
    const NSAny record(NSAny::Dictionary{
        {u"$classname", NSAny(className)},
        {u"$classes", NSAny(NSAny::Array{NSAny(className), NSAny(u"NSObject")})},
    });
    const NSAny archive(NSAny::Dictionary{
        {u"$version", NSAny(100000)},
        {u"$archiver", NSAny(u"NSKeyedArchiver")},
        {u"$top", NSAny(NSAny::Dictionary{{u"root", uid(1)}})},
        {u"$objects", NSAny(NSAny::Array{NSAny(u"$null"), NSAny(std::move(root)), record, std::move(third)})},
    });
    return NSPropertyListSerialization::dataWithPropertyList(archive, NSPropertyListFormat::Binary)->bytes;
}

NSFont::Ref fontIn(std::string_view archive, NSError* error = nullptr)
{
    return NSKeyedUnarchiver::unarchivedObjectOfClass(NSFont::classObject(), archive, textClasses(), error)
        .object<NSFont>();
}

TEST(FontCoding, WritesNameSizeAndTheFlagsOfAFontChosenByName)
{
    const auto data = NSKeyedArchiver::archivedDataWithRootObject(
        NSAny(NSFont::fontWithName(u"Menlo-Regular", 14)), true);
    ASSERT_TRUE(data);
    const auto list = NSPropertyListSerialization::propertyListWithData(data->bytes);
    const auto& root = *(*list.dictionary()->at(u"$objects").array())[1].dictionary();
    EXPECT_EQ(root.size(), 4U);
    EXPECT_EQ(root.at(u"NSSize"), NSAny(14.0));
    EXPECT_TRUE(root.at(u"NSSize").isReal());
    EXPECT_EQ(root.at(u"NSfFlags"), NSAny(16));
    EXPECT_TRUE(fontIn(data->bytes)->isEqual(*NSFont::fontWithName(u"Menlo-Regular", 14)));
}

TEST(FontCoding, ReadsTheFormsOfBothSystems)
{
    const auto font
        = fontIn(archiveOf({{u"NSName", uid(3)}, {u"NSSize", NSAny(12)}, {u"NSfFlags", NSAny(273)}},
                           u"NSFont", NSAny(u"Helvetica")));
    ASSERT_NE(font, nullptr);
    EXPECT_EQ(font->fontName(), u"Helvetica");
    EXPECT_EQ(font->pointSize(), 12);
    const auto mobile = fontIn(archiveOf({{u"UIFontName", uid(3)}, {u"UIFontPointSize", NSAny(9.5)}},
                                         u"UIFont", NSAny(u"Georgia-Bold")));
    ASSERT_NE(mobile, nullptr);
    EXPECT_EQ(mobile->fontName(), u"Georgia-Bold");
    EXPECT_EQ(mobile->pointSize(), 9.5);
}

TEST(FontCoding, KeepsTheNameOfAFontThatIsUnknownHere)
{
    const auto font = fontIn(
        archiveOf({{u"NSName", uid(3)}, {u"NSSize", NSAny(20.0)}}, u"NSFont", NSAny(u"Sailec-Bold")));
    ASSERT_NE(font, nullptr);
    EXPECT_EQ(font->fontName(), u"Sailec-Bold");
    EXPECT_EQ(font->familyName(), u"Sailec");
    EXPECT_EQ(font->weight(), NSFontWeightBold);
    EXPECT_GT(font->ascender(), 0);
    EXPECT_EQ(NSFont::fontWithName(u"Sailec-Bold", 20), nullptr);
    const auto data = NSKeyedArchiver::archivedDataWithRootObject(NSAny(font), true);
    EXPECT_TRUE(fontIn(data->bytes)->isEqual(*font));
}

TEST(FontCoding, FailsWithoutAName)
{
    NSError error;
    EXPECT_EQ(fontIn(archiveOf({{u"NSSize", NSAny(12.0)}}, u"NSFont", NSAny(u"unused")), &error), nullptr);
    EXPECT_EQ(error.code(), static_cast<int>(NSCocoaError::CoderReadCorrupt));
    EXPECT_EQ(fontIn(archiveOf({{u"NSName", uid(3)}}, u"NSFont", NSAny(u""))), nullptr);
}

TEST(FontCoding, GivesTheDefaultSizeForOneThatNoFontHas)
{
    const auto font = fontIn(
        archiveOf({{u"NSName", uid(3)}, {u"NSSize", NSAny(-1e300)}}, u"NSFont", NSAny(u"Helvetica")));
    EXPECT_EQ(font->pointSize(), NSFont::kDefaultSize);
}

} // namespace
