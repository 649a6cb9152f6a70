#include "markdown/MarkdownTable.h"

#include <algorithm>

namespace {

constexpr std::size_t kMostColumns = 128;
constexpr std::u16string_view kBlanks = u" \t";

std::u16string_view trimmed(std::u16string_view text)
{
    const auto start = std::min(text.find_first_not_of(kBlanks), text.size());
    return text.substr(start, text.find_last_not_of(kBlanks) + 1 - start);
}

std::optional<NSTextAlignment> alignmentOf(std::u16string_view cell)
{
    const bool isLeft = cell.starts_with(u':');
    cell.remove_prefix(isLeft ? 1 : 0);
    const bool isRight = cell.ends_with(u':');
    cell.remove_suffix(isRight ? 1 : 0);
    if (cell.empty() || cell.find_first_not_of(u'-') != std::u16string_view::npos)
        return std::nullopt;
    if (isLeft && isRight)
        return NSTextAlignment::Center;
    if (isLeft || isRight)
        return isLeft ? NSTextAlignment::Left : NSTextAlignment::Right;
    return NSTextAlignment::Natural;
}

} // namespace

std::vector<std::u16string> markdownCells(std::u16string_view row)
{
    row = trimmed(row);
    row.remove_prefix(row.starts_with(u'|') ? 1 : 0);
    std::vector<std::u16string> cells;
    std::u16string cell;
    const auto endCell = [&cells, &cell] {
        cells.emplace_back(trimmed(cell));
        cell.clear();
    };
    for (const auto unit : row) {
        const bool isBar = unit == u'|';
        if (isBar && !cell.ends_with(u'\\')) {
            endCell();
            continue;
        }
        if (isBar)
            cell.pop_back();
        cell += unit;
    }
    const bool isClosed = row.ends_with(u'|') && cell.empty();
    if (!isClosed)
        endCell();
    return cells;
}

std::optional<std::vector<NSTextAlignment>> markdownAlignments(std::u16string_view row)
{
    const bool isPossible = row.find(u'|') != std::u16string_view::npos
        && row.find_first_not_of(u"|-: \t") == std::u16string_view::npos;
    if (!isPossible)
        return std::nullopt;
    const auto cells = markdownCells(row);
    if (cells.empty() || cells.size() > kMostColumns)
        return std::nullopt;
    std::vector<NSTextAlignment> alignments;
    for (const auto& cell : cells) {
        const auto alignment = alignmentOf(cell);
        if (!alignment)
            return std::nullopt;
        alignments.push_back(*alignment);
    }
    return alignments;
}

std::u16string_view markdownDelimiterCell(NSTextAlignment alignment)
{
    switch (alignment) {
    case NSTextAlignment::Left:
        return u":---";
    case NSTextAlignment::Right:
        return u"---:";
    case NSTextAlignment::Center:
        return u":---:";
    case NSTextAlignment::Justified:
    case NSTextAlignment::Natural:
        break;
    }
    return u"---";
}
