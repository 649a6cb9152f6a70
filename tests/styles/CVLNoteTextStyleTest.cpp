#include "styles/CVLNoteTextStyle.h"

#include "colours/ColourEquality.h"
#include "platform/foundation/Unicode.h"
#include "tests/styles/StyleTest.h"

#include <gmock/gmock.h>

using testing::ElementsAre;
using testing::IsEmpty;

namespace {

using Type = CVLNoteTextStyleType;

CVLNoteTextStyle styleOfType(NSInteger type)
{
    CVLNoteTextStyle style;
    style.setType(static_cast<Type>(type));
    style.setName(u"stored");
    style.setCustomStyleIdentifier(u"custom");
    return style;
}

TEST(CVLNoteTextStyle, HasTheStoredNumbersOfTheTypes)
{
    EXPECT_EQ(static_cast<int>(Type::Body), 0);
    EXPECT_EQ(static_cast<int>(Type::Title), 1);
    EXPECT_EQ(static_cast<int>(Type::Heading), 2);
    EXPECT_EQ(static_cast<int>(Type::Monospaced), 3);
    EXPECT_EQ(static_cast<int>(Type::Subheading), 4);
    EXPECT_EQ(static_cast<int>(Type::Custom), 9999);
}

TEST(CVLNoteTextStyle, HasTheExactKeys)
{
    EXPECT_EQ(CVLNoteTextStyleIdentifierKey, u"CVLNoteTextStyleIdentifier");
    EXPECT_EQ(CVLNoteTextStyleDefaultIdentifierKey, u"CVLNoteTextStyleDefaultIdentifier");
    EXPECT_EQ(CVLNoteTextStylesDefaultsKey, u"CVLNoteTextStyles");
    EXPECT_EQ(CVLNoteTextStyleDefaultsDidChangeNotification,
              u"CVLNoteTextStyleDefaultsDidChangeNotification");
}

TEST(CVLNoteTextStyle, NamesAndIdentifiesStandardStylesByTheirTypeWhateverIsStored)
{
    struct Row {
        NSInteger type;
        std::u16string name;
        std::u16string identifier;
    };

    const std::vector<Row> rows = {
        {0, u"Body", u"CVLNoteStyleIdentifierBody"},
        {1, u"Title", u"CVLNoteStyleIdentifierTitle"},
        {2, u"Heading", u"CVLNoteStyleIdentifierHeading"},
        {3, u"Monospaced", u"CVLNoteStyleIdentifierMonospace"},
        {4, u"Subheading", u"CVLNoteStyleIdentifierSubheading"},
    };
    for (const auto& row : rows) {
        EXPECT_EQ(styleOfType(row.type).name(), row.name);
        EXPECT_EQ(styleOfType(row.type).identifier(), row.identifier);
    }
}

TEST(CVLNoteTextStyle, TakesEveryOtherTypeForCustom)
{
    for (const NSInteger type : {5, 17, 9999, 10000, -1}) {
        EXPECT_EQ(styleOfType(type).name(), u"stored") << type;
        EXPECT_EQ(styleOfType(type).identifier(), u"custom") << type;
    }
}

TEST(CVLNoteTextStyle, GetsAnIdentifierWhenItFirstBecomesCustom)
{
    CVLNoteTextStyle style;
    EXPECT_EQ(style.customStyleIdentifier(), std::nullopt);
    style.setType(Type::Custom);
    const auto identifier = style.customStyleIdentifier();
    ASSERT_TRUE(identifier);
    const auto text = UTF8FromUTF16(*identifier);
    EXPECT_EQ(text.size(), 36U);
    EXPECT_EQ(text.find_first_not_of("0123456789ABCDEF-"), std::string::npos) << text;
    style.setType(Type::Title);
    style.setType(Type::Custom);
    EXPECT_EQ(style.customStyleIdentifier(), identifier);
}

TEST(CVLNoteTextStyle, KeepsTheIdentifierThatItHas)
{
    CVLNoteTextStyle style;
    style.setCustomStyleIdentifier(u"mine");
    style.setType(Type::Custom);
    EXPECT_EQ(style.identifier(), u"mine");
}

TEST(CVLNoteTextStyle, GetsNoIdentifierWhenItsTypeStaysCustom)
{
    CVLNoteTextStyle style;
    style.setType(Type::Custom);
    style.setCustomStyleIdentifier(std::nullopt);
    style.setType(Type::Custom);
    EXPECT_EQ(style.identifier(), std::nullopt);
}

TEST(CVLNoteTextStyle, HasTheUsersFontWhenNoneIsStored)
{
    const CVLNoteTextStyle style;
    EXPECT_TRUE(style.font()->isEqual(*NSFont::userFontOfSize(12)));
    EXPECT_EQ(style.fontSize(), 12);
}

TEST(CVLNoteTextStyle, ChangesFontNameAndSizeByThemselves)
{
    CVLNoteTextStyle style;
    style.setFont(NSFont::fontWithName(u"HelveticaNeue", 17));
    style.setFontName(u"Menlo-Regular");
    EXPECT_EQ(style.fontName(), u"Menlo-Regular");
    EXPECT_EQ(style.fontSize(), 17);
    style.setFontSize(9.5);
    EXPECT_EQ(style.fontName(), u"Menlo-Regular");
    EXPECT_EQ(style.fontSize(), 9.5);
    style.setFontName(u"NoFontOfThisName");
    EXPECT_TRUE(style.font()->isEqual(*NSFont::userFontOfSize(12)));
}

TEST(CVLNoteTextStyle, HasTheDefaultParagraphStyleWhenNoneIsStored)
{
    EXPECT_TRUE(CVLNoteTextStyle().paragraphStyle()->isEqual(*NSParagraphStyle::defaultParagraphStyle()));
}

TEST(CVLNoteTextStyle, NeverReportsBlackOrWhite)
{
    for (const auto& color : {NSColor::blackColor(), NSColor::whiteColor(), CVLExtensions::appleBlackColor(),
                              CVLExtensions::crayonsWhiteColor(), NSColor::Ref()}) {
        CVLNoteTextStyle style;
        style.setForegroundColor(NSColor::redColor());
        style.setForegroundColor(color);
        EXPECT_TRUE(style.foregroundColor()->isEqual(*NSColor::textColor()));
    }
}

TEST(CVLNoteTextStyle, ReportsEveryOtherColour)
{
    CVLNoteTextStyle style;
    style.setForegroundColor(NSColor::redColor());
    EXPECT_TRUE(style.foregroundColor()->isEqual(*NSColor::redColor()));
    EXPECT_TRUE(CVLNoteTextStyle::standardForegroundColor()->isEqual(*NSColor::textColor()));
}

TEST(CVLNoteTextStyle, TellsObserversThatFontNameAndSizeDependOnTheFont)
{
    for (const auto* name : {u"fontName", u"fontSize"})
        EXPECT_THAT(CVLNoteTextStyle::keyPathsForValuesAffectingValueForKey(name), ElementsAre(u"font"));
    EXPECT_THAT(CVLNoteTextStyle::keyPathsForValuesAffectingValueForKey(u"font"), IsEmpty());
    EXPECT_FALSE(CVLNoteTextStyle::accessInstanceVariablesDirectly());
}

TEST(CVLNoteTextStyle, CopiesAllButTheAllowedNames)
{
    CVLNoteTextStyle style;
    style.setType(Type::Custom);
    style.setName(u"Quote");
    style.setFont(NSFont::fontWithName(u"Menlo-Regular", 11));
    style.setParagraphStyle(NSParagraphStyle::defaultParagraphStyle()->mutableCopy().copy());
    style.setForegroundColor(NSColor::redColor());
    style.setUnderlineStyle(9);
    style.setStrikethrough(1);
    style.setResetOnNewLine(true);
    style.setApplyToParagraph(true);
    style.setOtherAllowedAttributeNames(CVLNoteTextStyle::AttributeNames{u"NSKern"});
    const auto copy = style.copy();
    EXPECT_EQ(copy->type(), Type::Custom);
    EXPECT_EQ(copy->name(), u"Quote");
    EXPECT_EQ(copy->font(), style.font());
    EXPECT_EQ(copy->paragraphStyle(), style.paragraphStyle());
    EXPECT_EQ(copy->foregroundColor(), style.foregroundColor());
    EXPECT_EQ(copy->underlineStyle(), 9);
    EXPECT_EQ(copy->strikethrough(), 1);
    EXPECT_TRUE(copy->resetOnNewLine());
    EXPECT_TRUE(copy->applyToParagraph());
    EXPECT_EQ(copy->customStyleIdentifier(), style.customStyleIdentifier());
    EXPECT_FALSE(copy->otherAllowedAttributeNames().contains(u"NSKern"));
    copy->setName(u"Other");
    EXPECT_EQ(style.name(), u"Quote");
}

} // namespace
