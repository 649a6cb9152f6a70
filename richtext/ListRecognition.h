#pragma once

#include "platform/text/NSAttributedString.h"

namespace DynamicColors {

/// Makes lists of lines that are set as lists (CVLExtensions::isListParagraphStyle) and look like their
/// items, but are in no list. A line has the style of its first character. Each line gets a list of its own,
/// but its line end does not, by what it begins with:
///
/// - a bullet between tabs: the disc marker;
/// - a hyphen between tabs: the hyphen marker;
/// - a number from 1 to 999, without zeros before it, and a full stop between tabs, with something behind it:
///   the decimal marker with a full stop, starting at that number.
///
/// The characters stay. Linear in the text.
void checkForTextListsAndConvertIfNecessary(NSMutableAttributedString& text);

} // namespace DynamicColors
