#pragma once

#include "platform/foundation/NSCoding.h"
#include "platform/foundation/NSGeometry.h"
#include "platform/foundation/NSRange.h"

class NSEvent;
class NSTextAttachment;
class NSTextContainer;
class NSView;

/// What sizes and draws an attachment and takes clicks on it. The attachment owns its cell; the cell knows
/// its attachment as long as both live. This base class is of no size and draws nothing.
///
/// Views, containers and events are known to it by name only: they belong to the layer that shows text.
class NSTextAttachmentCell : public NSCoding {
public:
    NSTextAttachmentCell() = default;
    NSTextAttachmentCell(const NSTextAttachmentCell&) = delete;
    NSTextAttachmentCell& operator=(const NSTextAttachmentCell&) = delete;

    /// Null while the cell belongs to no attachment.
    [[nodiscard]] NSTextAttachment* attachment() const { return m_attachment; }

    virtual void setAttachment(NSTextAttachment* attachment) { m_attachment = attachment; }

    /// In points.
    [[nodiscard]] virtual NSSize cellSize();
    /// Where the lower left corner of the cell lies, from the point on the baseline where a character would
    /// stand.
    [[nodiscard]] virtual NSPoint cellBaselineOffset();
    /// The room that the cell takes in a line, from the point on the baseline. By default what the size and
    /// the baseline offset say. `proposedLineFragment` is the line's rectangle, `glyphPosition` where the
    /// attachment would stand in it, and `characterIndex` its place in the container's text.
    [[nodiscard]] virtual NSRect cellFrameForTextContainer(const NSTextContainer& textContainer,
                                                           NSRect proposedLineFragment, NSPoint glyphPosition,
                                                           NSUInteger characterIndex);

    /// Draws into the view's graphics context. The frame is in the view's coordinates.
    virtual void drawWithFrame(NSRect cellFrame, NSView& inView);

    /// Whether mouse events within the cell are given to `trackMouse`. By default they are.
    [[nodiscard]] virtual bool wantsToTrackMouse() const { return true; }

    /// Follows the mouse from the button's press, until it is released when `untilMouseUp` is set, else until
    /// it leaves `cellFrame`. True when it was released within the part of the cell that takes clicks. By
    /// default nothing does. Events come from the view meanwhile, and what they make the host do may drop the
    /// attachment: whoever calls this holds the cell until it returns.
    virtual bool trackMouse(const NSEvent& event, NSRect cellFrame, NSView& ofView,
                            NSUInteger atCharacterIndex, bool untilMouseUp);

    [[nodiscard]] static const NSClass& classObject();
    [[nodiscard]] const NSClass& classForCoder() const override;
    /// Nothing: a cell is made anew by its attachment. A derived class calls this before it adds keys.
    void encodeWithCoder(NSCoder& coder) const override;

private:
    NSTextAttachment* m_attachment = nullptr;
};
