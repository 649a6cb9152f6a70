#include "cli/ColourName.h"

#include "platform/foundation/Unicode.h"

#include <gtest/gtest.h>

#include <string>

namespace {

std::u16string nameOf(std::string_view text)
{
    const auto named = colourNamed(text);
    return named ? named->name : u"none";
}

TEST(ColourName, ReadsDigits)
{
    EXPECT_EQ(colourNamed("#f08")->color->deviceRGBComponents(), (NSColorRGBA{1, 0, 0x88 / 255.0, 1}));
    EXPECT_EQ(colourNamed("#FFcc66")->color->deviceRGBComponents(), (NSColorRGBA{1, 0.8, 0.4, 1}));
    EXPECT_EQ(colourNamed("#00000033")->color->deviceRGBComponents(), (NSColorRGBA{0, 0, 0, 0.2}));
}

TEST(ColourName, RefusesWhatIsNoColour)
{
    for (const auto* text :
         {"", "#", "#ff", "#ffff", "#fffff", "#ggg", "#12345678 9", "#ffccé", "Ultraviolet", "color"})
        EXPECT_EQ(nameOf(text), u"none") << text;
}

TEST(ColourName, PassesOverCaseBlanksAndTheEnding)
{
    for (const auto* text : {"textColor", "textcolor", "text", "Text Color", "TEXT-COLOR"})
        EXPECT_EQ(nameOf(text), u"textColor") << text;
    for (const auto* text : {"YellowHighlightColor", "yellow highlight", "yellow-highlight"})
        EXPECT_EQ(nameOf(text), u"YellowHighlightColor") << text;
    for (const auto* text : {"Sea Foam", "seafoam", "Crayons/Sea Foam"})
        EXPECT_EQ(nameOf(text), u"Crayons/Sea Foam") << text;
}

TEST(ColourName, TakesTheListThatIsNamedElseTheFirstThatHasTheKey)
{
    EXPECT_EQ(nameOf("magenta"), u"Apple/Magenta");
    EXPECT_EQ(nameOf("crayons/magenta"), u"Crayons/Magenta");
    EXPECT_EQ(nameOf("apple/snow"), u"none");
}

TEST(ColourName, KnowsEveryNameThatItLists)
{
    for (const auto& name : colourNames())
        EXPECT_EQ(nameOf(UTF8FromUTF16(name)), name);
}

} // namespace
