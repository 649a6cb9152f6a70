#pragma once

#include "platform/foundation/NSGeometry.h"
#include "platform/foundation/NSRange.h"

#include <functional>
#include <string>
#include <utility>

class NSEvent;
class NSView;

/// The numbers are the platform's.
enum class NSButtonType { MomentaryLight = 0, PushOnPushOff = 1, Toggle = 2, Switch = 3, Radio = 4 };
enum class NSCellImagePosition { NoImage = 0, ImageOnly = 1, ImageLeft = 2 };

using NSControlStateValue = NSInteger;
inline constexpr NSControlStateValue NSControlStateValueOff = 0;
inline constexpr NSControlStateValue NSControlStateValueOn = 1;

/// A button without a view of its own, drawn and clicked within another's. This base class is of no size and
/// draws nothing.
class NSButtonCell {
public:
    using Action = std::function<void()>;

    NSButtonCell() = default;
    NSButtonCell(const NSButtonCell&) = delete;
    NSButtonCell& operator=(const NSButtonCell&) = delete;
    virtual ~NSButtonCell() = default;

    [[nodiscard]] NSControlStateValue state() const { return m_state; }

    void setState(NSControlStateValue state) { m_state = state; }

    [[nodiscard]] const std::u16string& title() const { return m_title; }

    void setTitle(std::u16string title) { m_title = std::move(title); }

    [[nodiscard]] NSCellImagePosition imagePosition() const { return m_imagePosition; }

    void setImagePosition(NSCellImagePosition position) { m_imagePosition = position; }

    [[nodiscard]] NSButtonType buttonType() const { return m_buttonType; }

    void setButtonType(NSButtonType type) { m_buttonType = type; }

    /// What a click does, once the state has changed.
    void setAction(Action action) { m_action = std::move(action); }

    /// Whether the mouse is pressed within the button.
    [[nodiscard]] bool isHighlighted() const { return m_isHighlighted; }

    [[nodiscard]] virtual NSSize cellSize() const;
    /// Where the image is drawn within the button's bounds.
    [[nodiscard]] virtual NSRect imageRectForBounds(NSRect bounds) const;
    virtual void drawWithFrame(NSRect cellFrame, NSView& inView) const;

    /// A button that keeps its state goes from one to the other; then the action is done.
    void performClick();

    /// Follows the mouse from `event`, the button's press, and clicks when it is released within the frame:
    /// then it is true. Without `untilMouseUp` it ends, false, when the mouse leaves the frame.
    bool trackMouse(const NSEvent& event, NSRect inRect, NSView& ofView, bool untilMouseUp);

private:
    [[nodiscard]] bool isReleasedWithin(const NSEvent& event, NSRect frame, NSView& view, bool untilMouseUp);
    void setHighlighted(bool isHighlighted, NSRect frame, NSView& view);

    NSControlStateValue m_state = NSControlStateValueOff;
    std::u16string m_title;
    NSCellImagePosition m_imagePosition = NSCellImagePosition::NoImage;
    NSButtonType m_buttonType = NSButtonType::MomentaryLight;
    Action m_action;
    bool m_isHighlighted = false;
};
