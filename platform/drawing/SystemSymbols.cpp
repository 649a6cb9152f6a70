#include "platform/drawing/SystemSymbols.h"

#include "platform/drawing/NSImage.h"

#include <algorithm>
#include <array>

namespace {

constexpr double kSide = kSystemSymbolSide;
/// What is free around the round symbols: at 18 points a whole one, which keeps their edges sharp.
constexpr double kMargin = kSide / 18;
constexpr double kRingWidth = kSide / 12;
constexpr double kMarkWidth = kSide * 0.09;

/// All round symbols have the same outline, so that one can take the place of another.
NSRect disc()
{
    return NSInsetRect(NSMakeRect(0, 0, kSide, kSide), kMargin, kMargin);
}

NSBezierPath checkmark()
{
    NSBezierPath mark;
    mark.moveToPoint({kSide * 0.315, kSide * 0.475});
    mark.lineToPoint({kSide * 0.445, kSide * 0.335});
    mark.lineToPoint({kSide * 0.685, kSide * 0.665});
    mark.setLineWidth(kMarkWidth);
    mark.setLineCapStyle(NSLineCapStyle::Round);
    mark.setLineJoinStyle(NSLineJoinStyle::Round);
    return mark;
}

SymbolParts checkmarkCircleFill()
{
    return {{SymbolPart::Ink::Fill, NSBezierPath::bezierPathWithOvalInRect(disc()), 1},
            {SymbolPart::Ink::Stroke, checkmark(), 0}};
}

SymbolParts circle()
{
    auto ring = NSBezierPath::bezierPathWithOvalInRect(NSInsetRect(disc(), kRingWidth / 2, kRingWidth / 2));
    ring.setLineWidth(kRingWidth);
    return {{SymbolPart::Ink::Stroke, std::move(ring), 0}};
}

struct Symbol {
    std::u16string_view name;
    SymbolParts (*parts)();
};

constexpr std::array kSymbols{
    Symbol{u"checkmark.circle.fill", checkmarkCircleFill},
    Symbol{u"circle", circle},
};

} // namespace

SymbolParts systemSymbolParts(std::u16string_view name)
{
    const auto* symbol = std::find_if(kSymbols.begin(), kSymbols.end(),
                                      [&](const Symbol& candidate) { return candidate.name == name; });
    return symbol == kSymbols.end() ? SymbolParts{} : symbol->parts();
}

NSImage::Ref NSImage::imageWithSystemSymbolName(std::u16string_view name,
                                                const std::vector<NSColor::Ref>& paletteColors)
{
    auto parts = systemSymbolParts(name);
    if (parts.empty())
        return nullptr;
    return imageWithSize({kSide, kSide}, Flipped::No,
                         [parts = std::move(parts), paletteColors](NSGraphicsContext& context) {
                             drawSymbolParts(parts, paletteColors, context);
                         });
}
