#include "attachments/CVLDividerTextAttachment.h"
#include "note/CVLNoteFile.h"
#include "platform/text/NSAttributeNames.h"
#include "tests/richtext/Attachments.h"
#include "tests/richtext/ChecklistText.h"
#include "tests/transcript/Transcript.h"

#include <gmock/gmock.h>

using testing::HasSubstr;
using testing::IsEmpty;

namespace {

class NoteCommand : public Transcript {
protected:
    [[nodiscard]] ChildProcess::Outcome note(std::vector<std::string> arguments) const
    {
        arguments.insert(arguments.begin(), "note");
        return corvel(arguments);
    }

    void save(const NSAttributedString& text, std::string_view name) const
    {
        CVLNoteFile note;
        note.setNoteText(text);
        ASSERT_TRUE(note.saveToFileURL(folder().url(name)));
    }
};

/// A title, two items, a divider and a picture.
NSAttributedString groceries()
{
    NoteText text;
    text.add(u"Groceries\n");
    auto note = text.text();
    note.appendAttributedString(checklistText({{true, 0, u"Salt"}, {false, 1, u"Leek"}}));
    note.appendAttributedString(NoteText()
                                    .addAttachment(CVLDividerTextAttachment::init())
                                    .add(u"\n")
                                    .addAttachment(makeAttachment(u"shop.png"))
                                    .add(u" here")
                                    .text());
    return note;
}

TEST_F(NoteCommand, ShowsTheTextOfANote)
{
    save(groceries(), "Groceries.cvlnote");
    const auto outcome = note({"text", "Groceries.cvlnote"});
    EXPECT_EQ(outcome.status, 0);
    EXPECT_EQ(outcome.output, "Groceries\n\t\u2713\tSalt\n\t\u25E6\tLeek\n***\n[shop.png] here\n");
    EXPECT_THAT(outcome.error, IsEmpty());
}

TEST_F(NoteCommand, ShowsNothingOfAnEmptyNote)
{
    save({}, "a.cvlnote");
    EXPECT_THAT(note({"text", "a.cvlnote"}).output, IsEmpty());
}

TEST_F(NoteCommand, ShowsTheTextOfANoteThatALinkNames)
{
    save(NoteText().add(u"a").text(), "a.cvlnote");
    std::filesystem::create_directory_symlink(folder().file("a.cvlnote"), folder().file("link"));
    EXPECT_EQ(note({"text", "link"}).output, "a\n");
    EXPECT_EQ(note({"text", "a.cvlnote/"}).output, "a\n");
}

TEST_F(NoteCommand, ShowsTheRecoveredTextOfADamagedNote)
{
    save(NoteText().add(u"saved").text(), "a.cvlnote");
    folder().write("a.cvlnote/NoteText", "nothing");
    const auto outcome = note({"text", "a.cvlnote"});
    EXPECT_EQ(outcome.status, 0);
    EXPECT_EQ(outcome.output, "saved\n");
    EXPECT_THAT(outcome.error, HasSubstr("corvel: Attempting to recover note from RTFD: file://"));
}

TEST_F(NoteCommand, SaysWhyThereIsNoText)
{
    folder().write("a.txt", "x");
    const auto missing = note({"text", "missing.cvlnote"});
    EXPECT_EQ(missing.status, 1);
    EXPECT_EQ(missing.error, "corvel: missing.cvlnote: No such file or directory\n");
    const auto file = note({"text", "a.txt"});
    EXPECT_EQ(file.status, 1);
    EXPECT_EQ(file.error, "corvel: a.txt: Note file is not a file package.\n");
    EXPECT_THAT(file.output, IsEmpty());
}

} // namespace
