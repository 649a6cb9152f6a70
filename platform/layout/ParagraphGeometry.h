#pragma once

#include "platform/drawing/PangoHandles.h"
#include "platform/text/NSParagraphStyle.h"

/// Where the lines of a paragraph stand in their column and how high they are, from its style, with all
/// lengths in bounds. Horizontal places count from the edge at which the paragraph's direction begins: the
/// left, or the right for text from right to left.
struct ParagraphGeometry {
    /// `leadingRoom` is how wide the attachment is that the paragraph begins with, if it does. A first line
    /// with a negative indent, as items of checklists have, hangs such an attachment in front of the head
    /// indent, so that its text begins where the other lines do; without one it begins at the edge.
    ParagraphGeometry(const NSParagraphStyle& style, double columnWidth, bool isRightToLeft,
                      double leadingRoom);

    double column;
    bool isRightToLeft;
    /// Where lines begin, and where they all end.
    double firstIndent = 0;
    double indent = 0;
    double limit = 0;
    /// The part of what a line leaves free that lies before it.
    double shareBefore = 0;
    bool isJustified = false;
    NSLineBreakMode lineBreakMode;

    double lineHeightMultiple = 1;
    double minimumLineHeight = 0;
    double maximumLineHeight = kNoMaximum;
    double lineSpacing = 0;
    double spacingBefore = 0;
    double spacing = 0;

    static constexpr double kNoMaximum = 1e9;

    /// The height of a line, of which `text` is what its text alone needs and `whole` what all of it does.
    /// Factor and maximum are for text: pictures are as high as they are.
    [[nodiscard]] double lineHeight(double text, double whole) const;
    /// About what a letter of such a font adds to the paragraph's height: its part of a line. No letters are
    /// looked at.
    [[nodiscard]] double heightOfLetter(double fontSize) const;
};

/// The tab stops for lines that begin `base` behind the edge: those of the style, and behind them one for
/// each default interval up to `limit`.
[[nodiscard]] TabArray tabStops(const NSParagraphStyle& style, double base, double limit);
