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

/// The items of a text in its order, whether their boxes are attachments or the markers of text lists.
/// Levels end at CVLChecklistMaxIndentationLevel.
[[nodiscard]] std::vector<ChecklistItem> checklistItems(const NSAttributedString& text);

/// As Markdown: "    - [x] Milk".
[[nodiscard]] std::string checklistLine(const ChecklistItem& item);

/// One line of JSON.
[[nodiscard]] std::string checklistJSON(const ChecklistItem& item);
