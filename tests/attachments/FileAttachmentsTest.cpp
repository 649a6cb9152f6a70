#include "attachments/FileAttachments.h"

#include "attachments/CVLChecklistTextAttachment.h"
#include "attachments/CVLFileAttachment.h"
#include "platform/text/NSAttributeNames.h"
#include "tests/support/LockedPDF.h"
#include "tests/support/PDFBytes.h"

#include <gtest/gtest.h>

namespace {

using Attachment = std::shared_ptr<NSTextAttachment>;

Attachment fileNamed(const std::u16string& name, std::string bytes = "bytes")
{
    auto wrapper = NSFileWrapper::initRegularFileWithContents({std::move(bytes)});
    wrapper->setPreferredFilename(name);
    return NSTextAttachment::initWithFileWrapper(wrapper);
}

NSMutableAttributedString textWith(const Attachment& attachment)
{
    NSMutableAttributedString text(u"before");
    text.appendAttributedString(
        NSAttributedString::attributedStringWithAttachment(NSAny(attachment), {{u"Mark", 1}}));
    text.appendAttributedString(NSAttributedString(u"after"));
    return text;
}

Attachment attachmentAt(const NSAttributedString& text, NSUInteger index)
{
    return text.attribute(NSAttachmentAttributeName, index).mutableObject<NSTextAttachment>();
}

std::shared_ptr<CVLFileAttachment> replaced(const Attachment& attachment)
{
    const auto text = DynamicColors::attributedStringWithFileAttachments(textWith(attachment));
    EXPECT_EQ(text.string(), u"before\uFFFCafter");
    EXPECT_EQ(text.attribute(u"Mark", 6), NSAny(1)) << "the attributes stay";
    return std::dynamic_pointer_cast<CVLFileAttachment>(attachmentAt(text, 6));
}

} // namespace

TEST(FileAttachments, StandForFilesThatAreNotShownInPlace)
{
    const auto original = fileNamed(u"notes.zip");
    const auto attachment = replaced(original);
    ASSERT_TRUE(attachment);
    EXPECT_EQ(attachment->fileWrapper(), original->fileWrapper());
    EXPECT_FALSE(attachment->convertToInPlaceOnMac());
}

TEST(FileAttachments, StandForDocumentsThatAPasswordProtects)
{
    EXPECT_TRUE(replaced(fileNamed(u"a.pdf", lockedPDF("secret"))));
    EXPECT_FALSE(replaced(fileNamed(u"a.pdf", lockedPDF(""))));
    EXPECT_FALSE(replaced(fileNamed(u"a.pdf", pdfWithPages({"text"}))));
}

TEST(FileAttachments, LeaveImagesAndMoviesAlone)
{
    const auto image = fileNamed(u"a.png");
    const auto text = DynamicColors::attributedStringWithFileAttachments(textWith(image));
    EXPECT_EQ(attachmentAt(text, 6), image);
    EXPECT_FALSE(replaced(fileNamed(u"a.mp4")));
}

TEST(FileAttachments, LeaveAttachmentsWithoutAFileOrContentsAlone)
{
    const auto box = CVLChecklistTextAttachment::init();
    EXPECT_EQ(attachmentAt(DynamicColors::attributedStringWithFileAttachments(textWith(box)), 6), box);
    const auto typed = NSTextAttachment::initWithData(std::nullopt, u"public.zip-archive");
    EXPECT_FALSE(replaced(typed));
}

TEST(FileAttachments, LeaveFilesWithoutATypeAlone)
{
    EXPECT_FALSE(
        replaced(NSTextAttachment::initWithFileWrapper(NSFileWrapper::initRegularFileWithContents({}))));
}

TEST(FileAttachments, KeepContentsThatStandInNoFile)
{
    const auto attachment = replaced(NSTextAttachment::initWithData(NSData{"bytes"}, u"public.zip-archive"));
    ASSERT_TRUE(attachment);
    EXPECT_EQ(attachment->fileWrapper(), nullptr);
    EXPECT_EQ(attachment->contents(), NSData{"bytes"});
    EXPECT_EQ(attachment->fileType(), u"public.zip-archive");
}

TEST(FileAttachments, AreReplacedLikeAnyOther)
{
    const auto original = CVLFileAttachment::fileAttachmentWithAttachment(*fileNamed(u"notes.zip"));
    original->setConvertToInPlaceOnMac(true);
    const auto attachment = replaced(original);
    ASSERT_TRUE(attachment);
    EXPECT_NE(attachment, original);
    EXPECT_FALSE(attachment->convertToInPlaceOnMac());
}

TEST(FileAttachments, AreOneCharacterForARunOfOneAttachment)
{
    const auto original = fileNamed(u"notes.zip");
    NSMutableAttributedString text(u"\uFFFC\uFFFC\uFFFCbehind");
    text.addAttribute(NSAttachmentAttributeName, NSAny(original), {0, 3});
    text.addAttribute(u"Mark", 1, {0, 1});
    text.addAttribute(u"Mark", 2, {1, 2});
    DynamicColors::replaceFileAttachmentsInRange(text, {0, text.length()});
    EXPECT_EQ(text.string(), u"\uFFFCbehind");
    EXPECT_EQ(text.attribute(u"Mark", 0), NSAny(1)) << "the attributes at the run's start";
    EXPECT_TRUE(std::dynamic_pointer_cast<CVLFileAttachment>(attachmentAt(text, 0)));
}

TEST(FileAttachments, AreMadeWithinTheRangeOnly)
{
    auto text = textWith(fileNamed(u"one.zip"));
    text.appendAttributedString(textWith(fileNamed(u"two.zip")));
    DynamicColors::replaceFileAttachmentsInRange(text, {7, text.length() - 7});
    EXPECT_FALSE(std::dynamic_pointer_cast<CVLFileAttachment>(attachmentAt(text, 6)));
    EXPECT_TRUE(std::dynamic_pointer_cast<CVLFileAttachment>(attachmentAt(text, 18)));
}

TEST(FileAttachments, LeaveTheOriginalAsItWas)
{
    const auto original = textWith(fileNamed(u"notes.zip"));
    const auto copy = DynamicColors::attributedStringWithFileAttachments(original);
    EXPECT_NE(attachmentAt(original, 6), attachmentAt(copy, 6));
    EXPECT_FALSE(std::dynamic_pointer_cast<CVLFileAttachment>(attachmentAt(original, 6)));
}
