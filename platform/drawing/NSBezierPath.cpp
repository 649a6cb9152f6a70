#include "platform/drawing/NSBezierPath.h"

#include <algorithm>
#include <cmath>
#include <numbers>

namespace {

/// The length of the arms that make a cubic curve follow a quarter of a circle of radius 1.
constexpr double kQuarterArm = 4.0 / 3.0 * (std::numbers::sqrt2 - 1);

bool hasArea(NSRect rect)
{
    return rect.size.width > 0 && rect.size.height > 0;
}

/// A rectangle that grows around points.
class Extent {
public:
    void add(NSPoint point)
    {
        m_low = m_empty ? point : NSPoint{std::min(m_low.x, point.x), std::min(m_low.y, point.y)};
        m_high = m_empty ? point : NSPoint{std::max(m_high.x, point.x), std::max(m_high.y, point.y)};
        m_empty = false;
    }

    [[nodiscard]] NSRect rect() const { return {m_low, {m_high.x - m_low.x, m_high.y - m_low.y}}; }

private:
    bool m_empty = true;
    NSPoint m_low;
    NSPoint m_high;
};

NSPoint pointOfCurve(NSPoint start, const std::array<NSPoint, 3>& points, double t)
{
    const auto u = 1 - t;
    const auto mix = [&](double from, double one, double two, double to) {
        return u * u * u * from + 3 * u * u * t * one + 3 * u * t * t * two + t * t * t * to;
    };
    return {mix(start.x, points[0].x, points[1].x, points[2].x),
            mix(start.y, points[0].y, points[1].y, points[2].y)};
}

/// Where one coordinate of a curve turns back: the roots of its derivative between 0 and 1.
std::vector<double> turns(double from, double one, double two, double to)
{
    const auto a = to - 3 * two + 3 * one - from;
    const auto b = 2 * (two - 2 * one + from);
    const auto c = one - from;
    std::vector<double> roots;
    const auto keep = [&](double t) {
        if (t > 0 && t < 1)
            roots.push_back(t);
    };
    if (std::abs(a) < 1e-12) {
        keep(-c / b);
        return roots;
    }
    const auto discriminant = b * b - 4 * a * c;
    if (discriminant < 0)
        return roots;
    keep((-b + std::sqrt(discriminant)) / (2 * a));
    keep((-b - std::sqrt(discriminant)) / (2 * a));
    return roots;
}

void addCurve(Extent& extent, NSPoint start, const std::array<NSPoint, 3>& points)
{
    extent.add(points[2]);
    for (const auto t : turns(start.x, points[0].x, points[1].x, points[2].x))
        extent.add(pointOfCurve(start, points, t));
    for (const auto t : turns(start.y, points[0].y, points[1].y, points[2].y))
        extent.add(pointOfCurve(start, points, t));
}

} // namespace

NSBezierPath NSBezierPath::bezierPathWithRect(NSRect rect)
{
    NSBezierPath path;
    if (!hasArea(rect))
        return path;
    const auto [x, y] = rect.origin;
    const auto [width, height] = rect.size;
    path.moveToPoint({x, y});
    path.lineToPoint({x + width, y});
    path.lineToPoint({x + width, y + height});
    path.lineToPoint({x, y + height});
    path.closePath();
    return path;
}

NSBezierPath NSBezierPath::bezierPathWithOvalInRect(NSRect rect)
{
    return bezierPathWithRoundedRect(rect, rect.size.width / 2, rect.size.height / 2);
}

NSBezierPath NSBezierPath::bezierPathWithRoundedRect(NSRect rect, double xRadius, double yRadius)
{
    if (!(xRadius > 0) || !(yRadius > 0))
        return bezierPathWithRect(rect);
    NSBezierPath path;
    if (!hasArea(rect))
        return path;
    const auto rx = std::min(xRadius, rect.size.width / 2);
    const auto ry = std::min(yRadius, rect.size.height / 2);
    const auto ax = rx * (1 - kQuarterArm);
    const auto ay = ry * (1 - kQuarterArm);
    const auto left = rect.origin.x;
    const auto low = rect.origin.y;
    const auto right = left + rect.size.width;
    const auto high = low + rect.size.height;
    path.moveToPoint({left + rx, low});
    path.lineToPoint({right - rx, low});
    path.curveToPoint({right, low + ry}, {right - ax, low}, {right, low + ay});
    path.lineToPoint({right, high - ry});
    path.curveToPoint({right - rx, high}, {right, high - ay}, {right - ax, high});
    path.lineToPoint({left + rx, high});
    path.curveToPoint({left, high - ry}, {left + ax, high}, {left, high - ay});
    path.lineToPoint({left, low + ry});
    path.curveToPoint({left + rx, low}, {left, low + ay}, {left + ax, low});
    path.closePath();
    return path;
}

void NSBezierPath::moveToPoint(NSPoint point)
{
    m_elements.push_back({ElementType::MoveTo, {point}});
}

void NSBezierPath::lineToPoint(NSPoint point)
{
    if (m_elements.empty())
        moveToPoint(point);
    m_elements.push_back({ElementType::LineTo, {point}});
}

void NSBezierPath::curveToPoint(NSPoint endPoint, NSPoint controlPoint1, NSPoint controlPoint2)
{
    if (m_elements.empty())
        moveToPoint(controlPoint1);
    m_elements.push_back({ElementType::CurveTo, {controlPoint1, controlPoint2, endPoint}});
}

void NSBezierPath::closePath()
{
    if (!m_elements.empty())
        m_elements.push_back({ElementType::ClosePath, {}});
}

void NSBezierPath::appendBezierPath(const NSBezierPath& path)
{
    // Inserting a vector into itself is undefined.
    const auto elements = path.m_elements;
    m_elements.insert(m_elements.end(), elements.begin(), elements.end());
}

NSRect NSBezierPath::bounds() const
{
    Extent extent;
    NSPoint start;
    NSPoint current;
    for (const auto& [type, points] : m_elements) {
        switch (type) {
        case ElementType::MoveTo:
            start = points[0];
            [[fallthrough]];
        case ElementType::LineTo:
            extent.add(points[0]);
            current = points[0];
            break;
        case ElementType::CurveTo:
            addCurve(extent, current, points);
            current = points[2];
            break;
        case ElementType::ClosePath:
            current = start;
            break;
        }
    }
    return extent.rect();
}
