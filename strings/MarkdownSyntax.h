#pragma once

#include "platform/types/UTType.h"

#include <string_view>

/// The markers that all reading and writing of Markdown shares.

inline constexpr std::u16string_view CVLMarkdownBulletAsterisk = u"* ";
inline constexpr std::u16string_view CVLMarkdownBulletDash = u"- ";
inline constexpr std::u16string_view CVLMarkdownBulletPlus = u"+ ";
inline constexpr std::u16string_view CVLMarkdownChecklistOnString = u"- [x] ";
inline constexpr std::u16string_view CVLMarkdownChecklistOffString = u"- [ ] ";
/// One level of indentation.
inline constexpr std::u16string_view CVLMarkdownChecklistIndentString = u"    ";
inline constexpr std::u16string_view CVLMarkdownStrongAsterisk = u"**";
inline constexpr std::u16string_view CVLMarkdownStrongUnderscore = u"__";
inline constexpr std::u16string_view CVLMarkdownEmphasisAsterisk = u"*";
inline constexpr std::u16string_view CVLMarkdownEmphasisUnderscore = u"_";
/// A single tilde on both sides: notes have been exported with it, and the doubled form reads as well.
inline constexpr std::u16string_view CVLMarkdownOpeningStrikeMarker = u"~";
inline constexpr std::u16string_view CVLMarkdownClosingStrikeMarker = u"~";
/// Markdown has no highlights; HTML within it has.
inline constexpr std::u16string_view CVLMarkdownOpeningHighlightMarker = u"<mark>";
inline constexpr std::u16string_view CVLMarkdownClosingHighlightMarker = u"</mark>";
/// Nor has it text above and below the line.
inline constexpr std::u16string_view CVLMarkdownOpeningSuperscriptMarker = u"<sup>";
inline constexpr std::u16string_view CVLMarkdownClosingSuperscriptMarker = u"</sup>";
inline constexpr std::u16string_view CVLMarkdownOpeningSubscriptMarker = u"<sub>";
inline constexpr std::u16string_view CVLMarkdownClosingSubscriptMarker = u"</sub>";
inline constexpr std::u16string_view CVLMarkdownHeadingMarker = u"#";
/// The type identifier under which Markdown was known before the platform had one.
inline constexpr std::string_view CVLMarkdownType = kUTTypeLegacyMarkdown;
