#include "cli/ColourLines.h"

#include <gmock/gmock.h>
#include <nlohmann/json.hpp>

using testing::ElementsAre;
using testing::StartsWith;

namespace {

TEST(ColourLines, AreALineEachForPeople)
{
    EXPECT_THAT(colourLines(*colourNamed("Snow"), NSAppearance::Light, false),
                ElementsAre("Crayons/Snow  #ffffff", "  device RGB    1 1 1 1", "  brightness    light",
                            "  counts as     white"));
    EXPECT_THAT(colourLines(*colourNamed("textColor"), NSAppearance::Dark, false),
                ElementsAre("textColor  #ffffff", "  device RGB    1 1 1 1", "  generic grey  1 1",
                            "  catalog       System", "  brightness    light", "  counts as     white"));
    EXPECT_THAT(colourLines(*colourNamed("pink highlight"), NSAppearance::Light, false),
                ElementsAre("PinkHighlightColor  #b8257b", "  device RGB    0.722 0.145 0.482 1",
                            "  catalog       Assets", "  highlight     type 4, Pink",
                            "  brightness    dark"));
}

TEST(ColourLines, ShowAPatchOnAColourTerminalOnly)
{
    const auto lines = colourLines(*colourNamed("#ff8000"), NSAppearance::Light, true);
    EXPECT_THAT(lines.front(), StartsWith("\033[48;2;255;128;0m  \033[0m #ff8000"));
}

TEST(ColourLines, AreOneObjectForPrograms)
{
    const auto value = nlohmann::json::parse(colourJSON(*colourNamed("#80000080"), NSAppearance::Light));
    EXPECT_EQ(value.at("name"), "#80000080");
    EXPECT_EQ(value.at("hex"), "#800000");
    EXPECT_EQ(value.at("propertyList").at("red"), 128 / 255.0);
    EXPECT_EQ(value.at("propertyList").at("alpha"), 128 / 255.0);
    EXPECT_EQ(value.at("colorSpace"), "sRGB");
    EXPECT_EQ(value.at("components").size(), 4U);
    EXPECT_TRUE(value.at("catalog").is_null());
    EXPECT_EQ(value.at("highlightType"), 0);
    EXPECT_TRUE(value.at("highlightName").is_null());
    EXPECT_EQ(value.at("isDark"), true);
    EXPECT_EQ(value.at("isBlack"), false);
    const auto yellow
        = nlohmann::json::parse(colourJSON(*colourNamed("yellow highlight"), NSAppearance::Light));
    EXPECT_EQ(yellow.at("highlightType"), 1);
    EXPECT_EQ(yellow.at("highlightName"), "Orange");
    EXPECT_EQ(yellow.at("catalog"), "Assets");
}

} // namespace
