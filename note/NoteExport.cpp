#include "note/NoteExport.h"

#include "colours/ColourEquality.h"
#include "platform/text/NSAttributeNames.h"
#include "platform/text/NSColor.h"
#include "richtext/ChecklistTextLists.h"
#include "richtext/Dividers.h"
#include "richtext/Highlights.h"

namespace {

void blackenTextColor(NSMutableAttributedString& text)
{
    const auto textColor = NSColor::textColor();
    const auto blacken = [&](const NSAny& value, NSRange run, bool& /*stop*/) {
        const auto color = value.object<NSColor>();
        if (color && CVLExtensions::isEqualToColorCVLVersion(*color, *textColor))
            text.addAttribute(NSForegroundColorAttributeName, NSColor::blackColor(), run);
    };
    text.enumerateAttribute(NSForegroundColorAttributeName, {0, text.length()}, {}, blacken);
}

} // namespace

NSMutableAttributedString noteTextForExport(const NSAttributedString& noteText)
{
    NSMutableAttributedString text(noteText);
    DynamicColors::convertChecklistAttachmentsToTextLists(text);
    DynamicColors::convertDividersToText(text);
    DynamicColors::convertCorvelHighlightsToNSTextHighlights(text);
    blackenTextColor(text);
    return text;
}
