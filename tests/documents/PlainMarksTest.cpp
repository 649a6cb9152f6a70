#include "documents/PlainMarks.h"

#include "attachments/CVLDividerTextAttachment.h"
#include "colours/HighlightAttribute.h"
#include "tests/richtext/Attachments.h"
#include "tests/richtext/ChecklistText.h"
#include "tests/styles/StyleTest.h"

namespace {

class PlainMarks : public StyleTest { };

TEST_F(PlainMarks, MakeListsOfBoxes)
{
    const auto text = noteTextWithPlainMarks(checklistText({{true, 0, u"Salt"}, {false, 1, u"Leek"}}));
    EXPECT_EQ(text.string(), u"\t\u2713\tSalt\n\t\u25E6\tLeek\n");
    ASSERT_EQ(listsAt(text, 0).size(), 1U);
    EXPECT_EQ(listsAt(text, 0).front()->markerFormat(), NSTextListMarkerCheck);
}

TEST_F(PlainMarks, MakeCentredAsterisksOfDividers)
{
    const auto text = noteTextWithPlainMarks(
        NoteText().add(u"a\n").addAttachment(CVLDividerTextAttachment::init()).add(u"\nb").text());
    EXPECT_EQ(text.string(), u"a\n***\nb");
    EXPECT_EQ(styleAt(text, 2)->alignment(), NSTextAlignment::Center);
    EXPECT_FALSE(text.attribute(NSAttachmentAttributeName, 2));
}

TEST_F(PlainMarks, KeepTheFileThatBeginsANoteWithDividers)
{
    const auto image = makeAttachment(u"a.png");
    const auto text = noteTextWithPlainMarks(
        NoteText().addAttachment(image).add(u"\n").addAttachment(CVLDividerTextAttachment::init()).text());
    EXPECT_EQ(text.attribute(NSAttachmentAttributeName, 0).object<NSTextAttachment>(), image);
}

TEST_F(PlainMarks, MakeThePlatformsHighlightsOfTheNotesOwn)
{
    const auto text = noteTextWithPlainMarks(
        NoteText().add(u"a", {{std::u16string(CVLHighlightTextAttributeName), std::int64_t{2}}}).text());
    EXPECT_TRUE(text.attribute(NSTextHighlightStyleAttributeName, 0));
    EXPECT_FALSE(text.attribute(CVLHighlightTextAttributeName, 0));
}

} // namespace
