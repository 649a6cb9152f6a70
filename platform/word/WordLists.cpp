#include "platform/word/WordLists.h"

#include <algorithm>
#include <utility>

std::optional<WordLists::Item> WordLists::nextItem(int number, int level)
{
    const auto* const list = m_numbering.list(number);
    if (!list)
        return std::nullopt;
    const auto place
        = static_cast<std::size_t>(std::clamp(level, 0, static_cast<int>(kWordListLevelCount) - 1));
    auto& levels = m_levels[list->abstractIdentifier];
    if (m_metLists.insert(number).second)
        restartOverridden(*list, levels);
    restartDeeper(*list, levels, place);
    auto& own = levels.at(place).number;
    own = own ? *own + 1 : startOf(*list, place);
    return itemAt(*list, levels, place);
}

NSInteger WordLists::startOf(const WordList& list, std::size_t level) const
{
    return list.startOverrides.at(level).value_or(m_numbering.level(list, level).start);
}

void WordLists::restartOverridden(const WordList& list, Levels& levels) const
{
    for (std::size_t place = 0; place < levels.size(); ++place) {
        if (list.startOverrides.at(place))
            levels.at(place) = {};
    }
}

void WordLists::restartDeeper(const WordList& list, Levels& levels, std::size_t level) const
{
    for (auto place = level + 1; place < levels.size(); ++place) {
        const auto restartsAfter = m_numbering.level(list, place).restartsAfter;
        if (!restartsAfter || *restartsAfter >= static_cast<int>(level))
            levels.at(place) = {};
    }
}

WordLists::Item WordLists::itemAt(const WordList& list, Levels& levels, std::size_t level) const
{
    std::array<NSInteger, kWordListLevelCount> numbers{};
    std::array<const WordListLevel*, kWordListLevelCount> definitions{};
    for (std::size_t place = 0; place < levels.size(); ++place) {
        definitions.at(place) = &m_numbering.level(list, place);
        numbers.at(place) = levels.at(place).number.value_or(startOf(list, place));
    }
    Item item;
    item.level = definitions.at(level);
    item.marker = wordMarker(level, numbers, definitions).text;
    for (std::size_t place = 0; place <= level && !item.marker.empty(); ++place) {
        const auto format = wordMarker(place, numbers, definitions).format;
        auto& made = levels.at(place).list;
        // Numbers of levels further out stand in the format as they are: when they change, so does the list.
        if (!made || made->markerFormat() != format)
            made = std::make_shared<NSTextList>(format, 0, numbers.at(place));
        item.lists.push_back(made);
    }
    return item;
}
