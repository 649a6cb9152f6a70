#include "attachments/CVLFileAttachment.h"

#include "attachments/AttachmentClasses.h"
#include "cells/CVLFileAttachmentCell.h"
#include "platform/foundation/NSKeyedArchiver.h"
#include "platform/foundation/NSKeyedUnarchiver.h"
#include "tests/support/KeyedValues.h"
#include "tests/support/LockedPDF.h"
#include "tests/support/PDFBytes.h"

#include <gtest/gtest.h>

namespace {

NSFileWrapper::Ref fileNamed(const std::u16string& name)
{
    auto wrapper = NSFileWrapper::initRegularFileWithContents({"bytes"});
    wrapper->setPreferredFilename(name);
    return wrapper;
}

bool isViewable(std::optional<std::u16string> fileType, std::string bytes = "bytes")
{
    return CVLFileAttachment::initWithData(NSData{std::move(bytes)}, std::move(fileType))->canViewInPlace();
}

} // namespace

TEST(CVLFileAttachment, IsNotUsedForWhatIsShownInPlace)
{
    for (const auto* type : {u"public.png", u"public.jpeg", u"public.image", u"public.mpeg-4",
                             u"public.movie", u"com.adobe.pdf"})
        EXPECT_FALSE(CVLFileAttachment::shouldUseForFileType(type));
}

TEST(CVLFileAttachment, IsUsedForAllOtherTypes)
{
    for (const auto* type : {u"public.plain-text", u"public.zip-archive", u"public.data", u"public.folder",
                             u"public.mp3", u"com.example.unknown", u""})
        EXPECT_TRUE(CVLFileAttachment::shouldUseForFileType(type));
}

TEST(CVLFileAttachment, IsNotUsedWithoutAType)
{
    EXPECT_FALSE(CVLFileAttachment::shouldUseForFileType(std::nullopt));
}

TEST(CVLFileAttachment, TakesTheFileOfAnotherAttachment)
{
    const auto wrapper = fileNamed(u"notes.zip");
    const auto attachment
        = CVLFileAttachment::fileAttachmentWithAttachment(*NSTextAttachment::initWithFileWrapper(wrapper));
    EXPECT_EQ(attachment->fileWrapper(), wrapper);
    EXPECT_FALSE(attachment->convertToInPlaceOnMac());
    EXPECT_EQ(CVLFileAttachment::fileAttachmentWithAttachment(NSTextAttachment())->fileWrapper(), nullptr);
}

TEST(CVLFileAttachment, CanShowImagesAndMoviesInPlace)
{
    EXPECT_TRUE(isViewable(u"public.png"));
    EXPECT_TRUE(isViewable(u"public.mpeg-4"));
    EXPECT_FALSE(isViewable(u"public.plain-text"));
    EXPECT_FALSE(isViewable(u"public.zip-archive"));
    EXPECT_FALSE(isViewable(std::nullopt));
    EXPECT_TRUE(CVLFileAttachment::initWithFileWrapper(fileNamed(u"a.png"))->canViewInPlace());
    EXPECT_FALSE(CVLFileAttachment::initWithFileWrapper(fileNamed(u"a.txt"))->canViewInPlace());
}

TEST(CVLFileAttachment, CanShowDocumentsInPlaceThatNoPasswordProtects)
{
    EXPECT_TRUE(isViewable(u"com.adobe.pdf", pdfWithPages({"text"})));
    EXPECT_TRUE(isViewable(u"com.adobe.pdf", lockedPDF("")));
    EXPECT_FALSE(isViewable(u"com.adobe.pdf", lockedPDF("secret")));
    auto folder = NSFileWrapper::initDirectoryWithFileWrappers({});
    folder->setPreferredFilename(u"Report.pdf");
    EXPECT_TRUE(CVLFileAttachment::initWithFileWrapper(folder)->canViewInPlace()) << "nothing locks it";
}

TEST(CVLFileAttachment, MakesItsCellOnFirstUse)
{
    const auto attachment = CVLFileAttachment::initWithFileWrapper(fileNamed(u"notes.zip"));
    EXPECT_EQ(attachment->fileAttachmentCell(), nullptr);
    const auto cell = attachment->attachmentCell();
    ASSERT_TRUE(cell);
    EXPECT_EQ(attachment->fileAttachmentCell(), cell);
    EXPECT_EQ(attachment->attachmentCell(), cell);
    EXPECT_EQ(cell->attachment(), attachment.get());
    EXPECT_EQ(attachment->fileAttachmentCell()->filenameString().string(), u"notes.zip");
}

TEST(CVLFileAttachment, HasItsCellShowANewFile)
{
    const auto attachment = CVLFileAttachment::initWithFileWrapper(fileNamed(u"notes.zip"));
    (void)attachment->attachmentCell();
    attachment->setFileWrapper(fileNamed(u"other.txt"));
    EXPECT_EQ(attachment->fileAttachmentCell()->filenameString().string(), u"other.txt");
    EXPECT_EQ(attachment->fileAttachmentCell()->attachment(), attachment.get());
}

TEST(CVLFileAttachment, ReplacesAnyOtherCell)
{
    const auto attachment = CVLFileAttachment::initWithFileWrapper(fileNamed(u"notes.zip"));
    const auto cell = attachment->attachmentCell();
    const auto other = std::make_shared<NSTextAttachmentCell>();
    attachment->setAttachmentCell(other);
    EXPECT_EQ(cell->attachment(), nullptr);
    EXPECT_EQ(attachment->attachmentCell(), cell);
    EXPECT_EQ(cell->attachment(), attachment.get());
    EXPECT_EQ(other->attachment(), nullptr);
}

TEST(CVLFileAttachment, LeavesNoCellBehindThatKnowsIt)
{
    auto attachment = CVLFileAttachment::initWithFileWrapper(fileNamed(u"notes.zip"));
    const auto cell = attachment->attachmentCell();
    attachment->setAttachmentCell(std::make_shared<NSTextAttachmentCell>());
    attachment->setFileWrapper(fileNamed(u"other.zip"));
    EXPECT_EQ(cell->attachment(), nullptr) << "not installed, so not pointed at the attachment";
    (void)attachment->attachmentCell();
    attachment.reset();
    EXPECT_EQ(cell->attachment(), nullptr);
    EXPECT_GE(cell->cellSize().width, 32);
}

TEST(CVLFileAttachment, AddsItsKeyToThoseOfTheBaseClass)
{
    const auto wrapper = fileNamed(u"notes.zip");
    const auto attachment = CVLFileAttachment::initWithFileWrapper(wrapper);
    attachment->setConvertToInPlaceOnMac(true);
    EXPECT_EQ(KeyedValues::of(*attachment),
              (KeyedValues::Values{{"NSFileWrapper", wrapper}, {"convertToInPlaceOnMac", true}}));
}

TEST(CVLFileAttachment, ComesBackFromAnArchive)
{
    for (const auto converts : {true, false}) {
        const auto attachment = CVLFileAttachment::initWithFileWrapper(fileNamed(u"notes.zip"));
        attachment->setConvertToInPlaceOnMac(converts);
        const auto data = NSKeyedArchiver::archivedDataWithRootObject(NSAny(attachment), true);
        ASSERT_TRUE(data);
        const auto decoded = NSKeyedUnarchiver::unarchivedObjectOfClass(CVLFileAttachment::classObject(),
                                                                        data->bytes, attachmentClasses())
                                 .mutableObject<CVLFileAttachment>();
        ASSERT_TRUE(decoded);
        EXPECT_EQ(decoded->convertToInPlaceOnMac(), converts);
        ASSERT_TRUE(decoded->fileWrapper());
        EXPECT_EQ(decoded->fileWrapper()->preferredFilename(), u"notes.zip");
    }
}
