#pragma once

#include <string_view>

/// The note package: a folder that holds one note, and is an RTFD document at the same time.
///
///     NoteText          the rich text, a keyed archive whose attachments are empty placeholders with names
///     NoteAttributes    what the note has besides, a property list under the keys below
///     TXT.rtf           the text for other programs, beside the same attachments
///     anything else     the contents of an attachment, under its name
///
/// docs/note-packages.md has the whole of it.

/// The package's type identifier, as UTType has them.
inline constexpr std::string_view CVLNoteType = "com.tessel.corvel.note";
inline constexpr std::u16string_view CVLNoteFileExtension = u"cvlnote";

inline constexpr std::u16string_view kNoteTextMember = u"NoteText";
inline constexpr std::u16string_view kNoteAttributesMember = u"NoteAttributes";
inline constexpr std::u16string_view kNoteRTFMember = u"TXT.rtf";

/// Keys of NoteAttributes. The first two are written only.
inline constexpr std::u16string_view kNoteAppIdentifierKey = u"appIdentifier";
inline constexpr std::u16string_view kNoteAppVersionKey = u"appVersion";
/// A boolean.
inline constexpr std::u16string_view kNoteShowSmallImagesKey = u"showSmallImages";
/// A colour as a dictionary (colours/ColourForms.h).
inline constexpr std::u16string_view kNoteBackgroundColorKey = u"backgroundColor";
/// An array of texts as NSStringFromRange makes them, ascending: where dividers stand as text.
inline constexpr std::u16string_view kNoteDividerRangesKey = u"dividerRanges";
/// A dictionary, opaque here.
inline constexpr std::u16string_view kNoteDrawingsDataKey = u"drawingsData";
/// A boolean: whether highlights are stored as colour types. Older packages stored colours.
inline constexpr std::u16string_view kNoteUsesColorTypesKey = u"usesColorTypes";
