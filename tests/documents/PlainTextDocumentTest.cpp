#include "documents/PlainTextDocument.h"

#include "attachments/CVLDividerTextAttachment.h"
#include "tests/richtext/Attachments.h"
#include "tests/richtext/ChecklistText.h"
#include "tests/styles/StyleTest.h"

namespace {

class PlainTextDocument : public StyleTest { };

TEST_F(PlainTextDocument, OfNothingIsEmpty)
{
    EXPECT_EQ(plainTextOfNoteText({}), u"");
}

TEST_F(PlainTextDocument, EndsWithOneLineEnd)
{
    EXPECT_EQ(plainTextOfNoteText(NoteText().add(u"a").text()), u"a\n");
    EXPECT_EQ(plainTextOfNoteText(NoteText().add(u"a\n").text()), u"a\n");
}

TEST_F(PlainTextDocument, WritesBoxesAsMarkers)
{
    EXPECT_EQ(plainTextOfNoteText(checklistText({{true, 0, u"Salt"}, {false, 0, u"Leek"}})),
              u"\t\u2713\tSalt\n\t\u25E6\tLeek\n");
}

TEST_F(PlainTextDocument, WritesDividersAsAsterisks)
{
    EXPECT_EQ(plainTextOfNoteText(
                  NoteText().add(u"a\n").addAttachment(CVLDividerTextAttachment::init()).add(u"\nb").text()),
              u"a\n***\nb\n");
}

TEST_F(PlainTextDocument, NamesFilesInBrackets)
{
    EXPECT_EQ(plainTextOfNoteText(NoteText()
                                      .addAttachment(makeAttachment(u"a.png"))
                                      .add(u"\n")
                                      .addAttachment(CVLDividerTextAttachment::init())
                                      .text()),
              u"[a.png]\n***\n");
}

TEST_F(PlainTextDocument, EndsLinesAtLineBreaks)
{
    EXPECT_EQ(plainTextOfNoteText(NoteText().add(u"a\u2028b").text()), u"a\nb\n");
}

} // namespace
