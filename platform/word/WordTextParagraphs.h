#pragma once

#include "platform/text/NSAttributedString.h"
#include "platform/text/NSParagraphStyle.h"
#include "platform/text/NSTextTable.h"

#include <optional>
#include <vector>

/// Tables within more tables than these are written as plain paragraphs.
inline constexpr std::size_t kMostWordTableDepth = 16;

/// One paragraph of a text that is being written.
struct WordTextParagraph {
    /// Without its end.
    NSRange content;
    /// Behind the paragraph's end, if it has one.
    NSUInteger end = 0;
    /// Never null.
    NSParagraphStyle::Ref style;
    /// The cells that the paragraph is in, the outermost first.
    std::vector<NSTextTableBlock::Ref> cells;
};

/// Finds the paragraphs of a text's range: each ends with "\n", "\r", "\r\n" or U+2029. The text must outlive
/// it.
class WordTextParagraphs {
public:
    WordTextParagraphs(const NSAttributedString& text, NSRange range);

    /// The paragraph that begins at `location`; none at the end of the range.
    [[nodiscard]] std::optional<WordTextParagraph> paragraphAt(NSUInteger location) const;

    [[nodiscard]] NSRange range() const { return m_range; }

    [[nodiscard]] std::u16string_view characters(NSRange range) const
    {
        return m_characters.substr(range.location, range.length);
    }

private:
    const NSAttributedString& m_text;
    NSRange m_range;
    std::u16string_view m_characters;
};
