#include "note/CVLNoteFile.h"
#include "platform/foundation/FileWrapperWriter.h"
#include "platform/foundation/NSURLResourceValues.h"
#include "platform/foundation/Unicode.h"
#include "tests/note/NotePackages.h"
#include "tests/support/OrdinaryUser.h"
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

    /// Gives the package at the URL what no writer would give it; false where that cannot be kept.
    [[nodiscard]] bool setOddValues() const { return kOddValues.setForURL(url()); }

    [[nodiscard]] bool hasOddValues() const
    {
        const auto values = NSURLResourceValues::resourceValuesOfURL(url());
        return values && values->hasHiddenExtension == true
            && values->creationDate == kOddValues.creationDate;
    }

    /// A folder in which `depth` folders lie within one another.
    static NSFileWrapper::Ref nestedFolders(std::size_t depth)
    {
        auto folder = NSFileWrapper::initDirectoryWithFileWrappers({});
        for (std::size_t level = 0; level < depth; ++level)
            folder = NSFileWrapper::initDirectoryWithFileWrappers({{u"inner", folder}});
        folder->setPreferredFilename(u"a.pages");
        return folder;
    }

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
    static inline const NSURLResourceValues kOddValues{true, NSDate{12345.5}, {}};

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

TEST_F(NoteSaving, WritesIntoAFolderThatALinkLeadsTo)
{
    std::filesystem::create_directory(folder().file("real"));
    std::filesystem::create_directory_symlink("real", folder().file("link"));
    CVLNoteFile note;
    note.setNoteText(NSAttributedString(u"text"));
    NSError error;
    for (int round = 0; round < 2; ++round)
        ASSERT_TRUE(note.saveToFileURL(folder().url("link/a.cvlnote"), &error))
            << error.localizedDescription();
    const auto read = CVLNoteFile::initWithFileURL(folder().url("real/a.cvlnote"));
    ASSERT_TRUE(read);
    EXPECT_EQ(read->noteText().string(), u"text");
}

TEST_F(NoteSaving, TakesTheNameOfAFile)
{
    folder().write("a.cvlnote", "a file");
    save(u"text", "image");
    EXPECT_EQ(savedText(), u"text\uFFFC");
}

TEST_F(NoteSaving, FailsInAFolderThatCannotBeWritten)
{
    const OrdinaryUser user;
    const TemporaryFolder own;
    CVLNoteFile note;
    note.setNoteText(NSAttributedString(u"old"));
    ASSERT_TRUE(note.saveToFileURL(own.url("a.cvlnote")));
    std::filesystem::permissions(own.path(), std::filesystem::perms(0500));
    note.setNoteText(NSAttributedString(u"new"));
    NSError error;
    EXPECT_FALSE(note.saveToFileURL(own.url("a.cvlnote"), &error));
    EXPECT_EQ(error.code(), EACCES);
    const auto read = CVLNoteFile::initWithFileURL(own.url("a.cvlnote"));
    ASSERT_TRUE(read);
    EXPECT_EQ(read->noteText().string(), u"old");
    std::filesystem::permissions(own.path(), std::filesystem::perms(0700));
}

TEST_F(NoteSaving, LeavesTheOldPackageWhereTheDiskIsFull)
{
    save(u"old", "old image");
    if (!setOddValues())
        GTEST_SKIP() << "the file system has no extended attributes";
    CVLNoteFile note;
    const auto package = setText(note, u"new", "new image").fileWrapper();
    constexpr std::size_t kFirstWrite
        = 4; // Behind opening the folder, making and opening the new one, a file.
    for (std::size_t call = kFirstWrite; call < kFirstWrite + 4; ++call) {
        PackageFaults faults(call, PackageFaults::Fault::FailOnce, ENOSPC);
        NSError error;
        EXPECT_FALSE(FileWrapperWriter(faults).write(*package, url(), NSFileWrapperWritingAtomic, &error));
        EXPECT_EQ(error.code(), ENOSPC);
        EXPECT_EQ(savedText(), u"old\uFFFC");
        EXPECT_TRUE(hasOddValues());
    }
}

TEST_F(NoteSaving, LeavesTheValuesOfTheOldPackageWhenItFails)
{
    save(u"old", "image");
    if (!setOddValues())
        GTEST_SKIP() << "the file system has no extended attributes";
    CVLNoteFile note;
    note.setNoteText(
        NoteText().addAttachment(NSTextAttachment::initWithFileWrapper(nestedFolders(40))).text());
    EXPECT_FALSE(note.saveToFileURL(url()));
    EXPECT_EQ(savedText(), u"old\uFFFC");
    EXPECT_TRUE(hasOddValues());
}

TEST_F(NoteSaving, KeepsWhoMayReadThePackage)
{
    save(u"old", "image");
    std::filesystem::permissions(folder().file("a.cvlnote"), std::filesystem::perms(0700));
    save(u"new", "image");
    EXPECT_EQ(std::filesystem::status(folder().file("a.cvlnote")).permissions(),
              std::filesystem::perms(0700));
}

TEST_F(NoteSaving, WritesFilesWithNamesOfAnyLength)
{
    CVLNoteFile note;
    NoteText text;
    for (const std::size_t length : std::initializer_list<std::size_t>{200, 201, 240, 255, 256, 300}) {
        const auto name = u"a." + std::u16string(length - 2, u'n');
        text.addAttachment(makeAttachment(name, std::to_string(length)));
        text.addAttachment(makeAttachment(name, std::to_string(length) + " too"));
    }
    text.addAttachment(makeAttachment(std::u16string{0xD800, u'a'}, "half"));
    text.addAttachment(makeAttachment(u"\uFFFDa", "whole"));
    note.setNoteText(text.add(u"x").text());
    NSError error;
    ASSERT_TRUE(note.saveToFileURL(url(), &error)) << error.localizedDescription();
    const auto read = CVLNoteFile::initWithFileURL(url(), &error);
    ASSERT_TRUE(read) << error.localizedDescription();
    for (NSUInteger location = 0; location + 1 < note.noteText().length(); ++location)
        EXPECT_EQ(contentsAt(read->noteText(), location), contentsAt(note.noteText(), location)) << location;
}

TEST_F(NoteSaving, WritesFilesThatAreReadAgainWhateverTheirPermissions)
{
    const OrdinaryUser user;
    const TemporaryFolder own;
    const auto file = makeFile(u"a.png", "image");
    NSFileAttributes attributes;
    attributes.posixPermissions = 0;
    file->setFileAttributes(attributes);
    CVLNoteFile note;
    note.setNoteText(NoteText().addAttachment(NSTextAttachment::initWithFileWrapper(file)).add(u"x").text());
    for (int round = 0; round < 2; ++round) {
        ASSERT_TRUE(note.saveToFileURL(own.url("a.cvlnote")));
        NSError error;
        ASSERT_TRUE(note.readFileAtURL(own.url("a.cvlnote"), &error)) << error.localizedDescription();
        EXPECT_EQ(contentsAt(note.noteText(), 0), "image");
    }
}

TEST_F(NoteSaving, WritesFoldersAsDeepAsTheyAreReadAndNoDeeper)
{
    CVLNoteFile note;
    const auto setDepth = [&note](std::size_t depth) {
        const auto attachment = NSTextAttachment::initWithFileWrapper(nestedFolders(depth));
        note.setNoteText(NoteText().addAttachment(attachment).add(u"x").text());
    };
    setDepth(NSFileWrapper::kMostDepth - 1); // The package is one more.
    ASSERT_TRUE(note.saveToFileURL(url()));
    EXPECT_EQ(savedText(), u"\uFFFCx");
    setDepth(NSFileWrapper::kMostDepth);
    NSError error;
    EXPECT_FALSE(note.saveToFileURL(url(), &error));
    EXPECT_EQ(error.code(), ELOOP);
    EXPECT_EQ(savedText(), u"\uFFFCx");
}

TEST_F(NoteSaving, RefusesMoreMembersThanAreRead)
{
    save(u"old", "image");
    NSFileWrapper::FileWrappers members;
    const auto member = NSFileWrapper::initRegularFileWithContents({});
    for (std::size_t index = 0; index < NSFileWrapper::kMostMembers / 2; ++index)
        members.emplace(UTF16FromUTF8(std::to_string(index)), member);
    const auto attached = NSFileWrapper::initDirectoryWithFileWrappers(members);
    attached->setPreferredFilename(u"a.pages"); // Of which the package has two.
    CVLNoteFile note;
    note.setNoteText(NoteText().addAttachment(NSTextAttachment::initWithFileWrapper(attached)).text());
    NSError error;
    EXPECT_FALSE(note.saveToFileURL(url(), &error));
    EXPECT_EQ(error.code(), EFBIG);
    EXPECT_EQ(savedText(), u"old\uFFFC");
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
        const bool keepsValues = setOddValues();
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
        EXPECT_TRUE(!keepsValues || hasOddValues()) << call;
    }
}
