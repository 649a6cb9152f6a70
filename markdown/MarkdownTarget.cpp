#include "markdown/MarkdownTarget.h"

#include "markdown/MarkdownText.h"

#include <algorithm>

namespace {

constexpr auto kNone = std::u16string_view::npos;

std::optional<std::u16string> targetInAngles(std::u16string_view rest, std::size_t& end)
{
    const auto closing = rest.find_first_of(u">\n", 2);
    if (closing == kNone || rest[closing] == u'\n')
        return std::nullopt;
    end = closing + 1;
    return withoutMarkdownEscapes(rest.substr(2, closing - 2));
}

/// Up to a blank or to the parenthesis that closes; others must come in pairs.
std::optional<std::u16string> plainTarget(std::u16string_view rest, std::size_t& end)
{
    const auto start = end;
    std::size_t depth = 0;
    for (; end < rest.size() && !isMarkdownBlank(rest[end]); ++end) {
        if (rest[end] == u')' && depth == 0)
            break;
        if (rest[end] == u'(')
            ++depth;
        else if (rest[end] == u')')
            --depth;
        else if (rest[end] == u'\\' && end + 1 < rest.size() && isMarkdownPunctuation(rest[end + 1]))
            ++end;
    }
    end = std::min(end, rest.size());
    return withoutMarkdownEscapes(rest.substr(start, end - start));
}

/// Where the parenthesis closes behind a title, if there is one.
std::size_t endOfTitle(std::u16string_view rest, std::size_t start)
{
    const auto next = rest.find_first_not_of(u" \t\n", start);
    if (next == kNone || rest[next] == u')')
        return next;
    if (next == start || (rest[next] != u'"' && rest[next] != u'\''))
        return kNone;
    const auto titleEnd = rest.find(rest[next], next + 1);
    const auto closing = titleEnd == kNone ? kNone : rest.find_first_not_of(u" \t\n", titleEnd + 1);
    return closing != kNone && rest[closing] == u')' ? closing : kNone;
}

} // namespace

std::optional<MarkdownTarget> markdownTargetAtStart(std::u16string_view text)
{
    const auto rest = text.substr(0, kMostMarkdownTargetUnits);
    if (!rest.starts_with(u'('))
        return std::nullopt;
    std::size_t end = 1;
    auto target = rest.starts_with(u"(<") ? targetInAngles(rest, end) : plainTarget(rest, end);
    const auto closing = target ? endOfTitle(rest, end) : kNone;
    if (closing == kNone)
        return std::nullopt;
    return MarkdownTarget{std::move(*target), closing + 1};
}
