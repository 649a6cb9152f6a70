#include "note/NoteExport.h"

#include "attachments/CVLDividerTextAttachment.h"
#include "colours/HighlightColours.h"
#include "platform/text/NSColor.h"
#include "tests/note/NotePackages.h"

namespace {

using NoteExport = StyleTest;

const std::u16string kForeground(NSForegroundColorAttributeName);

} // namespace

TEST_F(NoteExport, HasListsForChecklists)
{
    const auto text = noteTextForExport(checklistText({{true, 0, u"milk"}}));
    EXPECT_EQ(text.string(), u"\t\u2713\tmilk\n");
    ASSERT_EQ(listsAt(text, 0).size(), 1U);
    EXPECT_EQ(listsAt(text, 0).front()->markerFormat(), NSTextListMarkerCheck);
}

TEST_F(NoteExport, HasAsterisksForDividers)
{
    EXPECT_EQ(noteTextForExport(
                  NoteText().add(u"a").addAttachment(CVLDividerTextAttachment::init()).add(u"b").text())
                  .string(),
              u"a***b");
}

TEST_F(NoteExport, HasThePlatformsHighlights)
{
    const auto text = noteTextForExport(
        NoteText().add(u"a", {{std::u16string(CVLHighlightTextAttributeName), 2}}).text());
    EXPECT_FALSE(text.attribute(CVLHighlightTextAttributeName, 0));
    EXPECT_EQ(text.attribute(NSTextHighlightColorSchemeAttributeName, 0),
              NSAny(NSTextHighlightColorSchemeMint));
}

TEST_F(NoteExport, HasBlackForTheDynamicTextColourOnly)
{
    const auto text = noteTextForExport(NoteText()
                                            .add(u"a", {{kForeground, NSColor::textColor()}})
                                            .add(u"b", {{kForeground, NSColor::redColor()}})
                                            .add(u"c")
                                            .text());
    const auto expected = NoteText()
                              .add(u"a", {{kForeground, NSColor::blackColor()}})
                              .add(u"b", {{kForeground, NSColor::redColor()}})
                              .add(u"c");
    EXPECT_EQ(text, expected.text());
}

TEST_F(NoteExport, LeavesTheNoteAsItIs)
{
    const auto note
        = NoteText().addAttachment(makeBox(true)).add(u"a", {{kForeground, NSColor::textColor()}}).text();
    const auto before = note.copy();
    (void)noteTextForExport(note);
    EXPECT_EQ(note, before);
}
