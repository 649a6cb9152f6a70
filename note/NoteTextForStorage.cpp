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
#include <climits>
#include <string_view>
#include <utility>

namespace {

bool isStored(const NSAttributes::value_type& attribute)
{
    return storedAttributeNames().contains(attribute.first);
}

/// The package's own members keep their names, and what no file can be called, or what would be another text
/// when it is read again, is no name of a member.
bool isNameOfMember(std::u16string_view name)
{
    const auto isOwn = name == kNoteTextMember || name == kNoteAttributesMember || name == kNoteRTFMember;
    const auto onDisk = fileNameFromText(name);
    return !isOwn && isFileName(std::string_view(onDisk)) && onDisk.size() <= NAME_MAX
        && textFromFileName(onDisk) == name;
}

std::u16string uniqueNameLike(const std::u16string& name)
{
    auto unique = UTF16FromUTF8(NSUUID::UUIDString());
    const auto extension = pathExtension(name);
    auto withExtension = unique + u"." + extension;
    return !extension.empty() && isNameOfMember(withExtension) ? withExtension : unique;
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

NSFileWrapper::Ref namedAfresh(const NSFileWrapper& file)
{
    auto copy = copyOf(file);
    copy->setPreferredFilename(uniqueNameLike(file.preferredFilename().value_or(u"")));
    return copy;
}

/// Empty without a file, too.
std::u16string nameOfFile(const NSTextAttachment& attachment)
{
    return attachment.fileWrapper() ? attachment.fileWrapper()->preferredFilename().value_or(u"") : u"";
}

std::shared_ptr<NSTextAttachment> withFile(const NSTextAttachment& attachment, NSFileWrapper::Ref file)
{
    auto fresh = attachment.makeOfSameClass();
    fresh->setFileWrapper(std::move(file));
    return fresh;
}

bool holdTheSame(const NSFileWrapper& one, const NSFileWrapper& other);

bool isSameMember(const NSFileWrapper::FileWrappers::value_type& one,
                  const NSFileWrapper::FileWrappers::value_type& other)
{
    return one.first == other.first && holdTheSame(*one.second, *other.second);
}

// Folders lie within one another no deeper than what was read (NSFileWrapper::kMostDepth).
bool holdTheSame(const NSFileWrapper& one, const NSFileWrapper& other) // NOLINT(misc-no-recursion): see above
{
    if (&one == &other)
        return true;
    if (one.fileType() != other.fileType()
        || one.symbolicLinkDestination() != other.symbolicLinkDestination())
        return false;
    const auto* contents = one.regularFileContents();
    return contents ? contents->bytes == other.regularFileContents()->bytes
                    : std::ranges::equal(one.fileWrappers(), other.fileWrappers(), isSameMember);
}

/// Readers look a name up in the package, where the member that was there first has it.
bool isFree(const std::u16string& name, const NSFileWrapper& file, const StoredAttachments& stored,
            const NSFileWrapper& package)
{
    const auto member = package.fileWrapperForKey(name);
    return !stored.members.contains(name) && (!member || holdTheSame(*member, file));
}

void takeFile(NSMutableAttributedString& text, const NSTextAttachment& attachment, NSRange run,
              StoredAttachments& stored, const NSFileWrapper& package)
{
    auto name = nameOfFile(attachment);
    if (name.empty())
        return;
    auto file = attachment.fileWrapper();
    if (!isFree(name, *file, stored, package)) {
        file = namedAfresh(*file);
        name = *file->preferredFilename();
    }
    text.addAttribute(NSAttachmentAttributeName, withFile(attachment, placeholderFor(*file, name)), run);
    stored.members.emplace(std::move(name), std::move(file));
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

void renameFilesThatNoMemberCanBe(NSMutableAttributedString& text)
{
    const auto rename = [&text](const NSAny& value, NSRange run, bool& /*stop*/) {
        const auto attachment = value.object<NSTextAttachment>();
        const auto name = attachment ? nameOfFile(*attachment) : u"";
        if (!name.empty() && !isNameOfMember(name))
            text.addAttribute(NSAttachmentAttributeName,
                              withFile(*attachment, namedAfresh(*attachment->fileWrapper())), run);
    };
    text.enumerateAttribute(NSAttachmentAttributeName, rename);
}

StoredAttachments takeAttachments(NSMutableAttributedString& text, const NSFileWrapper& package)
{
    StoredAttachments stored;
    const auto take = [&](const NSAny& value, NSRange run, bool& /*stop*/) {
        const auto attachment = value.object<NSTextAttachment>();
        if (!attachment || attachment->isExactly<CVLChecklistTextAttachment>())
            return;
        if (attachment->isExactly<CVLDividerTextAttachment>())
            takeDivider(text, run, stored);
        else
            takeFile(text, *attachment, run, stored, package);
    };
    text.enumerateAttribute(NSAttachmentAttributeName, {0, text.length()}, {}, take);
    return stored;
}
