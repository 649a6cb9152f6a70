#include "attachments/CVLDividerTextAttachment.h"
#include "note/CVLNoteFile.h"
#include "platform/text/NSAttributeNames.h"
#include "tests/richtext/Attachments.h"
#include "tests/richtext/ChecklistText.h"
#include "tests/transcript/Transcript.h"

#include <gmock/gmock.h>

#include <fstream>
#include <iterator>

using testing::HasSubstr;
using testing::IsEmpty;
using testing::Not;

namespace {

class NoteCommand : public Transcript {
protected:
    [[nodiscard]] ChildProcess::Outcome note(std::vector<std::string> arguments) const
    {
        arguments.insert(arguments.begin(), "note");
        return corvel(arguments);
    }

    [[nodiscard]] std::string contentsOf(std::string_view name) const
    {
        std::ifstream file(folder().file(name), std::ios::binary);
        return {std::istreambuf_iterator<char>(file), {}};
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

TEST_F(NoteCommand, WritesNoNoteOverItselfNorIntoIt)
{
    save(groceries(), "a.cvlnote");
    const auto before = contentsOf("a.cvlnote/NoteText");
    const std::vector<std::vector<std::string>> commands = {
        {"export", "a.cvlnote", "--to", "rtfd", "-o", "a.cvlnote", "--force"},
        {"export", "a.cvlnote", "--to", "md", "-o", "a.cvlnote/NoteText", "--force"},
        {"new", "a.cvlnote", "--from", "a.cvlnote", "--force"},
        {"new", "a.cvlnote/b.cvlnote"},
    };
    for (const auto& command : commands)
        EXPECT_EQ(note(command).status, 1) << command.front();
    EXPECT_EQ(contentsOf("a.cvlnote/NoteText"), before);
    EXPECT_FALSE(std::filesystem::exists(folder().file("a.cvlnote/b.cvlnote")));
}

TEST_F(NoteCommand, MakesNoNoteInPlaceOfAFolderOfOtherThings)
{
    std::filesystem::create_directory(folder().file("a.cvlnote"));
    std::ofstream(folder().file("a.cvlnote/data.txt")) << "mine";
    EXPECT_EQ(note({"new", "a.cvlnote", "--force"}).status, 1);
    EXPECT_EQ(contentsOf("a.cvlnote/data.txt"), "mine");
}

TEST_F(NoteCommand, MakesANoteWhereALinkToOneLeads)
{
    save(groceries(), "a.cvlnote");
    std::filesystem::create_directory_symlink("a.cvlnote", folder().file("link.cvlnote"));
    EXPECT_EQ(note({"new", "link.cvlnote", "--force"}).status, 0);
    EXPECT_TRUE(std::filesystem::is_symlink(folder().file("link.cvlnote")));
    EXPECT_THAT(note({"text", "a.cvlnote"}).output, IsEmpty());
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

constexpr std::string_view kMarkdown = "# Groceries\n\n- [x] Salt\n    - [ ] Leek\n\n***\n\n![a](a.png)\n";

TEST_F(NoteCommand, MakesAnEmptyNote)
{
    const auto outcome = note({"new", "a.cvlnote"});
    EXPECT_EQ(outcome.status, 0);
    EXPECT_THAT(outcome.output + outcome.error, IsEmpty());
    EXPECT_EQ(note({"text", "a.cvlnote"}).status, 0);
    EXPECT_TRUE(std::filesystem::exists(folder().file("a.cvlnote/TXT.rtf")));
}

TEST_F(NoteCommand, BringsMarkdownIntoANoteAndOut)
{
    folder().write("a.md", kMarkdown);
    folder().write("a.png", "PNG");
    EXPECT_EQ(note({"new", "a.cvlnote", "--from", "a.md"}).status, 0);
    EXPECT_EQ(note({"text", "a.cvlnote"}).output,
              "Groceries\n\t\u2713\tSalt\n\t\u25E6\tLeek\n***\n[a.png]\n");
    const auto outcome = note({"export", "a.cvlnote", "-o", "b.md"});
    EXPECT_EQ(outcome.status, 0);
    EXPECT_THAT(outcome.output + outcome.error, IsEmpty());
    EXPECT_EQ(contentsOf("b.md"),
              "# Groceries\n\n- [x] Salt\n    - [ ] Leek\n\n***\n\n![a.png](b_files/a.png)\n");
    EXPECT_EQ(contentsOf("b_files/a.png"), "PNG");
}

TEST_F(NoteCommand, BringsANoteThroughEveryKindWithItsPicture)
{
    save(groceries(), "a.cvlnote");
    const std::string markdown
        = "Groceries\n\n- [x] Salt\n    - [ ] Leek\n\n***\n\n![shop.png](x_files/shop.png) here\n";
    for (const std::string name : {"b.md", "b.html", "b.rtfd"}) {
        EXPECT_EQ(note({"export", "a.cvlnote", "-o", name}).status, 0) << name;
        ASSERT_EQ(note({"new", "b.cvlnote", "--from", name, "--force"}).status, 0) << name;
        EXPECT_EQ(note({"export", "b.cvlnote", "-o", "x.md", "--force"}).status, 0);
        EXPECT_EQ(contentsOf("x.md"), markdown) << name;
        EXPECT_EQ(contentsOf("x_files/shop.png"), "contents") << name;
        std::filesystem::remove_all(folder().file("b_files"));
    }
}

TEST_F(NoteCommand, BringsTheTextOfANoteThroughAWordDocument)
{
    save(groceries(), "a.cvlnote");
    ASSERT_EQ(note({"export", "a.cvlnote", "-o", "b.docx"}).status, 0);
    ASSERT_EQ(note({"new", "b.cvlnote", "--from", "b.docx"}).status, 0);
    const auto text = note({"text", "b.cvlnote"}).output;
    EXPECT_THAT(text, testing::StartsWith("Groceries\n\t\u2713\tSalt\n\t\u25E6\tLeek\n***\n"));
    ASSERT_EQ(note({"export", "b.cvlnote", "-o", "c.docx"}).status, 0);
    ASSERT_EQ(note({"new", "c.cvlnote", "--from", "c.docx"}).status, 0);
    EXPECT_EQ(note({"text", "c.cvlnote"}).output, text);
}

TEST_F(NoteCommand, WritesPages)
{
    save(groceries(), "a.cvlnote");
    EXPECT_EQ(note({"export", "a.cvlnote", "-o", "a.pdf"}).status, 0);
    EXPECT_THAT(contentsOf("a.pdf"), testing::StartsWith("%PDF-"));
    EXPECT_EQ(note({"export", "a.cvlnote", "--to", "pdf"}).status, 2);
}

TEST_F(NoteCommand, SaysHowManyFilesItLeavesOut)
{
    save(groceries(), "a.cvlnote");
    for (const std::string name : {"a.rtf", "a.txt"}) {
        const auto outcome = note({"export", "a.cvlnote", "-o", name});
        EXPECT_EQ(outcome.status, 0);
        EXPECT_EQ(outcome.error, "corvel: a.cvlnote: 1 attachment was left out\n");
    }
    EXPECT_EQ(contentsOf("a.txt"), "Groceries\n\t\u2713\tSalt\n\t\u25E6\tLeek\n***\n[shop.png] here\n");
}

TEST_F(NoteCommand, ExportsTextToStandardOutput)
{
    save(NoteText()
             .add(u"a")
             .addAttachment(makeAttachment(u"b.png"))
             .addAttachment(makeAttachment(u"c.zip"))
             .text(),
         "a.cvlnote");
    const auto outcome = note({"export", "a.cvlnote", "--to", "markdown"});
    EXPECT_EQ(outcome.status, 0);
    EXPECT_EQ(outcome.output, "a![b.png](b.png)[c.zip](c.zip)\n");
    EXPECT_EQ(outcome.error, "corvel: a.cvlnote: 2 attachments were left out\n");
    EXPECT_THAT(note({"export", "a.cvlnote", "--to", "html"}).output, HasSubstr("<title>a</title>"));
    EXPECT_THAT(note({"export", "a.cvlnote", "--to", "rtf"}).output, testing::StartsWith("{\\rtf1"));
}

TEST_F(NoteCommand, MakesANoteOfStandardInput)
{
    EXPECT_EQ(corvel({"note", "new", "a.cvlnote", "--from", "-"}, "# a").status, 0);
    EXPECT_EQ(note({"text", "a.cvlnote"}).output, "# a\n");
    EXPECT_EQ(corvel({"note", "new", "b.cvlnote", "--from", "-", "--kind", "md"}, "# a").status, 0);
    EXPECT_EQ(note({"text", "b.cvlnote"}).output, "a\n");
}

TEST_F(NoteCommand, MakesANoteOfAPipeAndOfADevice)
{
    EXPECT_EQ(corvel({"note", "new", "a.cvlnote", "--from", "/dev/stdin"}, "piped").status, 0);
    EXPECT_EQ(note({"text", "a.cvlnote"}).output, "piped\n");
    EXPECT_EQ(note({"new", "b.cvlnote", "--from", "/dev/null"}).status, 0);
    EXPECT_THAT(note({"text", "b.cvlnote"}).output, IsEmpty());
}

TEST_F(NoteCommand, NamesStandardInputOnce)
{
    const auto outcome = corvel({"note", "new", "a.cvlnote", "--from", "-", "--kind", "docx"}, "no package");
    EXPECT_EQ(outcome.status, 1);
    EXPECT_THAT(outcome.error, testing::StartsWith("corvel: standard input: "));
    EXPECT_THAT(outcome.error, Not(HasSubstr("standard input: standard input")));
}

TEST_F(NoteCommand, ExportsToStandardOutputWhenAskedTo)
{
    save(NoteText().add(u"a").text(), "a.cvlnote");
    for (const auto* output : {"-", "/dev/stdout"}) {
        EXPECT_EQ(note({"export", "a.cvlnote", "--to", "md", "-o", output}).output, "a\n") << output;
        EXPECT_THAT(note({"export", "a.cvlnote", "--to", "pdf", "-o", output}).output,
                    testing::StartsWith("%PDF-"));
    }
    EXPECT_EQ(note({"export", "a.cvlnote", "--to", "rtfd", "-o", "-"}).status, 2);
    EXPECT_EQ(note({"export", "a.cvlnote", "--to", "md", "-o", "/dev/null"}).status, 0);
    EXPECT_THAT(note({"render", "a.cvlnote", "--thumbnail", "64", "-o", "-"}).output,
                testing::StartsWith("\x89PNG"));
    EXPECT_FALSE(std::filesystem::exists(folder().file("-")));
}

TEST_F(NoteCommand, KnowsWhichKindsAreReadAndWhichWritten)
{
    save(NoteText().add(u"a").text(), "a.cvlnote");
    const auto read = note({"new", "b.cvlnote", "--from", "x", "--kind", "pdf"});
    EXPECT_EQ(read.status, 2);
    EXPECT_THAT(read.error, HasSubstr("give markdown, html, rtf, rtfd, docx, txt or note"));
    const auto written = note({"export", "a.cvlnote", "--to", "note"});
    EXPECT_EQ(written.status, 2);
    EXPECT_THAT(written.error, HasSubstr("give markdown, html, rtf, rtfd, docx, txt or pdf"));
}

TEST_F(NoteCommand, MakesASoundNoteOfADamagedOne)
{
    save(NoteText().add(u"saved").text(), "a.cvlnote");
    folder().write("a.cvlnote/NoteText", "nothing");
    EXPECT_EQ(note({"new", "b.cvlnote", "--from", "a.cvlnote"}).status, 0);
    const auto outcome = note({"text", "b.cvlnote"});
    EXPECT_EQ(outcome.output, "saved\n");
    EXPECT_THAT(outcome.error, IsEmpty());
}

TEST_F(NoteCommand, ReplacesOnlyWhenForced)
{
    save(NoteText().add(u"new").text(), "a.cvlnote");
    folder().write("a.txt", "old");
    const auto refused = note({"export", "a.cvlnote", "-o", "a.txt"});
    EXPECT_EQ(refused.status, 1);
    EXPECT_EQ(refused.error, "corvel: a.txt: File exists\n");
    EXPECT_EQ(contentsOf("a.txt"), "old");
    EXPECT_EQ(note({"new", "a.cvlnote"}).error, "corvel: a.cvlnote: File exists\n");
    EXPECT_EQ(note({"text", "a.cvlnote"}).output, "new\n");
    EXPECT_EQ(note({"export", "a.cvlnote", "-o", "a.txt", "--force"}).status, 0);
    EXPECT_EQ(contentsOf("a.txt"), "new\n");
    EXPECT_EQ(note({"new", "a.cvlnote", "--force"}).status, 0);
    EXPECT_THAT(note({"text", "a.cvlnote"}).output, IsEmpty());
}

TEST_F(NoteCommand, SaysWhyThereIsNoNewNote)
{
    std::filesystem::create_directory(folder().file("folder"));
    std::filesystem::create_directory(folder().file("empty.rtfd"));
    folder().write("a.zip", "PK\x03\x04");
    folder().write("bad.docx", "no package");
    for (const auto* from : {"missing.md", "folder", "empty.rtfd", "a.zip", "bad.docx"}) {
        const auto outcome = note({"new", "a.cvlnote", "--from", from});
        EXPECT_EQ(outcome.status, 1) << from;
        EXPECT_THAT(outcome.error, testing::StartsWith(std::string("corvel: ") + from + ": ")) << from;
        EXPECT_FALSE(std::filesystem::exists(folder().file("a.cvlnote"))) << from;
    }
    EXPECT_EQ(note({"new", "missing/a.cvlnote"}).status, 1);
}

} // namespace
