#include "platform/text/SystemColors.h"

#include "platform/text/NSColor.h"

#include <gtest/gtest.h>

namespace {

TEST(SystemColors, FindsEveryColourByItsName)
{
    for (const auto& each : systemColors()) {
        ASSERT_EQ(dynamicColorNamed(systemColors(), each.name), &each);
        EXPECT_EQ(NSColor::systemColorNamed(each.name)->colorNameComponent(), each.name);
    }
    EXPECT_EQ(dynamicColorNamed(systemColors(), u"zzz"), nullptr);
    EXPECT_EQ(dynamicColorNamed(systemColors(), u""), nullptr);
}

TEST(SystemColors, HasTheColoursThatArchivesName)
{
    for (const auto* name :
         {u"textColor", u"textBackgroundColor", u"controlTextColor", u"labelColor", u"linkColor",
          u"gridColor", u"headerTextColor", u"controlBackgroundColor", u"controlAccentColor",
          u"secondaryLabelColor", u"systemRedColor", u"separatorColor"})
        EXPECT_NE(NSColor::systemColorNamed(name), nullptr);
}

TEST(SystemColors, ReadsATableValueAsRedGreenBlueAlpha)
{
    const auto link = NSColor::linkColor()->deviceRGBComponents();
    EXPECT_EQ(link, (NSColorRGBA{0, 0x68 / 255.0, 0xda / 255.0, 1}));
    EXPECT_EQ(NSColor::labelColor()->alphaComponent(), 0xd8 / 255.0);
}

} // namespace
