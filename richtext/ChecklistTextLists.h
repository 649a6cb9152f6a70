#pragma once

#include "platform/text/NSAttributedString.h"

/// Between a checklist's boxes (CVLChecklistTextAttachment) and text lists with check and circle markers.
/// Each conversion works on the whole text and is one pass over it. A line has the style of its first
/// character.
namespace DynamicColors {

/// Puts a box in place of the marker of every item, and gives the line, but not its line end, the box's
/// paragraph style. A line is an item when its innermost list has the check or the circle marker format, or
/// when it begins with the marker of one, in whatever list or in none. It is ticked by the check format or
/// the check marker, else open. The level is the number of its lists less one, at most
/// CVLChecklistMaxIndentationLevel.
void convertTextListsToChecklistAttachments(NSMutableAttributedString& text);

/// Puts the marker of its state, between tabs, in place of every box, and gives the whole line the style of a
/// list, one tab stop further in, with a new list of the check or the circle marker format innermost. Text
/// blocks stay.
///
/// The lists around that one come from the item before: all of them for a deeper item, all but the last for
/// one of the same level, and the first n - 1 for a shallower one of level n. An item that comes back from a
/// deeper level is thus in one list less than its level asks for; lists have always been exported so, and
/// are read back at the level they were exported at.
///
/// Of several boxes on a line the last gives the line its style.
void convertChecklistAttachmentsToTextLists(NSMutableAttributedString& text);

} // namespace DynamicColors
