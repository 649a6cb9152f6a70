#include "platform/text/NSColorList.h"

#include <gtest/gtest.h>

#include <algorithm>

namespace {

TEST(NSColorList, HasTheTwoListsOfTheSystem)
{
    ASSERT_NE(NSColorList::colorListNamed(u"Apple"), nullptr);
    ASSERT_NE(NSColorList::colorListNamed(u"Crayons"), nullptr);
    EXPECT_EQ(NSColorList::colorListNamed(u"Apple")->allKeys().size(), 11U);
    EXPECT_EQ(NSColorList::colorListNamed(u"Crayons")->allKeys().size(), 48U);
    EXPECT_EQ(NSColorList::colorListNamed(u"crayons"), nullptr);
    EXPECT_EQ(NSColorList::availableColorLists().size(), 2U);
}

TEST(NSColorList, GivesAColourForEveryKeyAndNoneForOthers)
{
    for (const auto* list : NSColorList::availableColorLists()) {
        auto keys = list->allKeys();
        for (const auto key : keys)
            EXPECT_NE(list->colorWithKey(key), nullptr);
        std::sort(keys.begin(), keys.end());
        EXPECT_EQ(std::adjacent_find(keys.begin(), keys.end()), keys.end());
        EXPECT_EQ(list->colorWithKey(u"Ultraviolet"), nullptr);
    }
}

TEST(NSColorList, HasTheWellKnownValues)
{
    const auto& crayons = *NSColorList::colorListNamed(u"Crayons");
    EXPECT_EQ(crayons.colorWithKey(u"Snow")->deviceRGBComponents(), (NSColorRGBA{1, 1, 1, 1}));
    EXPECT_EQ(crayons.colorWithKey(u"Licorice")->deviceRGBComponents(), (NSColorRGBA{0, 0, 0, 1}));
    EXPECT_EQ(crayons.colorWithKey(u"Cantaloupe")->deviceRGBComponents(), (NSColorRGBA{1, 0.8, 0.4, 1}));
    EXPECT_EQ(NSColorList::colorListNamed(u"Apple")->colorWithKey(u"Brown")->deviceRGBComponents(),
              (NSColorRGBA{0.6, 0.4, 0.2, 1}));
}

} // namespace
