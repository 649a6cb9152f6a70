#pragma once

#include "platform/drawing/PangoHandles.h"
#include "platform/foundation/NSGeometry.h"
#include "platform/text/NSAppearance.h"
#include "platform/text/NSAttributedString.h"
#include "platform/text/NSParagraphStyle.h"

#include <optional>

/// A line of a text, from behind one line end to the next, laid out: as wide as it is by itself, or broken or
/// truncated within a width, as its paragraph style says. Measures are in points.
///
/// Of a line that would be longer than kMaximumTextExtent if all of its characters were as wide as its
/// largest font is high, what is beyond that is left out where it would be truncated, at the end by default.
class LineLayout {
public:
    /// `range` is the line's content.
    LineLayout(const NSAttributedString& text, NSRange range, std::optional<double> width,
               NSAppearance appearance);

    [[nodiscard]] NSSize size() const;

    /// With the upper left corner of the line's whole width at (0, y), y downwards. Of a line that is broken,
    /// only what begins above `lowest`.
    void draw(cairo_t* cairo, double y, double lowest) const;

private:
    enum class Side { Left, Center, Right };

    void setDirection(PangoContext& context);
    void setAlignment(const NSParagraphStyle& style);
    void setWidth(double width, NSLineBreakMode mode);
    void clip(double width);
    void tightenEllipsis(double width);

    TextLayout m_layout;
    bool m_isRightToLeft = false;
    Side m_side = Side::Left;
    /// How much further to the right than Pango aligns it the line begins.
    double m_start = 0;
    /// When the line is neither broken nor truncated.
    std::optional<double> m_clippedWidth;
};
