#pragma once

#include "platform/drawing/PangoHandles.h"
#include "platform/drawing/PangoText.h"
#include "platform/foundation/NSGeometry.h"
#include "platform/layout/ParagraphGeometry.h"
#include "platform/text/NSAppearance.h"
#include "platform/text/NSAttributedString.h"

#include <functional>
#include <vector>

class NSGraphicsContext;

/// A character that takes room of its own.
struct AttachmentPlace {
    /// In the piece.
    NSUInteger index = 0;
    /// From the point on the baseline where it stands, y upwards.
    NSRect room;
};

/// One line of a piece, from the upper left corner of the paragraph's column. Valid during the visit.
struct PieceLine {
    /// In the piece.
    NSRange range;
    /// The ink's room: from `x` on so wide; `ascent` above the baseline, so high.
    double x = 0;
    double width = 0;
    double ascent = 0;
    double height = 0;
    /// What the text of the line alone would need.
    double textHeight = 0;
    PangoLayoutLine* line = nullptr;
};

/// A piece of a paragraph without line ends, broken into lines.
class LinePiece {
public:
    /// `text` holds the piece and the line end behind it, if there is one; `length` is the piece's own.
    LinePiece(const NSAttributedString& text, NSUInteger length, const NSParagraphStyle& style,
              const ParagraphGeometry& geometry, bool isFirst, std::vector<AttachmentPlace> attachments,
              NSAppearance appearance);

    using Visitor = std::function<bool(const PieceLine& line, bool isLast)>;

    /// Visits the lines from the top on, until the visitor says no.
    void enumerateLines(const Visitor& visit) const;

    /// Draws what is behind the letters of a line whose place is that rectangle: as high as it.
    void drawBackground(const PieceLine& line, NSRect rect, NSGraphicsContext& context) const;
    /// The origin is where the line's baseline meets the column's left edge.
    void drawText(const PieceLine& line, NSPoint origin, NSGraphicsContext& context) const;

    using AttachmentVisitor = std::function<void(NSUInteger index, NSRect frame)>;

    /// Calls with each attachment of a line, and its frame from the same origin, y downwards.
    void enumerateAttachments(const PieceLine& line, const AttachmentVisitor& visit) const;

private:
    /// Of the text, or of the line from its left edge in Pango's units.
    struct Span {
        int start = 0;
        int end = 0;
    };

    [[nodiscard]] Span bytesOf(NSRange range) const;
    /// From left to right.
    [[nodiscard]] static std::vector<Span> visualRanges(PangoLayoutLine& line, Span bytes);
    void drawShadows(const PieceLine& line, NSPoint origin, NSGraphicsContext& context,
                     const std::function<void()>& show) const;
    [[nodiscard]] bool holdsAttachment(NSRange range) const;
    void makeRoomForAttachments();
    void setLines(const NSParagraphStyle& style, bool isFirst);
    [[nodiscard]] NSRange rangeOf(const PangoLayoutLine& line) const;
    [[nodiscard]] NSUInteger indexOfByte(int byte) const;
    void enumerateInk(const PieceLine& line, NSRange range,
                      const std::function<void(double x, double width)>& visit) const;

    NSAttributedString m_text;
    NSUInteger m_length;
    ParagraphGeometry m_geometry;
    bool m_isFirst;
    std::vector<AttachmentPlace> m_attachments;
    double m_fontHeight = 0;
    PangoText m_content;
    TextLayout m_layout;
};
