#include "cli/ChecklistLines.h"

#include "attachments/CVLChecklistTextAttachment.h"
#include "platform/foundation/Unicode.h"
#include "platform/text/NSAttributeNames.h"
#include "platform/text/NSParagraphStyle.h"
#include "richtext/ChecklistTextLists.h"
#include "strings/MarkdownSyntax.h"
#include "strings/StringCleaning.h"

#include <nlohmann/json.hpp>

#include <algorithm>
#include <optional>

namespace {

constexpr char16_t kLineSeparator = 0x2028;
constexpr std::u16string_view kBlanks = u" \t\r\n";
constexpr std::u16string_view kTicked = u"\u2611\u2612\u2713\u2714";

struct WrittenBox {
    bool isDone = false;
    std::size_t length = 0;
};

/// The box in characters that the text begins with.
std::optional<WrittenBox> boxAtStart(std::u16string_view text)
{
    WrittenBox box;
    if (text.starts_with(u"[ ]") || text.starts_with(u"[x]") || text.starts_with(u"[X]"))
        box = {text[1] != u' ', 3};
    else if (text.starts_with(u'\u2610'))
        box = {false, 1};
    else if (!text.empty() && kTicked.find(text.front()) != std::u16string_view::npos)
        box = {true, 1};
    const bool isApart
        = box.length == text.size() || kBlanks.find(text[box.length]) != std::u16string_view::npos;
    return box.length > 0 && isApart ? std::optional(box) : std::nullopt;
}

/// An item is one paragraph, however many lines it has. Boxes on lines of their own stay items.
void joinLines(NSMutableAttributedString& text)
{
    const std::u16string characters(text.string());
    for (auto place = characters.find(kLineSeparator); place != std::u16string::npos;
         place = characters.find(kLineSeparator, place + 1)) {
        const auto next = place + 1;
        if (next == characters.size() || characters[next] != NSAttachmentCharacter)
            text.replaceCharactersInRange({place, 1}, std::u16string_view(u" "));
    }
}

std::u16string trimmedBehind(const NSAttributedString& text, NSUInteger start, NSRange line)
{
    return TSExtensions::stringByTrimmingWhitespace(
        text.substringWithRange({start, NSMaxRange(line) - std::min(NSMaxRange(line), start)}));
}

/// Adds an item for each box of the line. Whether there was one.
bool addBoxes(const NSAttributedString& text, NSRange line, std::vector<ChecklistItem>& items)
{
    const auto count = items.size();
    text.enumerateAttribute(NSAttachmentAttributeName, line, {},
                            [&](const NSAny& value, NSRange run, bool& /*stop*/) {
                                if (const auto box = value.object<CVLChecklistTextAttachment>())
                                    items.push_back({box->isOn(), box->indentationLevel(),
                                                     trimmedBehind(text, NSMaxRange(run), line)});
                            });
    return items.size() > count;
}

/// Adds the line if it is an item of another list, behind whose marker a box is written.
void addListItem(const NSAttributedString& text, NSRange line, std::vector<ChecklistItem>& items)
{
    if (line.length == 0)
        return;
    const auto style
        = text.attribute(NSParagraphStyleAttributeName, line.location).object<NSParagraphStyle>();
    const auto characters = text.string().substr(line.location, line.length);
    const auto markerEnd = characters.front() == u'\t' ? characters.find(u'\t', 1) : std::u16string::npos;
    if (!style || style->textLists().empty() || markerEnd == std::u16string::npos)
        return;
    if (const auto box = boxAtStart(characters.substr(markerEnd + 1)))
        items.push_back({box->isDone,
                         std::min<NSUInteger>(style->textLists().size() - 1, CVLChecklistMaxIndentationLevel),
                         trimmedBehind(text, line.location + markerEnd + 1 + box->length, line)});
}

} // namespace

std::vector<ChecklistItem> checklistItems(const NSAttributedString& text)
{
    NSMutableAttributedString boxed(text);
    joinLines(boxed);
    DynamicColors::convertTextListsToChecklistAttachments(boxed);
    std::vector<ChecklistItem> items;
    for (NSUInteger location = 0; location < boxed.length();) {
        const auto line = boxed.lineContentRangeAtIndex(location);
        location = NSMaxRange(boxed.lineRangeAtIndex(location));
        if (!addBoxes(boxed, line, items))
            addListItem(boxed, line, items);
    }
    return items;
}

std::u16string markdownOfBoxes(std::u16string_view text)
{
    std::u16string markdown;
    while (!text.empty()) {
        const auto line = text.substr(0, std::min(text.find(u'\n'), text.size() - 1) + 1);
        text.remove_prefix(line.size());
        const auto indent = std::min(line.find_first_not_of(u" \t"), line.size());
        const auto box = boxAtStart(line.substr(indent));
        markdown += line.substr(0, indent);
        if (box && box->length == 1)
            markdown.append(box->isDone ? u"- [x]" : u"- [ ]").append(line.substr(indent + box->length));
        else
            markdown += line.substr(indent);
    }
    return markdown;
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
