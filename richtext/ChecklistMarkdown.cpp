#include "richtext/ChecklistMarkdown.h"

#include "attachments/CVLChecklistTextAttachment.h"
#include "platform/text/NSParagraphStyle.h"
#include "richtext/AttachmentRuns.h"
#include "strings/MarkdownSyntax.h"

#include <optional>

namespace {

std::u16string markdownPrefix(const CVLChecklistTextAttachment& box)
{
    std::u16string prefix;
    for (NSUInteger level = 0; level < box.indentationLevel(); ++level)
        prefix += CVLMarkdownChecklistIndentString;
    prefix += box.isOn() ? CVLMarkdownChecklistOnString : CVLMarkdownChecklistOffString;
    return prefix;
}

} // namespace

void DynamicColors::convertChecklistAttachmentsToMarkdownSyntax(NSMutableAttributedString& text)
{
    const NSAny plainStyle = NSParagraphStyle::defaultParagraphStyle();
    // Where the line starts that has its style already: a line may have many boxes.
    std::optional<NSUInteger> styledFrom;
    enumerateAttachments<CVLChecklistTextAttachment>(
        text, {.reverse = true}, [&](const auto& box, NSRange range) {
            const auto prefix = markdownPrefix(*box);
            text.replaceCharactersInRange(range, prefix);
            text.removeAttribute(NSAttachmentAttributeName, {range.location, prefix.size()});
            if (styledFrom && range.location >= *styledFrom)
                return;
            const auto line = text.lineRangeAtIndex(range.location);
            text.addAttribute(NSParagraphStyleAttributeName, plainStyle, line);
            styledFrom = line.location;
        });
}
