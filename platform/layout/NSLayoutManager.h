#pragma once

#include "platform/foundation/NSGeometry.h"
#include "platform/foundation/NSRange.h"
#include "platform/layout/AttachmentImage.h"
#include "platform/layout/TextFlow.h"
#include "platform/text/NSAppearance.h"
#include "platform/text/NSAttributedString.h"

#include <functional>
#include <span>
#include <vector>

class NSTextContainer;
class NSTextView;

/// Lays a text out in a column as wide as a text container, and draws it. Coordinates are points from the
/// column's upper left corner, y downwards; glyphs are counted as the characters that they stand for.
///
/// Paragraphs are set by their styles: alignment, indents, tab stops, spacings, line heights, line breaking
/// and direction. Line separators, form feeds and vertical tabs begin a new line of the same paragraph.
/// Characters are drawn as NSStringDrawing.h says, and with links, raised letters, shadows, and backgrounds
/// as high as the line. Blocks and tables are boxes of their own, to a bounded depth. Attachments stand in
/// the line, as their cells ask or as `image` gives them.
///
/// Everything is laid out at once, in time in proportion to the text. What is kept is some 100 bytes for each
/// paragraph and as much for each block: lines are set again whenever they are asked for or drawn. Numbers of
/// the text that no page could show are cut (LayoutLimits.h). For one thread at a time.
class NSLayoutManager {
public:
    /// Lays out the container's text as it is now. A container without a width has one of a point.
    explicit NSLayoutManager(const NSTextContainer& container, AttachmentImage image = {});

    /// From the corner: as wide as the column, as high as the text with the empty line behind its last line
    /// end. Without a height when there is no text.
    [[nodiscard]] NSRect usedRect() const { return {{}, {m_width, m_height}}; }

    /// A line: its rectangle in the column, the part that is taken, where its baseline is, and its
    /// characters.
    struct LineFragment {
        NSRect rect;
        NSRect usedRect;
        double baseline = 0;
        NSRange range;
    };

    using LineVisitor = std::function<void(const LineFragment&)>;

    /// Visits the lines that hold characters of the range, in their order.
    void enumerateLineFragmentsForGlyphRange(NSRange range, const LineVisitor& visit) const;

    using AttachmentVisitor = std::function<void(NSUInteger index, NSRect frame)>;

    /// Visits the attachments in the range, with the frames that they are drawn in.
    void enumerateAttachmentsForGlyphRange(NSRange range, const AttachmentVisitor& visit) const;

    using BlockVisitor = std::function<void(NSRange range, NSRect rect)>;

    /// Visits the blocks of the text, those within others after them, with their characters and where they
    /// stand: with their borders, without their margins.
    void enumerateTextBlocks(const BlockVisitor& visit) const;

    /// Where a block or table of the text stands: with its borders, without its margins. Empty for one that
    /// no paragraph is in. Linear in the number of blocks.
    [[nodiscard]] NSRect boundsRectForTextBlock(const NSTextBlock& block) const;

    /// Draws the lines that hold characters of the range and are within the clip, the column's corner at
    /// `atPoint` in the view, which is flipped: first the backgrounds, of blocks and of text, then text and
    /// attachments.
    void drawBackgroundForGlyphRange(NSRange range, NSPoint atPoint, NSTextView& view) const;
    void drawGlyphsForGlyphRange(NSRange range, NSPoint atPoint, NSTextView& view) const;

    /// Down the column.
    struct VerticalSpan {
        double top = 0;
        double bottom = 0;
    };

private:
    static constexpr VerticalSpan kEverything{-1e12, 1e12};

    using PlacedLineVisitor = std::function<void(const TextLine& line, NSPoint origin)>;

    /// The last place before the range, or above what is visible, from which lines of the paragraph can be
    /// set; null for its start.
    [[nodiscard]] const PieceStart* pieceBefore(const PlacedParagraph& paragraph, NSRange range,
                                                VerticalSpan visible) const;
    /// The blocks that hold characters of the range are among these; found without looking at all.
    [[nodiscard]] std::span<const PlacedBlock> blocksAround(NSRange range) const;
    void enumerateLines(NSRange range, NSAppearance appearance, VerticalSpan visible,
                        const PlacedLineVisitor& visit) const;

    NSAttributedString m_text;
    AttachmentImage m_image;
    double m_width;
    double m_height = 0;
    /// Whether any of the text has a background: lines are set for it alone.
    bool m_hasBackgrounds = false;
    TextPlaces m_places;
    /// For each block, how far it or one before it reaches into the text.
    std::vector<NSUInteger> m_blockEnds;
};
