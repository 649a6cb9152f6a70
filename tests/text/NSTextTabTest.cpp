#include "platform/text/NSTextTab.h"

#include "tests/support/KeyedValues.h"

#include <gtest/gtest.h>

#include <limits>

namespace {

NSTextTab::Ref read(KeyedValues::Values values)
{
    return KeyedValues::make(NSTextTab::classObject(), std::move(values)).object<NSTextTab>();
}

} // namespace

TEST(NSTextTab, IsEqualAsAValue)
{
    const NSTextTab tab(NSTextAlignment::Natural, 36);
    EXPECT_TRUE(tab.isEqual(NSTextTab(NSTextAlignment::Natural, 36)));
    EXPECT_EQ(tab.hash(), NSTextTab(NSTextAlignment::Natural, 36).hash());
    EXPECT_FALSE(tab.isEqual(NSTextTab(NSTextAlignment::Left, 36)));
    EXPECT_FALSE(tab.isEqual(NSTextTab(NSTextAlignment::Natural, 37)));
    EXPECT_FALSE(tab.isEqual(NSTextTab(NSTextAlignment::Natural, 36, {{u"key", 1}})));
}

TEST(NSTextTab, ArchivesAPlainLeftTabByItsLocationAlone)
{
    EXPECT_EQ(KeyedValues::of(NSTextTab(NSTextAlignment::Left, 11)),
              (KeyedValues::Values{{"NSLocation", 11.0}}));
}

TEST(NSTextTab, ArchivesOtherTabsWithOptions)
{
    EXPECT_EQ(KeyedValues::of(NSTextTab(NSTextAlignment::Natural, 36)),
              (KeyedValues::Values{
                  {"NSLocation", 36.0}, {"NSTabOptions", NSAny::Dictionary()}, {"NSTextAlignment", 4}}));
    EXPECT_EQ(
        KeyedValues::of(NSTextTab(NSTextAlignment::Left, 5, {{u"key", u"value"}})),
        (KeyedValues::Values{{"NSLocation", 5.0}, {"NSTabOptions", NSAny::Dictionary{{u"key", u"value"}}}}));
}

TEST(NSTextTab, ReadsWhatItWrote)
{
    for (const auto alignment : {NSTextAlignment::Left, NSTextAlignment::Right, NSTextAlignment::Center,
                                 NSTextAlignment::Justified, NSTextAlignment::Natural}) {
        const NSTextTab tab(alignment, 12.5, {{u"key", 1}});
        const auto back = read(KeyedValues::of(tab));
        ASSERT_NE(back, nullptr);
        EXPECT_TRUE(tab.isEqual(*back));
    }
}

TEST(NSTextTab, ReadsTheTypeWhenThereIsNoAlignment)
{
    EXPECT_EQ(read({{"NSLocation", 1}, {"NSType", 1}})->alignment(), NSTextAlignment::Right);
    EXPECT_EQ(read({{"NSLocation", 1}, {"NSType", 2}})->alignment(), NSTextAlignment::Center);
    EXPECT_EQ(read({{"NSLocation", 1}, {"NSType", 3}})->alignment(), NSTextAlignment::Right);
    EXPECT_EQ(read({{"NSLocation", 1}, {"NSType", 0}})->alignment(), NSTextAlignment::Left);
    EXPECT_EQ(read({{"NSType", 1}, {"NSTextAlignment", 2}})->alignment(), NSTextAlignment::Center);
}

TEST(NSTextTab, ReadsMalformedValuesAsDefaults)
{
    const auto tab = read({{"NSLocation", std::numeric_limits<double>::quiet_NaN()},
                           {"NSTextAlignment", 77},
                           {"NSTabOptions", u"text"}});
    ASSERT_NE(tab, nullptr);
    EXPECT_TRUE(tab->isEqual(NSTextTab(NSTextAlignment::Left, 0)));
    EXPECT_EQ(read({{"NSTextAlignment", -1}})->alignment(), NSTextAlignment::Left);
}
