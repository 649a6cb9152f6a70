#include "richtext/ChecklistItems.h"

#include "attachments/CVLChecklistTextAttachment.h"
#include "richtext/AttachmentRuns.h"
#include "strings/StringCleaning.h"

#include <algorithm>
#include <utility>

namespace {

constexpr NSUInteger kMostGrowth = 16;
constexpr NSUInteger kAlwaysRoom = 1U << 20U;

class ItemCollection {
public:
    explicit ItemCollection(const NSAttributedString& text)
        : m_text(text)
        , m_room(std::max(kMostGrowth * text.length(), kAlwaysRoom))
    {
    }

    /// Adds the line that holds the location.
    void add(NSUInteger location)
    {
        if (!NSLocationInRange(location, m_line))
            readLine(location);
        if (m_line.length == 0 || m_isFull)
            return;
        m_isFull = m_item.size() > m_room;
        if (m_isFull)
            return;
        m_room -= m_item.size();
        m_items.push_back(m_item);
    }

    [[nodiscard]] std::vector<std::u16string> items() && { return std::move(m_items); }

private:
    void readLine(NSUInteger location)
    {
        m_line = m_text.lineRangeAtIndex(location);
        m_item = TSExtensions::stringByTrimmingWhitespace(m_text.substringWithRange(m_line));
    }

    const NSAttributedString& m_text;
    NSUInteger m_room;
    bool m_isFull = false;
    NSRange m_line;
    /// The characters of that line.
    std::u16string m_item;
    std::vector<std::u16string> m_items;
};

std::vector<std::u16string> itemsOfBoxes(const NSAttributedString& text, bool areOn)
{
    ItemCollection collection(text);
    enumerateAttachments<CVLChecklistTextAttachment>(text, [&](const auto& box, NSRange range) {
        if (box->isOn() == areOn)
            collection.add(NSMaxRange(range));
    });
    return std::move(collection).items();
}

} // namespace

std::vector<std::u16string> DynamicColors::outstandingChecklistItems(const NSAttributedString& text)
{
    return itemsOfBoxes(text, false);
}

std::vector<std::u16string> DynamicColors::completedChecklistItems(const NSAttributedString& text)
{
    return itemsOfBoxes(text, true);
}
