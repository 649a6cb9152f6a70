#include "platform/html/CSSColor.h"

#include <gtest/gtest.h>

#include <cmath>

namespace {

/// The colour as 0xRRGGBBAA; none for what is no colour.
std::optional<std::uint32_t> bytesOf(std::string_view text)
{
    const auto color = colorFromCSS(text);
    if (!color)
        return std::nullopt;
    std::uint32_t bytes = 0;
    for (const auto component : {color->red, color->green, color->blue, color->alpha})
        bytes = (bytes << 8U) | static_cast<std::uint32_t>(std::lround(component * 255));
    return bytes;
}

struct Case {
    std::string_view text;
    std::uint32_t bytes;
};

} // namespace

TEST(CSSColor, ReadsEveryForm)
{
    for (const auto& [text, bytes] : {
             Case{"#f80", 0xFF8800FF},
             Case{"#F80C", 0xFF8800CC},
             Case{"#12aBef", 0x12ABEFFF},
             Case{"#12abef80", 0x12ABEF80},
             Case{"rgb(255,0,51)", 0xFF0033FF},
             Case{"rgb(100%, 0%, 20%)", 0xFF0033FF},
             Case{"rgba(255,0,51,.2)", 0xFF003333},
             Case{"rgb(255 0 51 / 20%)", 0xFF003333},
             Case{"RGB( 255 , 0 , 51 )", 0xFF0033FF},
             Case{"hsl(0,100%,50%)", 0xFF0000FF},
             Case{"hsl(120deg 100% 50%)", 0x00FF00FF},
             Case{"hsla(240,100%,50%,0.2)", 0x0000FF33},
             Case{"hsl(0,0%,100%)", 0xFFFFFFFF},
             Case{"transparent", 0x00000000},
             Case{"rebeccapurple", 0x663399FF},
             Case{" Tomato ", 0xFF6347FF},
         })
        EXPECT_EQ(bytesOf(text), bytes) << text;
}

TEST(CSSColor, TurnsHuesPastTheCircleBackIntoIt)
{
    EXPECT_EQ(bytesOf("hsl(480,100%,50%)"), bytesOf("hsl(120,100%,50%)"));
    EXPECT_EQ(bytesOf("hsl(-120,100%,50%)"), bytesOf("hsl(240,100%,50%)"));
}

TEST(CSSColor, BoundsComponentsThatAreTooLargeOrTooSmall)
{
    EXPECT_EQ(bytesOf("rgb(300,-5,51)"), 0xFF0033FF);
    EXPECT_EQ(bytesOf("rgba(0,0,0,7)"), 0x000000FF);
}

TEST(CSSColor, TakesNothingElseForAColour)
{
    for (const auto* text : {"", "#", "#1", "#12", "#12345", "#1234567", "#123456789", "#ggg", "#-12",
                             "rgb(1,2)", "rgb(1,2,3,4,5)", "rgb(a,b,c)", "rgb(1px,2,3)", "rgb(1,2,3",
                             "lab(1 2 3)", "hsl(1rad,2%,3%)", "nocolour", "red blue", "12"})
        EXPECT_EQ(bytesOf(text), std::nullopt) << text;
}

TEST(CSSColor, WritesColoursShort)
{
    EXPECT_EQ(cssColor({1, 0.5, 0, 1}), "#ff8000");
    EXPECT_EQ(cssColor({0, 0, 0, 0.25}), "rgba(0,0,0,0.25)");
    EXPECT_EQ(cssColor({2, -1, 0, 1.5}), "#ff0000");
    EXPECT_EQ(cssColor({0, 0, 0, -1}), "rgba(0,0,0,0)");
}

TEST(CSSColor, ReadsWhatItWrites)
{
    for (unsigned value = 0; value < 256; value += 5) {
        const auto part = static_cast<double>(value) / 255;
        const NSColorRGBA color{part, 1 - part, part / 2, 1};
        EXPECT_EQ(cssColor(colorFromCSS(cssColor(color)).value_or(NSColorRGBA{})), cssColor(color)) << value;
    }
}

TEST(CSSColor, FindsTheFirstColourAmongWords)
{
    EXPECT_TRUE(firstColorInCSS("1px solid red")->isEqual(*nsColorFromCSS("#f00")));
    EXPECT_TRUE(firstColorInCSS("url(a.png) rgb(0, 0, 255) no-repeat")->isEqual(*nsColorFromCSS("blue")));
    EXPECT_EQ(firstColorInCSS("1px solid"), nullptr);
    EXPECT_EQ(nsColorFromCSS("1px"), nullptr);
}

TEST(CSSColor, KnowsNamesInLowerCase)
{
    EXPECT_EQ(namedCSSColor("aliceblue"), 0xF0F8FFU);
    EXPECT_EQ(namedCSSColor("yellowgreen"), 0x9ACD32U);
    EXPECT_EQ(namedCSSColor("grey"), namedCSSColor("gray"));
    EXPECT_EQ(namedCSSColor("Red"), std::nullopt);
    EXPECT_EQ(namedCSSColor(""), std::nullopt);
    EXPECT_EQ(namedCSSColor("zzz"), std::nullopt);
}
