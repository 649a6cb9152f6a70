#include "richtext/LineStyles.h"

#include "platform/text/NSAttributeNames.h"

NSParagraphStyle::Ref paragraphStyleAtIndex(const NSAttributedString& text, NSUInteger location)
{
    return text.attribute(NSParagraphStyleAttributeName, location).object<NSParagraphStyle>();
}

NSTextList::Ref innermostTextList(const NSParagraphStyle::Ref& style)
{
    return style && !style->textLists().empty() ? style->textLists().back() : nullptr;
}

std::u16string textListMarker(const NSTextList& list, NSInteger itemNumber)
{
    return u"\t" + list.markerForItemNumber(itemNumber) + u"\t";
}
