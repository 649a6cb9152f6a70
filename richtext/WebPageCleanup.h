#pragma once

#include "platform/text/NSAttributedString.h"
#include "platform/text/NSFont.h"

#include <string_view>

/// User defaults, booleans: what cleanupWebPageText does beside changing fonts. Absent is false.
inline constexpr std::u16string_view CVLTextViewCleanUpWebPageNewLines = u"CVLTextViewCleanUpWebPageNewLines";
inline constexpr std::u16string_view CVLTextViewCleanUpWebPageFontSizes
    = u"CVLTextViewCleanUpWebPageFontSizes";
inline constexpr std::u16string_view CVLTextViewCleanUpWebPageColors = u"CVLTextViewCleanUpWebPageColors";

/// Makes text that came from a web page fit a note. Each operation is linear in its range.
namespace DynamicColors {

/// Cleans the whole text up as the user's settings say, with the font of the Body style. White space at the
/// text's ends stays: what was pasted may be meant to stand off.
void cleanupWebPageText(NSMutableAttributedString& text);

/// In this order: paragraph spacing becomes blank lines (cleanupHTMLNewlinesInRange), the font is changed
/// unless it is null, sizes shrink, colours are reset (cleanupTextColorsInRange). The later steps cover the
/// inserted lines too. Sizes that shrink are the page's own, because changing the font keeps them.
void cleanupTextFromWebPageInRange(NSMutableAttributedString& text, NSRange range,
                                   const NSFont::Ref& withNewFont, bool includingNewlines, bool sizes,
                                   bool colors);

/// Gives text that has a font the new font's family, and keeps each run's traits, weight and size. Where the
/// family has no such face, the run gives up first what makes it narrow or wide, then the slant, then the
/// demand to be bold, until the family has a face for it; of an unknown family it keeps its font.
void changeFont(NSMutableAttributedString& text, const NSFont::Ref& font, NSRange inRange);

/// Makes fonts three quarters as large, rounded up to whole points.
void adjustWebPageFontSizesInRange(NSMutableAttributedString& text, NSRange range);

} // namespace DynamicColors
