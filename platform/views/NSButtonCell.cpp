#include "platform/views/NSButtonCell.h"

#include "platform/views/NSEvent.h"
#include "platform/views/NSView.h"

#include <optional>

NSSize NSButtonCell::cellSize() const
{
    return {};
}

NSRect NSButtonCell::imageRectForBounds(NSRect bounds) const
{
    return bounds;
}

void NSButtonCell::drawWithFrame(NSRect /*cellFrame*/, NSView& /*inView*/) const { }

void NSButtonCell::performClick()
{
    if (m_buttonType != NSButtonType::MomentaryLight)
        m_state = m_state == NSControlStateValueOn ? NSControlStateValueOff : NSControlStateValueOn;
    if (m_action)
        m_action();
}

bool NSButtonCell::trackMouse(const NSEvent& event, NSRect inRect, NSView& ofView, bool untilMouseUp)
{
    const auto isClicked = isReleasedWithin(event, inRect, ofView, untilMouseUp);
    setHighlighted(false, inRect, ofView);
    if (isClicked)
        performClick();
    return isClicked;
}

bool NSButtonCell::isReleasedWithin(const NSEvent& event, NSRect frame, NSView& view, bool untilMouseUp)
{
    for (std::optional<NSEvent> current = event; current; current = view.nextMouseEvent()) {
        const auto isInside = NSPointInRect(view.convertPoint(current->locationInWindow(), nullptr), frame);
        if (current->type() == NSEventType::LeftMouseUp)
            return isInside;
        setHighlighted(isInside, frame, view);
        if (!isInside && !untilMouseUp)
            return false;
    }
    return false;
}

void NSButtonCell::setHighlighted(bool isHighlighted, NSRect frame, NSView& view)
{
    if (m_isHighlighted == isHighlighted)
        return;
    m_isHighlighted = isHighlighted;
    view.setNeedsDisplayInRect(frame);
}
