#include "note/NoteTextForStorage.h"

#include "attachments/CVLChecklistTextAttachment.h"
#include "attachments/CVLDividerTextAttachment.h"
#include "colours/HighlightAttribute.h"
#include "note/NotePackage.h"
#include "platform/foundation/FileNameText.h"
#include "platform/foundation/NSStringPaths.h"
#include "platform/foundation/NSUUID.h"
#include "platform/foundation/Unicode.h"
#include "platform/text/NSAttributeNames.h"
#include "styles/CVLNoteTextStyle.h"

#include <algorithm>
#include <utility>

namespace {

bool isStored(const NSAttributes::value_type& attribute)
{
    return storedAttributeNames().contains(attribute.first);
}

std::u16string uniqueNameLike(const std::u16string& name)
{
    auto unique = UTF16FromUTF8(NSUUID::UUIDString());
    const auto extension = pathExtension(name);
    const auto isUsable = !extension.empty() && isFileName(std::u16string_view(extension));
    return isUsable ? unique + u"." + extension : unique;
}

/// Another wrapper with the same contents and attributes.
NSFileWrapper::Ref copyOf(const NSFileWrapper& file)
{
    auto copy = std::make_shared<NSFileWrapper>(file);
    copy->setFilename(std::nullopt);
    return copy;
}

NSFileWrapper::Ref placeholderFor(const NSFileWrapper& file, const std::u16string& name)
{
    auto placeholder = std::make_shared<NSFileWrapper>(NSFileType::Regular);
    auto attributes = file.fileAttributes();
    attributes.fileType = NSFileType::Regular;
    placeholder->setFileAttributes(attributes);
    placeholder->setPreferredFilename(name);
    return placeholder;
}

void takeDivider(NSMutableAttributedString& text, NSRange run, StoredAttachments& stored)
{
    const auto replacement = CVLDividerTextAttachment::replacementString();
    const NSRange range{run.location, replacement.length()};
    text.replaceCharactersInRange(run, replacement);
    text.removeAttribute(NSAttachmentAttributeName, range);
    stored.dividerRanges.push_back(range);
}

/// The package's own members keep their names, and what no file can be called is no name of a member.
bool isFreeName(const std::u16string& name, const StoredAttachments& stored)
{
    const auto isOwn = name == kNoteTextMember || name == kNoteAttributesMember || name == kNoteRTFMember;
    return !isOwn && isFileName(std::u16string_view(name)) && !stored.members.contains(name);
}

void takeFile(NSMutableAttributedString& text, const NSTextAttachment& attachment, NSRange run,
              StoredAttachments& stored)
{
    auto file = attachment.fileWrapper();
    auto name = file ? file->preferredFilename().value_or(u"") : u"";
    if (name.empty())
        return;
    if (!isFreeName(name, stored)) {
        name = uniqueNameLike(name);
        file = copyOf(*file);
        file->setPreferredFilename(name);
    }
    auto fresh = attachment.makeOfSameClass();
    fresh->setFileWrapper(placeholderFor(*file, name));
    stored.members.emplace(std::move(name), std::move(file));
    text.addAttribute(NSAttachmentAttributeName, std::move(fresh), run);
}

} // namespace

const std::set<std::u16string_view>& storedAttributeNames()
{
    static const std::set<std::u16string_view> names{
        CVLHighlightTextAttributeName,
        CVLNoteTextStyleIdentifierKey,
        NSFontAttributeName,
        NSParagraphStyleAttributeName,
        NSForegroundColorAttributeName,
        NSBackgroundColorAttributeName,
        NSLigatureAttributeName,
        NSKernAttributeName,
        NSStrikethroughStyleAttributeName,
        NSUnderlineStyleAttributeName,
        NSStrokeColorAttributeName,
        NSStrokeWidthAttributeName,
        NSShadowAttributeName,
        NSTextEffectAttributeName,
        NSAttachmentAttributeName,
        NSLinkAttributeName,
        NSBaselineOffsetAttributeName,
        NSUnderlineColorAttributeName,
        NSStrikethroughColorAttributeName,
        NSObliquenessAttributeName,
        NSExpansionAttributeName,
        NSWritingDirectionAttributeName,
        NSVerticalGlyphFormAttributeName,
    };
    return names;
}

void removeAttributesNotStored(NSMutableAttributedString& text)
{
    const auto filter = [&text](const NSAttributes& attributes, NSRange run, bool& /*stop*/) {
        if (std::ranges::all_of(attributes, isStored))
            return;
        NSAttributes kept;
        std::ranges::copy_if(attributes, std::inserter(kept, kept.end()), isStored);
        text.setAttributes(kept, run);
    };
    text.enumerateAttributesInRange({0, text.length()}, {}, filter);
}

StoredAttachments takeAttachments(NSMutableAttributedString& text)
{
    StoredAttachments stored;
    const auto take = [&](const NSAny& value, NSRange run, bool& /*stop*/) {
        const auto attachment = value.object<NSTextAttachment>();
        if (!attachment || attachment->isExactly<CVLChecklistTextAttachment>())
            return;
        if (attachment->isExactly<CVLDividerTextAttachment>())
            takeDivider(text, run, stored);
        else
            takeFile(text, *attachment, run, stored);
    };
    text.enumerateAttribute(NSAttachmentAttributeName, {0, text.length()}, {}, take);
    return stored;
}
