#include "platform/text/NSShadow.h"

#include "tests/support/KeyedValues.h"

#include <gtest/gtest.h>

TEST(NSShadow, IsEqualAsAValue)
{
    const NSShadow shadow({1, -2}, 3, NSColor::blackColor());
    EXPECT_TRUE(shadow.isEqual(NSShadow({1, -2}, 3, NSColor::blackColor())));
    EXPECT_EQ(shadow.hash(), NSShadow({1, -2}, 3, NSColor::blackColor()).hash());
    EXPECT_FALSE(shadow.isEqual(NSShadow({1, 2}, 3, NSColor::blackColor())));
    EXPECT_FALSE(shadow.isEqual(NSShadow({1, -2}, 4, NSColor::blackColor())));
    EXPECT_FALSE(shadow.isEqual(NSShadow({1, -2}, 3, NSColor::redColor())));
    EXPECT_FALSE(shadow.isEqual(NSShadow({1, -2}, 3, nullptr)));
    EXPECT_TRUE(NSShadow({}, 0, nullptr).isEqual(NSShadow({}, 0, nullptr)));
}

TEST(NSShadow, ArchivesItsValues)
{
    EXPECT_EQ(KeyedValues::of(NSShadow({1, -2}, 0, nullptr)),
              (KeyedValues::Values{{"NSShadowHoriz", 1.0}, {"NSShadowVert", -2.0}}));
    EXPECT_EQ(KeyedValues::of(NSShadow({1, -2}, 3, NSColor::blackColor())),
              (KeyedValues::Values{{"NSShadowHoriz", 1.0},
                                   {"NSShadowVert", -2.0},
                                   {"NSShadowBlurRadius", 3.0},
                                   {"NSShadowColor", NSColor::blackColor()}}));
}

TEST(NSShadow, ReadsWhatItWrote)
{
    const NSShadow shadow({1, -2}, 3, NSColor::blackColor());
    const auto back = KeyedValues::make(NSShadow::classObject(), KeyedValues::of(shadow)).object<NSShadow>();
    ASSERT_NE(back, nullptr);
    EXPECT_TRUE(back->isEqual(shadow));
    const auto none
        = KeyedValues::make(NSShadow::classObject(), {{"NSShadowColor", u"text"}}).object<NSShadow>();
    ASSERT_NE(none, nullptr);
    EXPECT_TRUE(none->isEqual(NSShadow({}, 0, nullptr)));
}
