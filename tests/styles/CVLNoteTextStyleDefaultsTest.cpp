#include "styles/CVLNoteTextStyle.h"

#include <gtest/gtest.h>

namespace {

using Type = CVLNoteTextStyleType;
using Style = CVLNoteTextStyle;

struct Expected {
    Type type;
    Style::Ref style;
    std::u16string fontName;
    double fontSize;
    double lineSpacing;
    double paragraphSpacing;
    NSInteger headerLevel;
    double defaultTabInterval;
    bool isForParagraphs;
};

std::vector<Expected> expectedDefaults()
{
    const double firstTabStop = 28;
    // Title has no paragraph spacing, Heading and Subheading have 2.
    return {
        {Type::Body, Style::defaultBodyNoteTextStyle(), u"HelveticaNeue", 12, 0, 0, 0, firstTabStop, false},
        {Type::Title, Style::defaultTitleNoteTextStyle(), u"HelveticaNeue-Bold", 17, 0, 0, 1, 0, true},
        {Type::Heading, Style::defaultHeadingNoteTextStyle(), u"HelveticaNeue-Bold", 14, 0, 2, 2, 0, true},
        {Type::Subheading, Style::defaultSubheadingNoteTextStyle(), u"HelveticaNeue-Bold", 13, 0, 2, 3, 0,
         true},
        {Type::Monospaced, Style::defaultMonospacedNoteTextStyle(), u"Menlo-Regular", 12, 1, 0, 0, 0, false},
    };
}

TEST(CVLNoteTextStyleDefaults, AreTheFiveStandardStyles)
{
    for (const auto& expected : expectedDefaults()) {
        const auto& style = *expected.style;
        SCOPED_TRACE(static_cast<int>(expected.type));
        EXPECT_EQ(style.type(), expected.type);
        EXPECT_EQ(style.fontName(), expected.fontName);
        EXPECT_EQ(style.fontSize(), expected.fontSize);
        const auto paragraphStyle = style.paragraphStyle();
        EXPECT_EQ(paragraphStyle->lineSpacing(), expected.lineSpacing);
        EXPECT_EQ(paragraphStyle->paragraphSpacing(), expected.paragraphSpacing);
        EXPECT_EQ(paragraphStyle->headerLevel(), expected.headerLevel);
        EXPECT_EQ(paragraphStyle->defaultTabInterval(), expected.defaultTabInterval);
        EXPECT_EQ(style.applyToParagraph(), expected.isForParagraphs);
        EXPECT_EQ(style.resetOnNewLine(), expected.isForParagraphs);
        EXPECT_TRUE(style.foregroundColor()->isEqual(*NSColor::textColor()));
        EXPECT_EQ(style.underlineStyle(), 0);
        EXPECT_EQ(style.strikethrough(), 0);
        EXPECT_EQ(style.customStyleIdentifier(), std::nullopt);
    }
}

TEST(CVLNoteTextStyleDefaults, ChangeNothingElseInTheParagraphStyle)
{
    for (const auto& expected : expectedDefaults()) {
        auto paragraphStyle = expected.style->paragraphStyle()->mutableCopy();
        paragraphStyle.setLineSpacing(0);
        paragraphStyle.setParagraphSpacing(0);
        paragraphStyle.setHeaderLevel(0);
        paragraphStyle.setDefaultTabInterval(0);
        EXPECT_TRUE(paragraphStyle.copy()->isEqual(*NSParagraphStyle::defaultParagraphStyle()));
    }
}

TEST(CVLNoteTextStyleDefaults, AreFoundByType)
{
    for (const auto& expected : expectedDefaults()) {
        const auto style = Style::defaultStyleForType(expected.type);
        ASSERT_TRUE(style);
        EXPECT_TRUE(style->matchesStyle(*expected.style));
        EXPECT_NE(style, expected.style);
    }
    for (const NSInteger type : {-1, 5, 9998, 9999, 10000})
        EXPECT_EQ(Style::defaultStyleForType(static_cast<Type>(type)), nullptr);
}

TEST(CVLNoteTextStyleDefaults, ScaleTextByTheUsersSetting)
{
    EXPECT_EQ(Style::scaleFactorForNoteTextSize(1), 1.0);
    EXPECT_DOUBLE_EQ(Style::scaleFactorForNoteTextSize(2), 1.0833333333333333);
    EXPECT_EQ(Style::scaleFactorForNoteTextSize(3), 1.25);
    EXPECT_DOUBLE_EQ(Style::scaleFactorForNoteTextSize(4), 1.4166666666666667);
    for (const NSInteger other : {0, -1, 5, 100})
        EXPECT_EQ(Style::scaleFactorForNoteTextSize(other), 0.875);
}

} // namespace
