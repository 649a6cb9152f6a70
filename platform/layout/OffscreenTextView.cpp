#include "platform/layout/OffscreenTextView.h"

NSPoint OffscreenTextView::convertPoint(NSPoint point, const NSView* /*fromView*/) const
{
    return point;
}

std::optional<NSEvent> OffscreenTextView::nextMouseEvent()
{
    return std::nullopt;
}
