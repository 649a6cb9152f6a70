#pragma once

#include <string_view>

/// The names of text attributes, with the kinds of their values. Names and values are those that archives
/// hold.

/// An attachment, on the attachment character only: NSTextAttachment.
inline constexpr std::u16string_view NSAttachmentAttributeName = u"NSAttachment";
/// NSColor.
inline constexpr std::u16string_view NSBackgroundColorAttributeName = u"NSBackgroundColor";
/// Real, points; positive is up.
inline constexpr std::u16string_view NSBaselineOffsetAttributeName = u"NSBaselineOffset";
inline constexpr std::u16string_view NSCursorAttributeName = u"NSCursor";
/// Real, the logarithm of the factor by which glyphs are widened.
inline constexpr std::u16string_view NSExpansionAttributeName = u"NSExpansion";
/// NSFont.
inline constexpr std::u16string_view NSFontAttributeName = u"NSFont";
/// NSColor.
inline constexpr std::u16string_view NSForegroundColorAttributeName = u"NSColor";
/// Real, points.
inline constexpr std::u16string_view NSKernAttributeName = u"NSKern";
/// Integer: 0 none, 1 the usual ones, 2 all.
inline constexpr std::u16string_view NSLigatureAttributeName = u"NSLigature";
/// A URL or a text.
inline constexpr std::u16string_view NSLinkAttributeName = u"NSLink";
/// Real, the skew of the glyphs.
inline constexpr std::u16string_view NSObliquenessAttributeName = u"NSObliqueness";
/// NSParagraphStyle.
inline constexpr std::u16string_view NSParagraphStyleAttributeName = u"NSParagraphStyle";
/// NSShadow.
inline constexpr std::u16string_view NSShadowAttributeName = u"NSShadow";
/// NSColor.
inline constexpr std::u16string_view NSStrikethroughColorAttributeName = u"NSStrikethroughColor";
/// Integer, as NSUnderlineStyleAttributeName.
inline constexpr std::u16string_view NSStrikethroughStyleAttributeName = u"NSStrikethrough";
/// NSColor.
inline constexpr std::u16string_view NSStrokeColorAttributeName = u"NSStrokeColor";
/// Real, percent of the point size; negative strokes and fills.
inline constexpr std::u16string_view NSStrokeWidthAttributeName = u"NSStrokeWidth";
/// Integer: levels up, or down when negative.
inline constexpr std::u16string_view NSSuperscriptAttributeName = u"NSSuperScript";
/// A text.
inline constexpr std::u16string_view NSTextEffectAttributeName = u"NSTextEffect";
/// A text: NSTextHighlightColorScheme...
inline constexpr std::u16string_view NSTextHighlightColorSchemeAttributeName = u"NSTextHighlightColorScheme";
/// A text: NSTextHighlightStyleDefault.
inline constexpr std::u16string_view NSTextHighlightStyleAttributeName = u"NSTextHighlightStyle";
/// A text.
inline constexpr std::u16string_view NSToolTipAttributeName = u"NSToolTip";
/// NSColor.
inline constexpr std::u16string_view NSUnderlineColorAttributeName = u"NSUnderlineColor";
/// Integer: 0 none, 1 single, 2 thick, 9 double; 0x100 and up a pattern, 0x8000 by word.
inline constexpr std::u16string_view NSUnderlineStyleAttributeName = u"NSUnderline";
/// Integer: 0 horizontal, 1 vertical.
inline constexpr std::u16string_view NSVerticalGlyphFormAttributeName = u"CTVerticalForms";
/// An array of integers: a direction, plus 0 for embedding or 2 for override.
inline constexpr std::u16string_view NSWritingDirectionAttributeName = u"NSWritingDirection";

inline constexpr std::u16string_view NSTextHighlightStyleDefault = u"NSTextHighlightStyleDefault";
inline constexpr std::u16string_view NSTextHighlightColorSchemeDefault = u"NSTextHighlightColorSchemeDefault";
inline constexpr std::u16string_view NSTextHighlightColorSchemePurple = u"NSTextHighlightColorSchemePurple";
inline constexpr std::u16string_view NSTextHighlightColorSchemePink = u"NSTextHighlightColorSchemePink";
inline constexpr std::u16string_view NSTextHighlightColorSchemeOrange = u"NSTextHighlightColorSchemeOrange";
inline constexpr std::u16string_view NSTextHighlightColorSchemeMint = u"NSTextHighlightColorSchemeMint";
inline constexpr std::u16string_view NSTextHighlightColorSchemeBlue = u"NSTextHighlightColorSchemeBlue";

/// The character that stands for an attachment: U+FFFC.
inline constexpr char16_t NSAttachmentCharacter = 0xFFFC;
