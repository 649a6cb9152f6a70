#include "platform/word/WordParagraphStyle.h"

#include <algorithm>

namespace {

/// Where the marker stands behind the line's start.
constexpr double kFirstListTab = 11;

NSTextAlignment alignmentOf(const WordParagraphProperties& properties)
{
    if (!properties.alignment)
        return NSTextAlignment::Natural;
    if (!properties.isRightToLeft.value_or(false))
        return *properties.alignment;
    switch (*properties.alignment) {
    case NSTextAlignment::Left:
        return NSTextAlignment::Right;
    case NSTextAlignment::Right:
        return NSTextAlignment::Left;
    default:
        return *properties.alignment;
    }
}

NSParagraphStyle::TabStops tabStopsOf(const WordParagraphProperties& properties)
{
    NSParagraphStyle::TabStops stops;
    for (const auto& stop : properties.tabStops) {
        if (!stop.isCleared)
            stops.push_back(std::make_shared<const NSTextTab>(stop.alignment, stop.location));
    }
    return stops;
}

void setIndents(NSMutableParagraphStyle& style, const WordParagraphProperties& properties)
{
    const auto left = properties.leftIndent.value_or(0);
    style.setHeadIndent(left);
    style.setFirstLineHeadIndent(left + properties.firstLineIndent.value_or(0));
    if (const auto right = properties.rightIndent.value_or(0); right > 0)
        style.setTailIndent(-right);
}

void setListGeometry(NSMutableParagraphStyle& style, const WordParagraphProperties& properties)
{
    const auto first = std::max(style.firstLineHeadIndent() - kFirstListTab, 0.0);
    const auto head = std::max(style.headIndent(), first + 2 * kFirstListTab);
    style.setHeadIndent(head);
    style.setFirstLineHeadIndent(first);
    NSParagraphStyle::TabStops stops{
        std::make_shared<const NSTextTab>(NSTextAlignment::Natural, first + kFirstListTab),
        std::make_shared<const NSTextTab>(NSTextAlignment::Natural, head)};
    for (const auto& stop : tabStopsOf(properties)) {
        if (stop->location() > head)
            stops.push_back(stop);
    }
    style.setTabStops(std::move(stops));
}

void setLineHeight(NSMutableParagraphStyle& style, const WordParagraphProperties& properties)
{
    if (!properties.line || *properties.line <= 0)
        return;
    switch (properties.lineRule.value_or(WordLineRule::Multiple)) {
    case WordLineRule::Multiple:
        style.setLineHeightMultiple(*properties.line == 1 ? 0 : *properties.line);
        break;
    case WordLineRule::Exactly:
        style.setMinimumLineHeight(*properties.line);
        style.setMaximumLineHeight(*properties.line);
        break;
    case WordLineRule::AtLeast:
        style.setMinimumLineHeight(*properties.line);
        break;
    }
}

} // namespace

NSMutableParagraphStyle wordParagraphStyle(const WordParagraphProperties& properties, NSInteger headerLevel,
                                           const NSParagraphStyle::TextLists& lists, double tabInterval)
{
    NSMutableParagraphStyle style;
    style.setAlignment(alignmentOf(properties));
    if (properties.isRightToLeft.value_or(false))
        style.setBaseWritingDirection(NSWritingDirection::RightToLeft);
    style.setParagraphSpacingBefore(std::max(properties.spacingBefore.value_or(0), 0.0));
    style.setParagraphSpacing(std::max(properties.spacingAfter.value_or(0), 0.0));
    style.setHeaderLevel(headerLevel);
    style.setTabStops(tabStopsOf(properties));
    style.setDefaultTabInterval(tabInterval);
    style.setTextLists(lists);
    setLineHeight(style, properties);
    setIndents(style, properties);
    if (!lists.empty())
        setListGeometry(style, properties);
    return style;
}
