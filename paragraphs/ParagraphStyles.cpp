#include "paragraphs/ParagraphStyles.h"

#include "platform/text/ListNumerals.h"

#include <algorithm>
#include <cmath>
#include <limits>
#include <memory>

namespace {

constexpr double kMarkerLocation = 11;
constexpr double kTextLocation = 36;
/// Stops of the default style up to here would catch the text behind a marker.
constexpr double kLastReplacedLocation = 56;

bool match(double one, double other)
{
    return std::fabs(one - other) <= std::numeric_limits<double>::epsilon();
}

bool hasListGeometry(const NSParagraphStyle& style)
{
    const auto& stops = style.tabStops();
    return style.firstLineHeadIndent() == 0 && style.headIndent() == kTextLocation && !stops.empty()
        && stops.front()->location() == kMarkerLocation;
}

} // namespace

NSMutableParagraphStyle CVLExtensions::listParagraphStyle()
{
    auto style = NSParagraphStyle::defaultParagraphStyle()->mutableCopy();
    NSParagraphStyle::TabStops stops;
    for (const double location : {kMarkerLocation, kTextLocation})
        stops.push_back(std::make_shared<const NSTextTab>(NSTextAlignment::Natural, location));
    std::copy_if(style.tabStops().begin(), style.tabStops().end(), std::back_inserter(stops),
                 [](const auto& stop) { return stop->location() > kLastReplacedLocation; });
    style.setTabStops(std::move(stops));
    style.setDefaultTabInterval(kTextLocation);
    style.setFirstLineHeadIndent(0);
    style.setHeadIndent(kTextLocation);
    return style;
}

std::u16string CVLExtensions::listMarkerForListStyle(NSInteger listStyle, NSInteger itemNumber)
{
    switch (listStyle) {
    case 1:
        return u"\t\u2022\t";
    case 2:
        return u"\t\u2043\t";
    case 3:
        return u"\t" + decimalNumeral(itemNumber) + u".\t";
    default:
        return {};
    }
}

bool CVLExtensions::isListParagraphStyle(const NSParagraphStyle& style)
{
    return hasListGeometry(style) || style.headIndent() - style.firstLineHeadIndent() == kTextLocation;
}

bool CVLExtensions::lineSpacingMatchesStyle(const NSParagraphStyle& style, const NSParagraphStyle& other)
{
    return match(style.lineHeightMultiple(), other.lineHeightMultiple())
        && match(style.lineSpacing(), other.lineSpacing())
        && match(style.paragraphSpacing(), other.paragraphSpacing())
        && match(style.paragraphSpacingBefore(), other.paragraphSpacingBefore())
        && match(style.minimumLineHeight(), other.minimumLineHeight())
        && match(style.maximumLineHeight(), other.maximumLineHeight());
}

bool CVLExtensions::isEqualToParagraphStyle(const NSParagraphStyle& style, const NSParagraphStyle& other)
{
    return style.alignment() == other.alignment() && lineSpacingMatchesStyle(style, other);
}

NSMutableParagraphStyle CVLExtensions::scaledParagraphStyle(const NSParagraphStyle& style, double factor)
{
    auto scaled = style.mutableCopy();
    scaled.setLineSpacing(style.lineSpacing() * factor);
    scaled.setParagraphSpacing(style.paragraphSpacing() * factor);
    scaled.setParagraphSpacingBefore(style.paragraphSpacingBefore() * factor);
    scaled.setMinimumLineHeight(style.minimumLineHeight() * factor);
    scaled.setMaximumLineHeight(style.maximumLineHeight() * factor);
    return scaled;
}

void CVLExtensions::applyLineSpacingFromStyle(NSMutableParagraphStyle& style, const NSParagraphStyle& other)
{
    style.setLineHeightMultiple(other.lineHeightMultiple());
    style.setLineSpacing(other.lineSpacing());
    style.setParagraphSpacing(other.paragraphSpacing());
    style.setParagraphSpacingBefore(other.paragraphSpacingBefore());
    style.setMinimumLineHeight(other.minimumLineHeight());
    style.setMaximumLineHeight(other.maximumLineHeight());
}
