#include "platform/rtf/NSAttributedStringRTF.h"
#include "platform/text/NSAttributeNames.h"
#include "platform/text/NSParagraphStyle.h"

#include <gmock/gmock.h>

#include <string>
#include <string_view>

namespace {

NSAttributedString read(std::string_view rtf)
{
    return NSAttributedStringDocumentFormats::initWithRTF({std::string(rtf)})
        .value_or(NSAttributedString(u"nothing"));
}

/// A document of the platform.
std::string cocoa(std::string_view body)
{
    return "{\\rtf1\\ansi\\cocoartf2822 " + std::string(body) + "}";
}

NSParagraphStyle::Ref styleOf(std::string_view body)
{
    return read(cocoa(std::string(body) + " x"))
        .attribute(NSParagraphStyleAttributeName, 0)
        .object<NSParagraphStyle>();
}

} // namespace

TEST(RTFParagraphReading, HasNoParagraphStyleBeforeTheFirstWordAboutOne)
{
    const auto text = read(cocoa("a\\par\\pard b"));
    EXPECT_FALSE(text.attribute(NSParagraphStyleAttributeName, 0));
    EXPECT_TRUE(text.attribute(NSParagraphStyleAttributeName, 2));
}

TEST(RTFParagraphReading, SetsParagraphsAsTheirEndsSay)
{
    const auto text = read(cocoa("\\pard a\\qc\\par\\pard b"));
    const auto alignmentAt = [&text](NSUInteger location) {
        return text.attribute(NSParagraphStyleAttributeName, location)
            .object<NSParagraphStyle>()
            ->alignment();
    };
    EXPECT_EQ(alignmentAt(0), NSTextAlignment::Center);
    EXPECT_EQ(alignmentAt(1), NSTextAlignment::Center);
    EXPECT_EQ(alignmentAt(2), NSTextAlignment::Left);
}

TEST(RTFParagraphReading, ReadsIndentsAndSpacing)
{
    const auto style
        = styleOf("\\pard\\li1440\\fi-720\\ri1040\\sb120\\sa240\\slleading80\\parhyphenfactor50");
    EXPECT_EQ(style->headIndent(), 72);
    EXPECT_EQ(style->firstLineHeadIndent(), 36);
    // The paper of 12240 twips less margins of 1800 each.
    EXPECT_EQ(style->tailIndent(), 380);
    EXPECT_EQ(style->paragraphSpacingBefore(), 6);
    EXPECT_EQ(style->paragraphSpacing(), 12);
    EXPECT_EQ(style->lineSpacing(), 4);
    EXPECT_EQ(style->hyphenationFactor(), 0.5F);
    EXPECT_EQ(styleOf("\\paperw11900\\margl1440\\margr1440\\pard\\ri20")->tailIndent(), 450);
    EXPECT_EQ(styleOf("\\pard\\ri0")->tailIndent(), 0);
}

TEST(RTFParagraphReading, ReadsLineHeights)
{
    const auto exact = styleOf("\\pard\\sl-400");
    EXPECT_EQ(exact->minimumLineHeight(), 20);
    EXPECT_EQ(exact->maximumLineHeight(), 20);
    const auto least = styleOf("\\pard\\sl400");
    EXPECT_EQ(least->minimumLineHeight(), 20);
    EXPECT_EQ(least->maximumLineHeight(), 0);
    const auto multiple = styleOf("\\pard\\sl288\\slmult1\\slminimum300\\slmaximum500");
    EXPECT_EQ(multiple->lineHeightMultiple(), 1.2);
    EXPECT_EQ(multiple->minimumLineHeight(), 15);
    EXPECT_EQ(multiple->maximumLineHeight(), 25);
    EXPECT_EQ(styleOf("\\pard\\sl0\\slmult1")->lineHeightMultiple(), 0);
}

TEST(RTFParagraphReading, ReadsAlignmentsAndDirections)
{
    EXPECT_EQ(styleOf("\\pard")->alignment(), NSTextAlignment::Left);
    EXPECT_EQ(styleOf("\\pard")->baseWritingDirection(), NSWritingDirection::LeftToRight);
    EXPECT_EQ(styleOf("\\pard\\pardirnatural")->alignment(), NSTextAlignment::Natural);
    EXPECT_EQ(styleOf("\\pard\\pardirnatural")->baseWritingDirection(), NSWritingDirection::Natural);
    EXPECT_EQ(styleOf("\\pard\\ql\\qnatural")->alignment(), NSTextAlignment::Natural);
    EXPECT_EQ(styleOf("\\pard\\pardirnatural\\ql")->alignment(), NSTextAlignment::Left);
    EXPECT_EQ(styleOf("\\pard\\qr")->alignment(), NSTextAlignment::Right);
    EXPECT_EQ(styleOf("\\pard\\qc")->alignment(), NSTextAlignment::Center);
    EXPECT_EQ(styleOf("\\pard\\qj")->alignment(), NSTextAlignment::Justified);
    EXPECT_EQ(styleOf("\\pard\\rtlpar")->baseWritingDirection(), NSWritingDirection::RightToLeft);
    EXPECT_EQ(styleOf("\\pard\\rtlpar\\ltrpar")->baseWritingDirection(), NSWritingDirection::LeftToRight);
}

TEST(RTFParagraphReading, ReadsTabs)
{
    const auto stops
        = styleOf("\\pard\\tx500\\tqr\\tx3000\\tqc\\tx5000\\tqdec\\tx7000\\pardeftab560")->tabStops();
    ASSERT_EQ(stops.size(), 4U);
    EXPECT_TRUE(stops[0]->isEqual(NSTextTab(NSTextAlignment::Left, 25)));
    EXPECT_TRUE(stops[1]->isEqual(NSTextTab(NSTextAlignment::Right, 150)));
    EXPECT_TRUE(stops[2]->isEqual(NSTextTab(NSTextAlignment::Center, 250)));
    EXPECT_EQ(stops[3]->location(), 350);
    EXPECT_TRUE(stops[3]->options().contains(NSTabColumnTerminatorsAttributeName));
    EXPECT_EQ(styleOf("\\pard\\pardeftab560")->defaultTabInterval(), 28);
    EXPECT_TRUE(styleOf("\\pard")->tabStops().empty());
}

TEST(RTFParagraphReading, TakesTheDocumentsTabIntervalForParagraphsWithoutOne)
{
    EXPECT_EQ(styleOf("\\pard")->defaultTabInterval(), 0);
    EXPECT_EQ(styleOf("\\deftab720\\pard")->defaultTabInterval(), 36);
    const auto other = read("{\\rtf1\\pard x}").attribute(NSParagraphStyleAttributeName, 0);
    EXPECT_EQ(other.object<NSParagraphStyle>()->defaultTabInterval(), 36);
}

TEST(RTFParagraphReading, ReadsOutlineLevelsAsHeaderLevels)
{
    EXPECT_EQ(styleOf("\\pard\\outlinelevel0")->headerLevel(), 1);
    EXPECT_EQ(styleOf("\\pard\\outlinelevel5")->headerLevel(), 6);
    EXPECT_EQ(styleOf("\\pard\\outlinelevel9")->headerLevel(), 0);
    EXPECT_EQ(styleOf("\\pard\\outlinelevel-1")->headerLevel(), 0);
}
