#pragma once

#include "platform/views/NSTextView.h"

/// A text view that nobody sees or clicks: what cells are drawn in on a surface. Its coordinates are those of
/// the context, which is flipped. No event ever comes.
class OffscreenTextView final : public NSTextView {
public:
    /// Both are borrowed.
    OffscreenTextView(NSGraphicsContext& context, const NSTextContainer& container)
        : m_context(context)
        , m_container(container)
    {
    }

    [[nodiscard]] NSGraphicsContext& graphicsContext() override { return m_context; }

    [[nodiscard]] const NSTextContainer& textContainer() const override { return m_container; }

    [[nodiscard]] NSTextViewDelegate* delegate() const override { return nullptr; }

    [[nodiscard]] NSPoint convertPoint(NSPoint point, const NSView* fromView) const override;
    [[nodiscard]] std::optional<NSEvent> nextMouseEvent() override;

private:
    NSGraphicsContext& m_context;
    const NSTextContainer& m_container;
};
