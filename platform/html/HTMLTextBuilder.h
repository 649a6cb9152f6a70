#pragma once

#include "platform/html/HTMLComputedStyle.h"
#include "platform/text/NSAttributedString.h"
#include "platform/text/NSFont.h"

#include <map>
#include <optional>
#include <string>
#include <string_view>
#include <tuple>

/// What text has beside its looks.
struct HTMLTextMeaning {
    std::u16string link;
    std::u16string toolTip;
    /// A highlight's colour scheme.
    std::u16string highlight;
};

/// How a paragraph is set that begins in a block.
struct HTMLParagraphContext {
    double leftIndent = 0;
    double rightIndent = 0;
    NSInteger headerLevel = 0;
    NSParagraphStyle::TextLists lists;
    NSParagraphStyle::TextBlocks blocks;
    /// The levels of lists that a paragraph behind an item's first one stands in; it has no lists itself.
    std::size_t listDepth = 0;
};

/// Puts a text together: white space collapsed, a line end behind each paragraph, the gaps between paragraphs
/// from the margins around them, of which the greater counts.
class HTMLTextBuilder {
public:
    /// Stops taking text at so many units.
    explicit HTMLTextBuilder(NSUInteger mostUnits)
        : m_mostUnits(mostUnits)
    {
    }

    void appendText(std::u16string_view text, const HTMLComputedStyle& style, const HTMLTextMeaning& meaning,
                    const HTMLParagraphContext& context);
    /// Text that is kept as it is: markers, and the character of an attachment.
    void appendVerbatim(std::u16string_view text, const NSAttributes& attributes,
                        const HTMLComputedStyle& style, const HTMLParagraphContext& context);
    void appendLineBreak(const HTMLComputedStyle& style, const HTMLParagraphContext& context);
    /// Ends the paragraph, if there is one, and notes the gap that an edge between blocks wants.
    void breakBlock(double marginAbove, double marginBelow);
    /// A paragraph without text where there is none yet.
    void appendEmptyParagraph(const HTMLComputedStyle& style, const HTMLParagraphContext& context);

    [[nodiscard]] bool hasOpenParagraph() const { return m_paragraph.has_value(); }

    [[nodiscard]] bool isEmpty() const { return m_text.length() == 0; }

    [[nodiscard]] bool isFull() const { return m_text.length() >= m_mostUnits; }

    [[nodiscard]] NSUInteger length() const { return m_text.length(); }

    [[nodiscard]] NSAttributes attributesFor(const HTMLComputedStyle& style, const HTMLTextMeaning& meaning);

    /// The text; its last line end is left out, except at the end of a cell or another block.
    [[nodiscard]] NSAttributedString finish();

private:
    struct Paragraph {
        NSRange range;
        NSMutableParagraphStyle style;
        NSAttributes attributes;
    };

    void beginParagraph(const HTMLComputedStyle& style, const HTMLParagraphContext& context);
    void endParagraph();
    void endLine(const HTMLComputedStyle& style, const HTMLTextMeaning& meaning,
                 const HTMLParagraphContext& context);
    void append(std::u16string_view text, const NSAttributes& attributes);
    void removeLastUnit();
    /// Gives the paragraph before the one to come its style, for which the gap between them must be known.
    void settleLast();
    [[nodiscard]] NSFont::Ref fontFor(const HTMLComputedStyle& style);

    using FontKey = std::tuple<std::u16string, double, int, bool>;

    NSMutableAttributedString m_text;
    NSUInteger m_mostUnits;
    std::optional<Paragraph> m_paragraph;
    std::optional<Paragraph> m_last;
    NSParagraphStyle::Ref m_lastStyle;
    std::map<FontKey, NSFont::Ref> m_fonts;
    double m_marginAbove = 0;
    double m_marginBelow = 0;
    /// The paragraph ends with white space that may be dropped.
    bool m_endsWithBlank = false;
    bool m_endsWithLineBreak = false;
    /// Behind a marker, which has its own blank.
    bool m_skipsBlanks = false;
};
