#include "note/NoteRecovery.h"

#include "attachments/FileAttachments.h"
#include "platform/rtf/NSAttributedStringRTF.h"
#include "richtext/DynamicColours.h"
#include "richtext/Highlights.h"

std::optional<NSAttributedString> noteTextFromRTFD(const NSFileWrapper& package, NSError& error)
{
    const auto read = NSAttributedStringDocumentFormats::initWithRTFDFileWrapper(package, nullptr, &error);
    if (!read)
        return std::nullopt;
    NSMutableAttributedString text(*read);
    DynamicColors::convertToDynamicColors(text);
    DynamicColors::replaceFileAttachmentsInRange(text, {0, text.length()});
    DynamicColors::convertNSTextHighlightsToCorvelHighlights(text);
    return text.copy();
}
