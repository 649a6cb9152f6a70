#include "platform/text/ColorComponentText.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

namespace {

using Components = std::vector<double>;

struct ReadCase {
    std::string text;
    std::size_t count;
    Components components;
};

TEST(ColorComponentText, ReadsWhatTheWritersOfThreeErasWrote)
{
    const std::vector<ReadCase> cases{
        {std::string("0.3333333333 0 1\0", 17), 3, {0.3333333333, 0, 1}},
        {std::string("0.66666669\0", 11), 1, {0.66666669}},
        {"0.034578395 0 0.91326531 0.65", 3, {0.034578395, 0, 0.91326531, 0.65}},
        {"0.60271537303924561 1", 1, {0.60271537303924561, 1}},
        {" 1  0\n0 ", 3, {1, 0, 0}},
        {"1e-3 -0.25 1.5", 3, {0.001, -0.25, 1.5}},
    };
    for (const auto& each : cases)
        EXPECT_EQ(componentsFromText(each.text, each.count), each.components) << each.text;
}

TEST(ColorComponentText, RefusesWhatIsNoListOfComponents)
{
    for (const std::string text : {"", "1 2", "1 2 3 4 5", "a b c", "0.5,0.5,0.5", "1 2 3x", "nan 0 0",
                                   "inf 0 0", "1e999 0 0", "0x10 0 0"})
        EXPECT_EQ(componentsFromText(text, 3), std::nullopt) << text;
    EXPECT_EQ(componentsFromText(std::string("0\0001 1", 5), 3), std::nullopt);
    EXPECT_EQ(componentsFromText(std::string(kMaximumComponentTextLength + 1, ' '), 3), std::nullopt);
}

TEST(ColorComponentText, WritesTenSignificantDigitsAndBareWholeNumbers)
{
    EXPECT_EQ(textFromComponents(Components{1.0 / 3, 0, 1, 0.5}), "0.3333333333 0 1 0.5");
    EXPECT_EQ(textFromComponents(Components{-0.0, 0.0005173468745}), "0 0.0005173468745");
    EXPECT_EQ(textFromComponents(Components{}), "");
}

} // namespace
