#pragma once

#include "platform/text/NSAttributedString.h"
#include "platform/text/NSParagraphStyle.h"
#include "platform/text/NSTextTable.h"

#include <optional>
#include <vector>

/// One paragraph of a text that is being written.
struct RTFTextParagraph {
    /// The cells that a paragraph is in, the outermost first.
    using Cells = std::vector<NSTextTableBlock::Ref>;

    /// Without its end.
    NSRange content;
    /// Behind the paragraph's end, if it has one.
    NSUInteger end = 0;
    bool isEnded = false;
    /// Null when the paragraph has none.
    NSParagraphStyle::Ref style;
    Cells cells;
};

/// Finds the paragraphs of a text's range. The text must outlive it.
class RTFTextParagraphs {
public:
    RTFTextParagraphs(const NSAttributedString& text, NSRange range);

    [[nodiscard]] NSUInteger start() const { return m_range.location; }

    /// The paragraph that begins at `location`; none at the end of the range.
    [[nodiscard]] std::optional<RTFTextParagraph> paragraphAt(NSUInteger location) const;

    [[nodiscard]] std::u16string_view characters(NSRange range) const
    {
        return m_characters.substr(range.location, range.length);
    }

private:
    const NSAttributedString& m_text;
    NSRange m_range;
    std::u16string_view m_characters;
};
