#pragma once

#include "platform/foundation/NSGeometry.h"

#include <array>
#include <vector>

/// Which places a path that crosses itself surrounds.
enum class NSWindingRule { NonZero = 0, EvenOdd = 1 };

enum class NSLineCapStyle { Butt = 0, Round = 1, Square = 2 };

enum class NSLineJoinStyle { Miter = 0, Round = 1, Bevel = 2 };

/// Lines and curves, in points; a value. NSGraphicsContext fills it and draws its outline. A path with a
/// coordinate that is no finite number is not drawn.
class NSBezierPath {
public:
    enum class ElementType { MoveTo, LineTo, CurveTo, ClosePath };

    struct Element {
        ElementType type;
        /// One point of a move or a line; both control points and the end of a curve; none of a closing.
        std::array<NSPoint, 3> points;

        friend bool operator==(const Element&, const Element&) = default;
    };

    /// These three are empty when a side of the rectangle is not positive.
    [[nodiscard]] static NSBezierPath bezierPathWithRect(NSRect rect);
    /// The ellipse that touches the rectangle's sides.
    [[nodiscard]] static NSBezierPath bezierPathWithOvalInRect(NSRect rect);
    /// Radii are cut to half a side.
    [[nodiscard]] static NSBezierPath bezierPathWithRoundedRect(NSRect rect, double xRadius, double yRadius);

    void moveToPoint(NSPoint point);
    /// On an empty path these two begin at the first point that they are given.
    void lineToPoint(NSPoint point);
    void curveToPoint(NSPoint endPoint, NSPoint controlPoint1, NSPoint controlPoint2);
    /// Back to where the last move went.
    void closePath();
    void appendBezierPath(const NSBezierPath& path);

    [[nodiscard]] bool isEmpty() const { return m_elements.empty(); }

    [[nodiscard]] const std::vector<Element>& elements() const { return m_elements; }

    /// The smallest rectangle around the lines and curves themselves, without the width of their outline; all
    /// zero for an empty path.
    [[nodiscard]] NSRect bounds() const;

    [[nodiscard]] double lineWidth() const { return m_lineWidth; }

    /// Of the outline, half of it on either side.
    void setLineWidth(double width) { m_lineWidth = width; }

    [[nodiscard]] NSLineCapStyle lineCapStyle() const { return m_lineCapStyle; }

    void setLineCapStyle(NSLineCapStyle style) { m_lineCapStyle = style; }

    [[nodiscard]] NSLineJoinStyle lineJoinStyle() const { return m_lineJoinStyle; }

    void setLineJoinStyle(NSLineJoinStyle style) { m_lineJoinStyle = style; }

    [[nodiscard]] NSWindingRule windingRule() const { return m_windingRule; }

    void setWindingRule(NSWindingRule rule) { m_windingRule = rule; }

private:
    std::vector<Element> m_elements;
    double m_lineWidth = 1;
    NSLineCapStyle m_lineCapStyle = NSLineCapStyle::Butt;
    NSLineJoinStyle m_lineJoinStyle = NSLineJoinStyle::Miter;
    NSWindingRule m_windingRule = NSWindingRule::NonZero;
};
