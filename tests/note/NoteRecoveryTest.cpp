#include "note/CVLNoteFile.h"
#include "platform/foundation/Unicode.h"
#include "tests/note/NotePackages.h"

#include <gmock/gmock.h>

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
