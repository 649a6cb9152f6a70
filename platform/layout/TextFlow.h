#pragma once

#include "platform/layout/BlockGeometry.h"
#include "platform/layout/ParagraphLines.h"
#include "platform/text/NSParagraphStyle.h"
#include "platform/text/NSTextTable.h"

#include <span>
#include <vector>

/// Where a paragraph stands: its column's place and its whole height.
struct PlacedParagraph {
    NSRange range;
    NSRect rect;
    bool isAtTop = false;
};

/// Where a block stands: its rectangle with its borders, without its margins.
struct PlacedBlock {
    NSRange range;
    NSTextBlock::Ref block;
    NSRect rect;
    BlockEdges border;
};

/// Where everything stands, in the order of the text. Blocks stand before those within them.
struct TextPlaces {
    std::vector<PlacedParagraph> paragraphs;
    /// Of long paragraphs, where their pieces begin, but for the first of each.
    std::vector<PieceStart> pieces;
    std::vector<PlacedBlock> blocks;
};

/// A paragraph to be placed.
struct FlowParagraph {
    NSRange range;
    NSParagraphStyle::Ref style;
};

/// Blocks beyond this depth are left out: their paragraphs stand in the block around them.
inline constexpr std::size_t kDeepestBlock = 12;
/// Columns of a table; what stands behind them stands in the last one.
inline constexpr NSInteger kMaximumColumns = 200;

/// Places paragraphs below each other, those of blocks in their boxes and those of tables in their cells. The
/// spacing before the first paragraph of a block or table is in front of its box.
class TextFlow {
public:
    TextFlow(const LayoutSource& source, TextPlaces& places)
        : m_source(source)
        , m_places(places)
    {
    }

    using Paragraphs = std::span<const FlowParagraph>;

    /// `depth` is how many blocks they stand in already. Gives their height.
    double place(Paragraphs paragraphs, std::size_t depth, NSPoint corner, double width);

    /// How wide the paragraphs are when no line of theirs is broken; for long ones `most`.
    [[nodiscard]] double naturalWidth(Paragraphs paragraphs, double most) const;

    /// A place among all that was placed, up to which things may be moved.
    struct Mark {
        std::size_t paragraph = 0;
        std::size_t block = 0;
    };

    [[nodiscard]] Mark mark() const { return {m_places.paragraphs.size(), m_places.blocks.size()}; }

    void move(Mark from, Mark to, double distance);

    [[nodiscard]] TextPlaces& places() { return m_places; }

private:
    double placeParagraph(const FlowParagraph& paragraph, NSPoint corner, double width, bool isAtTop);
    double placeBlock(Paragraphs paragraphs, std::size_t depth, NSPoint corner, double width);

    const LayoutSource& m_source;
    TextPlaces& m_places;
};

/// The characters of the paragraphs, which follow each other.
[[nodiscard]] NSRange rangeOf(TextFlow::Paragraphs paragraphs);
