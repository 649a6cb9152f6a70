#include "richtext/HTMLForSharing.h"

#include "platform/foundation/Unicode.h"
#include "platform/html/NSAttributedStringHTML.h"
#include "richtext/AttachmentRuns.h"
#include "richtext/AttachmentTagRewriting.h"

namespace {

AttachmentsByName attachmentsByName(const NSAttributedString& text)
{
    AttachmentsByName attachments;
    enumerateAttachments<NSTextAttachment>(text, [&attachments](const auto& attachment, NSRange) {
        const auto& file = attachment->fileWrapper();
        if (file && file->filename() && !file->filename()->empty())
            attachments.insert_or_assign(*file->filename(), attachment);
    });
    return attachments;
}

} // namespace

std::u16string DynamicColors::htmlStringForSharingToMail(const NSAttributedString& text)
{
    // UTF-8 is the writer's default, and the only encoding that it can be refused for is another.
    const auto page = NSAttributedStringDocumentFormats::HTMLFromRange(text, {0, text.length()});
    if (!page)
        return {};
    return UTF16FromUTF8(htmlByRewritingAttachmentTags(page->bytes, attachmentsByName(text)));
}
