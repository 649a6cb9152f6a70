#include "cli/StringLines.h"

#include "platform/foundation/Unicode.h"
#include "strings/MarkdownChecklists.h"
#include "strings/MarkdownLines.h"
#include "strings/MarkdownLinks.h"

#include <nlohmann/json.hpp>

namespace {

// Keeps the members in the order in which they are written here.
using JSON = nlohmann::ordered_json;
using CVLMarkdown::ListType;

std::string line(const JSON& value)
{
    return value.dump(-1, ' ', false, JSON::error_handler_t::replace);
}

JSON textOrNull(bool isThere, std::u16string_view text)
{
    return isThere ? JSON(UTF8FromUTF16(text)) : JSON(nullptr);
}

std::string nameOf(ListType type)
{
    switch (type) {
    case ListType::Ordered:
        return "ordered";
    case ListType::Unordered:
        return "unordered";
    case ListType::None:
        break;
    }
    return "none";
}

JSON linkValue(bool isLink, std::string_view textKey, std::u16string_view text, std::u16string_view link,
               std::u16string_view title)
{
    if (!isLink)
        return nullptr;
    JSON value;
    value[std::string(textKey)] = UTF8FromUTF16(text);
    value["link"] = UTF8FromUTF16(link);
    value["title"] = textOrNull(!title.empty(), title);
    return value;
}

void addList(JSON& value, std::u16string_view text)
{
    std::u16string bullet;
    NSInteger number = 0;
    const auto type = CVLMarkdown::getListTypeAndCurrentBullet(text, &bullet, &number);
    value["listType"] = nameOf(type);
    value["bullet"] = textOrNull(type != ListType::None, bullet);
    value["number"] = type == ListType::Ordered ? JSON(number) : JSON(nullptr);
    bool isOn = false;
    NSUInteger level = 0;
    value["checklist"] = nullptr;
    if (TSExtensions::getMarkdownChecklistValue(text, &isOn, &level))
        value["checklist"] = {{"value", isOn}, {"indentationLevel", level}};
}

void addMarks(JSON& value, std::u16string_view text)
{
    std::u16string strong;
    std::u16string emphasis;
    const bool isStrong = CVLMarkdown::isStrong(text, &strong);
    const bool isEmphasized = CVLMarkdown::isEmphasized(text, &emphasis);
    value["headingLevel"] = CVLMarkdown::headingLevel(text);
    value["strong"] = textOrNull(isStrong, strong);
    value["emphasized"] = textOrNull(isEmphasized, emphasis);
    value["struckthrough"] = CVLMarkdown::isStruckthrough(text);
    value["highlighted"] = CVLMarkdown::isHighlighted(text);
}

void addLinks(JSON& value, std::u16string_view line)
{
    std::u16string link;
    std::u16string text;
    std::u16string title;
    const bool isLink = CVLMarkdown::getLink(line, &link, &text, &title);
    value["link"] = linkValue(isLink, "text", text, link, title);
    const bool isImage = CVLMarkdown::getImageLink(line, &link, &text, &title);
    value["image"] = linkValue(isImage, "altText", text, link, title);
}

JSON rangeValue(NSRange range)
{
    return {{"location", range.location}, {"length", range.length}};
}

} // namespace

std::string hashtagsLine(std::span<const std::u16string> names, std::span<const NSRange> ranges)
{
    JSON values = JSON::array();
    for (std::size_t index = 0; index < names.size(); ++index) {
        JSON value{{"name", UTF8FromUTF16(names[index])}};
        value.update(rangeValue(ranges[index]));
        values.push_back(std::move(value));
    }
    return line(values);
}

std::string rangesLine(std::span<const NSRange> ranges)
{
    JSON values = JSON::array();
    for (const auto range : ranges)
        values.push_back(rangeValue(range));
    return line(values);
}

std::string markdownLine(std::u16string_view text)
{
    JSON value;
    addList(value, text);
    addMarks(value, text);
    addLinks(value, text);
    return line(value);
}
