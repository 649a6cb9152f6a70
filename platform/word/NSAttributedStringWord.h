#pragma once

#include "platform/foundation/NSAny.h"
#include "platform/foundation/NSError.h"
#include "platform/foundation/NSURL.h"
#include "platform/text/NSAttributedString.h"

#include <optional>

/// Attributed strings out of Word documents and into them.
namespace NSAttributedStringDocumentFormats {

/// The text of a Word document in Office Open XML (docx, docm, dotx, dotm, of either conformance), any bytes.
///
/// Every paragraph ends with a line end; a line break is U+2028, a page break a form feed. Looks and
/// paragraph styles come from the document's styles, theme and own formatting; headings have their header
/// level. Items of lists begin with their marker between tabs, and their styles hold the lists. Cells are
/// blocks of a table. Pictures are attachments with the files of the package, in the bounds that the document
/// gives them. Marks of notes are raised and in brackets, "[1]"; the notes follow the body, then headers and
/// footers. What stands beside a paragraph, in a shape, follows it. Tracked changes are taken as accepted,
/// except that paragraphs are not joined; hidden text is text. Links lead out of the document or are none.
/// Nothing is fetched.
///
/// `documentAttributes` gets the document type, what the document says of itself, the paper's size and the
/// margins. The bounds are those of ContentLimits.h; what they cut is said in the log. Costs time and memory
/// in proportion to the document.
///
/// None, with the reason in `error`, for a damaged or encrypted document (FileReadCorruptFile of
/// NSCocoaErrorDomain), and for another kind of document, that of Word 97 to 2003 among them
/// (FileReadUnknown).
[[nodiscard]] std::optional<NSAttributedString>
initWithWordDocument(const NSData& data, NSAny::Dictionary* documentAttributes = nullptr,
                     NSError* error = nullptr);

/// The same for a file; in NSPOSIXErrorDomain when it cannot be read.
[[nodiscard]] std::optional<NSAttributedString>
initWithWordDocument(const NSURL& url, NSAny::Dictionary* documentAttributes = nullptr,
                     NSError* error = nullptr);

/// The text of the Word document at `url`, whatever the file's name says, as above. An Office document of
/// another kind gives its text without attributes. None when the file cannot be read (`error` is of
/// NSPOSIXErrorDomain), or is damaged or encrypted or holds no document (`error` is FileReadCorruptFile of
/// NSCocoaErrorDomain).
[[nodiscard]] std::optional<NSAttributedString> initWithURL(const NSURL& url, NSError* error = nullptr);

/// A range of the text as a Word document in Office Open XML (docx). docs/word.md says what is kept and what
/// becomes of the rest. The same text and attributes give the same bytes.
///
/// Paragraphs with a header level are headings. The markers that items of lists begin with, between tabs,
/// give way to numbering; a list's paragraph without one is no item, unless
/// `NSTextList::includesTextListMarkers()` is false. Cells are tables. Pictures (PNG, JPEG, GIF, TIFF, BMP,
/// WebP and SVG, by their bytes) are in the document; of other attachments only the file's name is, as text.
/// Links are those of the web, of mail, of files to be fetched, of telephones and of maps; text with others
/// is text. What XML cannot hold is left out (control characters) or becomes U+FFFD (unpaired surrogates,
/// U+FFFE, U+FFFF).
///
/// Of `documentAttributes` the document gets what it says of itself, the paper's size, the margins and the
/// tab interval. None for a document type other than NSOfficeOpenXMLTextDocumentType
/// (FileWriteInapplicableStringEncoding of NSCocoaErrorDomain), and when memory is short (ENOMEM of
/// NSPOSIXErrorDomain).
[[nodiscard]] std::optional<NSData> WordDocumentFromRange(const NSAttributedString& text, NSRange range,
                                                          const NSAny::Dictionary& documentAttributes = {},
                                                          NSError* error = nullptr);

} // namespace NSAttributedStringDocumentFormats
