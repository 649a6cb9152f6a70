#include "cli/HelpFooter.h"

#include <gtest/gtest.h>

namespace {

using Lines = std::vector<std::string>;

TEST(HelpFooter, IsTakenApartByItsParagraphs)
{
    const HelpFooter footer(
        "One line\nand another.\n\nMore.\n\nExamples:\n  corvel a\n  corvel b\n\nExit status: 0 done.");
    EXPECT_EQ(footer.explanation, (Lines{"One line and another.", "More."}));
    EXPECT_EQ(footer.examples, (Lines{"corvel a", "corvel b"}));
    EXPECT_EQ(footer.exitStatus, "0 done.");
}

TEST(HelpFooter, MayBeEmpty)
{
    const HelpFooter footer("");
    EXPECT_EQ(footer.explanation, Lines());
    EXPECT_EQ(footer.examples, Lines());
    EXPECT_EQ(footer.exitStatus, "");
}

TEST(HelpFooter, CapitalizesTheExitStatus)
{
    EXPECT_EQ(HelpFooter("Exit status: as always.").exitStatus, "As always.");
}

} // namespace
