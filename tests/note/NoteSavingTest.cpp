#include "note/CVLNoteFile.h"
#include "platform/foundation/FileWrapperWriter.h"
#include "platform/foundation/NSURLResourceValues.h"
#include "tests/note/NotePackages.h"
#include "tests/support/PackageFaults.h"

#include <gmock/gmock.h>

#include <cerrno>
#include <filesystem>
#include <sys/wait.h>
#include <unistd.h>

namespace {

class NoteSaving : public StyleTest {
protected:
    [[nodiscard]] const TemporaryFolder& folder() const { return m_folder; }

    [[nodiscard]] NSURL url() const { return m_folder.url("a.cvlnote"); }

    static CVLNoteFile& setText(CVLNoteFile& note, const std::u16string& characters,
                                const std::string& contents)
    {
        note.setNoteText(NoteText().add(characters).addAttachment(makeAttachment(u"a.png", contents)).text());
        return note;
    }

    void save(const std::u16string& characters, const std::string& contents) const
    {
        CVLNoteFile note;
        NSError error;
        ASSERT_TRUE(setText(note, characters, contents).saveToFileURL(url(), &error))
            << error.localizedDescription();
    }

    /// The note's characters, "" when it cannot be read.
    [[nodiscard]] std::u16string savedText() const
    {
        const auto note = CVLNoteFile::initWithFileURL(url());
        return note ? std::u16string(note->noteText().string()) : std::u16string();
    }

    /// Whether the package is the old or the new one, whole.
    [[nodiscard]] bool isOneOf(bool& isNew) const
    {
        const auto note = CVLNoteFile::initWithFileURL(url());
        if (!note || note->noteText().length() != 4)
            return false;
        isNew = note->noteText().substringWithRange({0, 3}) == u"new";
        return contentsAt(note->noteText(), 3) == (isNew ? "new image" : "old image");
    }

private:
    TemporaryFolder m_folder;
    LogLines m_log;
};

} // namespace

TEST_F(NoteSaving, WritesAPackageThatIsReadBack)
{
    save(u"text", "image");
    EXPECT_TRUE(std::filesystem::is_directory(folder().file("a.cvlnote")));
    for (const auto* name : {"NoteText", "NoteAttributes", "TXT.rtf", "a.png"})
        EXPECT_TRUE(std::filesystem::is_regular_file(folder().file("a.cvlnote") + "/" + name)) << name;
    EXPECT_EQ(savedText(), u"text\uFFFC");
}

TEST_F(NoteSaving, ReplacesThePackageAsAWhole)
{
    save(u"old", "image");
    folder().write("a.cvlnote/stray", "x");
    save(u"new", "image");
    EXPECT_EQ(savedText(), u"new\uFFFC");
    EXPECT_FALSE(std::filesystem::exists(folder().file("a.cvlnote/stray")));
}

TEST_F(NoteSaving, LeavesNothingBesideThePackage)
{
    save(u"old", "image");
    save(u"new", "image");
    const std::filesystem::directory_iterator entries(folder().path());
    EXPECT_EQ(std::distance(begin(entries), end(entries)), 1);
}

TEST_F(NoteSaving, MarksThePackage)
{
    save(u"text", "image");
    const auto values = NSURLResourceValues::resourceValuesOfURL(url());
    if (!NSURLResourceValues{{}, {}, true}.setForURL(url()))
        GTEST_SKIP() << "the file system has no extended attributes";
    EXPECT_EQ(values.value().isPackage, true);
}

TEST_F(NoteSaving, KeepsWhenTheNoteWasMadeAndThatItsExtensionIsHidden)
{
    save(u"old", "image");
    if (!NSURLResourceValues{true, NSDate{12345.5}, {}}.setForURL(url()))
        GTEST_SKIP() << "the file system has no extended attributes";
    save(u"new", "image");
    const auto values = NSURLResourceValues::resourceValuesOfURL(url());
    EXPECT_EQ(values.value().hasHiddenExtension, true);
    EXPECT_EQ(values.value().creationDate, NSDate{12345.5});
}

TEST_F(NoteSaving, KeepsTheFileSystemsCreationDateOfTheFirstPackage)
{
    save(u"old", "image");
    const auto before = NSURLResourceValues::resourceValuesOfURL(url()).value().creationDate;
    save(u"new", "image");
    if (!NSURLResourceValues{{}, {}, true}.setForURL(url()))
        GTEST_SKIP() << "the file system has no extended attributes";
    EXPECT_EQ(NSURLResourceValues::resourceValuesOfURL(url()).value().creationDate, before);
}

TEST_F(NoteSaving, FailsWhereNothingCanBeWritten)
{
    NSError error;
    EXPECT_FALSE(CVLNoteFile().saveToFileURL(folder().url("missing/a.cvlnote"), &error));
    EXPECT_EQ(error.code(), ENOENT);
    EXPECT_FALSE(CVLNoteFile().saveToFileURL(folder().url("missing/a.cvlnote")));
}

TEST_F(NoteSaving, WritesNothingWhenThePackageCannotBeMade)
{
    class Unarchivable final : public NSObject { };

    save(u"old", "image");
    CVLNoteFile note;
    note.setNoteText(
        NoteText().add(u"a", {{u"NSTextEffect", std::make_shared<const Unarchivable>()}}).text());
    NSError error;
    EXPECT_FALSE(note.saveToFileURL(url(), &error));
    EXPECT_FALSE(error.domain().empty());
    EXPECT_EQ(savedText(), u"old\uFFFC");
}

TEST_F(NoteSaving, LeavesTheOldPackageOrTheNewWhereverItFails)
{
    bool isDone = false;
    for (std::size_t call = 0; !isDone; ++call) {
        std::filesystem::remove_all(folder().file("a.cvlnote"));
        save(u"old", "old image");
        CVLNoteFile note;
        const auto package = setText(note, u"new", "new image").fileWrapper();
        ASSERT_TRUE(package);
        PackageFaults faults(call);
        const auto isWritten
            = FileWrapperWriter(faults).write(*package, url(), NSFileWrapperWritingAtomic, nullptr);
        isDone = faults.callCount() <= call;
        bool isNew = false;
        ASSERT_TRUE(isOneOf(isNew)) << call;
        EXPECT_TRUE(isNew || !isWritten) << call;
    }
}

TEST_F(NoteSaving, LeavesTheOldPackageOrTheNewWhereverItIsKilled)
{
    bool isDone = false;
    for (std::size_t call = 0; !isDone; ++call) {
        std::filesystem::remove_all(folder().file("a.cvlnote"));
        save(u"old", "old image");
        const auto child = ::fork();
        ASSERT_GE(child, 0);
        if (child == 0) {
            CVLNoteFile note;
            PackageFaults faults(call, PackageFaults::Fault::Kill);
            const auto package = setText(note, u"new", "new image").fileWrapper();
            const auto isWritten
                = FileWrapperWriter(faults).write(*package, url(), NSFileWrapperWritingAtomic, nullptr);
            ::_exit(isWritten ? 0 : 1);
        }
        int status = 0;
        ASSERT_EQ(::waitpid(child, &status, 0), child);
        isDone = WIFEXITED(status);
        bool isNew = false;
        ASSERT_TRUE(isOneOf(isNew)) << call;
        EXPECT_TRUE(!isDone || (isNew && WEXITSTATUS(status) == 0));
    }
}
