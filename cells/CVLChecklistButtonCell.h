#pragma once

#include "platform/views/NSButtonCell.h"

/// The side of the checkbox, in points; also the indent of a checklist item for each level.
inline constexpr double CVLChecklistImageDimension = 18.0;
/// The gap to the right of the checkbox, in points.
inline constexpr double CVLChecklistRightBorder = 2.0;

/// The checkbox of a checklist item: a ring, or a filled disc with a check mark.
class CVLChecklistButtonCell final : public NSButtonCell {
public:
    /// 20 x 18 points.
    [[nodiscard]] NSSize cellSize() const override;
    /// A square of 18 points at the left edge, centred vertically.
    [[nodiscard]] NSRect imageRectForBounds(NSRect bounds) const override;
    /// The symbol "checkmark.circle.fill" in the accent colour when the button is on, else "circle" in the
    /// secondary label colour.
    void drawWithFrame(NSRect cellFrame, NSView& inView) const override;
};
