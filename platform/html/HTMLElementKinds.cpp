#include "platform/html/HTMLElementKinds.h"

#include <array>

namespace {

using Name = std::string_view;

constexpr std::array<Name, 14> kVoidElements{"area",  "base", "br",   "col",   "embed",  "hr",    "img",
                                             "input", "link", "meta", "param", "source", "track", "wbr"};
constexpr std::array<Name, 6> kSkippedElements{"script", "iframe", "noembed", "noframes", "style", "title"};
constexpr std::array<Name, 15> kFormattingElements{"b",    "big",    "code",   "em",   "font",
                                                   "i",    "kbd",    "s",      "samp", "small",
                                                   "mark", "strike", "strong", "tt",   "u"};
constexpr std::array<Name, 6> kTableParts{"tbody", "thead", "tfoot", "tr", "td", "th"};
constexpr std::array<Name, 4> kLists{"ul", "ol", "menu", "dir"};
constexpr std::array<Name, 6> kHeadings{"h1", "h2", "h3", "h4", "h5", "h6"};

} // namespace

bool isVoidElement(std::string_view name)
{
    return isOneOf(name, kVoidElements);
}

bool isSkippedElement(std::string_view name)
{
    return isOneOf(name, kSkippedElements);
}

bool isFormattingElement(std::string_view name)
{
    return isOneOf(name, kFormattingElements);
}

bool isTablePart(std::string_view name)
{
    return isOneOf(name, kTableParts);
}

bool isCellElement(std::string_view name)
{
    return name == "td" || name == "th";
}

bool isListElement(std::string_view name)
{
    return isOneOf(name, kLists);
}

bool isHeadingElement(std::string_view name)
{
    return isOneOf(name, kHeadings);
}
