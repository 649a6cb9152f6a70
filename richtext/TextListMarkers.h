#pragma once

#include "platform/text/NSAttributedString.h"

namespace DynamicColors {

/// Writes the markers of lists into the text, for others to read it, when the text system keeps them out of
/// texts: when `NSTextList::includesTextListMarkers()` is false. (Systems that cannot keep them out say true;
/// there is no other version to ask for.) Lines that begin with their marker stay.
///
/// A line has the style of its first character. Items are counted from 1, whatever their lists' starting
/// numbers, through lists of all kinds and depths: only a line in no list begins the count anew. A marker has
/// the paragraph style of its line and no other attribute. Linear in the text.
void addTextMarkersIfNecessary(NSMutableAttributedString& text);

/// A copy of the text with its markers added.
[[nodiscard]] NSMutableAttributedString stringWithTextListMarkers(const NSAttributedString& text);

} // namespace DynamicColors
