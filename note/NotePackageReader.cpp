#include "note/NotePackageReader.h"

#include "note/NoteAttachmentBinding.h"
#include "note/NotePackage.h"
#include "note/StoredNoteText.h"
#include "platform/foundation/NSLog.h"
#include "richtext/DynamicColours.h"
#include "richtext/ListRecognition.h"

#include <string_view>
#include <utility>

namespace {

void takeText(NotePackageContents& contents, std::string_view archive)
{
    contents.text = unarchivedNoteText(archive, contents.textError);
    if (!contents.text)
        NSLog("Could not decode note text: {}", contents.textError.localizedDescription());
}

} // namespace

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
            takeText(contents, file->bytes);
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
