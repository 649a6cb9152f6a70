#include "richtext/Dividers.h"

#include "attachments/CVLDividerTextAttachment.h"
#include "richtext/AttachmentRuns.h"

void DynamicColors::convertDividersToText(NSMutableAttributedString& text)
{
    const auto replacement = CVLDividerTextAttachment::replacementString();
    bool isFirst = true;
    enumerateAttachments<CVLDividerTextAttachment>(text, [&](const auto&, NSRange range) {
        text.replaceCharactersInRange(range, replacement);
        // Only the first time is there anything to remove: later dividers stand behind what is at the start.
        if (isFirst)
            text.removeAttribute(NSAttachmentAttributeName, {0, replacement.length()});
        isFirst = false;
    });
}

void DynamicColors::convertTextToDividers(NSMutableAttributedString& text)
{
    for (NSUInteger location = 0; location < text.length();) {
        const auto line = text.lineContentRangeAtIndex(location);
        location = NSMaxRange(text.lineRangeAtIndex(location));
        if (line.length != CVLDividerReplacementString.size()
            || !text.hasPrefixAtIndex(CVLDividerReplacementString, line.location))
            continue;
        const auto divider = CVLDividerTextAttachment::init()->attributedString();
        text.replaceCharactersInRange(line, divider);
        location = location - line.length + divider.length();
    }
}
