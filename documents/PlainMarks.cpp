#include "documents/PlainMarks.h"

#include "attachments/CVLDividerTextAttachment.h"
#include "richtext/AttachmentRuns.h"
#include "richtext/ChecklistTextLists.h"
#include "richtext/Highlights.h"

NSMutableAttributedString noteTextWithPlainMarks(const NSAttributedString& noteText)
{
    NSMutableAttributedString text(noteText);
    DynamicColors::convertChecklistAttachmentsToTextLists(text);
    // Not convertDividersToText, which takes the first characters' attachments away.
    const auto asterisks = CVLDividerTextAttachment::replacementString();
    enumerateAttachments<CVLDividerTextAttachment>(text, [&](const auto& /*divider*/, NSRange range) {
        text.replaceCharactersInRange(range, asterisks);
    });
    DynamicColors::convertCorvelHighlightsToNSTextHighlights(text);
    return text;
}
