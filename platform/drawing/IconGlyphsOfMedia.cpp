#include "platform/drawing/GlyphShapes.h"
#include "platform/drawing/IconGlyphs.h"

using namespace GlyphShapes;

namespace {

constexpr double kPen = 1.7;

} // namespace

namespace IconGlyphs {

SymbolParts image()
{
    return {disc({4, 12.2}, 2.2), polygon({{0, 1.8}, {5.6, 9.4}, {8.8, 5.2}, {11, 7.6}, {16, 1.8}})};
}

SymbolParts movie()
{
    return {box(NSMakeRect(0, 2, 16, 12), 2), polygon({{5.8, 11.4}, {11.6, 8}, {5.8, 4.6}}, kPageColor)};
}

SymbolParts audio()
{
    return {box(NSMakeRect(1, 1, 5, 3.8), 1.9), box(NSMakeRect(9.4, 2.4, 5, 3.8), 1.9),
            line({{5.2, 3}, {5.2, 12.4}}, 1.6), line({{13.6, 4.4}, {13.6, 13.8}}, 1.6),
            polygon({{4.4, 12}, {14.4, 13.6}, {14.4, 15.6}, {4.4, 14}})};
}

SymbolParts web()
{
    return {ring(NSMakeRect(1, 1, 14, 14), 1.4), ring(NSMakeRect(5, 1, 6, 14), 1.2),
            line({{1.6, 8}, {14.4, 8}}, 1.2)};
}

SymbolParts font()
{
    return {line({{1.6, 1.6}, {8, 14.6}, {14.4, 1.6}}, 2), line({{4.2, 6}, {11.8, 6}}, kPen)};
}

SymbolParts archive()
{
    SymbolParts parts;
    for (int tooth = 0; tooth < 5; ++tooth)
        parts.push_back(box(NSMakeRect(tooth % 2 == 0 ? 4.8 : 8, 14 - 2 * tooth, 3.2, 2), 0.4));
    parts.push_back(box(NSMakeRect(5.2, 0, 5.6, 5.4), 1.4));
    parts.push_back(box(NSMakeRect(7, 1.2, 2, 2.4), 0.8, kPageColor));
    return parts;
}

SymbolParts program()
{
    return {box(NSMakeRect(0, 1.6, 16, 12.8), 2), line({{3.2, 10.8}, {6, 8.2}, {3.2, 5.6}}, 1.5, kPageColor),
            line({{8, 5.2}, {12, 5.2}}, 1.5, kPageColor)};
}

SymbolParts database()
{
    NSBezierPath body;
    body.moveToPoint({1.5, 12.6});
    body.lineToPoint({1.5, 3.4});
    body.curveToPoint({14.5, 3.4}, {1.5, 0.2}, {14.5, 0.2});
    body.lineToPoint({14.5, 12.6});
    body.curveToPoint({1.5, 12.6}, {14.5, 15.8}, {1.5, 15.8});
    body.closePath();
    NSBezierPath rim;
    rim.moveToPoint({2.4, 11.4});
    rim.curveToPoint({13.6, 11.4}, {4, 9.2}, {12, 9.2});
    rim.setLineWidth(1.2);
    rim.setLineCapStyle(NSLineCapStyle::Round);
    return {{SymbolPart::Ink::Fill, std::move(body), kKindColor},
            {SymbolPart::Ink::Stroke, std::move(rim), kPageColor}};
}

SymbolParts none()
{
    return {};
}

} // namespace IconGlyphs
