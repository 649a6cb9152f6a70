#include "strings/MarkdownChecklists.h"

#include "platform/foundation/NSString.h"
#include "strings/MarkdownSyntax.h"
#include "strings/StringCleaning.h"

#include <algorithm>
#include <utility>

namespace {

constexpr auto kNone = std::u16string_view::npos;
constexpr std::u16string_view kBullets = u"-*+";
constexpr std::size_t kMostGrowth = 16;
constexpr std::size_t kAlwaysRoom = 1U << 20U;
constexpr std::size_t kIndentWidth = CVLMarkdownChecklistIndentString.size();
constexpr std::size_t kMarkerLength = CVLMarkdownChecklistOnString.size() - 1;

/// The box of a marker, with the space before it: " [x]" of "- [x] ".
constexpr std::u16string_view boxOf(std::u16string_view marker)
{
    return marker.substr(1, kMarkerLength - 1);
}

std::vector<std::u16string> itemsBehind(std::u16string_view text, std::u16string_view box)
{
    std::vector<std::u16string> items;
    std::size_t room = std::max(kMostGrowth * text.size(), kAlwaysRoom);
    std::size_t lineEnd = 0;
    for (auto place = text.find(box); place != kNone; place = text.find(box, place + box.size())) {
        if (place == 0 || kBullets.find(text[place - 1]) == kNone)
            continue;
        const auto start = place + box.size();
        // Looked for once a line, however many boxes the line has.
        if (start > lineEnd)
            lineEnd = getLineStart(text.substr(start), {0, 0}).contentsEnd + start;
        if (lineEnd - start > room)
            break;
        room -= lineEnd - start;
        auto item = TSExtensions::stringByTrimmingWhitespace(text.substr(start, lineEnd - start));
        if (!item.empty())
            items.push_back(std::move(item));
    }
    return items;
}

/// Takes the levels off the front of the line.
NSUInteger takeIndentation(std::u16string_view& line)
{
    NSUInteger level = 0;
    std::size_t spaces = 0;
    for (; line.starts_with(u' ') || line.starts_with(u'\t'); line.remove_prefix(1)) {
        spaces = line.starts_with(u' ') ? spaces + 1 : kIndentWidth;
        if (spaces == kIndentWidth) {
            ++level;
            spaces = 0;
        }
    }
    return level;
}

} // namespace

std::vector<std::u16string> CVLMarkdown::completedChecklistItems(std::u16string_view text)
{
    return itemsBehind(text, boxOf(CVLMarkdownChecklistOnString));
}

std::vector<std::u16string> CVLMarkdown::outstandingChecklistItems(std::u16string_view text)
{
    return itemsBehind(text, boxOf(CVLMarkdownChecklistOffString));
}

bool TSExtensions::getMarkdownChecklistValue(std::u16string_view line, bool* value,
                                             NSUInteger* indentationLevel)
{
    const auto level = takeIndentation(line);
    if (line.empty() || kBullets.find(line.front()) == kNone)
        return false;
    const auto box = line.substr(1, kMarkerLength - 1);
    const bool isOn = box == boxOf(CVLMarkdownChecklistOnString);
    if (!isOn && box != boxOf(CVLMarkdownChecklistOffString))
        return false;
    const auto rest = line.substr(kMarkerLength);
    if (!rest.empty() && rest.front() != u' ' && rest.front() != u'\n' && rest.front() != u'\r')
        return false;
    if (value)
        *value = isOn;
    if (indentationLevel)
        *indentationLevel = level;
    return true;
}
