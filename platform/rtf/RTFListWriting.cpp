#include "platform/rtf/RTFListWriting.h"

#include "platform/rtf/RTFListMarkers.h"
#include "platform/rtf/RTFUnits.h"

#include <algorithm>
#include <iterator>

namespace {

/// Each list numbers the templates of its levels within a hundred of its own.
constexpr std::size_t kTemplatesOfList = 100;
constexpr std::size_t kLevelIndent = 720;
/// The text around a number, at most; its length is told in one byte.
constexpr std::size_t kMostAffixUnits = 100;

/// What stands before and behind the token of a format, without tokens of its own.
struct Affixes {
    std::u16string_view before;
    std::u16string_view behind;
};

Affixes affixesOf(std::u16string_view format, const RTFListMarker* marker)
{
    if (!marker)
        return {format.substr(0, kMostAffixUnits), {}};
    const auto start = format.find(marker->token);
    return {format.substr(0, start).substr(0, kMostAffixUnits),
            format.substr(start + marker->token.size()).substr(0, kMostAffixUnits)};
}

/// The text of a marker: its length, then its characters, of which one stands for the number.
void writeLevelText(RTFOutput& output, const RTFListMarker* marker, const Affixes& affixes, std::size_t level)
{
    const bool counts = marker && marker->sign == 0 && marker->number != kNoMarker;
    const bool hasSign = marker && marker->sign != 0;
    const auto length = affixes.before.size() + affixes.behind.size() + (counts || hasSign ? 1 : 0);
    output.hexByte(static_cast<unsigned>(length));
    output.text(affixes.before);
    if (counts)
        output.hexByte(static_cast<unsigned>(level));
    else if (hasSign)
        output.unicodeText({&marker->sign, 1});
    output.text(affixes.behind);
    output.raw(";}{\\levelnumbers");
    if (counts)
        output.hexByte(static_cast<unsigned>(affixes.before.size() + 1));
    output.raw(";}");
}

void writeLevel(RTFOutput& output, const NSTextList& list, std::size_t listNumber, std::size_t level)
{
    const std::u16string_view format = list.markerFormat();
    const auto* const marker = listMarkerOfFormat(format);
    const auto number = marker ? marker->number : kSignMarker;
    output.raw("{\\listlevel");
    output.word("levelnfc", number);
    output.word("levelnfcn", number);
    output.raw("\\leveljc0\\leveljcn0\\levelfollow0");
    output.word("levelstartat", wholeNumber(static_cast<double>(list.startingItemNumber())));
    output.raw("\\levelspace360\\levelindent0{\\*\\levelmarker ");
    output.text(format);
    output.raw("}{\\leveltext");
    output.word("leveltemplateid",
                static_cast<std::int64_t>((listNumber - 1) * kTemplatesOfList + level + 1));
    writeLevelText(output, marker, affixesOf(format, marker), level);
    const auto indent = static_cast<std::int64_t>(kLevelIndent * (level + 1));
    output.word("fi", -360);
    output.word("li", indent);
    output.word("lin", indent);
    output.raw(" }");
}

} // namespace

RTFListWriting::Place RTFListWriting::placeOf(const NSParagraphStyle::TextLists& lists)
{
    const auto depth = std::min(lists.size(), kMostListLevels);
    const auto level = static_cast<std::int32_t>(depth - 1);
    Path path;
    std::transform(lists.begin(), lists.begin() + level + 1, std::back_inserter(path),
                   [](const auto& list) { return list.get(); });
    const auto placeIn = [level](std::size_t index) {
        return Place{static_cast<std::int32_t>(index) + 1, level};
    };
    if (const auto known = m_indices.find(path); known != m_indices.end())
        return placeIn(known->second);
    const auto index = listToExtend(path);
    auto& levels = m_lists[index];
    for (auto end = levels.size(); end < depth; ++end) {
        levels.push_back(lists[end]);
        m_indices.try_emplace(Path(path.begin(), path.begin() + static_cast<std::ptrdiff_t>(end) + 1), index);
    }
    m_indices.try_emplace(std::move(path), index);
    return placeIn(index);
}

/// The list that has the outer levels of the path and none beyond; a new one without such.
std::size_t RTFListWriting::listToExtend(const Path& path)
{
    for (auto outer = path; !outer.empty(); outer.pop_back()) {
        const auto known = m_indices.find(outer);
        if (known != m_indices.end() && m_lists[known->second].size() == outer.size())
            return known->second;
    }
    m_lists.emplace_back();
    return m_lists.size() - 1;
}

void RTFListWriting::write(RTFOutput& output) const
{
    if (m_lists.empty())
        return;
    output.raw("{\\*\\listtable");
    for (std::size_t index = 0; index < m_lists.size(); ++index) {
        const auto number = static_cast<std::int64_t>(index) + 1;
        output.raw(index == 0 ? "{\\list" : "\n{\\list");
        output.word("listtemplateid", number);
        output.word("listhybrid");
        for (std::size_t level = 0; level < m_lists[index].size(); ++level)
            writeLevel(output, *m_lists[index][level], index + 1, level);
        output.raw("{\\listname ;}");
        output.word("listid", number);
        output.endGroup();
    }
    output.raw("}\n{\\*\\listoverridetable");
    for (std::size_t number = 1; number <= m_lists.size(); ++number) {
        output.raw("{\\listoverride");
        output.word("listid", static_cast<std::int64_t>(number));
        output.word("listoverridecount", 0);
        output.word("ls", static_cast<std::int64_t>(number));
        output.endGroup();
    }
    output.raw("}\n");
}
