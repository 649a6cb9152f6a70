#include "platform/rtf/NSAttributedStringRTF.h"

#include "platform/rtf/RTFWriter.h"
#include "platform/text/NSDocumentAttributes.h"

namespace {

bool isOfType(const NSAny::Dictionary& attributes, std::u16string_view type, NSError* error)
{
    const auto found = attributes.find(NSDocumentTypeDocumentAttribute);
    if (found == attributes.end() || (found->second.string() && *found->second.string() == type))
        return true;
    setError(error,
             NSError::errorWithCode(NSCocoaError::FileWriteInapplicableStringEncoding,
                                    "rich text is written as rich text only"));
    return false;
}

} // namespace

std::optional<NSData>
NSAttributedStringDocumentFormats::RTFFromRange(const NSAttributedString& text, NSRange range,
                                                const NSAny::Dictionary& documentAttributes, NSError* error)
{
    if (!isOfType(documentAttributes, NSRTFTextDocumentType, error))
        return std::nullopt;
    const auto noAttachments = [](const auto& /*attachment*/) { return std::string(); };
    return NSData{rtfDocument(text, range, documentAttributes, noAttachments)};
}
