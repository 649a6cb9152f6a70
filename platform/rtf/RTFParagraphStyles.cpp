#include "platform/rtf/RTFParagraphStyles.h"

#include "platform/rtf/RTFLimits.h"
#include "platform/rtf/RTFUnits.h"

#include <algorithm>
#include <cstdint>
#include <initializer_list>

namespace {

/// What ends the column of a decimal tab.
constexpr std::u16string_view kDecimalSeparator = u".";

NSTextTab::Ref tabStop(const RTFTab& tab)
{
    const auto location = pointsFromTwips(tab.location);
    switch (tab.kind) {
    case RTFTabKind::Right:
        return std::make_shared<const NSTextTab>(NSTextAlignment::Right, location);
    case RTFTabKind::Center:
        return std::make_shared<const NSTextTab>(NSTextAlignment::Center, location);
    case RTFTabKind::Decimal:
        return std::make_shared<const NSTextTab>(
            NSTextAlignment::Right, location,
            NSAny::Dictionary{{std::u16string(NSTabColumnTerminatorsAttributeName), kDecimalSeparator}});
    default:
        return std::make_shared<const NSTextTab>(NSTextAlignment::Left, location);
    }
}

NSWritingDirection directionOf(const RTFParagraphFormat& format)
{
    switch (format.direction) {
    case RTFDirection::Natural:
        return NSWritingDirection::Natural;
    case RTFDirection::RightToLeft:
        return NSWritingDirection::RightToLeft;
    default:
        return NSWritingDirection::LeftToRight;
    }
}

NSTextAlignment alignmentOf(const RTFParagraphFormat& format)
{
    switch (format.alignment) {
    case RTFAlignment::Left:
        return NSTextAlignment::Left;
    case RTFAlignment::Right:
        return NSTextAlignment::Right;
    case RTFAlignment::Center:
        return NSTextAlignment::Center;
    case RTFAlignment::Justified:
        return NSTextAlignment::Justified;
    case RTFAlignment::Natural:
        return NSTextAlignment::Natural;
    default:
        return format.direction == RTFDirection::Natural ? NSTextAlignment::Natural : NSTextAlignment::Left;
    }
}

void setLineHeight(NSMutableParagraphStyle& style, const RTFParagraphFormat& format)
{
    style.setMinimumLineHeight(std::max(pointsFromTwips(format.minimumLineHeight), 0.0));
    style.setMaximumLineHeight(std::max(pointsFromTwips(format.maximumLineHeight), 0.0));
    if (format.isLineHeightMultiple) {
        style.setLineHeightMultiple(std::max(format.lineHeight / kLineHeightUnits, 0.0));
    } else if (format.lineHeight > 0) {
        style.setMinimumLineHeight(pointsFromTwips(format.lineHeight));
    } else if (format.lineHeight < 0) {
        style.setMinimumLineHeight(-pointsFromTwips(format.lineHeight));
        style.setMaximumLineHeight(-pointsFromTwips(format.lineHeight));
    }
}

void setIndents(NSMutableParagraphStyle& style, const RTFParagraphFormat& format, const RTFPage& page)
{
    const auto points = [](std::int64_t twips) { return static_cast<double>(twips) / kTwipsOfPoint; };
    style.setHeadIndent(points(format.headIndent));
    style.setFirstLineHeadIndent(points(std::int64_t{format.headIndent} + format.firstIndent));
    if (format.rightIndent != 0)
        style.setTailIndent(points(std::int64_t{page.textWidth} - format.rightIndent));
}

} // namespace

std::size_t RTFParagraphStyles::Hash::operator()(const RTFParagraphFormat& format) const noexcept
{
    std::size_t hash = format.tabs.size();
    const auto add = [&hash](std::int64_t number) {
        hash = (hash ^ static_cast<std::size_t>(number)) * 0x9E3779B97F4A7C15U;
        hash ^= hash >> 29U;
    };
    for (const auto& tab : format.tabs)
        add(tab.location);
    for (const auto number :
         {format.defaultTab.value_or(-1), format.headIndent, format.firstIndent, format.rightIndent,
          format.lineHeight, format.minimumLineHeight, format.maximumLineHeight, format.lineSpacing,
          format.spaceBefore, format.spaceAfter, format.hyphenation,
          static_cast<std::int32_t>(format.direction), static_cast<std::int32_t>(format.alignment),
          format.outlineLevel.value_or(-1), format.list, format.listLevel, format.tableDepth})
        add(number);
    return hash;
}

NSParagraphStyle::TabStops RTFParagraphStyles::tabStopsFor(const std::vector<RTFTab>& tabs)
{
    NSParagraphStyle::TabStops stops;
    m_tabCount += tabs.size();
    for (const auto& tab : tabs) {
        auto& known = m_tabStops[{tab.kind, tab.location}];
        if (!known)
            known = tabStop(tab);
        stops.push_back(known);
    }
    return stops;
}

const NSParagraphStyle::Ref& RTFParagraphStyles::styleFor(const RTFParagraphFormat& format,
                                                          const RTFPage& page)
{
    if (const auto known = m_known.find(format); known != m_known.end())
        return known->second;
    if (format.tabs.size() > kMostRTFTabsOfStyles - m_tabCount) {
        auto withoutTabs = format;
        withoutTabs.tabs.clear();
        return styleFor(withoutTabs, page);
    }
    return m_known.emplace(format, makeStyle(format, page)).first->second;
}

NSParagraphStyle::Ref RTFParagraphStyles::makeStyle(const RTFParagraphFormat& format, const RTFPage& page)
{
    NSMutableParagraphStyle style;
    style.setTabStops(tabStopsFor(format.tabs));
    style.setDefaultTabInterval(std::max(pointsFromTwips(format.defaultTab.value_or(page.defaultTab)), 0.0));
    setIndents(style, format, page);
    setLineHeight(style, format);
    style.setLineSpacing(pointsFromTwips(format.lineSpacing));
    style.setParagraphSpacingBefore(pointsFromTwips(format.spaceBefore));
    style.setParagraphSpacing(pointsFromTwips(format.spaceAfter));
    style.setHyphenationFactor(static_cast<float>(format.hyphenation / kHyphenationUnits));
    style.setBaseWritingDirection(directionOf(format));
    style.setAlignment(alignmentOf(format));
    style.setHeaderLevel(format.outlineLevel ? *format.outlineLevel + 1 : 0);
    style.setTextLists(m_lists.listsAt(format.list, format.listLevel));
    return style.copy();
}
