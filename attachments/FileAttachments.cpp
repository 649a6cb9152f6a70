#include "attachments/FileAttachments.h"

#include "attachments/AttachmentExtensions.h"
#include "attachments/CVLFileAttachment.h"
#include "platform/text/NSAttributeNames.h"

namespace {

bool isShownAsFile(const NSTextAttachment& attachment)
{
    if (!attachment.fileWrapper() && !attachment.contents())
        return false;
    return CVLFileAttachment::shouldUseForFileType(attachment.fileType())
        || CVLExtensions::isPasswordProtectedPDF(attachment);
}

std::shared_ptr<CVLFileAttachment> fileAttachmentFor(const NSTextAttachment& attachment)
{
    if (attachment.fileWrapper())
        return CVLFileAttachment::fileAttachmentWithAttachment(attachment);
    return CVLFileAttachment::initWithData(attachment.contents(), attachment.fileType());
}

} // namespace

void DynamicColors::replaceFileAttachmentsInRange(NSMutableAttributedString& text, NSRange range)
{
    const auto replace = [&text](const NSAny& value, NSRange run, bool& /*stop*/) {
        const auto attachment = value.object<NSTextAttachment>();
        if (!attachment || !isShownAsFile(*attachment))
            return;
        const auto replacement = NSAttributedString::attributedStringWithAttachment(
            fileAttachmentFor(*attachment), text.attributesAtIndex(run.location));
        text.replaceCharactersInRange(run, replacement);
    };
    text.enumerateAttribute(NSAttachmentAttributeName, range, {}, replace);
}

NSMutableAttributedString DynamicColors::attributedStringWithFileAttachments(const NSAttributedString& text)
{
    NSMutableAttributedString copy(text);
    replaceFileAttachmentsInRange(copy, {0, copy.length()});
    return copy;
}
