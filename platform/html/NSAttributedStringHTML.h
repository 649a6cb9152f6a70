#pragma once

#include "platform/foundation/NSAny.h"
#include "platform/foundation/NSError.h"
#include "platform/text/NSAttributedString.h"
#include "platform/text/NSTextAttachment.h"

#include <functional>
#include <map>
#include <optional>
#include <string>

/// How a page is read.
struct NSHTMLReadingOptions {
    /// Where the page comes from; relative links start from it unless the page names another base. Of a file
    /// only images do: links stay as they are written, so that they lead beside the page wherever it is.
    std::optional<NSURL> baseURL;
    /// The charset that was said of the page when it was fetched; empty when nothing was.
    std::string textEncodingName;
    /// The font of text that the page says nothing of.
    std::u16string fontFamily = u"Times";
    double fontSize = 12;
    /// The files of the page's images and objects, by absolute URL.
    std::map<std::string, std::shared_ptr<NSFileWrapper>> resources;
    /// Asked for the images that these do not have; null for none.
    std::function<std::shared_ptr<NSFileWrapper>(const std::string& url)> resourceForURL;

    // The bounds within which a page is read. Beyond the bytes it is refused, beyond
    // the others cut.
    std::size_t mostBytes = std::size_t{32} << 20U;
    /// UTF-16 code units of text.
    NSUInteger mostUnits = NSUInteger{8} << 20U;
    /// Elements within elements; those beyond only begin and end lines.
    std::size_t mostNesting = 256;
};

/// Attributed strings as HTML documents.
namespace NSAttributedStringDocumentFormats {

/// A range of the text as an HTML page: the platform's `dataFromRange:documentAttributes:error:` with
/// NSHTMLTextDocumentType. Of the document attributes (NSDocumentAttributes.h) the title is used; a character
/// encoding must be NSUTF8StringEncoding, which is also the default.
///
/// The page is HTML5 with its styles as classes. Files are written as the two tags of HTMLAttachmentTags.h,
/// with nothing of their contents. Text in the system's own text colours takes those of the page's reader,
/// light or dark; so does the whole page when no colour of it is fixed. Control characters are left out.
/// Costs time and memory in proportion to the text.
///
/// None, with the reason in `error` (FileWriteInapplicableStringEncoding of NSCocoaErrorDomain), for another
/// encoding or another document type.
[[nodiscard]] std::optional<NSData> HTMLFromRange(const NSAttributedString& text, NSRange range,
                                                  const NSAny::Dictionary& documentAttributes = {},
                                                  NSError* error = nullptr);

/// The text of a page, any bytes. Its encoding is that of a byte-order mark, else the one of the options,
/// else what the page says or its bytes look like. Nothing is fetched: an image is an attachment when its URL
/// holds it or the options have it, else its description in words.
///
/// A pixel of the page is a point. Paragraphs end with a line end, the last one only within a table or
/// another block; line breaks are U+2028. Items of lists begin with their marker between tabs, and their
/// styles hold the lists; boxes to tick give the check and the circle marker. Cells are blocks of a table. A
/// rule is a centred line of three asterisks. A <blockquote> is a block with a line at its left. <mark> gives
/// the platform's highlight. Styles come from the attributes of elements and from rules whose selectors are
/// an element, a class or an identifier; nothing of what scripts would do is seen.
///
/// `documentAttributes` gets the document type, the title, the base URL, the charset's name and the ground's
/// colour, as far as the page has them. Costs time and memory in proportion to the page.
///
/// None, with the reason in `error` (FileReadTooLarge of NSCocoaErrorDomain), for more bytes than the options
/// allow.
[[nodiscard]] std::optional<NSAttributedString> initWithHTML(const NSData& data,
                                                             const NSHTMLReadingOptions& options = {},
                                                             NSAny::Dictionary* documentAttributes = nullptr,
                                                             NSError* error = nullptr);

} // namespace NSAttributedStringDocumentFormats
