#pragma once

#include "platform/text/NSParagraphStyle.h"
#include "platform/word/WordAttributeSets.h"
#include "platform/word/WordXML.h"

#include <array>
#include <compare>
#include <string>

/// What of a font a document says. Weights other than bold, and widths, have no form.
struct WordFontLook {
    std::u16string family;
    /// In half points.
    std::int64_t size = 0;
    bool isBold = false;
    bool isItalic = false;

    friend auto operator<=>(const WordFontLook&, const WordFontLook&) = default;
};

/// The font of text with these attributes; Helvetica of 12 points where they name none.
[[nodiscard]] WordFontLook fontLookOf(const NSAttributes& attributes);

/// The deepest heading that has a style of its own.
inline constexpr std::size_t kWordHeadingStyleCount = 6;

/// The style of a document that a paragraph is in: 0 for plain text, else that of the heading.
[[nodiscard]] std::size_t wordStyleIndexOf(const NSParagraphStyle& style);

/// The fonts of a document's styles, by wordStyleIndexOf: each is the one that most characters of its
/// paragraphs are in. Headings that a text has none of are bold and larger.
using WordStyleLooks = std::array<WordFontLook, kWordHeadingStyleCount + 1>;

[[nodiscard]] WordStyleLooks styleLooksOf(const std::vector<WordAttributeSet>& sets);

/// Writes the family, for all scripts.
void writeWordFamily(WordXML& xml, std::u16string_view family);
/// Writes the size, for all scripts.
void writeWordFontSize(WordXML& xml, std::int64_t size);
