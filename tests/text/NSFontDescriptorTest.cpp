#include "platform/text/NSFontDescriptor.h"

#include "platform/foundation/NSKeyedArchiver.h"
#include "platform/foundation/NSKeyedUnarchiver.h"
#include "platform/text/TextClasses.h"

#include <gtest/gtest.h>

namespace {

TEST(NSFontDescriptor, AnswersItsAttributes)
{
    const auto descriptor = NSFontDescriptor::fontDescriptorWithName(u"Georgia", 11);
    EXPECT_EQ(descriptor->postscriptName(), u"Georgia");
    EXPECT_EQ(descriptor->pointSize(), 11);
    EXPECT_TRUE(descriptor->objectForKey(NSFontFamilyAttribute).isNil());
    const auto empty = NSFontDescriptor::fontDescriptorWithFontAttributes({});
    EXPECT_EQ(empty->postscriptName(), u"");
    EXPECT_EQ(empty->pointSize(), 0);
}

TEST(NSFontDescriptor, AddsAttributesToACopy)
{
    const auto descriptor = NSFontDescriptor::fontDescriptorWithName(u"Georgia", 11);
    const auto bigger
        = descriptor->fontDescriptorByAddingAttributes({{std::u16string(NSFontSizeAttribute), NSAny(30)}});
    EXPECT_EQ(bigger->pointSize(), 30);
    EXPECT_EQ(bigger->postscriptName(), u"Georgia");
    EXPECT_EQ(descriptor->pointSize(), 11);
    EXPECT_FALSE(bigger->isEqual(*descriptor));
}

TEST(NSFontDescriptor, ReturnsFromAnArchiveAsItWas)
{
    const NSAny::Dictionary traits{{std::u16string(NSFontWeightTrait), NSAny(0.4)}};
    const auto descriptor
        = NSFontDescriptor::fontDescriptorWithName(u"Menlo-Bold", 16)
              ->fontDescriptorByAddingAttributes({{std::u16string(NSFontTraitsAttribute), NSAny(traits)}});
    const auto data = NSKeyedArchiver::archivedDataWithRootObject(NSAny(descriptor), true);
    ASSERT_TRUE(data);
    const auto again = NSKeyedUnarchiver::unarchivedObjectOfClass(NSFontDescriptor::classObject(),
                                                                  data->bytes, textClasses())
                           .object<NSFontDescriptor>();
    ASSERT_NE(again, nullptr);
    EXPECT_TRUE(again->isEqual(*descriptor));
    EXPECT_EQ(again->hash(), descriptor->hash());
}

} // namespace
