#pragma once

#include "cells/CVLChecklistButtonCell.h"
#include "platform/text/NSTextAttachmentCell.h"

#include <memory>

/// The cell of a checklist attachment: it holds the item's state and shows it as a button at its right edge.
/// The deeper the item, the wider the cell.
class CVLChecklistAttachmentCell final : public NSTextAttachmentCell {
public:
    /// The button, made on first use. It belongs to the cell.
    [[nodiscard]] CVLChecklistButtonCell& buttonCell();

    [[nodiscard]] bool isOn() const { return m_on; }

    void setOn(bool on);

    /// Takes the state from the button, which was clicked.
    void buttonClicked(const NSButtonCell& sender);

    /// The button's frame within the cell's: at the right edge, at the frame's y.
    [[nodiscard]] NSRect buttonFrameWithFrame(NSRect cellFrame, const NSView& inView);

    [[nodiscard]] NSSize cellSize() override;
    /// As wide as the item's level asks, 20 points for the box and for each level; centred upon the line's
    /// tallest font. In whole points, to the outside.
    [[nodiscard]] NSRect cellFrameForTextContainer(const NSTextContainer& textContainer,
                                                   NSRect proposedLineFragment, NSPoint glyphPosition,
                                                   NSUInteger characterIndex) override;
    void drawWithFrame(NSRect cellFrame, NSView& inView) override;

    /// Only a press within the button's frame is followed; a click changes the state and is told to the text
    /// view's delegate.
    bool trackMouse(const NSEvent& event, NSRect cellFrame, NSView& ofView, NSUInteger atCharacterIndex,
                    bool untilMouseUp) override;

    [[nodiscard]] static const NSClass& classObject();
    [[nodiscard]] const NSClass& classForCoder() const override;
    void encodeWithCoder(NSCoder& coder) const override;

private:
    static NSAny initWithCoder(NSCoder& coder);
    [[nodiscard]] NSUInteger indentationLevel() const;

    bool m_on = false;
    std::unique_ptr<CVLChecklistButtonCell> m_buttonCell;
};
