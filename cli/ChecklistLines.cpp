#include "cli/ChecklistLines.h"

#include "attachments/CVLChecklistTextAttachment.h"
#include "platform/foundation/Unicode.h"
#include "platform/text/NSAttributeNames.h"
#include "richtext/ChecklistTextLists.h"
#include "strings/MarkdownSyntax.h"
#include "strings/StringCleaning.h"

#include <nlohmann/json.hpp>

std::vector<ChecklistItem> checklistItems(const NSAttributedString& text)
{
    NSMutableAttributedString boxed(text);
    DynamicColors::convertTextListsToChecklistAttachments(boxed);
    std::vector<ChecklistItem> items;
    boxed.enumerateAttribute(NSAttachmentAttributeName, [&](const NSAny& value, NSRange run, bool& /*stop*/) {
        const auto box = value.object<CVLChecklistTextAttachment>();
        if (!box)
            return;
        const auto line = boxed.lineContentRangeAtIndex(NSMaxRange(run));
        const NSRange behind{NSMaxRange(run), NSMaxRange(line) - std::min(NSMaxRange(line), NSMaxRange(run))};
        items.push_back({box->isOn(), box->indentationLevel(),
                         TSExtensions::stringByTrimmingWhitespace(boxed.substringWithRange(behind))});
    });
    return items;
}

std::string checklistLine(const ChecklistItem& item)
{
    std::u16string line;
    for (NSUInteger level = 0; level < item.level; ++level)
        line += CVLMarkdownChecklistIndentString;
    line += item.isDone ? CVLMarkdownChecklistOnString : CVLMarkdownChecklistOffString;
    return UTF8FromUTF16(line + item.text);
}

std::string checklistJSON(const ChecklistItem& item)
{
    const nlohmann::ordered_json value{
        {"done", item.isDone}, {"level", item.level}, {"text", UTF8FromUTF16(item.text)}};
    return value.dump();
}
