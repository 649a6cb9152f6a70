#include "richtext/WebPageCleanup.h"

#include "platform/text/NSColor.h"
#include "platform/text/NSFontManager.h"
#include "tests/richtext/NoteText.h"
#include "tests/styles/StyleTest.h"

#include <gtest/gtest.h>

#include <array>

using namespace DynamicColors;

namespace {

constexpr double kSize = 16;

/// What the run's font becomes in the family of the other.
std::u16string changed(std::u16string_view from, std::u16string_view family)
{
    NSMutableAttributedString text(NoteText().add(u"x", withFont(from, kSize)).text());
    changeFont(text, NSFont::fontWithName(family, 30), {0, 1});
    EXPECT_EQ(fontAt(text, 0)->pointSize(), kSize);
    return fontAt(text, 0)->fontName();
}

double shrunk(double size)
{
    NSMutableAttributedString text(NoteText().add(u"x", withFont(u"Helvetica", size)).text());
    adjustWebPageFontSizesInRange(text, {0, 1});
    return fontAt(text, 0)->pointSize();
}

bool hasColor(const NSAttributedString& text, std::u16string_view name, const NSColor::Ref& expected)
{
    const auto color = text.attribute(name, 0).object<NSColor>();
    return color && color->isEqual(*expected);
}

/// A spaced paragraph in red, on yellow, in Times at 16 points.
NSMutableAttributedString pageText()
{
    NSMutableParagraphStyle style;
    style.setParagraphSpacing(16);
    return NSMutableAttributedString(
        NoteText()
            .add(u"one\ntwo\n",
                 {{key(NSFontAttributeName), NSFont::fontWithName(u"Times-Bold", kSize)},
                  {key(NSForegroundColorAttributeName), NSColor::redColor()},
                  {key(NSBackgroundColorAttributeName), NSColor::yellowColor()},
                  {key(NSParagraphStyleAttributeName), style.copy()}})
            .text());
}

class WebPageCleanup : public StyleTest { };

} // namespace

TEST(FontChange, KeepsTraitsWeightAndSize)
{
    EXPECT_EQ(changed(u"Times-Roman", u"HelveticaNeue"), u"HelveticaNeue");
    EXPECT_EQ(changed(u"Times-Bold", u"HelveticaNeue"), u"HelveticaNeue-Bold");
    EXPECT_EQ(changed(u"Times-Italic", u"HelveticaNeue"), u"HelveticaNeue-Italic");
    EXPECT_EQ(changed(u"Times-BoldItalic", u"HelveticaNeue"), u"HelveticaNeue-BoldItalic");
}

TEST(FontChange, TakesTheFamilyOfTheFontAndNotItsFace)
{
    EXPECT_EQ(changed(u"Times-Roman", u"HelveticaNeue-BoldItalic"), u"HelveticaNeue");
}

TEST(FontChange, DoesNotKeepTheFixedPitch)
{
    EXPECT_EQ(changed(u"Menlo-Bold", u"HelveticaNeue"), u"HelveticaNeue-Bold");
}

TEST(FontChange, GivesUpWhatTheFamilyDoesNotHave)
{
    ASSERT_TRUE(NSFont::fontWithName(u"HelveticaNeue-CondensedBold", kSize));
    EXPECT_EQ(changed(u"HelveticaNeue-CondensedBold", u"Menlo-Regular"), u"Menlo-Bold");
    EXPECT_EQ(changed(u"Times-BoldItalic", u"LucidaGrande"), u"LucidaGrande-Bold");
    EXPECT_EQ(changed(u"Times-Italic", u"Monaco"), u"Monaco");
    EXPECT_EQ(changed(u"Times-BoldItalic", u"Monaco"), u"Monaco");
}

TEST(FontChange, LeavesRunsWithoutAFontAlone)
{
    NSMutableAttributedString text(NoteText().add(u"x").text());
    changeFont(text, NSFont::fontWithName(u"HelveticaNeue", 12), {0, 1});
    EXPECT_TRUE(text.attributesAtIndex(0).empty());
}

TEST(FontChange, ChangesEachFontOnceWhereFontsComeToBeEqual)
{
    NSMutableAttributedString text(NoteText()
                                       .add(u"a", withFont(u"Times-Roman", kSize))
                                       .add(u"b", withFont(u"HelveticaNeue", kSize))
                                       .add(u"c", withFont(u"Menlo-Regular", kSize))
                                       .add(u"d", withFont(u"Times-Bold", kSize))
                                       .text());
    changeFont(text, NSFont::fontWithName(u"HelveticaNeue", 12), {0, 4});
    for (NSUInteger index = 0; index < 3; ++index)
        EXPECT_EQ(text.attributesAtIndex(index), withFont(u"HelveticaNeue", kSize)) << index;
    EXPECT_EQ(text.attributesAtIndex(3), withFont(u"HelveticaNeue-Bold", kSize));
    EXPECT_EQ(text.runCount(), 2U);
}

TEST(FontChange, StaysWithinTheRange)
{
    NSMutableAttributedString text(NoteText().add(u"xyz", withFont(u"Times-Roman", kSize)).text());
    changeFont(text, NSFont::fontWithName(u"HelveticaNeue", 12), {1, 1});
    EXPECT_EQ(fontAt(text, 0)->familyName(), u"Times");
    EXPECT_EQ(fontAt(text, 1)->familyName(), u"Helvetica Neue");
    EXPECT_EQ(fontAt(text, 2)->familyName(), u"Times");
}

TEST(FontSizes, AreThreeQuartersRoundedUp)
{
    EXPECT_EQ(shrunk(13), 10);
    EXPECT_EQ(shrunk(16), 12);
    EXPECT_EQ(shrunk(15), 12);
    EXPECT_EQ(shrunk(1), 1);
}

TEST(FontSizes, ShrinkWithAllOtherAttributesKept)
{
    auto attributes = withFont(u"Helvetica-Bold", kSize);
    attributes.emplace(NSKernAttributeName, 0.5);
    NSMutableAttributedString text(NoteText().add(u"xy", attributes).add(u"z").text());
    adjustWebPageFontSizesInRange(text, {0, 3});
    attributes = withFont(u"Helvetica-Bold", 12);
    attributes.emplace(NSKernAttributeName, 0.5);
    EXPECT_EQ(text.attributesAtIndex(0), attributes);
    EXPECT_TRUE(text.attributesAtIndex(2).empty());
}

TEST(FontSizes, ShrinkOnceWhereARunComesToEqualTheNext)
{
    NSMutableAttributedString text(NoteText()
                                       .add(u"a", withFont(u"Helvetica", 16))
                                       .add(u"b", withFont(u"Helvetica", 12))
                                       .add(u"c", withFont(u"Helvetica", 9))
                                       .add(u"d", withFont(u"Helvetica", 16))
                                       .text());
    adjustWebPageFontSizesInRange(text, {0, 4});
    EXPECT_EQ(fontAt(text, 0)->pointSize(), 12);
    EXPECT_EQ(fontAt(text, 1)->pointSize(), 9);
    EXPECT_EQ(fontAt(text, 2)->pointSize(), 7);
    EXPECT_EQ(fontAt(text, 3)->pointSize(), 12);
}

TEST(FontSizes, ShrinkWithinTheRange)
{
    NSMutableAttributedString text(NoteText().add(u"xyz", withFont(u"Helvetica", kSize)).text());
    adjustWebPageFontSizesInRange(text, {1, 1});
    EXPECT_EQ(fontAt(text, 0)->pointSize(), kSize);
    EXPECT_EQ(fontAt(text, 1)->pointSize(), 12);
    EXPECT_EQ(fontAt(text, 2)->pointSize(), kSize);
}

TEST_F(WebPageCleanup, ChangesFontsOnlyByDefault)
{
    auto text = pageText();
    const auto before = text;
    cleanupWebPageText(text);
    EXPECT_EQ(fontAt(text, 0)->fontName(), u"HelveticaNeue-Bold");
    EXPECT_EQ(fontAt(text, 0)->pointSize(), kSize);
    NSMutableAttributedString restored(text);
    restored.addAttribute(NSFontAttributeName, fontAt(before, 0), {0, text.length()});
    EXPECT_EQ(restored, before);
}

TEST_F(WebPageCleanup, MakesBlankLinesWhenAsked)
{
    defaults().setObject(true, CVLTextViewCleanUpWebPageNewLines);
    auto text = pageText();
    cleanupWebPageText(text);
    EXPECT_EQ(text.string(), u"one\n\ntwo\n\n");
    EXPECT_EQ(fontAt(text, text.length() - 1)->fontName(), u"HelveticaNeue-Bold");
    EXPECT_EQ(fontAt(text, 0)->pointSize(), kSize);
    EXPECT_TRUE(hasColor(text, NSForegroundColorAttributeName, NSColor::redColor()));
}

TEST_F(WebPageCleanup, ShrinksThePagesSizesWhenAsked)
{
    defaults().setObject(true, CVLTextViewCleanUpWebPageFontSizes);
    auto text = pageText();
    cleanupWebPageText(text);
    EXPECT_EQ(text.string(), u"one\ntwo\n");
    EXPECT_EQ(fontAt(text, 0)->pointSize(), 12);
    EXPECT_TRUE(hasColor(text, NSForegroundColorAttributeName, NSColor::redColor()));
}

TEST_F(WebPageCleanup, ResetsColoursWhenAsked)
{
    defaults().setObject(true, CVLTextViewCleanUpWebPageColors);
    auto text = pageText();
    cleanupWebPageText(text);
    EXPECT_TRUE(hasColor(text, NSForegroundColorAttributeName, NSColor::labelColor()));
    EXPECT_FALSE(text.attribute(NSBackgroundColorAttributeName, 0));
    EXPECT_EQ(fontAt(text, 0)->pointSize(), kSize);
}

TEST_F(WebPageCleanup, ReadsTheSettingsEachTime)
{
    auto text = pageText();
    cleanupWebPageText(text);
    defaults().setObject(true, CVLTextViewCleanUpWebPageFontSizes);
    cleanupWebPageText(text);
    EXPECT_EQ(fontAt(text, 0)->pointSize(), 12);
}

TEST_F(WebPageCleanup, UsesTheSettingsOfTheseNames)
{
    EXPECT_EQ(CVLTextViewCleanUpWebPageNewLines, u"CVLTextViewCleanUpWebPageNewLines");
    EXPECT_EQ(CVLTextViewCleanUpWebPageFontSizes, u"CVLTextViewCleanUpWebPageFontSizes");
    EXPECT_EQ(CVLTextViewCleanUpWebPageColors, u"CVLTextViewCleanUpWebPageColors");
}

TEST_F(WebPageCleanup, KeepsWhiteSpaceAtTheTextsEnds)
{
    NSMutableAttributedString text(NoteText().add(u" \n one \n ").text());
    cleanupWebPageText(text);
    EXPECT_EQ(text.string(), u" \n one \n ");
}

TEST_F(WebPageCleanup, TakesTheInsertedLinesIntoTheLaterSteps)
{
    auto text = pageText();
    cleanupTextFromWebPageInRange(text, {0, 8}, NSFont::fontWithName(u"HelveticaNeue", 12), true, true, true);
    ASSERT_EQ(text.length(), 10U);
    for (NSUInteger index = 0; index < text.length(); ++index) {
        EXPECT_EQ(fontAt(text, index)->fontName(), u"HelveticaNeue-Bold");
        EXPECT_EQ(fontAt(text, index)->pointSize(), 12);
        EXPECT_FALSE(text.attribute(NSBackgroundColorAttributeName, index));
    }
}

TEST_F(WebPageCleanup, ChangesNothingWhenNothingIsAsked)
{
    auto text = pageText();
    cleanupTextFromWebPageInRange(text, {0, 8}, nullptr, false, false, false);
    EXPECT_EQ(text, pageText());
}
