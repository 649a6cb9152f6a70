#pragma once

#include "platform/foundation/NSGeometry.h"

/// The numbers are the platform's.
enum class NSEventType { LeftMouseDown = 1, LeftMouseUp = 2, LeftMouseDragged = 6 };

/// Something that the user did with the mouse.
class NSEvent {
public:
    /// The location is in the coordinates of the window.
    NSEvent(NSEventType type, NSPoint locationInWindow)
        : m_type(type)
        , m_locationInWindow(locationInWindow)
    {
    }

    [[nodiscard]] NSEventType type() const { return m_type; }

    [[nodiscard]] NSPoint locationInWindow() const { return m_locationInWindow; }

private:
    NSEventType m_type;
    NSPoint m_locationInWindow;
};
