#include "attachments/CVLDividerTextAttachment.h"
#include "attachments/CVLFileAttachment.h"
#include "colours/HighlightAttribute.h"
#include "note/CVLNoteFile.h"
#include "platform/text/NSColor.h"
#include "tests/richtext/Attachments.h"
#include "tests/richtext/ChecklistText.h"
#include "tests/transcript/Transcript.h"

#include <gmock/gmock.h>
#include <nlohmann/json.hpp>

#include <sys/stat.h>

using testing::HasSubstr;
using testing::IsEmpty;
using testing::MatchesRegex;

namespace {

class NoteExamination : public Transcript {
protected:
    [[nodiscard]] ChildProcess::Outcome note(std::vector<std::string> arguments) const
    {
        arguments.insert(arguments.begin(), "note");
        return corvel(arguments);
    }

    void saveEverything() const
    {
        auto text = checklistText({{true, 0, u"Salt"}, {false, 0, u"Leek"}, {false, 0, u"Oil"}});
        text.appendAttributedString(
            NoteText()
                .addAttachment(CVLDividerTextAttachment::init())
                .add(u"\n")
                .addAttachment(makeAttachment(u"shop.png", "PNG"))
                .addAttachment(CVLFileAttachment::initWithFileWrapper(makeFile(u"list.zip", "12345")))
                .add(u"lit", {{std::u16string(CVLHighlightTextAttributeName), std::int64_t{2}}})
                .add(u" end")
                .text());
        CVLNoteFile note;
        note.setNoteText(text);
        note.setShowSmallImages(true);
        note.setBackgroundColor(NSColor::colorWithSRGBRed(1, 0.8, 0.4, 1));
        note.setDrawingDataByAttachmentKey(NSAny::Dictionary{{u"key", std::u16string(u"drawing")}});
        ASSERT_TRUE(note.saveToFileURL(folder().url("a.cvlnote")));
    }
};

TEST_F(NoteExamination, ShowsWhatANoteHas)
{
    saveEverything();
    const auto outcome = note({"info", "a.cvlnote"});
    EXPECT_EQ(outcome.status, 0);
    EXPECT_THAT(outcome.error, IsEmpty());
    EXPECT_THAT(outcome.output, HasSubstr("length          28 units in "));
    EXPECT_THAT(outcome.output,
                HasSubstr("\nchecklist       1 done, 2 open\n"
                          "dividers        1\n"
                          "highlights      1\n"
                          "drawings        1\n"
                          "background      #ffcc66\n"
                          "small images    yes\n"
                          "written by      "));
    EXPECT_THAT(outcome.output,
                testing::EndsWith("\nattachments     2\n"
                                  "  shop.png  public.png  in place, 3 bytes\n"
                                  "  list.zip  public.zip-archive  icon, 5 bytes\n"));
}

TEST_F(NoteExamination, TellsProgramsWhatANoteHas)
{
    saveEverything();
    const auto value = nlohmann::json::parse(note({"info", "--json", "a.cvlnote"}).output);
    EXPECT_EQ(value.at("path"), "a.cvlnote");
    EXPECT_EQ(value.at("recovered"), false);
    EXPECT_EQ(value.at("length"), 28);
    EXPECT_GT(value.at("runs"), 4);
    EXPECT_EQ(value.at("checklist").at("done"), 1);
    EXPECT_EQ(value.at("checklist").at("open"), 2);
    EXPECT_EQ(value.at("dividers"), 1);
    EXPECT_EQ(value.at("highlights"), 1);
    EXPECT_EQ(value.at("drawings"), 1);
    EXPECT_EQ(value.at("background"), "#ffcc66");
    EXPECT_EQ(value.at("smallImages"), true);
    EXPECT_TRUE(value.at("application").contains("identifier"));
    EXPECT_TRUE(value.at("application").contains("version"));
    EXPECT_EQ(
        value.at("attachments").at(0),
        (nlohmann::json{{"kind", "inPlace"}, {"name", "shop.png"}, {"type", "public.png"}, {"size", 3}}));
    EXPECT_EQ(value.at("attachments").at(1).at("kind"), "icon");
}

TEST_F(NoteExamination, SaysOfAttachmentsThatTheyAreMissing)
{
    saveEverything();
    std::filesystem::remove(folder().file("a.cvlnote/shop.png"));
    EXPECT_THAT(note({"info", "a.cvlnote"}).output, HasSubstr("  shop.png  public.png  in place, missing\n"));
    const auto value = nlohmann::json::parse(note({"info", "--json", "a.cvlnote"}).output);
    EXPECT_TRUE(value.at("attachments").at(0).at("size").is_null());
}

TEST_F(NoteExamination, SaysThatANoteWasRecovered)
{
    saveEverything();
    folder().write("a.cvlnote/NoteText", "nothing");
    const auto outcome = note({"info", "a.cvlnote"});
    EXPECT_EQ(outcome.status, 0);
    EXPECT_THAT(outcome.output,
                HasSubstr("\ntext            recovered with its files, everything else is lost\n"));
    const auto value = nlohmann::json::parse(note({"info", "--json", "a.cvlnote"}).output);
    EXPECT_EQ(value.at("recovered"), true);
}

TEST_F(NoteExamination, SaysThatANoteCannotBeRead)
{
    folder().write("a.cvlnote", "x");
    const auto outcome = note({"info", "a.cvlnote", "--json"});
    EXPECT_EQ(outcome.status, 1);
    EXPECT_EQ(outcome.error, "corvel: a.cvlnote: Note file is not a file package.\n");
    const auto value = nlohmann::json::parse(outcome.output);
    EXPECT_EQ(value.at("error").at("code"), 10001);
    EXPECT_EQ(note({"info", "missing.cvlnote"}).status, 1);
}

TEST_F(NoteExamination, SaysNothingOfASoundNote)
{
    saveEverything();
    const auto outcome = note({"check", "a.cvlnote"});
    EXPECT_EQ(outcome.status, 0);
    EXPECT_THAT(outcome.output + outcome.error, IsEmpty());
    EXPECT_EQ(note({"check", "--json", "a.cvlnote"}).output,
              "{\"path\":\"a.cvlnote\",\"state\":\"readable\",\"error\":null,\"findings\":[]}\n");
}

TEST_F(NoteExamination, ListsWhatIsWrong)
{
    saveEverything();
    folder().write("a.cvlnote/stray.png", "x");
    std::filesystem::remove(folder().file("a.cvlnote/list.zip"));
    const auto outcome = note({"check", "a.cvlnote"});
    EXPECT_EQ(outcome.status, 1);
    EXPECT_EQ(outcome.output,
              "The attached file list.zip is missing.\n"
              "Nothing in the note refers to stray.png.\n");
    const auto value = nlohmann::json::parse(note({"check", "--json", "a.cvlnote"}).output);
    EXPECT_EQ(value.at("findings").at(0),
              (nlohmann::json{{"kind", "missingFile"},
                              {"subject", "list.zip"},
                              {"isLoss", true},
                              {"description", "The attached file list.zip is missing."}}));
}

TEST_F(NoteExamination, SaysWhatANewNoteLacks)
{
    saveEverything();
    std::filesystem::remove(folder().file("a.cvlnote/shop.png"));
    std::filesystem::remove(folder().file("a.cvlnote/1__#$!@%!#__shop.png"));
    const auto outcome = note({"new", "b.cvlnote", "--from", "a.cvlnote"});
    EXPECT_EQ(outcome.status, 0);
    EXPECT_EQ(outcome.error, "corvel: a.cvlnote: The attached file shop.png is missing.\n");
}

TEST_F(NoteExamination, SaysWhereACopyOfAMissingFileIs)
{
    saveEverything();
    std::filesystem::remove(folder().file("a.cvlnote/shop.png"));
    EXPECT_EQ(note({"new", "b.cvlnote", "--from", "a.cvlnote"}).error,
              "corvel: a.cvlnote: The attached file shop.png is missing.\n"
              "corvel: a.cvlnote: 1__#$!@%!#__shop.png in it may be a copy\n");
}

TEST_F(NoteExamination, CopiesNoLinks)
{
    saveEverything();
    folder().write("secret.png", "secret");
    std::filesystem::remove(folder().file("a.cvlnote/shop.png"));
    std::filesystem::create_symlink(folder().file("secret.png"), folder().file("a.cvlnote/shop.png"));
    EXPECT_THAT(note({"info", "a.cvlnote"}).output, HasSubstr("shop.png  public.png  in place, missing\n"));
    const auto outcome = note({"new", "b.cvlnote", "--from", "a.cvlnote"});
    EXPECT_EQ(outcome.status, 0);
    EXPECT_EQ(
        outcome.error,
        "corvel: a.cvlnote: shop.png is a link or a folder instead of a file, and what it held is lost.\n");
    EXPECT_FALSE(std::filesystem::exists(folder().file("b.cvlnote/shop.png")));
    EXPECT_FALSE(std::filesystem::is_symlink(folder().file("b.cvlnote/shop.png")));
}

TEST_F(NoteExamination, ExportsNoEmptyFilesForMissingOnes)
{
    saveEverything();
    std::filesystem::remove(folder().file("a.cvlnote/shop.png"));
    for (const std::string kind : {"md", "html", "rtfd"}) {
        const auto outcome = note({"export", "a.cvlnote", "-o", kind + "." + kind});
        EXPECT_EQ(outcome.status, 0);
        EXPECT_EQ(outcome.error, "corvel: a.cvlnote: 1 attachment was left out\n") << kind;
    }
    EXPECT_EQ(note({"export", "a.cvlnote", "-o", "a.pdf"}).error,
              "corvel: a.cvlnote: 1 attachment was left out\n");
    for (const auto* name : {"md_files", "html_files", "rtfd.rtfd"}) {
        EXPECT_TRUE(std::filesystem::exists(folder().file(name) / std::filesystem::path("list.zip"))) << name;
        EXPECT_FALSE(std::filesystem::exists(folder().file(name) / std::filesystem::path("shop.png")))
            << name;
    }
}

TEST_F(NoteExamination, SaysWhetherANoteCanBeRecovered)
{
    saveEverything();
    folder().write("a.cvlnote/NoteText", "nothing");
    const auto outcome = note({"check", "a.cvlnote"});
    EXPECT_EQ(outcome.status, 1);
    EXPECT_THAT(outcome.output,
                MatchesRegex("NoteText cannot be read: .*\nThe text and its files can be recovered from "
                             "TXT.rtf, nothing else.\n"));
    EXPECT_THAT(outcome.error, testing::StartsWith("corvel: Could not decode note text: "));
    folder().write("a.cvlnote/TXT.rtf", "no rich text");
    const auto lost = note({"check", "a.cvlnote"});
    EXPECT_EQ(lost.status, 3);
    EXPECT_THAT(lost.error, HasSubstr("\ncorvel: a.cvlnote: "));
    const auto value = nlohmann::json::parse(note({"check", "--json", "a.cvlnote"}).output);
    EXPECT_EQ(value.at("state"), "unreadable");
    EXPECT_FALSE(value.at("error").is_null());
}

TEST_F(NoteExamination, ChecksNothingThatIsNoNote)
{
    folder().write("a.txt", "x");
    for (const auto* path : {"missing.cvlnote", "a.txt"}) {
        const auto outcome = note({"check", path});
        EXPECT_EQ(outcome.status, 3) << path;
        EXPECT_THAT(outcome.error, testing::StartsWith(std::string("corvel: ") + path + ": ")) << path;
    }
}

TEST_F(NoteExamination, SaysWhatKeepsANoteFromBeingRead)
{
    saveEverything();
    ASSERT_EQ(::mkfifo(folder().file("a.cvlnote/pipe").c_str(), 0600), 0);
    const auto outcome = note({"check", "a.cvlnote"});
    EXPECT_EQ(outcome.status, 3);
    EXPECT_EQ(outcome.output, "pipe is a pipe or a device: the note cannot be read.\n");
}

TEST_F(NoteExamination, CannotSteerATerminalByNames)
{
    saveEverything();
    folder().write("a.cvlnote/\x1b[31mred", "x");
    EXPECT_EQ(note({"check", "a.cvlnote"}).output, "Nothing in the note refers to ?[31mred.\n");
}

TEST_F(NoteExamination, SpeaksTheUsersLanguage)
{
    saveEverything();
    folder().write("a.cvlnote/stray.png", "x");
    const auto outcome = startCorvel({"note", "check", "a.cvlnote"}, {"LC_ALL=de_DE.UTF-8"})->wait();
    EXPECT_EQ(outcome.output, "Nichts in der Notiz verweist auf stray.png.\n");
}

} // namespace
