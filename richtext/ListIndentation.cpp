#include "richtext/ListIndentation.h"

#include <algorithm>

namespace {

double nextIndent(const NSParagraphStyle& style)
{
    const auto& stops = style.tabStops();
    const auto next = std::find_if(stops.begin(), stops.end(), [&style](const NSTextTab::Ref& stop) {
        return stop->location() > style.headIndent();
    });
    if (next != stops.end() && (*next)->location() != 0)
        return (*next)->location();
    const auto indent = style.headIndent() + style.defaultTabInterval();
    return indent > 0 ? indent : NSParagraphStyle::defaultTabStops().front()->location();
}

} // namespace

void indentToNextTabStop(NSMutableParagraphStyle& style)
{
    const auto distance = nextIndent(style) - style.headIndent();
    style.setHeadIndent(style.headIndent() + distance);
    style.setFirstLineHeadIndent(style.firstLineHeadIndent() + distance);
}
