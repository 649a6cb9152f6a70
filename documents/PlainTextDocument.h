#pragma once

#include "platform/text/NSAttributedString.h"

#include <string>

/// A note's text as characters alone, for people: boxes are the markers of lists between tabs, dividers three
/// asterisks, files their names in brackets, line breaks line ends. Attachments without a name are gone. Ends
/// with a line end unless it is empty. Linear in the text.
[[nodiscard]] std::u16string plainTextOfNoteText(const NSAttributedString& noteText);
