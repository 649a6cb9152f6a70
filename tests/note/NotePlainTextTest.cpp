#include "note/NotePlainText.h"

#include "note/CVLNoteFile.h"
#include "tests/note/NotePackages.h"
#include "tests/note/RandomNotes.h"
#include "tests/support/OrdinaryUser.h"

#include <gmock/gmock.h>

#include <filesystem>

using testing::HasSubstr;

namespace {

constexpr std::size_t kMost = 10'000;
constexpr std::size_t kMuch = 10'000'000;

class NotePlainText : public StyleTest {
protected:
    [[nodiscard]] NSURL url() const { return m_folder.url("a.cvlnote"); }

    [[nodiscard]] std::string path(const std::string& name) const
    {
        return m_folder.file("a.cvlnote/" + name);
    }

    void write(const std::string& name, std::string_view bytes) const
    {
        m_folder.write("a.cvlnote/" + name, bytes);
    }

    [[nodiscard]] const TemporaryFolder& folder() const { return m_folder; }

    [[nodiscard]] const std::string& log() const { return m_log.text(); }

private:
    TemporaryFolder m_folder;
    LogLines m_log;
};

} // namespace

TEST_F(NotePlainText, IsTheNotesText)
{
    write("NoteText", archivedText(NSAttributedString(u"a***b \U0001F600")));
    write("NoteAttributes", attributesData({{u"dividerRanges", NSAny::Array{u"{1, 3}"}}}));
    EXPECT_EQ(plainTextOfNotePackage(url(), kMost), u"a\uFFFCb \U0001F600");
}

TEST_F(NotePlainText, IsEmptyForANoteWithoutText)
{
    std::filesystem::create_directory(folder().file("a.cvlnote"));
    EXPECT_EQ(plainTextOfNotePackage(url(), kMost), u"");
}

TEST_F(NotePlainText, IsRecoveredFromTheRichText)
{
    write("NoteText", "damaged");
    write("TXT.rtf", "{\\rtf1\\ansi rich text}");
    const auto text = plainTextOfNotePackage(url(), kMost);
    ASSERT_TRUE(text);
    EXPECT_TRUE(text->find(u"rich text") != std::u16string::npos);
    EXPECT_THAT(log(), HasSubstr("Attempting to recover note from RTFD: " + url().absoluteString()));
}

TEST_F(NotePlainText, IsNoneOfWhatCannotBeRead)
{
    EXPECT_FALSE(plainTextOfNotePackage(url(), kMost));
    write("NoteText", "damaged");
    EXPECT_FALSE(plainTextOfNotePackage(url(), kMost));
    write("TXT.rtf", "no rich text");
    EXPECT_FALSE(plainTextOfNotePackage(url(), kMost));
}

TEST_F(NotePlainText, IsNoneOfAFileOrALink)
{
    folder().write("file.cvlnote", "text");
    EXPECT_FALSE(plainTextOfNotePackage(folder().url("file.cvlnote"), kMost));
    write("NoteText", archivedText(NSAttributedString(u"text")));
    std::filesystem::create_symlink("a.cvlnote", folder().file("link.cvlnote"));
    EXPECT_FALSE(plainTextOfNotePackage(folder().url("link.cvlnote"), kMost));
}

TEST_F(NotePlainText, DoesNotDependOnOtherMembers)
{
    write("NoteText", archivedText(NSAttributedString(u"text")));
    write("film.mov", std::string(kMost + 1, 'x'));
    std::filesystem::create_directory(path("folder"));
    std::filesystem::create_symlink("/nowhere", path("link"));
    EXPECT_EQ(plainTextOfNotePackage(url(), kMost), u"text");
}

TEST_F(NotePlainText, IsThatOfTheNoteWhateverItHolds)
{
    constexpr unsigned kNotes = 60;
    for (unsigned seed = 0; seed < kNotes; ++seed) {
        CVLNoteFile note;
        note.setNoteText(RandomNote(seed).text(seed % 40));
        ASSERT_TRUE(note.saveToFileURL(url()));
        const auto read = CVLNoteFile::initWithFileURL(url());
        ASSERT_TRUE(read);
        ASSERT_EQ(plainTextOfNotePackage(url(), kMuch), read->noteText().string()) << seed;
    }
}

TEST_F(NotePlainText, IsThatOfTheRecoveredNoteWithItsFiles)
{
    constexpr unsigned kNotes = 60;
    for (unsigned seed = 0; seed < kNotes; ++seed) {
        CVLNoteFile note;
        note.setNoteText(RandomNote(seed).text(seed % 40));
        ASSERT_TRUE(note.saveToFileURL(url()));
        ASSERT_TRUE(std::filesystem::remove(path("NoteText")));
        const auto read = CVLNoteFile::initWithFileURL(url());
        ASSERT_TRUE(read);
        ASSERT_EQ(plainTextOfNotePackage(url(), kMuch), read->noteText().string()) << seed;
    }
}

TEST_F(NotePlainText, HasACharacterForAFileThatIsRecovered)
{
    write("TXT.rtf",
          "{\\rtf1\\ansi x{{\\NeXTGraphic a.zip}\xAC}y{{\\NeXTGraphic gone.zip}\xAC}"
          "{{\\NeXTGraphic link.zip}\xAC}z}");
    write("a.zip", "archive");
    std::filesystem::create_symlink("a.zip", path("link.zip"));
    const auto read = CVLNoteFile::initWithFileURL(url());
    ASSERT_TRUE(read);
    EXPECT_EQ(read->noteText().string().substr(0, 4), u"x\uFFFCyz");
    EXPECT_EQ(plainTextOfNotePackage(url(), kMost), read->noteText().string());
}

TEST_F(NotePlainText, TakesAnEmptyTextForAnEmptyNote)
{
    write("NoteText", "");
    write("TXT.rtf", "{\\rtf1\\ansi rich text}");
    EXPECT_EQ(plainTextOfNotePackage(url(), kMost), u"");
    EXPECT_EQ(log(), "");
}

TEST_F(NotePlainText, DoesNotDependOnTheRichTextWhileTheNotesTextIsThere)
{
    write("NoteText", archivedText(NSAttributedString(u"text")));
    write("TXT.rtf", std::string(kMost + 1, 'x'));
    EXPECT_EQ(plainTextOfNotePackage(url(), kMost), u"text");
    EXPECT_EQ(log(), "");
    write("NoteText", "damaged");
    EXPECT_FALSE(plainTextOfNotePackage(url(), kMost));
    EXPECT_THAT(log(), HasSubstr("a.cvlnote/TXT.rtf is too large for its text to be read"));
}

TEST_F(NotePlainText, HasItsDividersHoweverLargeTheDrawingsAre)
{
    write("NoteText", archivedText(NSAttributedString(u"a***b")));
    write("NoteAttributes",
          attributesData({{u"dividerRanges", NSAny::Array{u"{1, 3}"}},
                          {u"drawingsData", NSAny::Dictionary{{u"key", NSData{std::string(kMost, 'x')}}}}}));
    EXPECT_EQ(plainTextOfNotePackage(url(), kMost), u"a\uFFFCb");
}

TEST_F(NotePlainText, KeepsItsDividersAsTextWhereTheAttributesHoldTooMuch)
{
    // Each is one byte in the file.
    const NSAny::Array ranges(1'000'000, u"{1, 3}");
    write("NoteText", archivedText(NSAttributedString(u"a***b")));
    write("NoteAttributes", attributesData({{u"dividerRanges", ranges}}));
    EXPECT_EQ(plainTextOfNotePackage(url(), kMost), u"a***b");
    EXPECT_THAT(log(), HasSubstr("The attributes of a note hold too much; its dividers stay as text"));
}

TEST_F(NotePlainText, KeepsItsDividersAsTextWhereTheAttributesAreTooLarge)
{
    constexpr std::uintmax_t kMostAttributes = std::uintmax_t{64} << 20U;
    write("NoteText", archivedText(NSAttributedString(u"a***b")));
    write("NoteAttributes", attributesData({{u"dividerRanges", NSAny::Array{u"{1, 3}"}}}));
    EXPECT_EQ(plainTextOfNotePackage(url(), kMost), u"a\uFFFCb");
    std::filesystem::resize_file(path("NoteAttributes"), kMostAttributes + 1); // Takes no room on disk.
    EXPECT_EQ(plainTextOfNotePackage(url(), kMost), u"a***b");
    EXPECT_THAT(log(), HasSubstr("a.cvlnote/NoteAttributes is too large for its text to be read"));
}

TEST_F(NotePlainText, KeepsItsDividersAsTextWhereAttributesInXMLAreTooLarge)
{
    const NSAny::Dictionary attributes{{u"dividerRanges", NSAny::Array{u"{1, 3}"}}};
    const auto data
        = NSPropertyListSerialization::dataWithPropertyList(attributes, NSPropertyListFormat::XML).value();
    write("NoteText", archivedText(NSAttributedString(u"a***b")));
    write("NoteAttributes", data.bytes);
    EXPECT_EQ(plainTextOfNotePackage(url(), kMost), u"a\uFFFCb");
    write("NoteAttributes", data.bytes + std::string(kMost, ' '));
    EXPECT_EQ(plainTextOfNotePackage(url(), kMost), u"a***b");
}

TEST_F(NotePlainText, IsNoneOfAPackageThatCannotBeSearched)
{
    const OrdinaryUser user;
    const TemporaryFolder own;
    own.write("a.cvlnote/NoteText", archivedText(NSAttributedString(u"text")));
    std::filesystem::permissions(own.file("a.cvlnote"), std::filesystem::perms(0600));
    EXPECT_FALSE(plainTextOfNotePackage(own.url("a.cvlnote"), kMost));
    EXPECT_THAT(log(), HasSubstr("a.cvlnote/NoteText cannot be read: Permission denied"));
    std::filesystem::permissions(own.file("a.cvlnote"), std::filesystem::perms(0700));
    EXPECT_EQ(plainTextOfNotePackage(own.url("a.cvlnote"), kMost), u"text");
}

TEST_F(NotePlainText, IsNoneOfMembersThatAreTooLarge)
{
    const auto archive = archivedText(NSAttributedString(u"text"));
    write("NoteText", archive);
    EXPECT_TRUE(plainTextOfNotePackage(url(), archive.size()));
    EXPECT_FALSE(plainTextOfNotePackage(url(), archive.size() - 1));
    EXPECT_THAT(log(), HasSubstr("a.cvlnote/NoteText is too large for its text to be read"));
}

TEST_F(NotePlainText, ReadsNothingThroughLinks)
{
    folder().write("secret", archivedText(NSAttributedString(u"secret")));
    std::filesystem::create_directory(folder().file("a.cvlnote"));
    std::filesystem::create_symlink("../secret", path("NoteText"));
    EXPECT_EQ(plainTextOfNotePackage(url(), kMost), u"");
}
