#pragma once

#include "platform/foundation/NSGeometry.h"
#include "platform/views/NSEvent.h"

#include <optional>

class NSGraphicsContext;

/// What a host's view offers to those who draw in it and follow the mouse. A host derives its views from this
/// class, over whatever shows them: a window's widget, or a surface of which there is no window at all.
class NSView {
public:
    NSView() = default;
    NSView(const NSView&) = delete;
    NSView& operator=(const NSView&) = delete;
    virtual ~NSView() = default;

    /// What the view is being drawn with, in the view's coordinates. Asked for during drawing only.
    [[nodiscard]] virtual NSGraphicsContext& graphicsContext() = 0;

    /// A point of another view in this view's coordinates; null stands for the window.
    [[nodiscard]] virtual NSPoint convertPoint(NSPoint point, const NSView* fromView) const = 0;

    /// Waits for the next event of a mouse whose button is down: that it was dragged or released. None when
    /// no more will come, as when the view goes away.
    [[nodiscard]] virtual std::optional<NSEvent> nextMouseEvent() = 0;

    /// What is in the rectangle looks different now. By default nothing is done.
    virtual void setNeedsDisplayInRect(NSRect rect);
};
