#include "platform/layout/ParagraphLines.h"

#include "platform/layout/AttachmentRoom.h"
#include "platform/layout/LayoutLimits.h"
#include "platform/layout/LinePiece.h"
#include "platform/text/NSAttributeNames.h"
#include "platform/text/NSFont.h"
#include "platform/text/NSTextAttachment.h"
#include "platform/views/NSTextView.h"

#include <unicode/ubidi.h>

#include <algorithm>
#include <optional>
#include <utility>

namespace {

NSParagraphStyle::Ref styleAt(const NSAttributedString& text, NSUInteger location)
{
    const auto at = text.length() > 0 ? std::min(location, text.length() - 1) : 0;
    const auto style = text.attribute(NSParagraphStyleAttributeName, at).object<NSParagraphStyle>();
    return style ? style : NSParagraphStyle::defaultParagraphStyle();
}

/// By the style, else by the first letter that has a direction.
bool isRightToLeft(const std::u16string& start, NSWritingDirection direction)
{
    if (direction != NSWritingDirection::Natural)
        return direction == NSWritingDirection::RightToLeft;
    return ubidi_getBaseDirection(start.data(), static_cast<int32_t>(start.size())) == UBIDI_RTL;
}

bool endsLine(char16_t unit)
{
    return unit == u'\n' || unit == u'\r' || unit == u'\v' || unit == u'\f' || unit == 0x85 || unit == 0x2028
        || unit == 0x2029;
}

std::shared_ptr<NSTextAttachment> attachmentAt(const NSAttributedString& text, NSUInteger index)
{
    if (text.characterAtIndex(index) != NSAttachmentCharacter)
        return nullptr;
    return text.attribute(NSAttachmentAttributeName, index).mutableObject<NSTextAttachment>();
}

/// Counts how high a piece becomes.
class PieceHeight {
public:
    PieceHeight(const NSAttributedString& text, const ParagraphGeometry* geometry)
        : m_text(text)
        , m_geometry(geometry)
    {
    }

    /// Whether there is room for the letter, which is behind those that were asked for before.
    bool takesLetter(NSUInteger location)
    {
        if (!m_geometry)
            return true;
        if (location >= m_runEnd)
            beginRun(location);
        m_height += m_heightOfLetter;
        return m_height <= kHighestPiece;
    }

private:
    void beginRun(NSUInteger location)
    {
        NSRange run;
        const auto font = m_text.attribute(NSFontAttributeName, location, &run).object<NSFont>();
        m_heightOfLetter = m_geometry->heightOfLetter(font ? font->pointSize() : NSFont::kDefaultSize);
        m_runEnd = NSMaxRange(run);
    }

    const NSAttributedString& m_text;
    const ParagraphGeometry* m_geometry;
    double m_height = 0;
    double m_heightOfLetter = 0;
    NSUInteger m_runEnd = 0;
};

/// Sets one paragraph.
class Paragraph {
public:
    Paragraph(const LayoutSource& source, NSRange range, double columnWidth, NSAppearance appearance)
        : m_source(source)
        , m_range(range)
        , m_column(boundedLength(columnWidth, kNarrowestColumn))
        , m_appearance(appearance)
        , m_style(styleAt(source.text, range.location))
        , m_geometry(*m_style, m_column,
                     isRightToLeft(source.text.substringWithRange(
                                       {range.location, std::min(range.length, kLongestPiece)}),
                                   m_style->baseWritingDirection()),
                     leadingRoom())
    {
    }

    double enumerateLines(bool isAtTop, const PieceStart* from,
                          const std::function<bool(const TextLine&)>& visit)
    {
        m_y = isAtTop ? 0 : m_geometry.spacingBefore;
        auto location = m_range.location;
        if (from) {
            m_y = from->y;
            location = from->location;
        }
        do {
            const auto next = visitPiece(location, visit);
            if (!next)
                return m_y;
            location = *next;
        } while (location < NSMaxRange(m_range));
        return m_y + m_geometry.spacing;
    }

private:
    /// Where a piece ends that begins there, and whether a line end does it.
    struct PieceEnd {
        NSUInteger location = 0;
        NSUInteger lineEndLength = 0;
        bool isWhole = true;
    };

    /// Pieces that are not broken are one line each, however high, and have no `geometry` here.
    [[nodiscard]] PieceEnd pieceEnd(NSUInteger start, const ParagraphGeometry* geometry) const
    {
        const auto end = NSMaxRange(m_range);
        const auto& text = m_source.text;
        auto location = start;
        std::size_t attachments = 0;
        PieceHeight height(text, geometry);
        while (location < end && location - start < kLongestPiece && attachments < kMostAttachments
               && !endsLine(text.characterAtIndex(location))
               && (height.takesLetter(location) || location - start < kShortestPiece)) {
            attachments += text.characterAtIndex(location) == NSAttachmentCharacter ? 1U : 0U;
            ++location;
        }
        if (location == end)
            return {location};
        if (!endsLine(text.characterAtIndex(location)))
            return {behindCharacter(location), 0, false};
        const auto isPair = text.hasPrefixAtIndex(u"\r\n", location);
        return {location, isPair ? 2U : 1U};
    }

    /// So that no piece ends within a pair of surrogates.
    [[nodiscard]] NSUInteger behindCharacter(NSUInteger location) const
    {
        const auto unit = m_source.text.characterAtIndex(location);
        return unit >= 0xDC00 && unit <= 0xDFFF ? location + 1 : location;
    }

    /// The empty line behind the last line end is set as that line end is.
    [[nodiscard]] NSAttributedString textOfPiece(NSUInteger start, NSUInteger length) const
    {
        const auto& text = m_source.text;
        const auto isBehindAll = length == 0 && text.length() > 0;
        return text.attributedSubstringFromRange(isBehindAll ? NSRange{text.length() - 1, 1}
                                                             : NSRange{start, length});
    }

    /// Where the next piece begins; none when the visitor has had enough.
    std::optional<NSUInteger> visitPiece(NSUInteger start, const std::function<bool(const TextLine&)>& visit)
    {
        const auto isBroken = m_geometry.lineBreakMode == NSLineBreakMode::WordWrapping
            || m_geometry.lineBreakMode == NSLineBreakMode::CharWrapping;
        const auto end = pieceEnd(start, isBroken ? &m_geometry : nullptr);
        const auto length = end.location - start;
        const auto text = textOfPiece(start, length + end.lineEndLength);
        const LinePiece piece(text, length, *m_style, m_geometry, start == m_range.location,
                              attachments(text, length), m_appearance);
        auto next = std::optional(end.location + end.lineEndLength);
        std::size_t count = 0;
        piece.enumerateLines([&](const PieceLine& line, bool isLast) {
            // The next piece begins with what this one's length cut off.
            if (isLast && count > 0 && !end.isWhole && isBroken) {
                next = start + line.range.location;
                return false;
            }
            ++count;
            auto placed = placedLine(line, start, isLast ? end.lineEndLength : 0);
            placed.piece = &piece;
            if (visit(placed))
                return true;
            next.reset();
            return false;
        });
        return next;
    }

    TextLine placedLine(const PieceLine& line, NSUInteger start, NSUInteger lineEndLength)
    {
        const auto height = m_geometry.lineHeight(line.textHeight, line.height);
        TextLine placed;
        placed.range = {start + line.range.location, line.range.length + lineEndLength};
        placed.rect = {{0, m_y}, {m_column, height}};
        placed.usedRect = {{line.x, m_y}, {line.width, height}};
        // What a line has more than its letters need lies above them.
        placed.baseline = m_y + height - line.height + line.ascent;
        placed.place = &line;
        placed.pieceLocation = start;
        m_y += height + m_geometry.lineSpacing;
        return placed;
    }

    [[nodiscard]] NSRect room(const NSAttributedString& piece, NSUInteger index,
                              NSTextAttachment& attachment) const
    {
        const NSTextContainer container({m_column, kLargestLength}, &piece);
        return attachmentRoom(attachment, container, index, m_column, m_source.image);
    }

    [[nodiscard]] std::vector<AttachmentPlace> attachments(const NSAttributedString& piece,
                                                           NSUInteger length) const
    {
        std::vector<AttachmentPlace> places;
        const auto characters = piece.string().substr(0, length);
        for (auto index = characters.find(NSAttachmentCharacter); index != std::u16string_view::npos;
             index = characters.find(NSAttachmentCharacter, index + 1)) {
            if (const auto attachment = attachmentAt(piece, index))
                places.push_back({index, room(piece, index, *attachment)});
        }
        return places;
    }

    /// How wide the attachment is that the paragraph begins with.
    [[nodiscard]] double leadingRoom() const
    {
        const auto attachment = m_range.length > 0 ? attachmentAt(m_source.text, m_range.location) : nullptr;
        if (!attachment || m_style->firstLineHeadIndent() >= 0)
            return 0;
        const auto end = pieceEnd(m_range.location, nullptr);
        const auto piece
            = m_source.text.attributedSubstringFromRange({m_range.location, end.location - m_range.location});
        return room(piece, 0, *attachment).size.width;
    }

    const LayoutSource& m_source;
    NSRange m_range;
    double m_column;
    NSAppearance m_appearance;
    NSParagraphStyle::Ref m_style;
    ParagraphGeometry m_geometry;
    double m_y = 0;
};

} // namespace

void TextLine::drawBackground(NSTextView& view, NSPoint origin) const
{
    piece->drawBackground(*place, {{origin.x, origin.y + rect.origin.y}, rect.size}, view.graphicsContext());
}

void TextLine::drawText(NSTextView& view, NSPoint origin, const LayoutSource& source) const
{
    piece->drawText(*place, {origin.x, origin.y + baseline}, view.graphicsContext());
    enumerateAttachments([&](NSUInteger index, NSRect frame) {
        const auto attachment = attachmentAt(source.text, index);
        if (!attachment)
            return;
        frame.origin.x += origin.x;
        frame.origin.y += origin.y;
        drawAttachment(*attachment, frame, view, source.image);
    });
}

void TextLine::enumerateAttachments(const AttachmentVisitor& visit) const
{
    piece->enumerateAttachments(*place, [&](NSUInteger index, NSRect frame) {
        frame.origin.y += baseline;
        visit(pieceLocation + index, frame);
    });
}

double enumerateLines(const LayoutSource& source, NSRange paragraph, double columnWidth, bool isAtTop,
                      NSAppearance appearance, const std::function<bool(const TextLine&)>& visit,
                      const PieceStart* from)
{
    return Paragraph(source, paragraph, columnWidth, appearance).enumerateLines(isAtTop, from, visit);
}
