#pragma once

#include "platform/text/NSAttributedString.h"

#include <string>
#include <vector>

/// The items of a note's checklists, in the text's order: the line of each box, without white space and line
/// ends at its ends. The box's own character, U+FFFC, is part of it. A line with several boxes is given for
/// each of them; the items end where together they are 16 times the size of the text and more than 1,048,576
/// units, which no text of people reaches.
namespace DynamicColors {

/// Of boxes that are off.
[[nodiscard]] std::vector<std::u16string> outstandingChecklistItems(const NSAttributedString& text);

/// Of boxes that are on.
[[nodiscard]] std::vector<std::u16string> completedChecklistItems(const NSAttributedString& text);

} // namespace DynamicColors
