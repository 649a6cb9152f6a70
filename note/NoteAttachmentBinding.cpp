#include "note/NoteAttachmentBinding.h"

#include "attachments/AttachmentExtensions.h"
#include "attachments/CVLChecklistTextAttachment.h"
#include "attachments/CVLFileAttachment.h"
#include "note/NotePackage.h"
#include "platform/foundation/Unicode.h"
#include "platform/text/NSAttributeNames.h"
#include "platform/types/UTType.h"

#include <memory>
#include <optional>
#include <string>
#include <unordered_map>

namespace {

bool isAudio(const NSTextAttachment& attachment)
{
    const auto fileType = attachment.fileType();
    const auto type = fileType ? UTType::typeWithIdentifier(UTF8FromUTF16(*fileType)) : std::nullopt;
    return type && type->conformsToType(kUTTypeAudio);
}

bool isFileAttachment(const NSTextAttachment& attachment)
{
    return dynamic_cast<const CVLFileAttachment*>(&attachment) != nullptr;
}

std::shared_ptr<NSTextAttachment> attachmentLike(const NSTextAttachment& archived,
                                                 const NSFileWrapper::Ref& member)
{
    const auto* file = dynamic_cast<const CVLFileAttachment*>(&archived);
    if (file && file->convertToInPlaceOnMac())
        return NSTextAttachment::initWithFileWrapper(member);
    auto fresh = archived.makeOfSameClass();
    fresh->setFileWrapper(member);
    return fresh;
}

/// What is found out about members, which opening and reading them takes.
class Members {
public:
    explicit Members(const NSFileWrapper& package)
        : m_package(package)
    {
    }

    /// The package's own members are no attachments' contents.
    [[nodiscard]] NSFileWrapper::Ref named(const std::optional<std::u16string>& name) const
    {
        if (!name || *name == kNoteTextMember || *name == kNoteAttributesMember)
            return nullptr;
        return m_package.fileWrapperForKey(*name);
    }

    /// Whether `attachment`, one of the member, is a PDF document that a password protects.
    bool isProtected(const NSFileWrapper& member, const NSTextAttachment& attachment)
    {
        const auto [known, isNew] = m_isProtected.try_emplace(&member, false);
        if (isNew)
            known->second = CVLExtensions::isPasswordProtectedPDF(attachment);
        return known->second;
    }

private:
    const NSFileWrapper& m_package;
    std::unordered_map<const NSFileWrapper*, bool> m_isProtected;
};

std::shared_ptr<NSTextAttachment> boundAttachment(const NSTextAttachment& archived,
                                                  const NSFileWrapper::Ref& member, Members& members)
{
    auto fresh = attachmentLike(archived, member);
    if (fresh->isExactly<NSTextAttachment>() && isAudio(*fresh))
        fresh = CVLFileAttachment::initWithFileWrapper(member);
    if (!isFileAttachment(*fresh) && members.isProtected(*member, *fresh))
        fresh = CVLFileAttachment::fileAttachmentWithAttachment(*fresh);
    return fresh;
}

} // namespace

void bindAttachmentsToMembers(NSMutableAttributedString& text, const NSFileWrapper& package)
{
    Members members(package);
    const auto bind = [&](const NSAny& value, NSRange run, bool& /*stop*/) {
        const auto archived = value.object<NSTextAttachment>();
        if (!archived || !archived->fileWrapper() || archived->isExactly<CVLChecklistTextAttachment>())
            return;
        if (const auto member = members.named(archived->fileWrapper()->preferredFilename()))
            text.addAttribute(NSAttachmentAttributeName, boundAttachment(*archived, member, members), run);
    };
    text.enumerateAttribute(NSAttachmentAttributeName, bind);
}
