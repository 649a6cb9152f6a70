#include "platform/text/NSParagraphStyle.h"

#include "platform/text/ParagraphStyleCoding.h"

#include <algorithm>
#include <functional>
#include <utility>

NSParagraphStyle::Ref NSParagraphStyle::defaultParagraphStyle()
{
    static const Ref style = NSMutableParagraphStyle().copy();
    return style;
}

const NSParagraphStyle::TabStops& NSParagraphStyle::defaultTabStops()
{
    constexpr int kCount = 12;
    constexpr double kDistance = 28;
    static const TabStops tabStops = [] {
        TabStops stops;
        for (int index = 1; index <= kCount; ++index)
            stops.push_back(std::make_shared<const NSTextTab>(NSTextAlignment::Left, index * kDistance));
        return stops;
    }();
    return tabStops;
}

NSMutableParagraphStyle NSParagraphStyle::mutableCopy() const
{
    return NSMutableParagraphStyle(*this);
}

bool NSParagraphStyle::isEqual(const NSObject& other) const
{
    if (this == &other)
        return true;
    const auto* style = dynamic_cast<const NSParagraphStyle*>(&other);
    return style && m_values.equals(style->m_values);
}

bool NSParagraphStyle::Values::hasTabStops(const TabStops& stops) const
{
    return std::equal(
        tabStops.begin(), tabStops.end(), stops.begin(), stops.end(),
        [](const auto& one, const auto& other) { return one == other || one->isEqual(*other); });
}

bool NSParagraphStyle::Values::equals(const Values& other) const
{
    return alignment == other.alignment && lineBreakMode == other.lineBreakMode
        && baseWritingDirection == other.baseWritingDirection && allowsTightening == other.allowsTightening
        && usesDefaultHyphenation == other.usesDefaultHyphenation
        && hyphenationFactor == other.hyphenationFactor && tighteningFactor == other.tighteningFactor
        && defaultTabInterval == other.defaultTabInterval && lineSpacing == other.lineSpacing
        && paragraphSpacing == other.paragraphSpacing
        && paragraphSpacingBefore == other.paragraphSpacingBefore && headIndent == other.headIndent
        && firstLineHeadIndent == other.firstLineHeadIndent && tailIndent == other.tailIndent
        && minimumLineHeight == other.minimumLineHeight && maximumLineHeight == other.maximumLineHeight
        && lineHeightMultiple == other.lineHeightMultiple && headerLevel == other.headerLevel
        && lineBreakStrategy == other.lineBreakStrategy && textLists == other.textLists
        && textBlocks == other.textBlocks && hasTabStops(other.tabStops);
}

std::size_t NSParagraphStyle::hash() const
{
    auto hash = static_cast<std::size_t>(m_values.alignment);
    const auto add = [&hash](double value) { hash = hash * 31 + std::hash<double>()(value); };
    add(m_values.headIndent);
    add(m_values.firstLineHeadIndent);
    add(m_values.lineSpacing);
    add(m_values.paragraphSpacing);
    add(m_values.minimumLineHeight);
    add(m_values.lineHeightMultiple);
    for (const auto& list : m_values.textLists)
        hash = hash * 31 + std::hash<NSTextList::Ref>()(list);
    return hash;
}

const NSClass& NSParagraphStyle::classObject()
{
    static const NSClass object{"NSParagraphStyle", &NSObjectClass, &ParagraphStyleCoding::decode};
    return object;
}

const NSClass& NSParagraphStyle::mutableClassObject()
{
    static const NSClass object{"NSMutableParagraphStyle", &classObject(), &ParagraphStyleCoding::decode};
    return object;
}

const NSClass& NSParagraphStyle::classForCoder() const
{
    return classObject();
}

void NSParagraphStyle::encodeWithCoder(NSCoder& coder) const
{
    ParagraphStyleCoding::encode(*this, coder);
}

NSParagraphStyle::Ref NSMutableParagraphStyle::copy() const
{
    return std::make_shared<const NSParagraphStyle>(static_cast<const NSParagraphStyle&>(*this));
}

void NSMutableParagraphStyle::addTabStop(const NSTextTab::Ref& tabStop)
{
    auto& stops = m_values.tabStops;
    const auto behind = std::find_if(stops.begin(), stops.end(), [&tabStop](const auto& stop) {
        return stop->location() > tabStop->location();
    });
    stops.insert(behind, tabStop);
}

void NSMutableParagraphStyle::removeTabStop(const NSTextTab& tabStop)
{
    auto& stops = m_values.tabStops;
    const auto found = std::find_if(stops.begin(), stops.end(),
                                    [&tabStop](const auto& stop) { return stop->isEqual(tabStop); });
    if (found != stops.end())
        stops.erase(found);
}
