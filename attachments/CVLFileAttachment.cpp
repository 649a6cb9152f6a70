#include "attachments/CVLFileAttachment.h"

#include "attachments/AttachmentExtensions.h"
#include "cells/CVLFileAttachmentCell.h"
#include "platform/foundation/NSCoder.h"
#include "platform/types/UTType.h"

#include <utility>

namespace {

constexpr std::string_view kConvertToInPlaceOnMacKey = "convertToInPlaceOnMac";

bool isImageOrMovie(const std::u16string& fileType)
{
    return UTType::identifierConformsToType(fileType, kUTTypeImage)
        || UTType::identifierConformsToType(fileType, kUTTypeMovie);
}

} // namespace

std::shared_ptr<CVLFileAttachment>
CVLFileAttachment::initWithFileWrapper(std::shared_ptr<NSFileWrapper> fileWrapper)
{
    auto attachment = std::make_shared<CVLFileAttachment>();
    attachment->setFileWrapper(std::move(fileWrapper));
    return attachment;
}

std::shared_ptr<CVLFileAttachment> CVLFileAttachment::initWithData(std::optional<NSData> contents,
                                                                   std::optional<std::u16string> fileType)
{
    auto attachment = std::make_shared<CVLFileAttachment>();
    attachment->setContents(std::move(contents));
    attachment->setFileType(std::move(fileType));
    return attachment;
}

std::shared_ptr<CVLFileAttachment>
CVLFileAttachment::fileAttachmentWithAttachment(const NSTextAttachment& attachment)
{
    return initWithFileWrapper(attachment.fileWrapper());
}

std::shared_ptr<NSTextAttachment> CVLFileAttachment::makeOfSameClass() const
{
    return std::make_shared<CVLFileAttachment>();
}

bool CVLFileAttachment::shouldUseForFileType(const std::optional<std::u16string>& fileType)
{
    return fileType && !isImageOrMovie(*fileType) && !UTType::identifierConformsToType(*fileType, kUTTypePDF);
}

bool CVLFileAttachment::canViewInPlace() const
{
    const auto type = fileType();
    if (!type)
        return false;
    if (UTType::identifierConformsToType(*type, kUTTypePDF))
        return !CVLExtensions::isPasswordProtectedPDF(*this);
    return isImageOrMovie(*type);
}

void CVLFileAttachment::setFileWrapper(std::shared_ptr<NSFileWrapper> fileWrapper)
{
    NSTextAttachment::setFileWrapper(std::move(fileWrapper));
    // A cell that is not installed is not ours to point here: nobody would tell it when this attachment goes.
    if (m_fileAttachmentCell && currentAttachmentCell() == m_fileAttachmentCell)
        m_fileAttachmentCell->setAttachment(this);
}

std::shared_ptr<NSTextAttachmentCell> CVLFileAttachment::attachmentCell()
{
    if (!m_fileAttachmentCell)
        m_fileAttachmentCell = std::make_shared<CVLFileAttachmentCell>();
    if (currentAttachmentCell() != m_fileAttachmentCell)
        setAttachmentCell(m_fileAttachmentCell);
    return m_fileAttachmentCell;
}

const NSClass& CVLFileAttachment::classObject()
{
    static const NSClass object{"CVLFileAttachment", &NSTextAttachment::classObject(),
                                &CVLFileAttachment::initWithCoder};
    return object;
}

const NSClass& CVLFileAttachment::classForCoder() const
{
    return classObject();
}

NSAny CVLFileAttachment::initWithCoder(NSCoder& coder)
{
    auto attachment = std::make_shared<CVLFileAttachment>();
    attachment->decodeFromCoder(coder);
    attachment->setConvertToInPlaceOnMac(coder.decodeBoolForKey(kConvertToInPlaceOnMacKey));
    return attachment;
}

void CVLFileAttachment::encodeWithCoder(NSCoder& coder) const
{
    NSTextAttachment::encodeWithCoder(coder);
    coder.encodeBool(m_convertToInPlaceOnMac, kConvertToInPlaceOnMacKey);
}
