#include "note/NoteRecovery.h"

#include "attachments/FileAttachments.h"
#include "platform/foundation/NSLog.h"
#include "platform/rtf/NSAttributedStringRTF.h"
#include "richtext/DynamicColours.h"
#include "richtext/Highlights.h"

namespace {

std::optional<NSMutableAttributedString> textFromRTFD(const NSFileWrapper& package, NSError& error)
{
    const auto read = NSAttributedStringDocumentFormats::initWithRTFDFileWrapper(
        package, nullptr, &error, {.textKit1ListMarkerFormat = true});
    return read ? std::optional(NSMutableAttributedString(*read)) : std::nullopt;
}

} // namespace

void logRecovery(const NSURL& url)
{
    NSLog("Attempting to recover note from RTFD: {}", url.absoluteString());
}

std::optional<NSAttributedString> noteTextFromRTFD(const NSFileWrapper& package, NSError& error)
{
    auto text = textFromRTFD(package, error);
    if (!text)
        return std::nullopt;
    DynamicColors::convertToDynamicColors(*text);
    DynamicColors::replaceFileAttachmentsInRange(*text, {0, text->length()});
    DynamicColors::convertNSTextHighlightsToCorvelHighlights(*text);
    return text->copy();
}

std::optional<std::u16string> noteCharactersFromRTFD(const NSFileWrapper& package, NSError& error)
{
    auto text = textFromRTFD(package, error);
    if (!text)
        return std::nullopt;
    DynamicColors::replaceFileAttachmentsInRange(*text, {0, text->length()});
    return std::u16string(text->string());
}
