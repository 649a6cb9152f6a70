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
/// A text.
inline constexpr std::u16string_view NSTitleDocumentAttribute = u"NSTitleDocumentAttribute";
/// NSColor.
inline constexpr std::u16string_view NSBackgroundColorDocumentAttribute = u"BackgroundColor";
/// The URL that a document's relative links start from.
inline constexpr std::u16string_view NSBaseURLDocumentAttribute = u"BaseURL";

inline constexpr std::u16string_view NSPlainTextDocumentType = u"NSPlainText";
inline constexpr std::u16string_view NSRTFTextDocumentType = u"NSRTF";
inline constexpr std::u16string_view NSRTFDTextDocumentType = u"NSRTFD";
inline constexpr std::u16string_view NSHTMLTextDocumentType = u"NSHTML";

inline constexpr int NSUTF8StringEncoding = 4;
