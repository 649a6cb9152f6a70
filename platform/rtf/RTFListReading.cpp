#include "platform/rtf/RTFListReading.h"

#include "platform/rtf/RTFLimits.h"
#include "platform/rtf/RTFListMarkers.h"

#include <algorithm>

namespace {

constexpr std::size_t kMostMarkerUnits = 256;

/// Where a level's text has the number of the list's level at `depth`, or of an outer one.
bool standsForNumber(char16_t unit)
{
    return unit < kMostListLevels;
}

std::u16string_view withoutLength(std::u16string_view text)
{
    if (text.empty())
        return {};
    const auto length = static_cast<std::size_t>(text.front());
    return text.substr(1, length);
}

std::u16string signFormat(std::u16string_view characters)
{
    if (characters.size() == 1) {
        if (const auto token = tokenOfListSign(characters.front()))
            return std::u16string(*token);
    }
    return characters.empty() ? std::u16string(NSTextListMarkerDisc) : std::u16string(characters);
}

} // namespace

RTFListReading::Level* RTFListReading::currentLevel()
{
    return m_lists.empty() || m_lists.back().empty() ? nullptr : &m_lists.back().back();
}

RTFListPart RTFListReading::takeListWord(std::string_view name, RTFParameter parameter, RTFListPart part)
{
    if (name == "list") {
        if (m_lists.size() < kMostRTFLists)
            m_lists.emplace_back();
        return RTFListPart::None;
    }
    if (name == "listid") {
        if (!m_lists.empty())
            m_listsByIdentifier.try_emplace(parameter.valueOr(0), m_lists.size() - 1);
        return part;
    }
    if (name == "listlevel") {
        if (!m_lists.empty() && m_lists.back().size() < kMostListLevels)
            m_lists.back().emplace_back();
        return RTFListPart::None;
    }
    if (name == "levelmarker")
        return RTFListPart::Marker;
    if (name == "leveltext")
        return RTFListPart::Text;
    if (name == "levelnumbers" || name == "listname")
        return RTFListPart::Ignored;
    auto* const level = currentLevel();
    if (level && (name == "levelnfc" || name == "levelnfcn"))
        level->kind = parameter.valueOr(0);
    else if (level && name == "levelstartat")
        level->start = parameter.valueOr(1);
    return part;
}

void RTFListReading::takeNumberWord(std::string_view name, RTFParameter parameter)
{
    if (name == "listid")
        m_identifier = parameter.valueOr(0);
    else if (name == "ls" && m_identifiersByNumber.size() < kMostRTFLists)
        m_identifiersByNumber.try_emplace(parameter.valueOr(0), m_identifier);
}

void RTFListReading::takeText(std::u16string_view text, RTFListPart part)
{
    auto* const level = currentLevel();
    if (!level || (part != RTFListPart::Marker && part != RTFListPart::Text))
        return;
    auto& target = part == RTFListPart::Marker ? level->marker : level->text;
    if (target.size() < kMostMarkerUnits)
        target += text;
}

NSTextList::Ref RTFListReading::listOf(const Level& level, std::size_t depth)
{
    const bool counts = level.kind != kSignMarker && level.kind != kNoMarker;
    // Older versions of the platform begin signs at 0.
    const auto start = !counts && level.start == 0 ? 1 : level.start;
    if (!level.marker.empty())
        return std::make_shared<const NSTextList>(level.marker, 0, start);
    if (level.kind == kNoMarker)
        return std::make_shared<const NSTextList>(NSTextListMarkerNone, 0, start);
    const auto text = withoutLength(level.text);
    if (!counts)
        return std::make_shared<const NSTextList>(signFormat(text), 0, start);
    const auto token = tokenOfListNumber(level.kind);
    const auto own = text.find(static_cast<char16_t>(depth));
    if (own == std::u16string_view::npos)
        return std::make_shared<const NSTextList>(std::u16string(token) + u".", 0, start);
    // What stands before the number of an outer level belongs to that level.
    const auto outer
        = std::find_if(text.rend() - static_cast<std::ptrdiff_t>(own), text.rend(), standsForNumber);
    const bool hasOuter = outer != text.rend();
    const auto before = hasOuter ? std::u16string_view() : text.substr(0, own);
    const auto behind = text.substr(own + 1);
    auto format = std::u16string(before).append(token).append(behind);
    std::erase_if(format, standsForNumber);
    return std::make_shared<const NSTextList>(format, hasOuter ? NSTextListPrependEnclosingMarker : 0, start);
}

NSParagraphStyle::TextLists RTFListReading::listsAt(std::int32_t number, std::int32_t level)
{
    NSParagraphStyle::TextLists lists;
    const auto identifier = m_identifiersByNumber.find(number);
    if (number <= 0 || level < 0 || identifier == m_identifiersByNumber.end())
        return lists;
    const auto found = m_listsByIdentifier.find(identifier->second);
    if (found == m_listsByIdentifier.end())
        return lists;
    auto& levels = m_lists[found->second];
    if (static_cast<std::size_t>(level) >= levels.size())
        return lists;
    for (std::size_t depth = 0; depth <= static_cast<std::size_t>(level); ++depth) {
        if (!levels[depth].list)
            levels[depth].list = listOf(levels[depth], depth);
        lists.push_back(levels[depth].list);
    }
    return lists;
}
