#include "note/CVLNoteFile.h"

#include "attachments/CVLDividerTextAttachment.h"
#include "attachments/CVLFileAttachment.h"
#include "colours/ColourEquality.h"
#include "colours/ColourForms.h"
#include "colours/NoteBackground.h"
#include "tests/note/NotePackages.h"

#include <gmock/gmock.h>

#include <cerrno>
#include <filesystem>

using testing::ElementsAre;
using testing::IsEmpty;
using testing::StartsWith;

namespace {

class CVLNoteFileTest : public StyleTest {
protected:
    [[nodiscard]] const std::string& log() const { return m_log.text(); }

    static std::unique_ptr<CVLNoteFile> read(const NotePackage& package)
    {
        NSError error;
        auto note = CVLNoteFile::initWithFileWrapper(package.wrapper(), &error);
        EXPECT_TRUE(note) << error.localizedDescription();
        return note;
    }

    static NSError errorOf(const NotePackage& package)
    {
        NSError error;
        EXPECT_FALSE(CVLNoteFile::initWithFileWrapper(package.wrapper(), &error));
        return error;
    }

    static NotePackage packageWithBackground(const NSColor& color)
    {
        return NotePackage().addAttributes(
            {{u"backgroundColor", CVLExtensions::propertyListRepresentation(color)}});
    }

private:
    LogLines m_log;
};

bool isNoteError(const NSError& error, int code, std::string_view description)
{
    return error.domain() == "CVLNoteFileErrorDomain" && error.code() == code
        && error.localizedDescription() == description;
}

bool isNoPackageError(const NSError& error)
{
    return isNoteError(error, 10001, "Note file is not a file package.");
}

bool isRecoverableError(const NSError& error)
{
    return isNoteError(error, 10002, "The note file could not be read.");
}

} // namespace

TEST_F(CVLNoteFileTest, HasTheConstantsOfTheForm)
{
    EXPECT_EQ(CVLNoteType, "com.tessel.corvel.note");
    EXPECT_EQ(CVLNoteFile::fileType(), u"com.tessel.corvel.note");
    EXPECT_EQ(CVLNoteFileExtension, u"cvlnote");
    EXPECT_EQ(CVLNoteFileErrorDomain, "CVLNoteFileErrorDomain");
    EXPECT_EQ(CVLNoteFileInvalidFormatErrorCode, 10001);
    EXPECT_EQ(CVLNoteFileRecoverFromRTFDErrorCode, 10002);
}

TEST_F(CVLNoteFileTest, HasNamesForNewNotes)
{
    EXPECT_EQ(CVLNoteFile::newNoteName(), u"New Note");
    EXPECT_EQ(CVLNoteFile::newNoteFileName(), u"New Note.cvlnote");
}

TEST_F(CVLNoteFileTest, HasFourDefaultPreferencesThatAreOn)
{
    const NSAny::Dictionary expected{{u"CVLNoteConvertImportedHTMLFiles", true},
                                     {u"CVLNoteConvertImportedPlainTextFiles", true},
                                     {u"CVLNoteOnlyShareNameToReminders", true},
                                     {u"CVLNoteLinkUnderline", true}};
    EXPECT_EQ(CVLNoteFile::defaultPreferences(), expected);
    EXPECT_EQ(CVLNoteConvertImportedHTMLFilesKey, u"CVLNoteConvertImportedHTMLFiles");
    EXPECT_EQ(CVLNoteConvertImportedPlainTextFilesKey, u"CVLNoteConvertImportedPlainTextFiles");
    EXPECT_EQ(CVLNoteOnlyShareNameToRemindersKey, u"CVLNoteOnlyShareNameToReminders");
}

TEST_F(CVLNoteFileTest, IsEmptyWhenNew)
{
    const CVLNoteFile note;
    EXPECT_EQ(note.noteText().length(), 0U);
    EXPECT_FALSE(note.showSmallImages());
    EXPECT_FALSE(note.sharingItemName());
    EXPECT_TRUE(note.drawingDataByAttachmentKey().isNil());
    EXPECT_THAT(note.fileAttachments(), IsEmpty());
}

TEST_F(CVLNoteFileTest, IsRichTextWithFilesWhenNew)
{
    const NSAny::Dictionary expected{{u"DocumentType", u"NSRTFD"}};
    EXPECT_EQ(CVLNoteFile().documentAttributes(), expected);
}

TEST_F(CVLNoteFileTest, HasTheUsersBackgroundWhenNew)
{
    const auto background = CVLNoteFile::defaultBackgroundColor();
    EXPECT_TRUE(background->isEqual(*CVLExtensions::defaultNoteBackgroundColor()));
    EXPECT_TRUE(CVLNoteFile().backgroundColor()->isEqual(*background));
    EXPECT_TRUE(background->isEqual(*NSColor::textBackgroundColor()));
}

TEST_F(CVLNoteFileTest, ShowsTheTextBackgroundForPureWhiteAndBlack)
{
    CVLNoteFile note;
    for (const auto& pure :
         {NSColor::whiteColor(), NSColor::blackColor(), NSColor::colorWithDeviceRed(1, 1, 1, 1),
          NSColor::colorWithDeviceRed(0, 0, 0, 1)}) {
        note.setBackgroundColor(pure);
        EXPECT_TRUE(note.backgroundColor()->isEqual(*NSColor::textBackgroundColor()));
    }
    note.setBackgroundColor(NSColor::yellowColor());
    EXPECT_TRUE(note.backgroundColor()->isEqual(*NSColor::yellowColor()));
    note.setBackgroundColor(nullptr);
    EXPECT_FALSE(note.backgroundColor());
}

TEST_F(CVLNoteFileTest, KeepsWhatItsFieldsAreSetTo)
{
    CVLNoteFile note;
    note.setShowSmallImages(true);
    note.setNoteText(NSAttributedString(u"text"));
    note.setSharingItemName(u"name");
    note.setDrawingDataByAttachmentKey(NSAny::Dictionary{{u"key", NSData{"ink"}}});
    note.setDocumentAttributes(std::nullopt);
    EXPECT_TRUE(note.showSmallImages());
    EXPECT_EQ(note.noteText().string(), u"text");
    EXPECT_EQ(note.sharingItemName(), u"name");
    EXPECT_EQ(note.drawingDataByAttachmentKey(), NSAny(NSAny::Dictionary{{u"key", NSData{"ink"}}}));
    EXPECT_FALSE(note.documentAttributes());
}

TEST_F(CVLNoteFileTest, KeepsTheTextAsItWasWhenItWasSet)
{
    CVLNoteFile note;
    NSMutableAttributedString text{std::u16string(u"text")};
    note.setNoteText(text);
    text.deleteCharactersInRange({0, 2});
    EXPECT_EQ(note.noteText().string(), u"text");
}

TEST_F(CVLNoteFileTest, HasTheFilesOfItsAttachmentsInTheTextsOrder)
{
    const auto first = makeFile(u"a.png");
    const auto second = makeFile(u"b.zip");
    CVLNoteFile note;
    note.setNoteText(NoteText()
                         .addAttachment(NSTextAttachment::initWithFileWrapper(second))
                         .addAttachment(makeBox(true))
                         .add(u"x")
                         .addAttachment(CVLDividerTextAttachment::init())
                         .addAttachment(CVLFileAttachment::initWithFileWrapper(first))
                         .addAttachment(std::make_shared<NSTextAttachment>())
                         .addAttachment(NSTextAttachment::initWithFileWrapper(second))
                         .text());
    EXPECT_THAT(note.fileAttachments(), ElementsAre(second, first, second));
}

TEST_F(CVLNoteFileTest, IsReadFromAPackage)
{
    const auto note = read(
        NotePackage()
            .addText(NoteText().add(u"text").text())
            .addAttributes({{u"showSmallImages", true}, {u"drawingsData", NSAny::Dictionary{{u"key", 1}}}}));
    ASSERT_TRUE(note);
    EXPECT_EQ(note->noteText().string(), u"text");
    EXPECT_TRUE(note->showSmallImages());
    EXPECT_EQ(note->drawingDataByAttachmentKey(), NSAny(NSAny::Dictionary{{u"key", 1}}));
}

TEST_F(CVLNoteFileTest, HasNothingOfANewNoteWhenItIsRead)
{
    const auto note = read(NotePackage().addText(NSAttributedString(u"text")));
    ASSERT_TRUE(note);
    EXPECT_FALSE(note->documentAttributes());
    EXPECT_FALSE(note->backgroundColor());
}

TEST_F(CVLNoteFileTest, IsReadFromAnEmptyFolder)
{
    const auto note = read(NotePackage());
    ASSERT_TRUE(note);
    EXPECT_EQ(note->noteText().length(), 0U);
    EXPECT_FALSE(note->backgroundColor());
    EXPECT_FALSE(note->showSmallImages());
}

TEST_F(CVLNoteFileTest, IsNotReadFromAFileWhateverItHolds)
{
    for (const auto* contents : {"", "text", "{\\rtf1 text}"}) {
        NSError error;
        EXPECT_FALSE(CVLNoteFile::initWithFileWrapper(*makeFile(u"a.cvlnote", contents), &error));
        EXPECT_TRUE(isNoPackageError(error));
    }
    EXPECT_FALSE(CVLNoteFile::initWithFileWrapper(*makeFile(u"a.cvlnote")));
}

TEST_F(CVLNoteFileTest, IsNotReadFromALink)
{
    const TemporaryFolder folder;
    folder.write("a.cvlnote/NoteText", archivedText(NSAttributedString(u"text")));
    std::filesystem::create_symlink("a.cvlnote", folder.file("b.cvlnote"));
    NSError error;
    EXPECT_FALSE(CVLNoteFile::initWithFileURL(folder.url("b.cvlnote"), &error));
    EXPECT_TRUE(isNoPackageError(error));
}

TEST_F(CVLNoteFileTest, HasAFileOfTwoRunsTwice)
{
    const auto attachment = makeAttachment(u"a.png");
    NoteText text;
    text.addAttachment(attachment).addAttachment(attachment, {{u"NSKern", 1.5}});
    CVLNoteFile note;
    note.setNoteText(text.text());
    EXPECT_THAT(note.fileAttachments(), ElementsAre(attachment->fileWrapper(), attachment->fileWrapper()));
}

// Members are visited in the order of their names, so the attributes come before the text that ends the
// visit.
TEST_F(CVLNoteFileTest, HasTheAttributesBesideAnEmptyText)
{
    const auto note
        = read(NotePackage().add(kNoteTextMember, "").addAttributes({{u"showSmallImages", true}}));
    ASSERT_TRUE(note);
    EXPECT_TRUE(note->showSmallImages());
    EXPECT_EQ(note->noteText().length(), 0U);
}

TEST_F(CVLNoteFileTest, IsEmptyWhenItsTextIs)
{
    const auto note = read(NotePackage().add(kNoteTextMember, "").add(kNoteRTFMember, "{\\rtf1 text}"));
    ASSERT_TRUE(note);
    EXPECT_EQ(note->noteText().length(), 0U);
}

TEST_F(CVLNoteFileTest, CouldBeRecoveredWithoutItsTextOrWithADamagedOne)
{
    EXPECT_TRUE(isRecoverableError(errorOf(NotePackage().add(kNoteRTFMember, "{\\rtf1 text}"))));
    EXPECT_TRUE(
        isRecoverableError(errorOf(NotePackage().add(kNoteRTFMember, "").add(kNoteTextMember, "damaged"))));
}

TEST_F(CVLNoteFileTest, IsNotSaidToBeRecoverableWithoutAnErrorSlot)
{
    const auto note
        = CVLNoteFile::initWithFileWrapper(NotePackage().add(kNoteRTFMember, "{\\rtf1 text}").wrapper());
    ASSERT_TRUE(note);
    EXPECT_EQ(note->noteText().length(), 0U);
    EXPECT_FALSE(CVLNoteFile::initWithFileWrapper(
        NotePackage().add(kNoteRTFMember, "{\\rtf1 text}").add(kNoteTextMember, "damaged").wrapper()));
}

TEST_F(CVLNoteFileTest, HasTheUnarchiversErrorWithADamagedTextAndNothingElse)
{
    const auto error = errorOf(NotePackage().add(kNoteTextMember, "damaged"));
    EXPECT_EQ(error.domain(), NSCocoaErrorDomain);
    EXPECT_EQ(error.code(), static_cast<int>(NSCocoaError::CoderReadCorrupt));
    EXPECT_THAT(log(), StartsWith("Could not decode note text: "));
}

TEST_F(CVLNoteFileTest, LosesItsTextWhenAnUnreadableOneIsReadIntoIt)
{
    CVLNoteFile note;
    note.setNoteText(NSAttributedString(u"text"));
    EXPECT_FALSE(note.readFileWrapper(NotePackage().add(kNoteTextMember, "damaged").wrapper()));
    EXPECT_EQ(note.noteText().length(), 0U);
}

TEST_F(CVLNoteFileTest, KeepsItsTextWhenOnlyRecoveryIsLeft)
{
    CVLNoteFile note;
    note.setNoteText(NSAttributedString(u"text"));
    NSError error;
    EXPECT_FALSE(note.readFileWrapper(NotePackage().add(kNoteRTFMember, "").wrapper(), &error));
    EXPECT_EQ(note.noteText().string(), u"text");
}

TEST_F(CVLNoteFileTest, TakesOverWhatThePackageSaysOnly)
{
    CVLNoteFile note;
    note.setShowSmallImages(true);
    note.setBackgroundColor(NSColor::redColor());
    note.setDrawingDataByAttachmentKey(NSAny::Dictionary{{u"key", 1}});
    ASSERT_TRUE(note.readFileWrapper(NotePackage().addText(NSAttributedString(u"text")).wrapper()));
    EXPECT_TRUE(note.showSmallImages());
    EXPECT_FALSE(note.drawingDataByAttachmentKey().isNil());
    ASSERT_TRUE(note.readFileWrapper(NotePackage().addAttributes({}).wrapper()));
    EXPECT_FALSE(note.showSmallImages());
    EXPECT_TRUE(note.drawingDataByAttachmentKey().isNil());
    EXPECT_TRUE(note.backgroundColor()->isEqual(*NSColor::redColor()));
}

TEST_F(CVLNoteFileTest, HasTheBackgroundOfThePackage)
{
    const auto note = read(packageWithBackground(*NSColor::colorWithDeviceRed(1, 0.5, 0, 1)));
    ASSERT_TRUE(note && note->backgroundColor());
    EXPECT_TRUE(CVLExtensions::isEqualToColorCVLVersion(*note->backgroundColor(),
                                                        *NSColor::colorWithDeviceRed(1, 0.5, 0, 1)));
}

TEST_F(CVLNoteFileTest, HasTheTextBackgroundWhenThePackageHasWhiteOrBlack)
{
    for (const auto& pure : {NSColor::whiteColor(), NSColor::blackColor()}) {
        const auto note = read(packageWithBackground(*pure));
        ASSERT_TRUE(note && note->backgroundColor());
        EXPECT_TRUE(note->backgroundColor()->isEqual(*NSColor::textBackgroundColor()));
    }
}

TEST_F(CVLNoteFileTest, IsReadFromAFolderOnDisk)
{
    const TemporaryFolder folder;
    const auto placeholder = NSTextAttachment::initWithFileWrapper(placeholderNamed(u"a.png"));
    folder.write("a.cvlnote/NoteText",
                 archivedText(NoteText().add(u"text").addAttachment(placeholder).text()));
    folder.write("a.cvlnote/NoteAttributes", attributesData({{u"showSmallImages", true}}));
    folder.write("a.cvlnote/a.png", "image");
    NSError error;
    const auto note = CVLNoteFile::initWithFileURL(folder.url("a.cvlnote"), &error);
    ASSERT_TRUE(note) << error.localizedDescription();
    EXPECT_EQ(note->noteText().string(), u"text\uFFFC");
    EXPECT_EQ(contentsAt(note->noteText(), 4), "image");
    EXPECT_TRUE(note->showSmallImages());
}

TEST_F(CVLNoteFileTest, ReadsNothingThroughLinksInAPackage)
{
    const TemporaryFolder folder;
    folder.write("secret", archivedText(NSAttributedString(u"secret")));
    std::filesystem::create_directory(folder.file("a.cvlnote"));
    std::filesystem::create_symlink("../secret", folder.file("a.cvlnote/NoteText"));
    const auto note = CVLNoteFile::initWithFileURL(folder.url("a.cvlnote"));
    ASSERT_TRUE(note);
    EXPECT_EQ(note->noteText().length(), 0U);
}

TEST_F(CVLNoteFileTest, HasTheSystemsErrorWhereThereIsNothing)
{
    const TemporaryFolder folder;
    NSError error;
    EXPECT_FALSE(CVLNoteFile::initWithFileURL(folder.url("a.cvlnote"), &error));
    EXPECT_EQ(error.domain(), NSPOSIXErrorDomain);
    EXPECT_EQ(error.code(), ENOENT);
    EXPECT_FALSE(CVLNoteFile::initWithFileURL(folder.url("a.cvlnote")));
}
