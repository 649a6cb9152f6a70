#pragma once

#include "platform/text/NSTextAttachmentCell.h"

#include <memory>

class NSTextView;

/// The thickness of the divider's line, and the space above and below it, in points.
inline constexpr double CVLDividerTextAttachmentCellSize = 1.0;
inline constexpr double CVLDividerTextAttachmentCellBorderSize = 7.0;

/// The cell of a divider: a line across the text.
class CVLDividerTextAttachmentCell final : public NSTextAttachmentCell {
public:
    /// The text view that shows the divider; null when none was set, or it is gone.
    [[nodiscard]] std::shared_ptr<NSTextView> textView() const { return m_textView.lock(); }

    void setTextView(const std::shared_ptr<NSTextView>& textView) { m_textView = textView; }

    /// As wide as the text view's container, 0 without a text view; 15 points high.
    [[nodiscard]] NSSize cellSize() override;
    /// Without a text view of its own the divider is as wide as the container that it is laid out in.
    [[nodiscard]] NSRect cellFrameForTextContainer(const NSTextContainer& textContainer,
                                                   NSRect proposedLineFragment, NSPoint glyphPosition,
                                                   NSUInteger characterIndex) override;
    /// Where the line is drawn in a frame: on whole points, half way up.
    [[nodiscard]] static NSRect lineRectWithFrame(NSRect cellFrame);
    void drawWithFrame(NSRect cellFrame, NSView& inView) override;

    [[nodiscard]] bool wantsToTrackMouse() const override { return false; }

    [[nodiscard]] static const NSClass& classObject();
    [[nodiscard]] const NSClass& classForCoder() const override;

private:
    std::weak_ptr<NSTextView> m_textView;
};
