#pragma once

#include "platform/foundation/NSRange.h"

#include <string>
#include <string_view>
#include <vector>

namespace CVLMarkdown {

/// The texts behind "* [x]", "- [x]" or "+ [x]", wherever these stand, each to the end of its line and
/// trimmed, the empty ones left out. Only the small "x" counts. A line that holds several has several items,
/// each within the one before; the items end where together they are 16 times the size of the text and more
/// than 1,048,576 units, which no text of people reaches.
[[nodiscard]] std::vector<std::u16string> completedChecklistItems(std::u16string_view text);

/// The same for "[ ]".
[[nodiscard]] std::vector<std::u16string> outstandingChecklistItems(std::u16string_view text);

} // namespace CVLMarkdown

namespace TSExtensions {

/// Whether the line is a checklist item, as CVLMarkdownChecklistOnString and CVLMarkdownChecklistOffString
/// begin one: after the indentation a bullet ("-", "*" or "+"), a space, "[x]" or "[ ]", and a space or the
/// line's end. As in the lists above only the small "x" is on. The indentation is spaces and tabs; four
/// spaces (CVLMarkdownChecklistIndentString) or a tab are a level, and what is less is none: "      - [ ] "
/// is on level 1. Out-parameters may be absent; they are set only when the answer is yes.
[[nodiscard]] bool getMarkdownChecklistValue(std::u16string_view line, bool* value = nullptr,
                                             NSUInteger* indentationLevel = nullptr);

} // namespace TSExtensions
