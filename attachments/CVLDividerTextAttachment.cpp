#include "attachments/CVLDividerTextAttachment.h"

#include "cells/CVLDividerTextAttachmentCell.h"
#include "platform/text/NSAttributeNames.h"
#include "platform/text/NSColor.h"
#include "platform/text/NSParagraphStyle.h"
#include "styles/CVLNoteTextStyle.h"

#include <utility>

namespace {

std::shared_ptr<CVLDividerTextAttachment> dividerWithCell(std::shared_ptr<CVLDividerTextAttachmentCell> cell)
{
    auto divider = std::make_shared<CVLDividerTextAttachment>();
    divider->setFileType(std::u16string(CVLDividerTextAttachmentType));
    divider->setAttachmentCell(std::move(cell));
    return divider;
}

} // namespace

std::shared_ptr<CVLDividerTextAttachment> CVLDividerTextAttachment::init()
{
    return dividerWithCell(std::make_shared<CVLDividerTextAttachmentCell>());
}

std::shared_ptr<CVLDividerTextAttachment>
CVLDividerTextAttachment::initWithTextView(const std::shared_ptr<NSTextView>& textView)
{
    auto cell = std::make_shared<CVLDividerTextAttachmentCell>();
    cell->setTextView(textView);
    return dividerWithCell(std::move(cell));
}

std::shared_ptr<NSTextAttachmentCell> CVLDividerTextAttachment::attachmentCell()
{
    if (!currentAttachmentCell())
        setAttachmentCell(std::make_shared<CVLDividerTextAttachmentCell>());
    return currentAttachmentCell();
}

NSAttributedString CVLDividerTextAttachment::attributedString()
{
    auto attributes = CVLNoteTextStyle::bodyNoteTextStyle()->attributes();
    attributes.insert_or_assign(std::u16string(NSForegroundColorAttributeName), NSColor::textColor());
    NSMutableAttributedString text({u'\n', NSAttachmentCharacter, u'\n'}, std::move(attributes));
    text.addAttribute(NSAttachmentAttributeName, shared_from_this(), {1, 1});
    return text.copy();
}

NSAttributedString CVLDividerTextAttachment::replacementString()
{
    auto centred = NSParagraphStyle::defaultParagraphStyle()->mutableCopy();
    centred.setAlignment(NSTextAlignment::Center);
    auto attributes = CVLNoteTextStyle::bodyNoteTextStyle()->attributes();
    attributes.insert_or_assign(std::u16string(NSParagraphStyleAttributeName), centred.copy());
    return NSAttributedString(std::u16string(CVLDividerReplacementString), std::move(attributes));
}

const NSClass& CVLDividerTextAttachment::classObject()
{
    static const NSClass object{"CVLDividerTextAttachment", &NSTextAttachment::classObject(),
                                &CVLDividerTextAttachment::initWithCoder};
    return object;
}

const NSClass& CVLDividerTextAttachment::classForCoder() const
{
    return classObject();
}

NSAny CVLDividerTextAttachment::initWithCoder(NSCoder& coder)
{
    auto divider = std::make_shared<CVLDividerTextAttachment>();
    divider->decodeFromCoder(coder);
    return divider;
}
