#include "attachments/CVLChecklistTextAttachment.h"

#include "platform/foundation/NSCoder.h"
#include "platform/foundation/NSKeyedArchiver.h"
#include "platform/foundation/NSKeyedUnarchiver.h"
#include "platform/text/NSAttributeNames.h"
#include "platform/text/TextClasses.h"
#include "styles/CVLNoteTextStyle.h"

#include <algorithm>

namespace {

constexpr std::string_view kOnKey = "on";
constexpr std::string_view kIndentationLevelKey = "indentationLevel";

NSUInteger levelFromArchive(std::int64_t level)
{
    return static_cast<NSUInteger>(std::clamp<std::int64_t>(
        level, 0, static_cast<std::int64_t>(CVLChecklistTextAttachment::kMaximumArchivedLevel)));
}

} // namespace

std::shared_ptr<CVLChecklistTextAttachment> CVLChecklistTextAttachment::init()
{
    auto attachment = std::make_shared<CVLChecklistTextAttachment>();
    attachment->setFileType(std::u16string(CVLChecklistType));
    (void)attachment->checklistCell(); // made now, so that the attachment has it from the start
    return attachment;
}

bool CVLChecklistTextAttachment::isOn() const
{
    const auto* cell = dynamic_cast<const CVLChecklistAttachmentCell*>(currentAttachmentCell().get());
    return cell && cell->isOn();
}

void CVLChecklistTextAttachment::setOn(bool on)
{
    checklistCell().setOn(on);
}

std::shared_ptr<NSTextAttachmentCell> CVLChecklistTextAttachment::attachmentCell()
{
    (void)checklistCell(); // sees to it that there is one
    return currentAttachmentCell();
}

CVLChecklistAttachmentCell& CVLChecklistTextAttachment::checklistCell()
{
    if (auto* current = dynamic_cast<CVLChecklistAttachmentCell*>(currentAttachmentCell().get()))
        return *current;
    auto made = std::make_shared<CVLChecklistAttachmentCell>();
    setAttachmentCell(made);
    return *made;
}

std::shared_ptr<CVLChecklistTextAttachment> CVLChecklistTextAttachment::copy() const
{
    auto copied = init();
    copied->setOn(isOn());
    copied->setIndentationLevel(indentationLevel());
    return copied;
}

std::u16string CVLChecklistTextAttachment::replacementString() const
{
    return std::u16string(isOn() ? CVLChecklistOnValueReplacementString
                                 : CVLChecklistOffValueReplacementString);
}

NSAttributedString CVLChecklistTextAttachment::attributedString()
{
    return NSAttributedString::attributedStringWithAttachment(
        NSAny(shared_from_this()),
        {{std::u16string(NSParagraphStyleAttributeName), checklistParagraphStyle()}});
}

NSParagraphStyle::Ref CVLChecklistTextAttachment::checklistParagraphStyle() const
{
    const auto indent = static_cast<double>(indentationLevel()) * CVLChecklistImageDimension
        + (CVLChecklistRightBorder + CVLChecklistImageDimension);
    auto style = CVLNoteTextStyle::bodyNoteTextStyle()->paragraphStyle()->mutableCopy();
    style.setHeadIndent(indent);
    style.setFirstLineHeadIndent(-indent);
    return style.copy();
}

std::vector<std::u16string> CVLChecklistTextAttachment::writableTypesForPasteboard() const
{
    return {std::u16string(CVLChecklistType), std::u16string(NSPasteboardTypeString)};
}

NSAny CVLChecklistTextAttachment::pasteboardPropertyListForType(std::u16string_view type) const
{
    if (type == NSPasteboardTypeString)
        return replacementString();
    if (type != CVLChecklistType)
        return {};
    auto data = NSKeyedArchiver::archivedDataWithRootObject(shared_from_this(), false);
    return data ? NSAny(*std::move(data)) : NSAny();
}

NSPasteboardReading CVLChecklistTextAttachment::pasteboardReading()
{
    return {{std::u16string(CVLChecklistType)}, &initWithPasteboardPropertyList};
}

NSAny CVLChecklistTextAttachment::initWithPasteboardPropertyList(const NSAny& propertyList,
                                                                 std::u16string_view ofType)
{
    if (ofType != CVLChecklistType)
        return {};
    const auto* data = propertyList.data();
    const auto unarchiver
        = data ? NSKeyedUnarchiver::initForReadingFromData(data->bytes, textClasses()) : nullptr;
    if (!unarchiver)
        return std::make_shared<CVLChecklistTextAttachment>();
    unarchiver->setRequiresSecureCoding(false);
    return initWithCoder(unarchiver->topLevel());
}

const NSClass& CVLChecklistTextAttachment::classObject()
{
    static const NSClass object{"CVLChecklistTextAttachment", &NSTextAttachment::classObject(),
                                &CVLChecklistTextAttachment::initWithCoder};
    return object;
}

const NSClass& CVLChecklistTextAttachment::classForCoder() const
{
    return classObject();
}

NSAny CVLChecklistTextAttachment::initWithCoder(NSCoder& coder)
{
    auto attachment = std::make_shared<CVLChecklistTextAttachment>();
    attachment->setOn(coder.decodeBoolForKey(kOnKey));
    attachment->setIndentationLevel(levelFromArchive(coder.decodeIntegerForKey(kIndentationLevelKey)));
    return attachment;
}

void CVLChecklistTextAttachment::encodeWithCoder(NSCoder& coder) const
{
    coder.encodeBool(isOn(), kOnKey);
    coder.encodeInteger(static_cast<std::int64_t>(indentationLevel()), kIndentationLevelKey);
}
