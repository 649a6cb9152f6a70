#pragma once

#include "platform/views/NSTextView.h"

#include <deque>
#include <optional>
#include <stdexcept>

/// A text view whose window's origin lies at (100, 200) in front of its own, whose mouse does what a test
/// says, and that draws with what a test gives it.
class HostTextView final : public NSTextView {
public:
    static constexpr NSPoint kOffset{100, 200};

    explicit HostTextView(NSSize size, const NSAttributedString* text = nullptr)
        : m_textContainer(size, text)
    {
    }

    [[nodiscard]] NSGraphicsContext& graphicsContext() override
    {
        if (!m_graphicsContext)
            throw std::logic_error("drawn without a graphics context");
        return *m_graphicsContext;
    }

    [[nodiscard]] NSPoint convertPoint(NSPoint point, const NSView* /*fromView*/) const override
    {
        return {point.x - kOffset.x, point.y - kOffset.y};
    }

    [[nodiscard]] std::optional<NSEvent> nextMouseEvent() override
    {
        if (m_events.empty())
            return std::nullopt;
        const auto event = m_events.front();
        m_events.pop_front();
        return event;
    }

    void setNeedsDisplayInRect(NSRect /*rect*/) override { ++m_displayCount; }

    [[nodiscard]] const NSTextContainer& textContainer() const override { return m_textContainer; }

    [[nodiscard]] NSTextViewDelegate* delegate() const override { return m_delegate; }

    void setDelegate(NSTextViewDelegate* delegate) { m_delegate = delegate; }

    void setGraphicsContext(NSGraphicsContext* context) { m_graphicsContext = context; }

    /// The event of the mouse at a point of the view.
    [[nodiscard]] static NSEvent event(NSEventType type, NSPoint point)
    {
        return {type, {point.x + kOffset.x, point.y + kOffset.y}};
    }

    /// What the mouse will do next.
    void addEvent(NSEventType type, NSPoint point) { m_events.push_back(event(type, point)); }

    [[nodiscard]] std::size_t eventCount() const { return m_events.size(); }

    [[nodiscard]] int displayCount() const { return m_displayCount; }

private:
    NSTextContainer m_textContainer;
    NSTextViewDelegate* m_delegate = nullptr;
    NSGraphicsContext* m_graphicsContext = nullptr;
    std::deque<NSEvent> m_events;
    int m_displayCount = 0;
};
