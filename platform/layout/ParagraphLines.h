#pragma once

#include "platform/foundation/NSGeometry.h"
#include "platform/foundation/NSRange.h"
#include "platform/layout/AttachmentImage.h"
#include "platform/text/NSAppearance.h"
#include "platform/text/NSAttributedString.h"

#include <functional>

class LinePiece;
class NSTextView;
struct PieceLine;

/// The text that paragraphs are of.
struct LayoutSource {
    const NSAttributedString& text;
    AttachmentImage image;
};

/// One line of a paragraph, in coordinates of the paragraph: the upper left corner of its column is (0, 0).
/// Valid during the visit.
struct TextLine {
    /// In the text; the last line of a paragraph holds its line end.
    NSRange range;
    /// The whole width of the column by the height of the line, and the part of it that is taken.
    NSRect rect;
    NSRect usedRect;
    /// How far below the corner the letters stand.
    double baseline = 0;

    /// Draws the line with the paragraph's corner at `origin` in the view.
    void drawBackground(NSTextView& view, NSPoint origin) const;
    void drawText(NSTextView& view, NSPoint origin, const LayoutSource& source) const;

    using AttachmentVisitor = std::function<void(NSUInteger index, NSRect frame)>;

    /// Calls with the index in the text, and the frame in the paragraph, of each attachment that is drawn.
    void enumerateAttachments(const AttachmentVisitor& visit) const;

    const LinePiece* piece = nullptr;
    const PieceLine* place = nullptr;
    NSUInteger pieceLocation = 0;
};

/// A place in a paragraph from which its lines can be set without those before.
struct PieceStart {
    /// In the text.
    NSUInteger location = 0;
    /// In the paragraph.
    double y = 0;
};

/// Sets the paragraph in a column of that width, line for line from the top, until the visitor says no. Gives
/// the height from its first line to behind its spacing; of a visit that was ended, to there. The spacing
/// before the paragraph is left out at the top of a column. `from` is where the visit begins, a place where a
/// piece began in an earlier visit (TextLine::pieceLocation, and its first line's y); null for the start.
///
/// Nothing is kept: whoever draws sets the lines again. Time and memory are in proportion to the paragraph's
/// length, memory to a piece of at most kLongestPiece.
double enumerateLines(const LayoutSource& source, NSRange paragraph, double columnWidth, bool isAtTop,
                      NSAppearance appearance, const std::function<bool(const TextLine&)>& visit,
                      const PieceStart* from = nullptr);
