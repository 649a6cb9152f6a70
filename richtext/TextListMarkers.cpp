#include "richtext/TextListMarkers.h"

#include "platform/text/NSAttributeNames.h"
#include "richtext/LineStyles.h"

namespace {

/// The number of units inserted.
NSUInteger addMarker(NSMutableAttributedString& text, NSUInteger location, std::u16string marker)
{
    if (text.hasPrefixAtIndex(marker, location))
        return 0;
    const auto length = marker.size();
    const std::u16string name(NSParagraphStyleAttributeName);
    const auto style = text.attribute(name, location);
    text.insertAttributedString(NSAttributedString(std::move(marker), {{name, style}}), location);
    return length;
}

} // namespace

void DynamicColors::addTextMarkersIfNecessary(NSMutableAttributedString& text)
{
    if (NSTextList::includesTextListMarkers())
        return;
    NSInteger itemNumber = 0;
    for (NSUInteger location = 0; location < text.length();) {
        // Taken before the marker is in: a marker's format may hold line ends.
        auto lineEnd = NSMaxRange(text.lineRangeAtIndex(location));
        const auto list = innermostTextList(paragraphStyleAtIndex(text, location));
        itemNumber = list ? itemNumber + 1 : 0;
        if (list)
            lineEnd += addMarker(text, location, textListMarker(*list, itemNumber));
        location = lineEnd;
    }
}

NSMutableAttributedString DynamicColors::stringWithTextListMarkers(const NSAttributedString& text)
{
    NSMutableAttributedString marked(text);
    addTextMarkersIfNecessary(marked);
    return marked;
}
