#include "platform/html/NSAttributedStringHTML.h"

#include "platform/html/HTMLWriter.h"
#include "platform/text/NSDocumentAttributes.h"

namespace {

const NSAny* valueOf(const NSAny::Dictionary& attributes, std::u16string_view name)
{
    const auto found = attributes.find(name);
    return found == attributes.end() ? nullptr : &found->second;
}

bool isHTML(const NSAny::Dictionary& attributes)
{
    const auto* const type = valueOf(attributes, NSDocumentTypeDocumentAttribute);
    return !type || (type->string() && *type->string() == NSHTMLTextDocumentType);
}

bool isUTF8(const NSAny::Dictionary& attributes)
{
    const auto* const encoding = valueOf(attributes, NSCharacterEncodingDocumentAttribute);
    return !encoding || encoding->integerValue() == NSUTF8StringEncoding;
}

} // namespace

std::optional<NSData>
NSAttributedStringDocumentFormats::HTMLFromRange(const NSAttributedString& text, NSRange range,
                                                 const NSAny::Dictionary& documentAttributes, NSError* error)
{
    if (!isHTML(documentAttributes) || !isUTF8(documentAttributes)) {
        setError(error,
                 NSError::errorWithCode(NSCocoaError::FileWriteInapplicableStringEncoding,
                                        "HTML is written as HTML, in UTF-8"));
        return std::nullopt;
    }
    const auto* const title = valueOf(documentAttributes, NSTitleDocumentAttribute);
    return NSData{htmlPage(text, range, title && title->string() ? *title->string() : std::u16string())};
}
