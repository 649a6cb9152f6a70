#include "platform/layout/TextShadow.h"

#include "platform/drawing/CairoTarget.h"
#include "platform/drawing/NSGraphicsContext.h"
#include "platform/layout/LayoutLimits.h"
#include "platform/text/NSShadow.h"

#include <array>
#include <memory>

namespace {

constexpr double kFarthestShadow = 1000;
constexpr double kLargestBlur = 50;

struct PatternDeleter {
    void operator()(cairo_pattern_t* pattern) const { cairo_pattern_destroy(pattern); }
};

using Pattern = std::unique_ptr<cairo_pattern_t, PatternDeleter>;

Pattern inkWithin(NSRect rect, NSGraphicsContext& context, const std::function<void()>& drawInk)
{
    const GraphicsState state(context);
    context.clipToRect(rect);
    cairo_push_group(context.target().cairo);
    drawInk();
    return Pattern(cairo_pop_group(context.target().cairo));
}

void drawMask(cairo_t* cairo, cairo_pattern_t* ink, NSPoint offset)
{
    cairo_save(cairo);
    cairo_translate(cairo, offset.x, offset.y);
    cairo_mask(cairo, ink);
    cairo_restore(cairo);
}

} // namespace

void drawShadow(const NSShadow& shadow, NSRect inRect, NSGraphicsContext& context,
                const std::function<void()>& drawInk)
{
    const auto& color = shadow.shadowColor();
    const auto rgba = color ? color->deviceRGBComponents(context.appearance()) : std::nullopt;
    if (!rgba)
        return;
    const auto ink = inkWithin(inRect, context, drawInk);
    const auto x = boundedLength(shadow.shadowOffset().width, -kFarthestShadow, kFarthestShadow);
    const auto y = boundedLength(-shadow.shadowOffset().height, -kFarthestShadow, kFarthestShadow);
    const auto radius = boundedLength(shadow.shadowBlurRadius(), 0, kLargestBlur) / 2;
    auto* cairo = context.target().cairo;
    const GraphicsState state(context);
    if (radius == 0) {
        cairo_set_source_rgba(cairo, rgba->red, rgba->green, rgba->blue, rgba->alpha);
        return drawMask(cairo, ink.get(), {x, y});
    }
    constexpr double kDiagonal = 0.7071;
    constexpr std::array<NSPoint, 9> kAround{NSPoint{0, 0},
                                             {1, 0},
                                             {-1, 0},
                                             {0, 1},
                                             {0, -1},
                                             {kDiagonal, kDiagonal},
                                             {kDiagonal, -kDiagonal},
                                             {-kDiagonal, kDiagonal},
                                             {-kDiagonal, -kDiagonal}};
    // Each so faint that they are as dark as the shadow where most of them meet.
    cairo_set_source_rgba(cairo, rgba->red, rgba->green, rgba->blue, rgba->alpha / 4);
    for (const auto& around : kAround)
        drawMask(cairo, ink.get(), {x + around.x * radius, y + around.y * radius});
}
