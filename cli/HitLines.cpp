#include "cli/HitLines.h"

#include "cli/Console.h"

#include <algorithm>
#include <string_view>

namespace {

constexpr std::string_view kBold = "\033[1m";
constexpr std::string_view kPlain = "\033[0m";

bool isBlank(char character)
{
    return character == ' ' || character == '\n' || character == '\r' || character == '\t'
        || character == '\f';
}

std::string withoutLineBreaks(std::string_view text)
{
    std::string line;
    line.reserve(text.size());
    for (const char character : text) {
        if (!isBlank(character))
            line += character;
        else if (!line.empty() && line.back() != ' ')
            line += ' ';
    }
    if (line.ends_with(' '))
        line.pop_back();
    return line;
}

std::string styled(std::string_view snippet, MatchStyle style)
{
    const auto start = style == MatchStyle::Bold ? kBold : "[";
    const auto end = style == MatchStyle::Bold ? kPlain : "]";
    std::string line;
    while (!snippet.empty()) {
        const auto mark
            = std::min(snippet.find_first_of(std::string{kMatchStart, kMatchEnd}), snippet.size());
        line += printable(snippet.substr(0, mark));
        if (mark < snippet.size())
            line += snippet[mark] == kMatchStart ? start : end;
        snippet.remove_prefix(std::min(mark + 1, snippet.size()));
    }
    return line;
}

} // namespace

std::string hitText(const SKSearchHit& hit, MatchStyle style)
{
    std::string text = hit.parent
        ? displayPath(hit.url.lastPathComponent()) + "\n  in " + displayPath(hit.parent->path())
        : displayPath(hit.url.path());
    const auto snippet = withoutLineBreaks(hit.snippet);
    if (!snippet.empty())
        text += "\n    " + styled(snippet, style);
    return text;
}
