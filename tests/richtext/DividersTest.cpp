#include "richtext/Dividers.h"

#include "attachments/CVLDividerTextAttachment.h"
#include "tests/richtext/Attachments.h"
#include "tests/richtext/ChecklistText.h"
#include "tests/styles/StyleTest.h"

#include <random>

using namespace DynamicColors;

namespace {

class Dividers : public StyleTest {
protected:
    static NSMutableAttributedString asText(const NSAttributedString& text)
    {
        NSMutableAttributedString converted(text);
        convertDividersToText(converted);
        return converted;
    }

    static NSMutableAttributedString fromText(const NSAttributedString& text)
    {
        NSMutableAttributedString converted(text);
        convertTextToDividers(converted);
        EXPECT_TRUE(attachmentsAreInPlace(converted));
        return converted;
    }

    static std::u16string fromText(std::u16string_view characters)
    {
        return std::u16string(fromText(NoteText().add(characters).text()).string());
    }

    static bool hasAttachment(const NSAttributedString& text, NSUInteger location)
    {
        return !text.attribute(NSAttachmentAttributeName, location).isNil();
    }
};

/// The steps as they are told: the start of the text loses its attachments for each divider anew.
NSMutableAttributedString expectedText(const NSAttributedString& text)
{
    NSMutableAttributedString converted(text);
    const auto replacement = CVLDividerTextAttachment::replacementString();
    for (NSUInteger index = 0; index < converted.length(); ++index) {
        if (!converted.attribute(NSAttachmentAttributeName, index).object<CVLDividerTextAttachment>())
            continue;
        converted.replaceCharactersInRange({index, 1}, replacement);
        converted.removeAttribute(NSAttachmentAttributeName, {0, replacement.length()});
    }
    return converted;
}

} // namespace

TEST_F(Dividers, BecomeThreeAsterisksInTheirStyle)
{
    const auto text
        = asText(NoteText().add(u"a\n").addAttachment(CVLDividerTextAttachment::init()).add(u"\nb").text());
    EXPECT_EQ(text.string(), u"a\n***\nb");
    EXPECT_EQ(text.attributedSubstringFromRange({2, 3}), CVLDividerTextAttachment::replacementString());
}

TEST_F(Dividers, LeaveNoAttachmentWhereTheyAreTheOnlyContent)
{
    const auto text = asText(NoteText().addAttachment(CVLDividerTextAttachment::init()).text());
    EXPECT_EQ(text, CVLDividerTextAttachment::replacementString());
    for (NSUInteger index = 0; index < text.length(); ++index)
        EXPECT_FALSE(hasAttachment(text, index));
}

TEST_F(Dividers, TakeTheAttachmentsOfTheFirstThreeCharactersAlong)
{
    const auto image = makeAttachment(u"a.png");
    const auto text = asText(NoteText()
                                 .addAttachment(image)
                                 .add(u"x")
                                 .addAttachment(image)
                                 .addAttachment(image)
                                 .addAttachment(CVLDividerTextAttachment::init())
                                 .addAttachment(image)
                                 .text());
    EXPECT_EQ(text.string(), u"\uFFFCx\uFFFC\uFFFC***\uFFFC");
    EXPECT_FALSE(hasAttachment(text, 0));
    EXPECT_FALSE(hasAttachment(text, 2));
    EXPECT_TRUE(hasAttachment(text, 3));
    EXPECT_TRUE(hasAttachment(text, 7));
}

TEST_F(Dividers, LeaveATextWithoutThemAsItIs)
{
    const auto text = NoteText().addAttachment(makeAttachment(u"a.png")).add(u"***").text();
    EXPECT_EQ(asText(text), text);
    EXPECT_EQ(asText(NSAttributedString()), NSAttributedString());
}

TEST_F(Dividers, BecomeTextAsTheStepsSayInAnyText)
{
    std::mt19937 random(11);
    const auto image = makeAttachment(u"a.png");
    for (int round = 0; round < 500; ++round) {
        NoteText text;
        for (auto left = random() % 8; left > 0; --left) {
            const auto choice = random() % 3;
            if (choice == 0)
                text.add(u"x");
            else
                text.addAttachment(choice == 1 ? NSAny(CVLDividerTextAttachment::init()) : NSAny(image));
        }
        ASSERT_EQ(asText(text.text()), expectedText(text.text()));
    }
}

TEST_F(Dividers, ComeOfLinesOfThreeAsterisks)
{
    const auto text = fromText(NoteText().add(u"a\n***\nb").text());
    EXPECT_EQ(text.string(), u"a\n\n\uFFFC\n\nb");
    EXPECT_TRUE(text.attribute(NSAttachmentAttributeName, 3).object<CVLDividerTextAttachment>());
}

TEST_F(Dividers, ComeOfALastLineWithoutALineEnd)
{
    EXPECT_EQ(fromText(u"a\n***"), u"a\n\n\uFFFC\n");
    EXPECT_EQ(fromText(u"***"), u"\n\uFFFC\n");
}

TEST_F(Dividers, ComeOfEveryLineWithAnObjectEach)
{
    const auto text = fromText(NoteText().add(u"***\n***\r\n***\u2028").text());
    EXPECT_EQ(text.string(), u"\n\uFFFC\n\n\n\uFFFC\n\r\n\n\uFFFC\n\u2028");
    EXPECT_NE(text.attribute(NSAttachmentAttributeName, 1), text.attribute(NSAttachmentAttributeName, 5));
}

TEST_F(Dividers, DoNotComeOfLinesWithAnythingElse)
{
    for (const auto* line : {u"*** ", u" ***", u"****", u"**", u"* * *", u"a***", u"***a", u"---", u""})
        EXPECT_EQ(fromText(line), line);
}

TEST_F(Dividers, HaveTheAttributesOfTheBodyAndNotOfTheAsterisks)
{
    const auto text = fromText(NoteText().add(u"***", withFont(u"Menlo-Regular", 30)).text());
    EXPECT_EQ(fontAt(text, 0)->fontName(), u"HelveticaNeue");
}

TEST_F(Dividers, ComeBackFromText)
{
    const auto text = NoteText()
                          .add(u"a\n")
                          .addAttachment(CVLDividerTextAttachment::init())
                          .add(u"\nb\n")
                          .addAttachment(CVLDividerTextAttachment::init())
                          .text();
    EXPECT_EQ(asText(fromText(asText(text))).string(), u"a\n\n***\n\nb\n\n***\n");
}
