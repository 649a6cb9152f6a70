#include "colours/ColourSwatch.h"

namespace {

constexpr double kMargin = 2.0;
constexpr double kRimInset = 0.5;
constexpr double kRimWidth = 1.0;
constexpr double kShade = 0.1;

} // namespace

namespace CVLExtensions {

NSImage::Ref menuImageForColor(const NSColor::Ref& color, NSSize size, double scale, NSAppearance appearance)
{
    const auto shown = color ? color : NSColor::whiteColor();
    const auto draw = [&](NSGraphicsContext& context) {
        const auto disc = NSInsetRect({{}, size}, kMargin, kMargin);
        context.fillOvalInRect(disc, *shown);
        if (const auto rim = shown->shadowWithLevel(kShade, appearance))
            context.strokeOvalInRect(NSInsetRect(disc, kRimInset, kRimInset), kRimWidth, *rim);
    };
    return NSImage::imageWithSize(size, draw, scale, appearance);
}

NSColor::Ref linkTextColor(NSAppearance appearance)
{
    return NSColor::controlAccentColor()->shadowWithLevel(kShade, appearance);
}

} // namespace CVLExtensions
