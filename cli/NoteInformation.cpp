#include "cli/NoteInformation.h"

#include "attachments/CVLChecklistTextAttachment.h"
#include "attachments/CVLDividerTextAttachment.h"
#include "attachments/CVLFileAttachment.h"
#include "colours/ColourEquality.h"
#include "colours/ColourForms.h"
#include "colours/HighlightAttribute.h"
#include "platform/text/NSAttributeNames.h"
#include "richtext/AttachmentRuns.h"

namespace {

std::size_t sizeOf(const NSFileWrapper& file)
{
    const auto* const contents = file.regularFileContents();
    auto size = contents ? contents->bytes.size() : 0;
    for (const auto& [name, member] : file.fileWrappers())
        size += sizeOf(*member);
    return size;
}

/// None for a file that its package does not have, for which the note keeps an empty one, and for a link.
std::optional<std::size_t> sizeOfAttachment(const NSTextAttachment& attachment, const NSFileWrapper& package)
{
    const auto& file = attachment.fileWrapper();
    if (!file)
        return attachment.contents() ? std::optional(attachment.contents()->bytes.size()) : std::nullopt;
    const auto size = sizeOf(*file);
    const auto name = file->preferredFilename();
    const bool isMissing = size == 0 && name && !package.fileWrapperForKey(*name);
    return isMissing || file->isSymbolicLink() ? std::nullopt : std::optional(size);
}

NoteAttachment attachmentOf(const NSTextAttachment& attachment, const NSFileWrapper& package)
{
    const auto& file = attachment.fileWrapper();
    return {dynamic_cast<const CVLFileAttachment*>(&attachment) != nullptr,
            file ? file->preferredFilename().value_or(file->filename().value_or(u"")) : std::u16string(),
            attachment.fileType().value_or(u""), sizeOfAttachment(attachment, package)};
}

void addAttachments(NoteInformation& information, const NSAttributedString& text,
                    const NSFileWrapper& package)
{
    enumerateAttachments<NSTextAttachment>(text, [&](const auto& attachment, NSRange range) {
        const auto* const box = dynamic_cast<const CVLChecklistTextAttachment*>(attachment.get());
        if (box)
            (box->isOn() ? information.doneItemCount : information.openItemCount) += range.length;
        else if (dynamic_cast<const CVLDividerTextAttachment*>(attachment.get()))
            information.dividerCount += range.length;
        else
            information.attachments.insert(information.attachments.end(), range.length,
                                           attachmentOf(*attachment, package));
    });
}

void addRuns(NoteInformation& information, const NSAttributedString& text)
{
    text.enumerateAttributesInRange(
        {0, text.length()}, {},
        [&](const NSAttributes& /*attributes*/, NSRange /*run*/, bool& /*stop*/) { ++information.runCount; });
    text.enumerateAttribute(CVLHighlightTextAttributeName, {0, text.length()}, {},
                            [&](const NSAny& value, NSRange /*run*/, bool& /*stop*/) {
                                if (!value.isNil())
                                    ++information.highlightCount;
                            });
}

std::optional<std::u16string> backgroundOf(const CVLNoteFile& note)
{
    const auto color = note.backgroundColor();
    const bool isOwn
        = color && !CVLExtensions::isEqualToColorCVLVersion(*color, *NSColor::textBackgroundColor());
    return isOwn ? CVLExtensions::hexadecimalString(*color) : std::nullopt;
}

} // namespace

NoteInformation informationOfNote(const CVLNoteFile& note, const NSFileWrapper& package)
{
    const auto text = note.noteText();
    NoteInformation information;
    information.length = text.length();
    addRuns(information, text);
    addAttachments(information, text, package);
    information.background = backgroundOf(note);
    information.hasSmallImages = note.showSmallImages();
    const auto drawings = note.drawingDataByAttachmentKey();
    information.drawingCount = drawings.dictionary() ? drawings.dictionary()->size() : 0;
    information.application = NoteApplication::applicationOfPackage(package);
    return information;
}
