#include "richtext/ListRecognition.h"

#include "paragraphs/ParagraphStyles.h"
#include "platform/text/NSAttributeNames.h"
#include "richtext/LineStyles.h"

#include <optional>

namespace {

constexpr std::u16string_view kDiscMarker = u"\t\u2022\t";
constexpr std::u16string_view kHyphenMarker = u"\t-\t";
constexpr std::u16string_view kNumberEnd = u".\t";
constexpr NSUInteger kMostDigits = 3;
constexpr NSInteger kBase = 10;

bool isDigit(char16_t unit)
{
    return unit >= u'0' && unit <= u'9';
}

/// The 12 of a line "\t12.\tMilk"; none when the line has no number or nothing behind it.
std::optional<NSInteger> itemNumber(const NSAttributedString& text, NSRange line)
{
    const auto start = line.location + 1;
    if (text.characterAtIndex(line.location) != u'\t' || text.characterAtIndex(start) == u'0')
        return std::nullopt;
    NSInteger number = 0;
    auto location = start;
    for (; location < start + kMostDigits && isDigit(text.characterAtIndex(location)); ++location)
        number = number * kBase + (text.characterAtIndex(location) - u'0');
    const bool isNumber = location > start && text.hasPrefixAtIndex(kNumberEnd, location);
    if (!isNumber || location + kNumberEnd.size() >= NSMaxRange(line))
        return std::nullopt;
    return number;
}

/// A new list of the kind that the line looks like an item of; null when it looks like none.
NSTextList::Ref listForLine(const NSAttributedString& text, NSRange line)
{
    if (text.hasPrefixAtIndex(kDiscMarker, line.location))
        return std::make_shared<const NSTextList>(NSTextListMarkerDisc);
    if (text.hasPrefixAtIndex(kHyphenMarker, line.location))
        return std::make_shared<const NSTextList>(NSTextListMarkerHyphen);
    if (const auto number = itemNumber(text, line))
        return std::make_shared<const NSTextList>(std::u16string(NSTextListMarkerDecimal) + u".", 0, *number);
    return nullptr;
}

void convertLine(NSMutableAttributedString& text, NSRange line)
{
    const auto style = paragraphStyleAtIndex(text, line.location);
    if (!style || !style->textLists().empty() || !CVLExtensions::isListParagraphStyle(*style))
        return;
    const auto list = listForLine(text, line);
    if (!list)
        return;
    auto changed = style->mutableCopy();
    changed.setTextLists({list});
    text.addAttribute(NSParagraphStyleAttributeName, changed.copy(), line);
}

} // namespace

void DynamicColors::checkForTextListsAndConvertIfNecessary(NSMutableAttributedString& text)
{
    text.beginEditing();
    for (NSUInteger location = 0; location < text.length();) {
        convertLine(text, text.lineContentRangeAtIndex(location));
        location = NSMaxRange(text.lineRangeAtIndex(location));
    }
    text.endEditing();
}
