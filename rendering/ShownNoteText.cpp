#include "rendering/ShownNoteText.h"

#include "attachments/CVLFileAttachment.h"
#include "platform/text/NSAttributeNames.h"
#include "platform/text/NSTextAttachment.h"

#include <memory>
#include <utility>
#include <vector>

namespace {

/// Null for one that draws itself.
std::shared_ptr<NSTextAttachment> shownAttachment(const std::shared_ptr<NSTextAttachment>& attachment,
                                                  const PictureOptions& options)
{
    if (attachment->attachmentCell())
        return nullptr;
    if (auto cell = NotePictureCell::cellWithPicture(attachment, options)) {
        auto picture = std::make_shared<NSTextAttachment>();
        picture->setAttachmentCell(std::move(cell));
        return picture;
    }
    return CVLFileAttachment::fileAttachmentWithAttachment(*attachment);
}

} // namespace

NSAttributedString shownNoteText(const NSAttributedString& text, const PictureOptions& options)
{
    NSMutableAttributedString shown(text);
    text.enumerateAttribute(NSAttachmentAttributeName,
                            [&](const NSAny& value, NSRange range, bool& /*stop*/) {
                                const auto attachment = value.mutableObject<NSTextAttachment>();
                                if (!attachment)
                                    return;
                                if (auto other = shownAttachment(attachment, options))
                                    shown.addAttribute(NSAttachmentAttributeName, other, range);
                            });
    return shown.copy();
}
