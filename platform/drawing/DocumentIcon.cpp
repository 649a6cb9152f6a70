#include "platform/drawing/DocumentIcon.h"

#include "platform/drawing/IconGlyphs.h"
#include "platform/drawing/NSGraphicsContext.h"
#include "platform/drawing/NSStringDrawing.h"
#include "platform/foundation/Unicode.h"
#include "platform/text/NSAttributeNames.h"
#include "platform/text/NSAttributedString.h"
#include "platform/text/NSFont.h"
#include "platform/text/NSParagraphStyle.h"

#include <algorithm>

namespace {

constexpr NSRect kPage = {{4, 1}, {24, 30}};
constexpr double kCorner = 1.5;
constexpr double kFold = 7;
constexpr double kBandHeight = 9;
/// Of the glyph, above a band and on a page without one.
constexpr NSRect kSmallGlyph = {{10, 12.5}, {12, 12}};
constexpr NSRect kLargeGlyph = {{9, 7}, {14, 14}};
constexpr double kLargestLetters = 7;
constexpr double kSmallestLetters = 4;

struct PageColors {
    NSColor::Ref page;
    NSColor::Ref outline;
    NSColor::Ref fold;
};

NSColor::Ref grey(double level, double alpha = 1)
{
    return NSColor::colorWithRed(level, level, level, alpha);
}

/// A page stays a light thing in the dark, but does not shine.
PageColors pageColors(NSAppearance appearance)
{
    if (appearance == NSAppearance::Dark)
        return {grey(0.9), grey(0, 0.3), grey(0.72)};
    return {grey(1), grey(0, 0.28), grey(0.86)};
}

/// The page's outline, `inset` within its edge.
NSBezierPath pageOutline(double inset)
{
    const auto [origin, size] = NSInsetRect(kPage, inset, inset);
    const auto right = origin.x + size.width;
    const auto top = origin.y + size.height;
    NSBezierPath path;
    path.moveToPoint({origin.x + kCorner, origin.y});
    path.lineToPoint({right - kCorner, origin.y});
    path.curveToPoint({right, origin.y + kCorner}, {right, origin.y}, {right, origin.y});
    path.lineToPoint({right, top - kFold});
    path.lineToPoint({right - kFold, top});
    path.lineToPoint({origin.x + kCorner, top});
    path.curveToPoint({origin.x, top - kCorner}, {origin.x, top}, {origin.x, top});
    path.lineToPoint({origin.x, origin.y + kCorner});
    path.curveToPoint({origin.x + kCorner, origin.y}, {origin.x, origin.y}, {origin.x, origin.y});
    path.closePath();
    return path;
}

/// The corner that is folded over, which hides a triangle of the page.
NSBezierPath foldedCorner()
{
    const auto right = kPage.origin.x + kPage.size.width;
    const auto top = kPage.origin.y + kPage.size.height;
    NSBezierPath path;
    path.moveToPoint({right, top - kFold});
    path.lineToPoint({right - kFold, top});
    path.lineToPoint({right - kFold, top - kFold + kCorner});
    path.curveToPoint({right - kFold + kCorner, top - kFold}, {right - kFold, top - kFold},
                      {right - kFold, top - kFold});
    path.closePath();
    return path;
}

NSAttributedString letters(std::string_view extension, double size)
{
    std::u16string capitals;
    for (const char16_t unit : UTF16FromUTF8(extension))
        capitals += unit >= u'a' && unit <= u'z' ? static_cast<char16_t>(unit - u'a' + u'A') : unit;
    NSMutableParagraphStyle style;
    style.setAlignment(NSTextAlignment::Center);
    style.setLineBreakMode(NSLineBreakMode::TruncatingTail);
    return NSAttributedString(capitals,
                              {{std::u16string(NSFontAttributeName), NSFont::boldSystemFontOfSize(size)},
                               {std::u16string(NSForegroundColorAttributeName), grey(1)},
                               {std::u16string(NSParagraphStyleAttributeName), style.copy()}});
}

void drawBand(std::string_view extension, const NSColor& color, NSGraphicsContext& context)
{
    const GraphicsState state(context);
    context.clipToRect({kPage.origin, {kPage.size.width, kBandHeight}});
    context.fillPath(pageOutline(0), color);
    const auto room = kPage.size.width - 2;
    const auto widest = sizeOfAttributedString(letters(extension, kLargestLetters)).width;
    const auto size
        = std::clamp(kLargestLetters * room / std::max(widest, 1.0), kSmallestLetters, kLargestLetters);
    const auto text = letters(extension, size);
    const auto height = sizeOfAttributedString(text).height;
    drawAttributedString(
        text, {{kPage.origin.x + 1, kPage.origin.y + (kBandHeight - height) / 2}, {room, height}}, context);
}

void drawGlyph(const IconKind& kind, NSRect rect, const std::vector<NSColor::Ref>& palette,
               NSGraphicsContext& context)
{
    const GraphicsState state(context);
    context.translate(rect.origin.x, rect.origin.y);
    context.scale(rect.size.width / IconGlyphs::kIconGlyphSide,
                  rect.size.height / IconGlyphs::kIconGlyphSide);
    drawSymbolParts(kind.glyph(), palette, context);
}

} // namespace

void drawDocumentIcon(const IconKind& kind, std::string_view extension, NSGraphicsContext& context)
{
    const auto colors = pageColors(context.appearance());
    // On a page that is light in the dark too, colours made for dark grounds would be pale.
    const auto color = NSColor::systemColorNamed(kind.colorName)
                           ->colorUsingType(NSColorType::ComponentBased, NSAppearance::Light);
    context.fillPath(pageOutline(0), *colors.page);
    drawGlyph(kind, extension.empty() ? kLargeGlyph : kSmallGlyph, {color, colors.page}, context);
    if (!extension.empty())
        drawBand(extension, *color, context);
    context.fillPath(foldedCorner(), *colors.fold);
    auto outline = pageOutline(0.25);
    outline.setLineWidth(0.5);
    context.strokePath(outline, *colors.outline);
}
