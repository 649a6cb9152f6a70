#include "platform/drawing/FolderIcon.h"

#include "platform/drawing/NSBezierPath.h"
#include "platform/drawing/NSGraphicsContext.h"
#include "platform/text/NSColor.h"

namespace {

constexpr double kCorner = 2;
/// The front leaves the top of the back to be seen.
constexpr NSRect kBack = {{2, 5}, {28, 20.5}};
constexpr NSRect kFront = {{2, 5}, {28, 17.5}};
constexpr NSRect kTab = {{2, 20}, {12, 8}};
constexpr double kShade = 0.18;
constexpr double kSheen = 0.25;

} // namespace

void drawFolderIcon(NSGraphicsContext& context)
{
    const auto rounded = [&](NSRect rect, const NSColor& color) {
        context.fillPath(NSBezierPath::bezierPathWithRoundedRect(rect, kCorner, kCorner), color);
    };
    const auto color = NSColor::systemColorNamed(u"systemCyanColor");
    const auto back = color->shadowWithLevel(kShade, context.appearance());
    rounded(kTab, *back);
    rounded(kBack, *back);
    rounded(kFront, *color);
    // The upper edge of the front catches the light.
    const auto sheen = color->highlightWithLevel(kSheen, context.appearance());
    context.fillRect({{kFront.origin.x + kCorner, kFront.origin.y + kFront.size.height - 0.5},
                      {kFront.size.width - 2 * kCorner, 0.5}},
                     *sheen);
}
