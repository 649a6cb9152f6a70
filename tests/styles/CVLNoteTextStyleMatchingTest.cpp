#include "colours/HighlightAttribute.h"
#include "platform/text/NSAttributeNames.h"
#include "tests/styles/StyleTest.h"

#include <gmock/gmock.h>

using testing::UnorderedElementsAre;

namespace {

using Attributes = CVLNoteTextStyle::Attributes;

NSParagraphStyle::Ref paragraphStyleWith(double lineSpacing, double headIndent)
{
    auto style = NSParagraphStyle::defaultParagraphStyle()->mutableCopy();
    style.setLineSpacing(lineSpacing);
    style.setHeadIndent(headIndent);
    return style.copy();
}

class CVLNoteTextStyleMatching : public StyleTest {
protected:
    CVLNoteTextStyle::Ref m_body = CVLNoteTextStyle::defaultBodyNoteTextStyle();
    CVLNoteTextStyle::Ref m_title = CVLNoteTextStyle::defaultTitleNoteTextStyle();
};

TEST_F(CVLNoteTextStyleMatching, GivesExactlySixAttributes)
{
    m_title->setUnderlineStyle(2);
    m_title->setStrikethrough(1);
    const auto attributes = m_title->attributes();
    EXPECT_EQ(attributes.size(), 6U);
    EXPECT_EQ(attributes.at(key(NSFontAttributeName)), NSAny(m_title->font()));
    EXPECT_EQ(attributes.at(key(NSParagraphStyleAttributeName)), NSAny(m_title->paragraphStyle()));
    EXPECT_EQ(attributes.at(key(NSForegroundColorAttributeName)), NSAny(NSColor::textColor()));
    EXPECT_EQ(attributes.at(key(NSUnderlineStyleAttributeName)), NSAny(2));
    EXPECT_EQ(attributes.at(key(NSStrikethroughStyleAttributeName)), NSAny(1));
    EXPECT_EQ(attributes.at(key(CVLNoteTextStyleIdentifierKey)), NSAny(u"CVLNoteStyleIdentifierTitle"));
}

TEST_F(CVLNoteTextStyleMatching, LeavesTheIdentifierOutWhenThereIsNone)
{
    const auto style = customStyle(u"Quote");
    style->setCustomStyleIdentifier(std::nullopt);
    EXPECT_EQ(style->attributes().size(), 5U);
    EXPECT_FALSE(style->attributes().contains(CVLNoteTextStyleIdentifierKey));
}

TEST_F(CVLNoteTextStyleMatching, AllowsSevenOtherAttributesAndTheParagraphStyleOfCharacterStyles)
{
    auto names = m_title->otherAllowedAttributeNames();
    EXPECT_THAT(names,
                UnorderedElementsAre(NSBackgroundColorAttributeName, NSLigatureAttributeName,
                                     NSAttachmentAttributeName, NSLinkAttributeName,
                                     NSWritingDirectionAttributeName, NSVerticalGlyphFormAttributeName,
                                     CVLNoteTextStyleIdentifierKey));
    names.emplace(NSParagraphStyleAttributeName);
    EXPECT_EQ(m_body->otherAllowedAttributeNames(), names);
    m_body->setOtherAllowedAttributeNames(CVLNoteTextStyle::AttributeNames{u"NSKern"});
    EXPECT_THAT(m_body->otherAllowedAttributeNames(), UnorderedElementsAre(u"NSKern"));
}

TEST_F(CVLNoteTextStyleMatching, MatchesItsOwnAttributes)
{
    for (const auto& style : CVLNoteTextStyle::standardStyles()) {
        EXPECT_TRUE(style->matchesAttributes(style->attributes()));
        EXPECT_TRUE(style->matchesStyle(*style->copy()));
    }
}

TEST_F(CVLNoteTextStyleMatching, MatchesNoTextThatHasOnlyIgnoredAttributes)
{
    EXPECT_FALSE(m_body->matchesAttributes({}));
    const Attributes attributes = {{key(NSLinkAttributeName), u"https://example.org"},
                                   {key(NSBackgroundColorAttributeName), NSColor::yellowColor()}};
    EXPECT_FALSE(m_body->matchesAttributes(attributes));
    EXPECT_EQ(CVLNoteTextStyle::styleThatMatchesAttributes(attributes), nullptr);
}

TEST_F(CVLNoteTextStyleMatching, ComparesNoAttributeThatTheTextLacks)
{
    const Attributes onlyFont = {{key(NSFontAttributeName), m_title->font()}};
    EXPECT_TRUE(m_title->matchesAttributes(onlyFont));
    EXPECT_EQ(CVLNoteTextStyle::styleThatMatchesAttributes(onlyFont), CVLNoteTextStyle::titleNoteTextStyle());
}

TEST_F(CVLNoteTextStyleMatching, LooksAtEveryVisibleAttribute)
{
    const std::vector<std::pair<std::u16string_view, NSAny>> others = {
        {NSFontAttributeName, NSFont::fontWithName(u"Menlo-Regular", 17)},
        {NSFontAttributeName, u"no font"},
        {NSForegroundColorAttributeName, NSColor::redColor()},
        {NSUnderlineStyleAttributeName, 1},
        {NSStrikethroughStyleAttributeName, 1},
        {NSParagraphStyleAttributeName, paragraphStyleWith(0, 36)},
        {NSParagraphStyleAttributeName, u"no paragraph style"},
    };
    for (const auto& [name, value] : others) {
        auto attributes = m_title->attributes();
        attributes[key(name)] = value;
        EXPECT_FALSE(m_title->matchesAttributes(attributes));
    }
}

TEST_F(CVLNoteTextStyleMatching, TakesNoUnderlineForZero)
{
    auto attributes = m_body->attributes();
    attributes[key(NSUnderlineStyleAttributeName)] = u"none";
    attributes.erase(key(NSStrikethroughStyleAttributeName));
    EXPECT_TRUE(m_body->matchesAttributes(attributes));
}

TEST_F(CVLNoteTextStyleMatching, ComparesOnlyTheLineSpacingOfCharacterStyles)
{
    auto attributes = m_body->attributes();
    attributes[key(NSParagraphStyleAttributeName)] = paragraphStyleWith(0, 36);
    EXPECT_TRUE(m_body->matchesAttributes(attributes, {}));
    attributes[key(NSParagraphStyleAttributeName)] = paragraphStyleWith(3, 0);
    EXPECT_FALSE(m_body->matchesAttributes(attributes, {}));
    // The paragraph style is among what text in a character style may have besides.
    EXPECT_TRUE(m_body->matchesAttributes(attributes));
}

TEST_F(CVLNoteTextStyleMatching, ComparesTheIdentifierUnlessItIsIgnored)
{
    auto attributes = m_body->attributes();
    attributes[key(CVLNoteTextStyleIdentifierKey)] = u"another";
    EXPECT_TRUE(m_body->matchesAttributes(attributes));
    EXPECT_FALSE(m_body->matchesAttributes(attributes, {}));
    attributes.erase(key(CVLNoteTextStyleIdentifierKey));
    EXPECT_TRUE(m_body->matchesAttributes(attributes, {}));
}

TEST_F(CVLNoteTextStyleMatching, TellsCustomStylesApartByTheirIdentifiers)
{
    const auto one = customStyle(u"Quote");
    const auto other = customStyle(u"Quote");
    EXPECT_FALSE(one->matchesStyle(*other));
    EXPECT_TRUE(one->matchesAttributes(other->attributes()));
}

TEST_F(CVLNoteTextStyleMatching, KeepsOtherAllowedAttributesOfTheText)
{
    const Attributes others = {{key(NSLinkAttributeName), u"https://example.org"},
                               {key(NSBackgroundColorAttributeName), NSColor::yellowColor()},
                               {key(NSKernAttributeName), 2.0},
                               {key(NSFontAttributeName), m_body->font()}};
    auto expected = m_title->attributes();
    expected[key(NSLinkAttributeName)] = u"https://example.org";
    expected[key(NSBackgroundColorAttributeName)] = NSColor::yellowColor();
    EXPECT_EQ(m_title->attributesWithOtherAttributes(others), expected);
}

// The identifier is one of the allowed attributes, so it survives as a link does.
TEST_F(CVLNoteTextStyleMatching, KeepsTheIdentifierThatTheTextRecords)
{
    const auto result = m_title->attributesWithOtherAttributes(m_body->attributes());
    EXPECT_EQ(result.at(key(CVLNoteTextStyleIdentifierKey)), NSAny(u"CVLNoteStyleIdentifierBody"));
    EXPECT_EQ(result.at(key(NSFontAttributeName)), NSAny(m_title->font()));
}

TEST_F(CVLNoteTextStyleMatching, KeepsHighlightedTextHighlighted)
{
    Attributes others = {{key(NSForegroundColorAttributeName), NSColor::orangeColor()},
                         {key(NSBackgroundColorAttributeName), NSColor::yellowColor()},
                         {key(CVLHighlightTextAttributeName), 2}};
    auto result = m_title->attributesWithOtherAttributes(others);
    EXPECT_EQ(result.at(key(NSForegroundColorAttributeName)), NSAny(NSColor::orangeColor()));
    EXPECT_EQ(result.at(key(NSBackgroundColorAttributeName)), NSAny(NSColor::yellowColor()));
    EXPECT_EQ(result.at(key(CVLHighlightTextAttributeName)), NSAny(2));

    others[key(CVLHighlightTextAttributeName)] = 0;
    result = m_title->attributesWithOtherAttributes(others);
    EXPECT_EQ(result.at(key(NSForegroundColorAttributeName)), NSAny(NSColor::textColor()));
    EXPECT_FALSE(result.contains(CVLHighlightTextAttributeName));
}

TEST_F(CVLNoteTextStyleMatching, GivesParagraphsTheWholeParagraphStyle)
{
    const Attributes others = {{key(NSParagraphStyleAttributeName), paragraphStyleWith(3, 36)}};
    EXPECT_EQ(m_title->attributesWithOtherAttributes(others), m_title->attributes());
}

TEST_F(CVLNoteTextStyleMatching, GivesCharactersOnlyTheLineSpacing)
{
    const auto monospaced = CVLNoteTextStyle::defaultMonospacedNoteTextStyle();
    const Attributes others = {{key(NSParagraphStyleAttributeName), paragraphStyleWith(3, 36)}};
    const auto result = monospaced->attributesWithOtherAttributes(others);
    EXPECT_EQ(result.at(key(NSParagraphStyleAttributeName)), NSAny(paragraphStyleWith(1, 36)));
    EXPECT_EQ(monospaced->attributesWithOtherAttributes({}), monospaced->attributes());
}

TEST_F(CVLNoteTextStyleMatching, SavesCustomStylesAndChangedStandardStyles)
{
    EXPECT_TRUE(customStyle(u"Quote")->shouldSaveToDefaults());
    for (const auto& style : CVLNoteTextStyle::standardStyles()) {
        EXPECT_FALSE(style->shouldSaveToDefaults());
        style->setFontSize(style->fontSize() + 1);
        EXPECT_TRUE(style->shouldSaveToDefaults());
        style->setFontSize(style->fontSize() - 1);
        EXPECT_FALSE(style->shouldSaveToDefaults());
    }
    for (const NSInteger type : {5, -1}) {
        CVLNoteTextStyle style;
        style.setType(static_cast<CVLNoteTextStyleType>(type));
        EXPECT_FALSE(style.shouldSaveToDefaults()) << type;
    }
}

} // namespace
