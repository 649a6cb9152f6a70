#include "richtext/HTMLNewlines.h"

#include "platform/text/NSAttributeNames.h"
#include "richtext/LineStyles.h"
#include "strings/StringCleaning.h"

#include <algorithm>

namespace {

constexpr std::u16string_view kLineBreak = u"\n";
constexpr std::u16string_view kTwoLineBreaks = u"\n\n";

struct Line {
    NSRange contents;
    /// Behind its line end.
    NSUInteger end;
};

/// What the range holds of the line at a location in it.
Line lineWithin(const NSAttributedString& text, NSUInteger location, NSRange range)
{
    const auto whole = text.lineContentRangeAtIndex(location);
    const auto start = std::max(whole.location, range.location);
    const auto contentsEnd = std::clamp(NSMaxRange(whole), start, NSMaxRange(range));
    const auto end = std::min(NSMaxRange(text.lineRangeAtIndex(location)), NSMaxRange(range));
    return {{start, contentsEnd - start}, end};
}

bool isBlank(const NSAttributedString& text, const Line& line)
{
    return TSExtensions::stringByTrimmingWhitespace(text.substringWithRange(line.contents)).empty();
}

bool hasSpacing(const NSAttributedString& text, NSRange range)
{
    bool found = false;
    text.enumerateAttribute(
        NSParagraphStyleAttributeName, range, {}, [&found](const NSAny& value, NSRange, bool& stop) {
            const auto style = value.object<NSParagraphStyle>();
            found = style && (style->paragraphSpacing() > 0 || style->paragraphSpacingBefore() > 0);
            stop = found;
        });
    return found;
}

bool hasBlankLine(const NSAttributedString& text, NSRange range)
{
    for (auto location = range.location; location < NSMaxRange(range);) {
        const auto line = lineWithin(text, location, range);
        if (line.end < text.length() && isBlank(text, line))
            return true;
        location = line.end;
    }
    return false;
}

void removeSpacing(NSMutableAttributedString& text, const Line& line)
{
    const auto start = line.contents.location;
    const auto style = paragraphStyleAtIndex(text, start);
    if (!style)
        return;
    auto changed = style->mutableCopy();
    changed.setParagraphSpacing(0);
    changed.setParagraphSpacingBefore(0);
    text.addAttribute(NSParagraphStyleAttributeName, changed.copy(), {start, line.end - start});
}

bool standsBeforeBlankLine(const NSAttributedString& text, const Line& line)
{
    const auto contentsEnd = NSMaxRange(line.contents);
    return text.length() > contentsEnd + kTwoLineBreaks.size()
        && text.hasPrefixAtIndex(kTwoLineBreaks, contentsEnd);
}

/// The break has the attributes of the character before it, but is no attachment if that is one.
void insertLineBreak(NSMutableAttributedString& text, NSUInteger location)
{
    text.replaceCharactersInRange({location, 0}, kLineBreak);
    text.removeAttribute(NSAttachmentAttributeName, {location, kLineBreak.size()});
}

/// Last to first, so that what is inserted never moves a line that is still to come.
NSUInteger separateParagraphs(NSMutableAttributedString& text, NSRange range)
{
    const bool isSpaced = hasSpacing(text, range);
    bool isFollowedByListLine = false;
    NSUInteger inserted = 0;
    for (auto end = NSMaxRange(range); end > range.location;) {
        const auto line = lineWithin(text, end - 1, {range.location, end - range.location});
        end = line.contents.location;
        if (isBlank(text, line))
            continue;
        const bool isListLine = innermostTextList(paragraphStyleAtIndex(text, end)) != nullptr;
        const bool isWithinList = isListLine && isFollowedByListLine;
        isFollowedByListLine = isListLine;
        if (isWithinList)
            continue;
        if (isSpaced)
            removeSpacing(text, line);
        if (isSpaced && standsBeforeBlankLine(text, line))
            continue;
        insertLineBreak(text, line.end);
        inserted += kLineBreak.size();
    }
    return inserted;
}

} // namespace

NSRange DynamicColors::cleanupHTMLNewlinesInRange(NSMutableAttributedString& text, NSRange range)
{
    auto result = NSIntersectionRange(range, {0, text.length()});
    if (!hasBlankLine(text, result))
        result.length += separateParagraphs(text, result);
    return result;
}
