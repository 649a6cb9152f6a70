#include "platform/drawing/GlyphShapes.h"
#include "platform/drawing/IconGlyphs.h"

using namespace GlyphShapes;

namespace {

constexpr double kPen = 1.7;

} // namespace

namespace IconGlyphs {

SymbolParts text()
{
    return {line({{1, 13.5}, {15, 13.5}}, kPen), line({{1, 9.8}, {15, 9.8}}, kPen),
            line({{1, 6.1}, {15, 6.1}}, kPen), line({{1, 2.4}, {9, 2.4}}, kPen)};
}

SymbolParts richText()
{
    return {line({{1.5, 13.2}, {10.5, 13.2}}, 3), line({{1, 8.4}, {15, 8.4}}, kPen),
            line({{1, 5.2}, {15, 5.2}}, kPen), line({{1, 2}, {11, 2}}, kPen)};
}

SymbolParts note()
{
    SymbolParts parts;
    for (const double y : {13.0, 8.0, 3.0}) {
        parts.push_back(disc({2, y}, 1.5));
        parts.push_back(line({{6.2, y}, {15, y}}, kPen));
    }
    return parts;
}

SymbolParts pages()
{
    return {box(NSMakeRect(0.5, 7.8, 7, 7), 1), line({{10.5, 13.8}, {15, 13.8}}, kPen),
            line({{10.5, 10.2}, {15, 10.2}}, kPen), line({{1.3, 5}, {15, 5}}, kPen),
            line({{1.3, 1.6}, {11, 1.6}}, kPen)};
}

SymbolParts spreadsheet()
{
    return {box(NSMakeRect(0.8, 10.4, 14.4, 4.2), 1), frame(NSMakeRect(0.8, 1.4, 14.4, 13.2), 1.5, 1.5),
            line({{1, 6.1}, {15, 6.1}}, 1.3), line({{5.6, 1.6}, {5.6, 10.4}}, 1.3),
            line({{10.4, 1.6}, {10.4, 10.4}}, 1.3)};
}

SymbolParts presentation()
{
    return {frame(NSMakeRect(0.8, 4.2, 14.4, 10.4), 1.5, 1.5),
            line({{4.6, 7.2}, {4.6, 9}}, 2),
            line({{8, 7.2}, {8, 11.6}}, 2),
            line({{11.4, 7.2}, {11.4, 10.2}}, 2),
            line({{8, 3.6}, {8, 2}}, kPen),
            line({{5, 1.2}, {11, 1.2}}, kPen)};
}

SymbolParts mail()
{
    return {box(NSMakeRect(0, 2.5, 16, 11), 1.8),
            line({{1.6, 11.6}, {8, 6.6}, {14.4, 11.6}}, 1.4, kPageColor)};
}

SymbolParts sourceCode()
{
    return {line({{4.6, 12}, {1, 8}, {4.6, 4}}, kPen), line({{11.4, 12}, {15, 8}, {11.4, 4}}, kPen),
            line({{9.4, 13.4}, {6.6, 2.6}}, kPen)};
}

SymbolParts book()
{
    return {polygon({{0.5, 13}, {4, 14}, {7.3, 12.8}, {7.3, 2.2}, {4, 3.4}, {0.5, 2.4}}),
            polygon({{15.5, 13}, {12, 14}, {8.7, 12.8}, {8.7, 2.2}, {12, 3.4}, {15.5, 2.4}})};
}

SymbolParts contact()
{
    NSBezierPath shoulders;
    shoulders.moveToPoint({1.5, 1});
    shoulders.curveToPoint({8, 7}, {1.5, 5}, {4, 7});
    shoulders.curveToPoint({14.5, 1}, {12, 7}, {14.5, 5});
    shoulders.closePath();
    return {{SymbolPart::Ink::Fill, std::move(shoulders), kKindColor}, disc({8, 11.2}, 3.5)};
}

SymbolParts calendar()
{
    SymbolParts parts{box(NSMakeRect(0.8, 10.2, 14.4, 4), 1), frame(NSMakeRect(0.8, 1, 14.4, 13.2), 1.5, 1.5),
                      line({{4.4, 15.2}, {4.4, 13.6}}, kPen), line({{11.6, 15.2}, {11.6, 13.6}}, kPen)};
    for (const double y : {7.2, 4.2}) {
        for (const double x : {4.4, 8.0, 11.6})
            parts.push_back(disc({x, y}, 0.95));
    }
    return parts;
}

} // namespace IconGlyphs
