#include "richtext/ChecklistTextLists.h"

#include "attachments/CVLChecklistTextAttachment.h"
#include "paragraphs/ParagraphStyles.h"
#include "richtext/AttachmentRuns.h"
#include "richtext/LineStyles.h"
#include "richtext/ListIndentation.h"

#include <algorithm>
#include <iterator>
#include <optional>

namespace {

std::u16string_view markerFormat(bool isOn)
{
    return isOn ? NSTextListMarkerCheck : NSTextListMarkerCircle;
}

/// The characters that begin an item: tab, symbol, tab.
struct ItemMarkers {
    std::u16string ticked = textListMarker(NSTextList(markerFormat(true)), 0);
    std::u16string open = textListMarker(NSTextList(markerFormat(false)), 0);
};

/// What a line is, and how many units its marker takes.
struct Item {
    bool isOn;
    NSUInteger markerLength;
};

std::optional<Item> itemOfLine(const NSAttributedString& text, NSUInteger start, const NSTextList::Ref& list,
                               const ItemMarkers& markers)
{
    const bool hasTickedMarker = text.hasPrefixAtIndex(markers.ticked, start);
    const bool hasOpenMarker = text.hasPrefixAtIndex(markers.open, start);
    const auto length = hasTickedMarker ? markers.ticked.size() : hasOpenMarker ? markers.open.size() : 0;
    const auto format = list ? std::u16string_view(list->markerFormat()) : std::u16string_view();
    if (format == NSTextListMarkerCheck || hasTickedMarker)
        return Item{true, length};
    if (format == NSTextListMarkerCircle || hasOpenMarker)
        return Item{false, length};
    return std::nullopt;
}

std::shared_ptr<CVLChecklistTextAttachment> makeBox(bool isOn, const NSParagraphStyle::Ref& style)
{
    auto box = CVLChecklistTextAttachment::init();
    box->setOn(isOn);
    const auto depth = style ? style->textLists().size() : 0;
    box->setIndentationLevel(std::min(depth > 0 ? depth - 1 : 0, CVLChecklistMaxIndentationLevel));
    return box;
}

/// Replaces boxes, front to back. A line gets its style when its last box has been replaced, so that a line
/// with many boxes costs no more than as many lines with one.
class TextListConversion {
public:
    explicit TextListConversion(NSMutableAttributedString& text)
        : m_text(text)
    {
        indentToNextTabStop(m_base);
    }

    void replaceBox(const CVLChecklistTextAttachment& box, NSRange range);
    void finishLine();

private:
    [[nodiscard]] NSParagraphStyle::TextLists listsAround(NSUInteger level) const;

    NSMutableAttributedString& m_text;
    const ItemMarkers m_markers;
    NSMutableParagraphStyle m_base = CVLExtensions::listParagraphStyle();
    NSUInteger m_previousLevel = 0;
    NSParagraphStyle::TextLists m_previousLists;
    /// The line with the box replaced last, without its line end, and the style that it is to get.
    NSRange m_line;
    std::optional<NSMutableParagraphStyle> m_style;
};

/// The lists of the item before that an item of this level is in too.
NSParagraphStyle::TextLists TextListConversion::listsAround(NSUInteger level) const
{
    auto count = m_previousLists.size();
    if (level < m_previousLevel)
        count = std::min(count, level > 0 ? level - 1 : 0);
    else if (level == m_previousLevel)
        count = count > 0 ? count - 1 : 0;
    const auto end = std::next(m_previousLists.begin(), static_cast<std::ptrdiff_t>(count));
    return {m_previousLists.begin(), end};
}

void TextListConversion::replaceBox(const CVLChecklistTextAttachment& box, NSRange range)
{
    const bool isOnSameLine = m_style && NSMaxRange(range) <= NSMaxRange(m_line);
    if (!isOnSameLine)
        finishLine();
    const auto& marker = box.isOn() ? m_markers.ticked : m_markers.open;
    m_text.replaceCharactersInRange(range, marker);
    m_text.removeAttribute(NSAttachmentAttributeName, {range.location, marker.size()});

    NSParagraphStyle::TextBlocks blocks;
    if (isOnSameLine) {
        blocks = m_style->textBlocks();
        m_line.length = m_line.length - range.length + marker.size();
    } else {
        const auto style = paragraphStyleAtIndex(m_text, range.location);
        blocks = style ? style->textBlocks() : blocks;
        m_line = m_text.lineContentRangeAtIndex(range.location);
    }
    auto lists = listsAround(box.indentationLevel());
    lists.push_back(std::make_shared<const NSTextList>(markerFormat(box.isOn())));
    m_previousLists = lists;
    m_previousLevel = box.indentationLevel();
    m_style = m_base;
    m_style->setTextLists(std::move(lists));
    m_style->setTextBlocks(std::move(blocks));
}

void TextListConversion::finishLine()
{
    if (m_style)
        m_text.addAttribute(NSParagraphStyleAttributeName, m_style->copy(),
                            m_text.lineRangeAtIndex(m_line.location));
    m_style.reset();
}

} // namespace

void DynamicColors::convertTextListsToChecklistAttachments(NSMutableAttributedString& text)
{
    const ItemMarkers markers;
    for (NSUInteger location = 0; location < text.length();) {
        const auto line = text.lineContentRangeAtIndex(location);
        location = NSMaxRange(text.lineRangeAtIndex(location));
        const auto style = paragraphStyleAtIndex(text, line.location);
        const auto item = itemOfLine(text, line.location, innermostTextList(style), markers);
        if (!item)
            continue;
        const auto box = makeBox(item->isOn, style);
        const auto boxText = NSAttributedString::attributedStringWithAttachment(box);
        text.replaceCharactersInRange({line.location, item->markerLength}, boxText);
        text.addAttribute(NSParagraphStyleAttributeName, box->checklistParagraphStyle(),
                          {line.location, line.length - item->markerLength + boxText.length()});
        location = location - item->markerLength + boxText.length();
    }
}

void DynamicColors::convertChecklistAttachmentsToTextLists(NSMutableAttributedString& text)
{
    TextListConversion conversion(text);
    enumerateAttachments<CVLChecklistTextAttachment>(
        text, [&conversion](const auto& box, NSRange range) { conversion.replaceBox(*box, range); });
    conversion.finishLine();
}
