#pragma once

#include "attachments/CVLChecklistTextAttachment.h"
#include "tests/richtext/NoteText.h"

#include <memory>
#include <vector>

[[nodiscard]] inline std::shared_ptr<CVLChecklistTextAttachment> makeBox(bool isOn, NSUInteger level = 0)
{
    auto box = CVLChecklistTextAttachment::init();
    box->setOn(isOn);
    box->setIndentationLevel(level);
    return box;
}

/// State and level of an item, with what stands behind its box on the line.
struct ChecklistItem {
    bool isOn = false;
    NSUInteger level = 0;
    std::u16string characters;

    friend bool operator==(const ChecklistItem&, const ChecklistItem&) = default;
};

/// One line for each item.
[[nodiscard]] inline NSMutableAttributedString checklistText(const std::vector<ChecklistItem>& items)
{
    NoteText text;
    for (const auto& item : items) {
        const auto box = makeBox(item.isOn, item.level);
        const NSAttributes attributes{
            {std::u16string(NSParagraphStyleAttributeName), box->checklistParagraphStyle()}};
        text.addAttachment(box, attributes).add(item.characters + u"\n", attributes);
    }
    return text.text();
}

/// The items of all boxes, one a line.
[[nodiscard]] inline std::vector<ChecklistItem> itemsOf(const NSAttributedString& text)
{
    std::vector<ChecklistItem> items;
    text.enumerateAttribute(NSAttachmentAttributeName, [&](const NSAny& value, NSRange range, bool&) {
        const auto box = value.mutableObject<CVLChecklistTextAttachment>();
        if (!box)
            return;
        const auto start = NSMaxRange(range);
        const auto end = NSMaxRange(text.lineContentRangeAtIndex(start));
        items.push_back(
            {box->isOn(), box->indentationLevel(), text.substringWithRange({start, end - start})});
    });
    return items;
}

/// Whether attachments stand on attachment characters only.
[[nodiscard]] inline bool attachmentsAreInPlace(const NSAttributedString& text)
{
    for (NSUInteger index = 0; index < text.length(); ++index) {
        if (text.characterAtIndex(index) != NSAttachmentCharacter
            && text.attribute(NSAttachmentAttributeName, index))
            return false;
    }
    return true;
}
