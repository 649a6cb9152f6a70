#include "richtext/Highlights.h"

#include "colours/HighlightAttribute.h"
#include "colours/HighlightColours.h"
#include "platform/text/NSAttributeNames.h"
#include "platform/text/NSColor.h"

#include <gmock/gmock.h>

#include <array>

using namespace DynamicColors;

namespace {

const std::u16string kForeground(NSForegroundColorAttributeName);
const std::u16string kBackground(NSBackgroundColorAttributeName);
const std::u16string kHighlight(CVLHighlightTextAttributeName);
const std::u16string kStyle(NSTextHighlightStyleAttributeName);
const std::u16string kScheme(NSTextHighlightColorSchemeAttributeName);

struct Row {
    std::u16string_view colorScheme;
    NSInteger type;
};

/// What the platform calls Orange, Mint, Blue, Pink and Purple.
constexpr std::array kRows{
    Row{u"NSTextHighlightColorSchemeOrange", 1}, Row{u"NSTextHighlightColorSchemeMint", 2},
    Row{u"NSTextHighlightColorSchemeBlue", 3},   Row{u"NSTextHighlightColorSchemePink", 4},
    Row{u"NSTextHighlightColorSchemePurple", 5},
};

NSMutableAttributedString withPlatformHighlight(std::u16string_view colorScheme)
{
    return NSMutableAttributedString(
        NSAttributedString(u"text", {{kStyle, u"NSTextHighlightStyleDefault"}, {kScheme, colorScheme}}));
}

NSMutableAttributedString withHighlight(const NSAny& type)
{
    return NSMutableAttributedString(NSAttributedString(
        u"text",
        {{kHighlight, type}, {kForeground, NSColor::redColor()}, {kBackground, NSColor::yellowColor()}}));
}

bool hasColor(const NSAttributedString& text, const std::u16string& name, const NSColor::Ref& expected)
{
    const auto color = text.attribute(name, 0).object<NSColor>();
    return color && expected && color->isEqual(*expected);
}

} // namespace

TEST(Highlights, HaveTheAttributeNameThatNotesHold)
{
    EXPECT_EQ(CVLHighlightTextAttributeName, u"CVLHighlightTextAttribute");
}

TEST(Highlights, TakeTheTypeOfThePlatformsScheme)
{
    for (const auto& [colorScheme, type] : kRows) {
        auto text = withPlatformHighlight(colorScheme);
        convertNSTextHighlightsToCorvelHighlights(text);
        const auto color = CVLExtensions::colorForHighlightColorType(type);
        EXPECT_EQ(text.attribute(kHighlight, 0), NSAny(type));
        EXPECT_TRUE(hasColor(text, kForeground, color));
        EXPECT_TRUE(hasColor(text, kBackground, CVLExtensions::highlightBackgroundColor(color)));
        EXPECT_EQ(text.attribute(kScheme, 0), NSAny(colorScheme));
        EXPECT_EQ(text.attribute(kStyle, 0), NSAny(u"NSTextHighlightStyleDefault"));
    }
}

TEST(Highlights, AreOfTypeOneInOtherSchemes)
{
    for (const std::u16string_view colorScheme : {u"NSTextHighlightColorSchemeDefault", u"Teal", u""}) {
        auto text = withPlatformHighlight(colorScheme);
        convertNSTextHighlightsToCorvelHighlights(text);
        EXPECT_EQ(text.attribute(kHighlight, 0), NSAny(1));
    }
}

TEST(Highlights, AreNotMadeOfOtherStyles)
{
    NSMutableAttributedString text(
        NSAttributedString(u"text", {{kStyle, u"Other"}, {kScheme, NSTextHighlightColorSchemePink}}));
    const NSAttributedString before = text;
    convertNSTextHighlightsToCorvelHighlights(text);
    EXPECT_EQ(text, before);
}

TEST(Highlights, AreNotMadeWithoutAScheme)
{
    NSMutableAttributedString text(NSAttributedString(u"text", {{kStyle, NSTextHighlightStyleDefault}}));
    const NSAttributedString before = text;
    convertNSTextHighlightsToCorvelHighlights(text);
    EXPECT_EQ(text, before);
}

TEST(Highlights, ChangeTheirTypeWithinOneStyle)
{
    auto text = withPlatformHighlight(NSTextHighlightColorSchemePink);
    text.appendAttributedString(withPlatformHighlight(NSTextHighlightColorSchemeBlue));
    text.appendAttributedString(NSAttributedString(u"plain"));
    convertNSTextHighlightsToCorvelHighlights(text);
    EXPECT_EQ(text.attribute(kHighlight, 3), NSAny(4));
    EXPECT_EQ(text.attribute(kHighlight, 4), NSAny(3));
    EXPECT_TRUE(text.attribute(kHighlight, 8).isNil());
}

TEST(Highlights, BecomeThePlatforms)
{
    for (const auto& [colorScheme, type] : kRows) {
        auto text = withHighlight(type);
        convertCorvelHighlightsToNSTextHighlights(text);
        const NSAttributedString expected(u"text",
                                          {{kStyle, u"NSTextHighlightStyleDefault"}, {kScheme, colorScheme}});
        EXPECT_EQ(text, expected);
    }
}

TEST(Highlights, OfNoTypeBecomeThePlatformsDefault)
{
    for (const NSInteger type : {7, 6, -1, 999}) {
        auto text = withHighlight(type);
        convertCorvelHighlightsToNSTextHighlights(text);
        EXPECT_EQ(text.attribute(kScheme, 0), NSAny(u"NSTextHighlightColorSchemeDefault")) << type;
        EXPECT_TRUE(text.attribute(kForeground, 0).isNil());
        EXPECT_TRUE(text.attribute(kBackground, 0).isNil());
        EXPECT_TRUE(text.attribute(kHighlight, 0).isNil());
    }
}

TEST(Highlights, OfTypeZeroAreNone)
{
    auto text = withHighlight(0);
    const NSAttributedString before = text;
    convertCorvelHighlightsToNSTextHighlights(text);
    EXPECT_EQ(text, before);
    EXPECT_THAT(highlightedStrings(text), testing::IsEmpty());
}

TEST(Highlights, GiveTheirPassages)
{
    NSMutableAttributedString text(NSAttributedString(u" \tone\n", {{kHighlight, 1}}));
    text.appendAttributedString(NSAttributedString(u"plain"));
    text.appendAttributedString(NSAttributedString(u"two", {{kHighlight, 2}}));
    text.appendAttributedString(NSAttributedString(u"three", {{kHighlight, 3}}));
    text.appendAttributedString(NSAttributedString(u" \n ", {{kHighlight, 4}}));
    EXPECT_THAT(highlightedStrings(text), testing::ElementsAre(u"one", u"two", u"three"));
}

TEST(Highlights, OfOneTypeAreOnePassageWhateverElseChanges)
{
    NSMutableAttributedString text(NSAttributedString(u"one ", {{kHighlight, 1}}));
    text.appendAttributedString(
        NSAttributedString(u"passage", {{kHighlight, 1}, {kForeground, NSColor::redColor()}}));
    EXPECT_THAT(highlightedStrings(text), testing::ElementsAre(u"one passage"));
}

TEST(Highlights, ConvertManyRunsInOnePass)
{
    // 200,000 runs, every second one highlighted; anything but one pass would take minutes.
    NSMutableAttributedString text(std::u16string(200'000, u'a'));
    for (NSUInteger index = 0; index < text.length(); index += 2)
        text.addAttribute(kHighlight, 1 + index / 2 % 5, {index, 1});
    EXPECT_EQ(highlightedStrings(text).size(), 100'000U);
    convertCorvelHighlightsToNSTextHighlights(text);
    EXPECT_TRUE(highlightedStrings(text).empty());
    EXPECT_EQ(text.attribute(kStyle, 199'998), NSAny(NSTextHighlightStyleDefault));
    convertNSTextHighlightsToCorvelHighlights(text);
    EXPECT_EQ(highlightedStrings(text).size(), 100'000U);
    EXPECT_EQ(text.runCount(), 200'000U);
}
