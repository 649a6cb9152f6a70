#include "attachments/CVLFileAttachment.h"
#include "colours/ColourEquality.h"
#include "colours/HighlightColours.h"
#include "note/CVLNoteFile.h"
#include "platform/foundation/Unicode.h"
#include "tests/note/NotePackages.h"

#include <gmock/gmock.h>

#include <filesystem>

using testing::HasSubstr;

namespace {

constexpr const char* kRTF = "{\\rtf1\\ansi rich text}";

class NoteRecovery : public StyleTest {
protected:
    [[nodiscard]] NSURL url() const { return m_folder.url("a.cvlnote"); }

    void write(const std::string& name, std::string_view bytes) const
    {
        m_folder.write("a.cvlnote/" + name, bytes);
    }

    /// Saves a note of the text, takes its NoteText away and reads what is left.
    [[nodiscard]] NSAttributedString recovered(const NSAttributedString& text) const
    {
        CVLNoteFile note;
        note.setNoteText(text);
        EXPECT_TRUE(note.saveToFileURL(url()));
        EXPECT_TRUE(std::filesystem::remove(m_folder.file("a.cvlnote/NoteText")));
        const auto read = CVLNoteFile::initWithFileURL(url());
        EXPECT_TRUE(read);
        return read ? read->noteText() : NSAttributedString();
    }

    [[nodiscard]] const std::string& log() const { return m_log.text(); }

private:
    TemporaryFolder m_folder;
    LogLines m_log;
};

} // namespace

TEST_F(NoteRecovery, ReadsTheRichTextOfAPackageWithoutANotesText)
{
    write("TXT.rtf", kRTF);
    NSError error;
    const auto note = CVLNoteFile::initWithFileURL(url(), &error);
    EXPECT_THAT(log(), HasSubstr("Attempting to recover note from RTFD: " + url().absoluteString()));
    ASSERT_TRUE(note) << error.localizedDescription();
    EXPECT_THAT(UTF8FromUTF16(note->noteText().string()), HasSubstr("rich text"));
}

TEST_F(NoteRecovery, ReadsTheRichTextOfAPackageWithADamagedText)
{
    write("TXT.rtf", kRTF);
    write("NoteText", "damaged");
    const auto note = CVLNoteFile::initWithFileURL(url());
    ASSERT_TRUE(note);
    EXPECT_THAT(UTF8FromUTF16(note->noteText().string()), HasSubstr("rich text"));
}

TEST_F(NoteRecovery, IsNotTriedWhileTheNotesTextIsThere)
{
    write("TXT.rtf", kRTF);
    write("NoteText", archivedText(NSAttributedString(u"note")));
    EXPECT_EQ(CVLNoteFile::initWithFileURL(url())->noteText().string(), u"note");
}

TEST_F(NoteRecovery, GivesTheTextTheDynamicColour)
{
    write("TXT.rtf", kRTF);
    const auto note = CVLNoteFile::initWithFileURL(url());
    ASSERT_TRUE(note);
    const auto color = note->noteText().attribute(NSForegroundColorAttributeName, 0).object<NSColor>();
    ASSERT_TRUE(color);
    EXPECT_TRUE(color->isEqual(*NSColor::textColor()));
}

TEST_F(NoteRecovery, TakesTheTextOnly)
{
    write("TXT.rtf", kRTF);
    CVLNoteFile note;
    note.setShowSmallImages(true);
    note.setBackgroundColor(NSColor::redColor());
    NSError error;
    ASSERT_TRUE(note.attemptRecoveryFromRTFD(url(), &error)) << error.localizedDescription();
    EXPECT_THAT(UTF8FromUTF16(note.noteText().string()), HasSubstr("rich text"));
    EXPECT_TRUE(note.showSmallImages());
    EXPECT_TRUE(note.backgroundColor()->isEqual(*NSColor::redColor()));
}

TEST_F(NoteRecovery, ShowsFilesAsTheNoteDoes)
{
    const auto text = recovered(NoteText()
                                    .addAttachment(makeAttachment(u"data.zip", "archive"))
                                    .add(u"x")
                                    .addAttachment(makeAttachment(u"image.png", "image"))
                                    .text());
    EXPECT_EQ(text.substringWithRange({0, 3}), u"\uFFFCx\uFFFC");
    EXPECT_TRUE(isAttachment<CVLFileAttachment>(text, 0));
    EXPECT_EQ(contentsAt(text, 0), "archive");
    EXPECT_TRUE(isAttachment<NSTextAttachment>(text, 2));
    EXPECT_EQ(contentsAt(text, 2), "image");
}

TEST_F(NoteRecovery, HasTheNotesHighlights)
{
    constexpr NSInteger kType = 3;
    const auto color = CVLExtensions::colorForHighlightColorType(kType);
    const NSAttributes highlight{
        {std::u16string(CVLHighlightTextAttributeName), kType},
        {std::u16string(NSBackgroundColorAttributeName), CVLExtensions::highlightBackgroundColor(color)},
        {std::u16string(NSForegroundColorAttributeName), CVLExtensions::highlightForegroundColor(color)}};
    const auto text = recovered(NoteText().add(u"lit", highlight).add(u"dark").text());
    EXPECT_EQ(text.attribute(CVLHighlightTextAttributeName, 0), NSAny(kType));
    EXPECT_TRUE(text.attribute(CVLHighlightTextAttributeName, 3).isNil());
}

TEST_F(NoteRecovery, HasTheMarkersOfListsAsCharacters)
{
    write("TXT.rtf",
          "{\\rtf1\\ansi{\\*\\listtable{\\list\\listtemplateid1{\\listlevel\\levelnfc23"
          "{\\*\\levelmarker \\{disc\\}}{\\leveltext\\'01\\uc0\\u8226 ;}}\\listid1}}"
          "{\\*\\listoverridetable{\\listoverride\\listid1\\listoverridecount0\\ls1}}"
          "\\pard\\ls1\\ilvl0 {\\listtext\t\\uc0\\u8226 \t}milk\\\n}");
    const auto note = CVLNoteFile::initWithFileURL(url());
    ASSERT_TRUE(note);
    EXPECT_EQ(note->noteText().substringWithRange({0, 7}), u"\t\u2022\tmilk");
}

// They are read before it is known that the text cannot be.
TEST_F(NoteRecovery, KeepsTheAttributesThatThePackageHasBesides)
{
    write("TXT.rtf", kRTF);
    write("NoteAttributes",
          attributesData(
              {{u"showSmallImages", true},
               {u"backgroundColor",
                NSAny::Dictionary{{u"red", 0.5}, {u"green", 0.25}, {u"blue", 1.0}, {u"alpha", 1.0}}}}));
    const auto note = CVLNoteFile::initWithFileURL(url());
    ASSERT_TRUE(note);
    EXPECT_TRUE(note->showSmallImages());
    ASSERT_TRUE(note->backgroundColor());
    EXPECT_TRUE(CVLExtensions::isEqualToColorCVLVersion(*note->backgroundColor(),
                                                        *NSColor::colorWithDeviceRed(0.5, 0.25, 1, 1)));
}

TEST_F(NoteRecovery, LeavesTheCallersErrorAloneWhenItSucceeds)
{
    write("TXT.rtf", kRTF);
    NSError error = NSError::errorWithErrno(EBUSY, "before");
    CVLNoteFile note;
    EXPECT_TRUE(note.readFileAtURL(url(), &error));
    EXPECT_EQ(error.domain(), NSPOSIXErrorDomain);
    EXPECT_EQ(error.code(), EBUSY);
}

TEST_F(NoteRecovery, IsNotTriedBesideAnEmptyText)
{
    write("TXT.rtf", kRTF);
    write("NoteText", "");
    const auto note = CVLNoteFile::initWithFileURL(url());
    ASSERT_TRUE(note);
    EXPECT_EQ(note->noteText().length(), 0U);
    EXPECT_EQ(log(), "");
}

TEST_F(NoteRecovery, SaysWhatIsWrongUnderneath)
{
    write("TXT.rtf", "no rich text");
    CVLNoteFile note;
    note.setNoteText(NSAttributedString(u"text"));
    NSError error;
    EXPECT_FALSE(note.attemptRecoveryFromRTFD(url(), &error));
    EXPECT_EQ(error.domain(), CVLNoteFileErrorDomain);
    EXPECT_EQ(error.code(), 10001);
    EXPECT_EQ(error.localizedDescription(), "File is not a valid note file.");
    const auto underlying = error.userInfo().find(std::string(NSUnderlyingErrorKey));
    ASSERT_NE(underlying, error.userInfo().end());
    ASSERT_TRUE(std::holds_alternative<std::shared_ptr<const NSError>>(underlying->second));
    EXPECT_FALSE(std::get<std::shared_ptr<const NSError>>(underlying->second)->domain().empty());
    EXPECT_EQ(note.noteText().string(), u"text");
}

TEST_F(NoteRecovery, FailsQuietlyWithoutAnErrorSlot)
{
    write("TXT.rtf", "no rich text");
    CVLNoteFile note;
    EXPECT_FALSE(note.attemptRecoveryFromRTFD(url()));
    EXPECT_FALSE(CVLNoteFile::initWithFileURL(url()));
}

TEST_F(NoteRecovery, LeavesTheErrorOfTheNoteWhenItFails)
{
    write("TXT.rtf", "no rich text");
    NSError error;
    EXPECT_FALSE(CVLNoteFile::initWithFileURL(url(), &error));
    EXPECT_EQ(error.domain(), CVLNoteFileErrorDomain);
    EXPECT_EQ(error.code(), 10002);
    EXPECT_EQ(error.localizedDescription(), "The note file could not be read.");
}
