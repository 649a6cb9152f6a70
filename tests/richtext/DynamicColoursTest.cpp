#include "richtext/DynamicColours.h"

#include "colours/HighlightAttribute.h"
#include "colours/HighlightColours.h"
#include "platform/text/NSAttributeNames.h"
#include "platform/text/NSColor.h"

#include <gmock/gmock.h>

using namespace DynamicColors;

namespace {

const std::u16string kForeground(NSForegroundColorAttributeName);
const std::u16string kBackground(NSBackgroundColorAttributeName);
const std::u16string kHighlight(CVLHighlightTextAttributeName);

NSMutableAttributedString coloured(const NSColor::Ref& color)
{
    return NSMutableAttributedString(NSAttributedString(u"text", {{kForeground, color}}));
}

NSColor::Ref foregroundAt(const NSAttributedString& text, NSUInteger location)
{
    return text.attribute(NSForegroundColorAttributeName, location).object<NSColor>();
}

bool isDynamicTextColor(const NSColor::Ref& color)
{
    return color && color->isEqual(*NSColor::textColor());
}

bool isPlainBlack(const NSColor::Ref& color)
{
    return color && color->isEqual(*NSColor::blackColor());
}

void append(NSMutableAttributedString& text, std::u16string string, NSAttributes attributes)
{
    text.appendAttributedString(NSAttributedString(std::move(string), std::move(attributes)));
}

} // namespace

TEST(DynamicColours, MakeUncolouredTextDynamic)
{
    NSMutableAttributedString text(u"text");
    convertToDynamicColors(text);
    EXPECT_TRUE(isDynamicTextColor(foregroundAt(text, 0)));
    EXPECT_TRUE(isDynamicTextColor(foregroundAt(text, 3)));
}

TEST(DynamicColours, MakeBlackTextDynamicWhateverItsSpace)
{
    for (const auto& black : {NSColor::blackColor(), NSColor::colorWithRed(0, 0, 0, 1),
                              NSColor::colorWithDeviceRed(0, 0, 0, 1)}) {
        auto text = coloured(black);
        convertToDynamicColors(text);
        EXPECT_TRUE(isDynamicTextColor(foregroundAt(text, 0)));
    }
}

TEST(DynamicColours, KeepOtherColours)
{
    const auto red = NSColor::colorWithRed(1, 0, 0, 1);
    auto text = coloured(red);
    convertToDynamicColors(text);
    EXPECT_TRUE(foregroundAt(text, 0)->isEqual(*red));
    convertFromDynamicColors(text);
    EXPECT_TRUE(foregroundAt(text, 0)->isEqual(*red));
}

TEST(DynamicColours, KeepBlackThatIsNotOpaque)
{
    const auto shade = NSColor::colorWithRed(0, 0, 0, 0.5);
    auto text = coloured(shade);
    convertToDynamicColors(text);
    EXPECT_TRUE(foregroundAt(text, 0)->isEqual(*shade));
}

TEST(DynamicColours, ConvertEachRunByItself)
{
    NSMutableAttributedString text(u"none");
    append(text, u"black", {{kForeground, NSColor::blackColor()}});
    append(text, u"red", {{kForeground, NSColor::redColor()}});
    append(text, u"none", {});
    convertToDynamicColors(text);
    EXPECT_TRUE(isDynamicTextColor(foregroundAt(text, 0)));
    EXPECT_TRUE(isDynamicTextColor(foregroundAt(text, 4)));
    EXPECT_TRUE(foregroundAt(text, 9)->isEqual(*NSColor::redColor()));
    EXPECT_TRUE(isDynamicTextColor(foregroundAt(text, 15)));
}

TEST(DynamicColours, LeaveOtherAttributesAlone)
{
    NSMutableAttributedString text(u"ab");
    text.addAttribute(NSToolTipAttributeName, u"tip", {1, 1});
    convertToDynamicColors(text);
    EXPECT_EQ(text.attribute(NSToolTipAttributeName, 1), NSAny(u"tip"));
    EXPECT_TRUE(text.attribute(NSToolTipAttributeName, 0).isNil());
}

TEST(DynamicColours, BecomeBlackOnTheWayBack)
{
    auto text = coloured(NSColor::textColor());
    convertFromDynamicColors(text);
    EXPECT_TRUE(isPlainBlack(foregroundAt(text, 0)));
}

TEST(DynamicColours, LeaveUncolouredTextUncolouredOnTheWayBack)
{
    NSMutableAttributedString text(u"text");
    convertFromDynamicColors(text);
    EXPECT_TRUE(text.attribute(NSForegroundColorAttributeName, 0).isNil());
}

TEST(DynamicColours, LeaveUncolouredTextBlackAfterBothWays)
{
    NSMutableAttributedString text(u"text");
    convertToDynamicColors(text);
    convertFromDynamicColors(text);
    EXPECT_TRUE(isPlainBlack(foregroundAt(text, 0)));
}

TEST(DynamicColours, AreInBothCopies)
{
    const NSAttributedString text = coloured(NSColor::blackColor());
    const auto to = attributedStringConvertedToDynamicColors(text);
    const auto from = attributedStringConvertedFromDynamicColors(text);
    EXPECT_TRUE(isDynamicTextColor(foregroundAt(to, 0)));
    EXPECT_TRUE(isDynamicTextColor(foregroundAt(from, 0)));
    EXPECT_EQ(to, from);
    EXPECT_TRUE(isPlainBlack(foregroundAt(text, 0)));
}

TEST(DynamicColours, HaveNothingToDoInEmptyText)
{
    NSMutableAttributedString text;
    convertToDynamicColors(text);
    convertFromDynamicColors(text);
    cleanupTextColorsInRange(text, {0, 0});
    EXPECT_EQ(text.length(), 0U);
}

TEST(DynamicColours, CleanUpGivesTheWholeRangeTheLabelColour)
{
    NSMutableAttributedString text(u"none");
    append(text, u"red", {{kForeground, NSColor::redColor()}});
    append(text, u"blue", {{kForeground, NSColor::blueColor()}});
    cleanupTextColorsInRange(text, {2, 5});
    EXPECT_EQ(foregroundAt(text, 1), nullptr);
    EXPECT_TRUE(foregroundAt(text, 2)->isEqual(*NSColor::labelColor()));
    EXPECT_TRUE(foregroundAt(text, 6)->isEqual(*NSColor::labelColor()));
    EXPECT_TRUE(foregroundAt(text, 7)->isEqual(*NSColor::blueColor()));
}

TEST(DynamicColours, CleanUpKeepsTheGroundOfHighlightsOnly)
{
    const auto yellow = NSColor::yellowColor();
    NSMutableAttributedString text;
    append(text, u"high", {{kBackground, yellow}, {kHighlight, 1}});
    append(text, u"past", {{kBackground, yellow}});
    append(text, u"zero", {{kBackground, NSColor::redColor()}, {kHighlight, 0}});
    // The ground of one run is one run: it is kept or removed by its first character.
    cleanupTextColorsInRange(text, {4, 8});
    EXPECT_TRUE(text.attribute(kBackground, 0).object<NSColor>()->isEqual(*yellow));
    EXPECT_TRUE(text.attribute(kBackground, 4).isNil());
    EXPECT_TRUE(text.attribute(kBackground, 8).isNil());
    cleanupTextColorsInRange(text, {0, text.length()});
    EXPECT_TRUE(text.attribute(kBackground, 3).object<NSColor>()->isEqual(*yellow));
}

TEST(DynamicColours, CleanUpJudgesAGroundByItsFirstCharacter)
{
    NSMutableAttributedString text;
    append(text, u"high", {{kBackground, NSColor::yellowColor()}, {kHighlight, 1}});
    append(text, u"past", {{kBackground, NSColor::yellowColor()}});
    cleanupTextColorsInRange(text, {0, 8});
    EXPECT_FALSE(text.attribute(kBackground, 7).isNil());
}

TEST(DynamicColours, GroundsGiveTheirPassages)
{
    NSMutableAttributedString text;
    append(text, u" one \n", {{kBackground, NSColor::yellowColor()}});
    append(text, u"plain", {});
    append(text, u"two", {{kBackground, NSColor::redColor()}});
    append(text, u"three", {{kBackground, NSColor::blueColor()}});
    EXPECT_THAT(stringsWithBackgroundColor(text), testing::ElementsAre(u"one", u"two", u"three"));
}

TEST(DynamicColours, GroundsThatAreWhiteOrTheNotesGiveNone)
{
    NSMutableAttributedString text;
    append(text, u"white", {{kBackground, NSColor::whiteColor()}});
    append(text, u"ground", {{kBackground, NSColor::textBackgroundColor()}});
    append(text, u" \t\n\u2028", {{kBackground, NSColor::yellowColor()}});
    EXPECT_THAT(stringsWithBackgroundColor(text), testing::IsEmpty());
}
