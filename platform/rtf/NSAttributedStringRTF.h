#pragma once

#include "platform/foundation/NSAny.h"
#include "platform/foundation/NSError.h"
#include "platform/foundation/NSFileWrapper.h"
#include "platform/text/NSAttributedString.h"

#include <optional>

/// Attributed strings as rich text, with and without the files that are attached. docs/rich-text.md says what
/// of a text RTF holds.
namespace NSAttributedStringDocumentFormats {

/// A range of the text as RTF, in the platform's own form: the platform's
/// `RTFFromRange:documentAttributes:`. Attachments are left out. Of the document attributes
/// (NSDocumentAttributes.h) the paper, margins, view, default tab interval and what the document says of
/// itself are written. Costs time and memory in proportion to the text.
///
/// None, with the reason in `error` (FileWriteInapplicableStringEncoding of NSCocoaErrorDomain), for another
/// document type than NSRTFTextDocumentType.
[[nodiscard]] std::optional<NSData> RTFFromRange(const NSAttributedString& text, NSRange range,
                                                 const NSAny::Dictionary& documentAttributes = {},
                                                 NSError* error = nullptr);

/// How rich text is read.
struct NSRTFReadingOptions {
    /// Whether the markers of lists become characters of their paragraphs; else paragraphs have their lists
    /// only. The platform's NSTextKit1ListMarkerFormatDocumentOption.
    bool textKit1ListMarkerFormat = true;
    /// Whether such characters stand between tabs, as in texts of the platform, where another writer put none
    /// before them or behind them. As written, they cannot be told from the words of their paragraph.
    bool putsTabsAroundListMarkers = false;
};

/// The text of an RTF document, any bytes: the platform's `initWithRTF:documentAttributes:`. Attached files
/// of the platform's form are not there and leave nothing; pictures within the document, PNG and JPEG, become
/// attachments. A document that is cut off gives what there is of it.
///
/// `documentAttributes` gets the document type and what the document says of itself and of its page. Costs
/// time and memory in proportion to the document, within the bounds of RTFLimits.h.
///
/// None, with the reason in `error` (of NSCocoaErrorDomain), for bytes that are no RTF (FileReadCorruptFile)
/// and for too many (FileReadTooLarge).
[[nodiscard]] std::optional<NSAttributedString> initWithRTF(const NSData& data,
                                                            NSAny::Dictionary* documentAttributes = nullptr,
                                                            NSError* error = nullptr,
                                                            const NSRTFReadingOptions& options = {});

/// A range of the text as an RTFD package, a folder: the platform's
/// `RTFDFileWrapperFromRange:documentAttributes:`. It has the document "TXT.rtf" and beside it the files of
/// the attachments. A file that several attachments share is there once; different files of one name get
/// names of their own. Names are brought to their composed form, and into one that a file can have. A link is
/// no file to attach and is left out.
///
/// Null, with the reason in `error`, as RTFFromRange, for another document type than NSRTFDTextDocumentType.
[[nodiscard]] NSFileWrapper::Ref RTFDFileWrapperFromRange(const NSAttributedString& text, NSRange range,
                                                          const NSAny::Dictionary& documentAttributes = {},
                                                          NSError* error = nullptr);

/// The same in serialised form, as pasteboards have it: the platform's `RTFDFromRange:documentAttributes:`.
[[nodiscard]] std::optional<NSData> RTFDFromRange(const NSAttributedString& text, NSRange range,
                                                  const NSAny::Dictionary& documentAttributes = {},
                                                  NSError* error = nullptr);

/// The text of an RTFD package: the platform's `initWithRTFDFileWrapper:documentAttributes:`. An attachment
/// has the package's own file wrapper; one whose file is not there, or is a link or in no way a file beside
/// the document, leaves nothing in the text. Files that the document does not name are not looked at.
///
/// None, with the reason in `error`, as initWithRTF, and for what is no folder or has no "TXT.rtf"
/// (FileReadCorruptFile).
[[nodiscard]] std::optional<NSAttributedString>
initWithRTFDFileWrapper(const NSFileWrapper& fileWrapper, NSAny::Dictionary* documentAttributes = nullptr,
                        NSError* error = nullptr, const NSRTFReadingOptions& options = {});

/// The same of the serialised form: the platform's `initWithRTFD:documentAttributes:`.
[[nodiscard]] std::optional<NSAttributedString> initWithRTFD(const NSData& data,
                                                             NSAny::Dictionary* documentAttributes = nullptr,
                                                             NSError* error = nullptr,
                                                             const NSRTFReadingOptions& options = {});

} // namespace NSAttributedStringDocumentFormats
