#include "note/NotePackageReader.h"

#include "note/NoteAttachmentBinding.h"
#include "note/NotePackage.h"
#include "note/StoredNoteText.h"
#include "richtext/DynamicColours.h"
#include "richtext/ListRecognition.h"

#include <utility>

NotePackageContents contentsOfNotePackage(const NSFileWrapper& package)
{
    NotePackageContents contents;
    for (const auto& [name, member] : package.fileWrappers()) {
        const auto* file = member->regularFileContents();
        const auto isText = name == kNoteTextMember;
        contents.hasText = contents.hasText || isText;
        if (isText && (!file || file->bytes.empty()))
            break;
        if (isText)
            contents.text = unarchivedNoteText(file->bytes, contents.textError);
        else if (name == kNoteAttributesMember && file)
            contents.attributes = NoteAttributes::attributesFromData(file->bytes);
    }
    return contents;
}

NSAttributedString shownNoteText(NSMutableAttributedString text, const NoteAttributes& attributes,
                                 const NSFileWrapper& package)
{
    bindAttachmentsToMembers(text, package);
    DynamicColors::convertToDynamicColors(text);
    DynamicColors::checkForTextListsAndConvertIfNecessary(text);
    removeWhiteBackgrounds(text);
    restoreChecklistParagraphs(text);
    restoreDividers(text, attributes.dividerRanges);
    restoreHighlights(text, attributes.usesColorTypes);
    return text.copy();
}
