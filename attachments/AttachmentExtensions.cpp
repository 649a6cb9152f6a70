#include "attachments/AttachmentExtensions.h"

#include "attachments/CVLChecklistTextAttachment.h"
#include "platform/foundation/NSStringPaths.h"
#include "platform/media/PDFDocument.h"
#include "platform/types/UTType.h"

namespace {

const NSData* contentsOf(const NSTextAttachment& attachment)
{
    if (attachment.fileWrapper())
        return attachment.fileWrapper()->regularFileContents();
    return attachment.contents() ? &*attachment.contents() : nullptr;
}

bool isPDF(const NSTextAttachment& attachment)
{
    return UTType::identifierConformsToType(attachment.fileType().value_or(u""), kUTTypePDF);
}

} // namespace

bool CVLExtensions::isPasswordProtectedPDF(const NSTextAttachment& attachment)
{
    if (!isPDF(attachment))
        return false;
    const auto* contents = contentsOf(attachment);
    const auto document = contents ? PDFDocument::initWithData(contents->bytes) : nullptr;
    return document && document->isLocked() && !document->unlockWithPassword("");
}

std::u16string CVLExtensions::displayName(const NSTextAttachment& attachment)
{
    if (dynamic_cast<const CVLChecklistTextAttachment*>(&attachment))
        return CVLChecklistTextAttachment::displayName();
    const auto& wrapper = attachment.fileWrapper();
    if (!wrapper)
        return {};
    auto name = wrapper->preferredFilename().value_or(wrapper->filename().value_or(u""));
    if (wrapper->fileAttributes().extensionHidden && !pathExtension(name).empty())
        return stringByDeletingPathExtension(name);
    return name;
}
