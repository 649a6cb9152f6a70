#include "note/NoteAttachmentBinding.h"

#include "attachments/CVLDividerTextAttachment.h"
#include "attachments/CVLFileAttachment.h"
#include "tests/note/NotePackages.h"
#include "tests/support/LockedPDF.h"
#include "tests/support/PDFBytes.h"

namespace {

/// The text of one placeholder of a class, bound to a package whose one member has its name.
template <typename Attachment>
NSMutableAttributedString bound(std::u16string_view name, std::string bytes = "file")
{
    auto text = NoteText().addAttachment(Attachment::initWithFileWrapper(placeholderNamed(name))).text();
    bindAttachmentsToMembers(text, NotePackage().add(name, std::move(bytes)).wrapper());
    return text;
}

} // namespace

TEST(NoteAttachmentBinding, GivesPlaceholdersTheMembersOfTheirNames)
{
    const auto archived = NSTextAttachment::initWithFileWrapper(placeholderNamed(u"a.png"));
    auto text = NoteText().add(u"x").addAttachment(archived).add(u"y").text();
    const auto package = NotePackage().add(u"a.png", "image").add(u"b.png", "other");
    bindAttachmentsToMembers(text, package.wrapper());
    EXPECT_EQ(text.string(), u"x\uFFFCy");
    EXPECT_EQ(attachmentAt(text, 1)->fileWrapper(), package.wrapper().fileWrapperForKey(u"a.png"));
    EXPECT_NE(attachmentAt(text, 1), archived);
    EXPECT_EQ(contentsAt(text, 1), "image");
}

TEST(NoteAttachmentBinding, KeepsTheOtherAttributesOfARun)
{
    const std::u16string link(NSLinkAttributeName);
    auto text = NoteText()
                    .addAttachment(NSTextAttachment::initWithFileWrapper(placeholderNamed(u"a.png")),
                                   {{link, u"https://example.com"}})
                    .text();
    bindAttachmentsToMembers(text, NotePackage().add(u"a.png", "image").wrapper());
    EXPECT_EQ(text.attribute(link, 0), NSAny(u"https://example.com"));
}

TEST(NoteAttachmentBinding, LeavesAttachmentsThatNameNoMember)
{
    for (const auto* name : {u"a.png", u"A.PNG", u"../b.png", u"", u"folder/b.png"}) {
        const auto archived = NSTextAttachment::initWithFileWrapper(placeholderNamed(name));
        auto text = NoteText().addAttachment(archived).text();
        bindAttachmentsToMembers(text, NotePackage().add(u"b.png", "other").wrapper());
        EXPECT_EQ(attachmentAt(text, 0), archived);
        EXPECT_EQ(contentsAt(text, 0), "");
    }
}

TEST(NoteAttachmentBinding, LeavesAttachmentsWithoutAFileOrAName)
{
    const auto nameless
        = NSTextAttachment::initWithFileWrapper(NSFileWrapper::initRegularFileWithContents({}));
    const auto fileless = std::make_shared<NSTextAttachment>();
    auto text = NoteText().addAttachment(nameless).addAttachment(fileless).text();
    bindAttachmentsToMembers(text, NotePackage().add(u"b.png", "other").wrapper());
    EXPECT_EQ(attachmentAt(text, 0), nameless);
    EXPECT_EQ(attachmentAt(text, 1), fileless);
}

TEST(NoteAttachmentBinding, TakesThePackagesOwnMembersForNoContents)
{
    for (const auto name : {kNoteTextMember, kNoteAttributesMember}) {
        auto text
            = NoteText().addAttachment(NSTextAttachment::initWithFileWrapper(placeholderNamed(name))).text();
        bindAttachmentsToMembers(text, NotePackage().add(name, "own").wrapper());
        EXPECT_EQ(contentsAt(text, 0), "");
    }
}

TEST(NoteAttachmentBinding, LeavesChecklistBoxes)
{
    auto box = makeBox(true, 2);
    box->setFileWrapper(placeholderNamed(u"a.png"));
    auto text = NoteText().addAttachment(box).text();
    bindAttachmentsToMembers(text, NotePackage().add(u"a.png", "image").wrapper());
    EXPECT_EQ(attachmentAt(text, 0), box);
}

TEST(NoteAttachmentBinding, MakesAttachmentsOfTheSameClass)
{
    EXPECT_TRUE(isAttachment<NSTextAttachment>(bound<NSTextAttachment>(u"a.png"), 0));
    EXPECT_TRUE(isAttachment<NSTextAttachment>(bound<NSTextAttachment>(u"a.zip"), 0));
    EXPECT_TRUE(isAttachment<CVLFileAttachment>(bound<CVLFileAttachment>(u"a.png"), 0));
}

TEST(NoteAttachmentBinding, MakesADividerOfADividerThatNamesAMember)
{
    auto divider = CVLDividerTextAttachment::init();
    divider->setFileWrapper(placeholderNamed(u"a.pdf"));
    auto text = NoteText().addAttachment(divider).text();
    bindAttachmentsToMembers(text, NotePackage().add(u"a.pdf", "x").wrapper());
    EXPECT_TRUE(isAttachment<CVLDividerTextAttachment>(text, 0));
}

TEST(NoteAttachmentBinding, ShowsInPlaceWhatWasStoredToBe)
{
    auto file = CVLFileAttachment::initWithFileWrapper(placeholderNamed(u"a.zip"));
    file->setConvertToInPlaceOnMac(true);
    auto text = NoteText().addAttachment(file).text();
    bindAttachmentsToMembers(text, NotePackage().add(u"a.zip", "x").wrapper());
    EXPECT_TRUE(isAttachment<NSTextAttachment>(text, 0));
    EXPECT_EQ(contentsAt(text, 0), "x");
}

TEST(NoteAttachmentBinding, DoesNotKeepThatAFileIsToBeShownInPlace)
{
    const auto text = bound<CVLFileAttachment>(u"a.zip");
    const auto file = text.attribute(NSAttachmentAttributeName, 0).object<CVLFileAttachment>();
    ASSERT_TRUE(file);
    EXPECT_FALSE(file->convertToInPlaceOnMac());
}

TEST(NoteAttachmentBinding, ShowsAudioAsAFile)
{
    for (const auto* name : {u"a.mp3", u"a.m4a", u"a.wav"})
        EXPECT_TRUE(isAttachment<CVLFileAttachment>(bound<NSTextAttachment>(name), 0));
    EXPECT_TRUE(isAttachment<NSTextAttachment>(bound<NSTextAttachment>(u"a.mp4"), 0));
    EXPECT_TRUE(isAttachment<NSTextAttachment>(bound<NSTextAttachment>(u"a"), 0));
}

TEST(NoteAttachmentBinding, ShowsAudioAsAFileThatWasStoredToBeShownInPlace)
{
    auto file = CVLFileAttachment::initWithFileWrapper(placeholderNamed(u"a.mp3"));
    file->setConvertToInPlaceOnMac(true);
    auto text = NoteText().addAttachment(file).text();
    bindAttachmentsToMembers(text, NotePackage().add(u"a.mp3", "x").wrapper());
    EXPECT_TRUE(isAttachment<CVLFileAttachment>(text, 0));
}

TEST(NoteAttachmentBinding, ShowsLockedPDFsAsFiles)
{
    EXPECT_TRUE(isAttachment<CVLFileAttachment>(bound<NSTextAttachment>(u"a.pdf", lockedPDF("secret")), 0));
    EXPECT_TRUE(isAttachment<NSTextAttachment>(bound<NSTextAttachment>(u"a.pdf", lockedPDF("")), 0));
    EXPECT_TRUE(isAttachment<NSTextAttachment>(bound<NSTextAttachment>(u"a.pdf", pdfWithPages({"text"})), 0));
    EXPECT_TRUE(isAttachment<NSTextAttachment>(bound<NSTextAttachment>(u"a.png", lockedPDF("secret")), 0));
}

TEST(NoteAttachmentBinding, GivesAMemberToAllWhoNameIt)
{
    const auto archived = NSTextAttachment::initWithFileWrapper(placeholderNamed(u"a.pdf"));
    auto divider = CVLDividerTextAttachment::init();
    divider->setFileWrapper(placeholderNamed(u"a.pdf"));
    auto text
        = NoteText().addAttachment(divider).addAttachment(archived).add(u"x").addAttachment(archived).text();
    bindAttachmentsToMembers(text, NotePackage().add(u"a.pdf", lockedPDF("secret")).wrapper());
    for (const NSUInteger location : {0U, 1U, 3U})
        EXPECT_TRUE(isAttachment<CVLFileAttachment>(text, location)) << location;
    EXPECT_EQ(attachmentAt(text, 1)->fileWrapper(), attachmentAt(text, 3)->fileWrapper());
}

TEST(NoteAttachmentBinding, TakesFoldersAndLinksAsTheyAreAndFollowsNone)
{
    auto folder = NSFileWrapper::initDirectoryWithFileWrappers({{u"inner", makeFile(u"inner")}});
    folder->setPreferredFilename(u"a.pages");
    auto link = NSFileWrapper::initSymbolicLinkWithDestinationURL(NSURL::fileURLWithPath("/etc/passwd"));
    link->setPreferredFilename(u"b.pdf");
    auto text = NoteText()
                    .addAttachment(NSTextAttachment::initWithFileWrapper(placeholderNamed(u"a.pages")))
                    .addAttachment(NSTextAttachment::initWithFileWrapper(placeholderNamed(u"b.pdf")))
                    .text();
    bindAttachmentsToMembers(text, NotePackage().add(folder).add(link).wrapper());
    EXPECT_EQ(attachmentAt(text, 0)->fileWrapper(), folder);
    EXPECT_EQ(attachmentAt(text, 1)->fileWrapper(), link);
    EXPECT_EQ(contentsAt(text, 1), "none");
}
