#pragma once

#include "platform/text/NSAttributedString.h"
#include "platform/text/NSParagraphStyle.h"

#include <string>

// What a line is, to transforms that go through a text line by line. A line has the style of its first
// character.

/// The paragraph style at a location; null when there is none.
[[nodiscard]] NSParagraphStyle::Ref paragraphStyleAtIndex(const NSAttributedString& text,
                                                          NSUInteger location);

/// The last list of a style; null when it has none, and for no style.
[[nodiscard]] NSTextList::Ref innermostTextList(const NSParagraphStyle::Ref& style);

/// The marker of an item as texts hold it: between two tabs.
[[nodiscard]] std::u16string textListMarker(const NSTextList& list, NSInteger itemNumber);
