#pragma once

#include <string_view>

/// What is said of a text as a whole when it is written as a document or read from one, by name, with the
/// kinds of the values. Names and values are the platform's.

/// A text: NSHTMLTextDocumentType, for example.
inline constexpr std::u16string_view NSDocumentTypeDocumentAttribute = u"DocumentType";
/// Integer: NSUTF8StringEncoding, for example.
inline constexpr std::u16string_view NSCharacterEncodingDocumentAttribute = u"CharacterEncoding";
/// The charset name of a document that was read: a text.
inline constexpr std::u16string_view NSTextEncodingNameDocumentAttribute = u"TextEncodingName";
/// NSColor.
inline constexpr std::u16string_view NSBackgroundColorDocumentAttribute = u"BackgroundColor";
/// The URL that a document's relative links start from.
inline constexpr std::u16string_view NSBaseURLDocumentAttribute = u"BaseURL";

/// What a document says of itself: texts; the keywords an array of them.
inline constexpr std::u16string_view NSTitleDocumentAttribute = u"NSTitleDocumentAttribute";
inline constexpr std::u16string_view NSAuthorDocumentAttribute = u"NSAuthorDocumentAttribute";
inline constexpr std::u16string_view NSSubjectDocumentAttribute = u"NSSubjectDocumentAttribute";
inline constexpr std::u16string_view NSKeywordsDocumentAttribute = u"NSKeywordsDocumentAttribute";
inline constexpr std::u16string_view NSCommentDocumentAttribute = u"NSCommentDocumentAttribute";
/// Who changed it last.
inline constexpr std::u16string_view NSEditorDocumentAttribute = u"NSEditorDocumentAttribute";
inline constexpr std::u16string_view NSCompanyDocumentAttribute = u"NSCompanyDocumentAttribute";
inline constexpr std::u16string_view NSCopyrightDocumentAttribute = u"NSCopyrightDocumentAttribute";
inline constexpr std::u16string_view NSManagerDocumentAttribute = u"NSManagerDocumentAttribute";
inline constexpr std::u16string_view NSCategoryDocumentAttribute = u"NSCategoryDocumentAttribute";
/// Dates.
inline constexpr std::u16string_view NSCreationTimeDocumentAttribute = u"NSCreationTimeDocumentAttribute";
inline constexpr std::u16string_view NSModificationTimeDocumentAttribute
    = u"NSModificationTimeDocumentAttribute";

/// An NSValue with an NSSize, in points, as are the margins: reals.
inline constexpr std::u16string_view NSPaperSizeDocumentAttribute = u"PaperSize";
inline constexpr std::u16string_view NSLeftMarginDocumentAttribute = u"LeftMargin";
inline constexpr std::u16string_view NSRightMarginDocumentAttribute = u"RightMargin";
inline constexpr std::u16string_view NSTopMarginDocumentAttribute = u"TopMargin";
inline constexpr std::u16string_view NSBottomMarginDocumentAttribute = u"BottomMargin";
/// An NSValue with an NSSize: of the window that shows the text.
inline constexpr std::u16string_view NSViewSizeDocumentAttribute = u"ViewSize";
/// Real, percent.
inline constexpr std::u16string_view NSViewZoomDocumentAttribute = u"ViewZoom";
/// Integer: 0 continuous, 1 in pages.
inline constexpr std::u16string_view NSViewModeDocumentAttribute = u"ViewMode";
/// Integer: above 0 the document is not to be changed.
inline constexpr std::u16string_view NSReadOnlyDocumentAttribute = u"ReadOnly";
/// Real from 0 to 1.
inline constexpr std::u16string_view NSHyphenationFactorDocumentAttribute = u"HyphenationFactor";
/// Real, points.
inline constexpr std::u16string_view NSDefaultTabIntervalDocumentAttribute = u"DefaultTabInterval";
/// Integer: the version of the text system that wrote a document that was read.
inline constexpr std::u16string_view NSCocoaVersionDocumentAttribute = u"CocoaRTFVersion";

inline constexpr std::u16string_view NSPlainTextDocumentType = u"NSPlainText";
inline constexpr std::u16string_view NSRTFTextDocumentType = u"NSRTF";
inline constexpr std::u16string_view NSRTFDTextDocumentType = u"NSRTFD";
inline constexpr std::u16string_view NSHTMLTextDocumentType = u"NSHTML";
inline constexpr std::u16string_view NSOfficeOpenXMLTextDocumentType = u"NSOfficeOpenXML";

inline constexpr int NSUTF8StringEncoding = 4;
