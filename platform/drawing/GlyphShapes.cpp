#include "platform/drawing/GlyphShapes.h"

namespace {

NSBezierPath through(std::initializer_list<NSPoint> points)
{
    NSBezierPath path;
    for (const auto point : points)
        path.lineToPoint(point);
    return path;
}

} // namespace

namespace GlyphShapes {

SymbolPart line(std::initializer_list<NSPoint> points, double width, std::size_t color)
{
    auto path = through(points);
    path.setLineWidth(width);
    path.setLineCapStyle(NSLineCapStyle::Round);
    path.setLineJoinStyle(NSLineJoinStyle::Round);
    return {SymbolPart::Ink::Stroke, std::move(path), color};
}

SymbolPart polygon(std::initializer_list<NSPoint> points, std::size_t color)
{
    auto path = through(points);
    path.closePath();
    return {SymbolPart::Ink::Fill, std::move(path), color};
}

SymbolPart disc(NSPoint centre, double radius, std::size_t color)
{
    const auto rect = NSMakeRect(centre.x - radius, centre.y - radius, 2 * radius, 2 * radius);
    return {SymbolPart::Ink::Fill, NSBezierPath::bezierPathWithOvalInRect(rect), color};
}

SymbolPart box(NSRect rect, double radius, std::size_t color)
{
    return {SymbolPart::Ink::Fill, NSBezierPath::bezierPathWithRoundedRect(rect, radius, radius), color};
}

SymbolPart ring(NSRect rect, double width)
{
    auto path = NSBezierPath::bezierPathWithOvalInRect(rect);
    path.setLineWidth(width);
    return {SymbolPart::Ink::Stroke, std::move(path), kKindColor};
}

SymbolPart frame(NSRect rect, double radius, double width)
{
    auto path = NSBezierPath::bezierPathWithRoundedRect(rect, radius, radius);
    path.setLineWidth(width);
    return {SymbolPart::Ink::Stroke, std::move(path), kKindColor};
}

} // namespace GlyphShapes
