#include "note/NotePlainText.h"

#include "tests/note/NotePackages.h"

#include <gmock/gmock.h>

#include <filesystem>

using testing::HasSubstr;

namespace {

constexpr std::size_t kMost = 10'000;

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
