#include "platform/html/NSAttributedStringHTML.h"

#include "platform/foundation/TextDecoder.h"
#include "platform/foundation/TextEncoding.h"
#include "platform/foundation/Unicode.h"
#include "platform/html/HTMLDocumentReader.h"
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

/// The charset by which a page is read.
std::string charsetNameOf(std::string_view bytes, const NSHTMLReadingOptions& options)
{
    const auto encoding = textEncodingForBytes(bytes);
    const bool isTold = !options.textEncodingName.empty() && encoding.markLength == 0;
    if (isTold && TextDecoder::createWithCharset(options.textEncodingName))
        return options.textEncodingName;
    return encoding.name;
}

/// Line ends as one character, and no characters that a page may not hold.
std::string withoutControlCharacters(std::string_view page)
{
    std::string clean;
    clean.reserve(page.size());
    for (std::size_t index = 0; index < page.size(); ++index) {
        const auto byte = static_cast<unsigned char>(page[index]);
        if (byte == '\r')
            clean += page.substr(index, 2) == "\r\n" ? "" : "\n";
        else if (byte >= 0x20 || byte == '\n' || byte == '\t')
            clean += page[index];
        else if (byte == '\f')
            clean += ' ';
    }
    return clean;
}

NSAny::Dictionary attributesOf(const HTMLDocument& document, const std::string& charsetName)
{
    NSAny::Dictionary attributes{
        {std::u16string(NSDocumentTypeDocumentAttribute), NSHTMLTextDocumentType},
        {std::u16string(NSTextEncodingNameDocumentAttribute), UTF16FromUTF8(charsetName)}};
    if (!document.title.empty())
        attributes.emplace(NSTitleDocumentAttribute, document.title);
    if (const auto url = NSURL::URLWithString(document.baseURL))
        attributes.emplace(NSBaseURLDocumentAttribute, *url);
    if (document.backgroundColor)
        attributes.emplace(NSBackgroundColorDocumentAttribute, document.backgroundColor);
    return attributes;
}

} // namespace

std::optional<NSAttributedString>
NSAttributedStringDocumentFormats::initWithHTML(const NSData& data, const NSHTMLReadingOptions& options,
                                                NSAny::Dictionary* documentAttributes, NSError* error)
{
    if (data.bytes.size() > options.mostBytes) {
        setError(error, NSError::errorWithCode(NSCocoaError::FileReadTooLarge, "the page is too large"));
        return std::nullopt;
    }
    const auto charsetName = charsetNameOf(data.bytes, options);
    const auto decoded = decodedText(data.bytes, charsetName).value_or(validUTF8(data.bytes));
    auto document = readHTMLDocument(withoutControlCharacters(decoded), options);
    if (documentAttributes)
        *documentAttributes = attributesOf(document, charsetName);
    return std::move(document.text);
}

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
