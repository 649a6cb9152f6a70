#include "platform/drawing/NSGraphicsContext.h"

#include "platform/drawing/CairoTarget.h"
#include "platform/drawing/NSBezierPath.h"
#include "platform/text/NSColor.h"

#include <algorithm>
#include <cmath>

namespace {

/// Cairo keeps coordinates in 24 bits before the point and turns round without a word behind them.
constexpr double kFarthestPixel = 1e6;
/// Beyond it, coordinates lose all their digits.
constexpr double kLargestFactor = 1e6;

bool isFactor(double factor)
{
    return std::abs(factor) <= kLargestFactor && std::abs(factor) >= 1 / kLargestFactor;
}

bool isFinite(NSPoint point)
{
    return std::isfinite(point.x) && std::isfinite(point.y);
}

NSPoint withinReach(cairo_t* cairo, NSPoint point)
{
    auto x = point.x;
    auto y = point.y;
    cairo_user_to_device(cairo, &x, &y);
    if (std::abs(x) <= kFarthestPixel && std::abs(y) <= kFarthestPixel)
        return point;
    x = std::clamp(x, -kFarthestPixel, kFarthestPixel);
    y = std::clamp(y, -kFarthestPixel, kFarthestPixel);
    cairo_device_to_user(cairo, &x, &y);
    return {x, y};
}

void addElement(cairo_t* cairo, const NSBezierPath::Element& element)
{
    const auto reached = [&](std::size_t i) { return withinReach(cairo, element.points[i]); };
    const auto point = reached(0);
    switch (element.type) {
    case NSBezierPath::ElementType::MoveTo:
        cairo_move_to(cairo, point.x, point.y);
        break;
    case NSBezierPath::ElementType::LineTo:
        cairo_line_to(cairo, point.x, point.y);
        break;
    case NSBezierPath::ElementType::CurveTo: {
        const auto second = reached(1);
        const auto end = reached(2);
        cairo_curve_to(cairo, point.x, point.y, second.x, second.y, end.x, end.y);
        break;
    }
    case NSBezierPath::ElementType::ClosePath:
        cairo_close_path(cairo);
        break;
    }
}

cairo_line_cap_t lineCap(NSLineCapStyle style)
{
    switch (style) {
    case NSLineCapStyle::Round:
        return CAIRO_LINE_CAP_ROUND;
    case NSLineCapStyle::Square:
        return CAIRO_LINE_CAP_SQUARE;
    case NSLineCapStyle::Butt:
        break;
    }
    return CAIRO_LINE_CAP_BUTT;
}

cairo_line_join_t lineJoin(NSLineJoinStyle style)
{
    switch (style) {
    case NSLineJoinStyle::Round:
        return CAIRO_LINE_JOIN_ROUND;
    case NSLineJoinStyle::Bevel:
        return CAIRO_LINE_JOIN_BEVEL;
    case NSLineJoinStyle::Miter:
        break;
    }
    return CAIRO_LINE_JOIN_MITER;
}

/// To whole pixels, with at least one between them; which of them is the lower is kept.
void alignEdges(double& one, double& other)
{
    auto& low = one < other ? one : other;
    auto& high = one < other ? other : one;
    low = std::round(low);
    high = std::max(std::round(high), low + 1);
}

} // namespace

NSGraphicsContext::NSGraphicsContext(CairoTarget& target, NSAppearance appearance, Flipped flipped)
    : m_target(target)
    , m_appearance(appearance)
    , m_flipped(flipped)
{
}

NSGraphicsContext::~NSGraphicsContext()
{
    while (m_savedStates > 0)
        restoreGraphicsState();
}

void NSGraphicsContext::saveGraphicsState()
{
    cairo_save(m_target.cairo);
    ++m_savedStates;
}

void NSGraphicsContext::restoreGraphicsState()
{
    if (m_savedStates == 0)
        return;
    cairo_restore(m_target.cairo);
    --m_savedStates;
}

void NSGraphicsContext::translate(double x, double y)
{
    if (!isFinite({x, y}))
        return hideAll();
    cairo_translate(m_target.cairo, x, y);
}

void NSGraphicsContext::scale(double x, double y)
{
    if (!isFactor(x) || !isFactor(y))
        return hideAll();
    cairo_scale(m_target.cairo, x, y);
}

void NSGraphicsContext::clipToRect(NSRect rect)
{
    if (!addPath(NSBezierPath::bezierPathWithRect(rect)))
        return hideAll();
    cairo_set_fill_rule(m_target.cairo, CAIRO_FILL_RULE_WINDING);
    cairo_clip(m_target.cairo);
}

bool NSGraphicsContext::hasPixels() const
{
    return cairo_surface_get_type(cairo_get_target(m_target.cairo)) == CAIRO_SURFACE_TYPE_IMAGE;
}

double NSGraphicsContext::wholePixels(double lineWidth) const
{
    double pixels = lineWidth;
    double ignored = 0;
    cairo_user_to_device_distance(m_target.cairo, &pixels, &ignored);
    if (!hasPixels() || pixels <= 0)
        return lineWidth;
    pixels = std::max(std::round(pixels), 1.0);
    cairo_device_to_user_distance(m_target.cairo, &pixels, &ignored);
    return pixels;
}

NSRect NSGraphicsContext::alignedToPixels(NSRect rect) const
{
    auto* cairo = m_target.cairo;
    if (!hasPixels() || rect.size.width <= 0 || rect.size.height <= 0)
        return rect;
    auto [left, top] = rect.origin;
    auto right = left + rect.size.width;
    auto bottom = top + rect.size.height;
    cairo_user_to_device(cairo, &left, &top);
    cairo_user_to_device(cairo, &right, &bottom);
    alignEdges(left, right);
    alignEdges(top, bottom);
    cairo_device_to_user(cairo, &left, &top);
    cairo_device_to_user(cairo, &right, &bottom);
    return {{left, top}, {right - left, bottom - top}};
}

void NSGraphicsContext::fillRect(NSRect rect, const NSColor& color)
{
    fillPath(NSBezierPath::bezierPathWithRect(rect), color);
}

void NSGraphicsContext::fillOvalInRect(NSRect rect, const NSColor& color)
{
    fillPath(NSBezierPath::bezierPathWithOvalInRect(rect), color);
}

void NSGraphicsContext::strokeOvalInRect(NSRect rect, double lineWidth, const NSColor& color)
{
    auto path = NSBezierPath::bezierPathWithOvalInRect(rect);
    path.setLineWidth(lineWidth);
    strokePath(path, color);
}

void NSGraphicsContext::fillPath(const NSBezierPath& path, const NSColor& color)
{
    if (!setColor(color) || !addPath(path))
        return;
    const auto evenOdd = path.windingRule() == NSWindingRule::EvenOdd;
    cairo_set_fill_rule(m_target.cairo, evenOdd ? CAIRO_FILL_RULE_EVEN_ODD : CAIRO_FILL_RULE_WINDING);
    cairo_fill(m_target.cairo);
}

void NSGraphicsContext::strokePath(const NSBezierPath& path, const NSColor& color)
{
    if (!(path.lineWidth() > 0) || !std::isfinite(path.lineWidth()) || !setColor(color) || !addPath(path))
        return;
    cairo_set_line_width(m_target.cairo, std::min(path.lineWidth(), kFarthestPixel));
    cairo_set_line_cap(m_target.cairo, lineCap(path.lineCapStyle()));
    cairo_set_line_join(m_target.cairo, lineJoin(path.lineJoinStyle()));
    cairo_stroke(m_target.cairo);
}

bool NSGraphicsContext::setColor(const NSColor& color)
{
    const auto rgba = color.deviceRGBComponents(m_appearance);
    if (rgba)
        cairo_set_source_rgba(m_target.cairo, rgba->red, rgba->green, rgba->blue, rgba->alpha);
    return rgba.has_value();
}

bool NSGraphicsContext::addPath(const NSBezierPath& path)
{
    const auto isDrawable = [](const NSBezierPath::Element& element) {
        return std::all_of(element.points.begin(), element.points.end(), isFinite);
    };
    const auto& elements = path.elements();
    if (elements.empty() || !std::all_of(elements.begin(), elements.end(), isDrawable))
        return false;
    cairo_new_path(m_target.cairo);
    for (const auto& element : elements)
        addElement(m_target.cairo, element);
    return true;
}

void NSGraphicsContext::hideAll()
{
    cairo_new_path(m_target.cairo);
    cairo_rectangle(m_target.cairo, 0, 0, 0, 0);
    cairo_clip(m_target.cairo);
}
