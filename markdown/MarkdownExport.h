#pragma once

#include "platform/text/NSAttributedString.h"

#include <string>

/// A text as Markdown of the kind that attributedStringWithMarkdown reads back: headings, lists in lists,
/// boxes to tick, quotes (blocks with a line at their left and nothing else), code, rules, strong,
/// emphasised, struck highlighted, raised and lowered text, and links. An attachment is an image or a link by
/// its file's name. Beside that, tables become rows of cells between bars, the first of them their head;
/// cells that others reach over are empty. What Markdown has no form for is left out: sizes, colours,
/// alignment. Emphasis that begins or ends between punctuation and a letter has its markers too, but Markdown
/// has no rule by which they would be read as such. Ends with a line end unless it is empty. Linear in the
/// text.
[[nodiscard]] std::u16string markdownWithAttributedString(const NSAttributedString& text);
