#include "platform/text/NSTextAttachment.h"

#include "platform/foundation/NSCoder.h"
#include "platform/foundation/NSStringPaths.h"
#include "platform/foundation/Unicode.h"
#include "platform/types/UTType.h"

#include <utility>

namespace {

/// The type that the wrapper's preferred name tells; a folder without a known extension is a folder.
std::optional<std::u16string> fileTypeOfWrapper(const NSFileWrapper& fileWrapper)
{
    if (!fileWrapper.preferredFilename())
        return std::nullopt;
    const auto extension = pathExtension(*fileWrapper.preferredFilename());
    if (const auto type = UTType::typeWithFilenameExtension(UTF8FromUTF16(extension)))
        return UTF16FromUTF8(type->identifier());
    return UTF16FromUTF8(fileWrapper.isDirectory() ? kUTTypeFolder : kUTTypeData);
}

} // namespace

NSTextAttachment::~NSTextAttachment()
{
    setAttachmentCell(nullptr);
}

std::shared_ptr<NSTextAttachment>
NSTextAttachment::initWithFileWrapper(std::shared_ptr<NSFileWrapper> fileWrapper)
{
    auto attachment = std::make_shared<NSTextAttachment>();
    attachment->setFileWrapper(std::move(fileWrapper));
    return attachment;
}

std::shared_ptr<NSTextAttachment> NSTextAttachment::initWithData(std::optional<NSData> contents,
                                                                 std::optional<std::u16string> fileType)
{
    auto attachment = std::make_shared<NSTextAttachment>();
    attachment->setContents(std::move(contents));
    attachment->setFileType(std::move(fileType));
    return attachment;
}

std::shared_ptr<NSTextAttachment> NSTextAttachment::makeOfSameClass() const
{
    return std::make_shared<NSTextAttachment>();
}

void NSTextAttachment::setFileWrapper(std::shared_ptr<NSFileWrapper> fileWrapper)
{
    m_fileWrapper = std::move(fileWrapper);
    m_contents.reset();
    m_fileType.reset();
}

void NSTextAttachment::setContents(std::optional<NSData> contents)
{
    m_contents = std::move(contents);
    m_fileWrapper.reset();
}

std::optional<std::u16string> NSTextAttachment::fileType() const
{
    if (m_fileType || !m_fileWrapper)
        return m_fileType;
    return fileTypeOfWrapper(*m_fileWrapper);
}

void NSTextAttachment::setFileType(std::optional<std::u16string> fileType)
{
    m_fileType = std::move(fileType);
    m_fileWrapper.reset();
}

std::shared_ptr<NSTextAttachmentCell> NSTextAttachment::attachmentCell()
{
    return m_attachmentCell;
}

void NSTextAttachment::setAttachmentCell(std::shared_ptr<NSTextAttachmentCell> cell)
{
    if (m_attachmentCell && m_attachmentCell->attachment() == this)
        m_attachmentCell->setAttachment(nullptr);
    m_attachmentCell = std::move(cell);
    if (m_attachmentCell)
        m_attachmentCell->setAttachment(this);
}

const NSClass& NSTextAttachment::classObject()
{
    static const NSClass object{"NSTextAttachment", &NSObjectClass, &NSTextAttachment::initWithCoder};
    return object;
}

const NSClass& NSTextAttachment::classForCoder() const
{
    return classObject();
}

NSAny NSTextAttachment::initWithCoder(NSCoder& coder)
{
    auto attachment = std::make_shared<NSTextAttachment>();
    attachment->decodeFromCoder(coder);
    return attachment;
}

void NSTextAttachment::encodeWithCoder(NSCoder& coder) const
{
    coder.encodeObject(NSAny(m_fileWrapper), "NSFileWrapper");
    if (m_contents)
        coder.encodeObject(NSAny(*m_contents), "NS.contents");
    if (m_fileType)
        coder.encodeObject(NSAny(*m_fileType), "NS.fileType");
}

void NSTextAttachment::decodeFromCoder(NSCoder& coder)
{
    if (auto contents = coder.decodeBytesForKey("NS.contents"))
        m_contents = NSData{std::move(*contents)};
    m_fileType = coder.decodeStringForKey("NS.fileType");
    const bool hasContents = m_contents && !m_contents->bytes.empty();
    if (hasContents && m_fileType)
        return;
    auto wrapper = coder.decodeObjectOfClass(NSFileWrapper::classObject(), "NSFileWrapper")
                       .mutableObject<NSFileWrapper>();
    if (wrapper)
        NSTextAttachment::setFileWrapper(std::move(wrapper));
}
