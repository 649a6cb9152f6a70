#pragma once

#include "platform/text/NSAttributedString.h"

#include <string>
#include <vector>

/// An item of a checklist.
struct ChecklistItem {
    bool isDone = false;
    NSUInteger level = 0;
    std::u16string text;
};

/// The items of a text in its order, whether their boxes are attachments, the markers of text lists or
/// characters behind such a marker ("1. [ ] Milk"). An item is one paragraph, its lines joined by blanks.
/// Levels end at CVLChecklistMaxIndentationLevel.
[[nodiscard]] std::vector<ChecklistItem> checklistItems(const NSAttributedString& text);

/// Plain text as Markdown whose checklists are read: a line that begins with a box, one character, is an
/// item.
[[nodiscard]] std::u16string markdownOfBoxes(std::u16string_view text);

/// As Markdown: "    - [x] Milk".
[[nodiscard]] std::string checklistLine(const ChecklistItem& item);

/// One line of JSON.
[[nodiscard]] std::string checklistJSON(const ChecklistItem& item);
