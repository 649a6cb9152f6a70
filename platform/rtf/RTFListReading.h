#pragma once

#include "platform/rtf/RTFParameter.h"
#include "platform/text/NSParagraphStyle.h"

#include <cstdint>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

/// The part of the table of lists that a group holds.
enum class RTFListPart : std::uint8_t { None, Marker, Text, Ignored };

/// The lists of a document that is being read, from its two tables.
class RTFListReading {
public:
    /// Takes a word of the table of lists, or of the table that numbers them. Gives the part that the word's
    /// group holds, `part` where it stays the same.
    RTFListPart takeListWord(std::string_view name, RTFParameter parameter, RTFListPart part);
    void takeNumberWord(std::string_view name, RTFParameter parameter);
    /// Takes text of the table of lists.
    void takeText(std::u16string_view text, RTFListPart part);

    /// The lists of a paragraph, the outermost first; none for a number without a list.
    [[nodiscard]] NSParagraphStyle::TextLists listsAt(std::int32_t number, std::int32_t level);

private:
    struct Level {
        std::int32_t kind = 0;
        std::int32_t start = 1;
        /// The format as the platform writes it; empty when another program wrote the list.
        std::u16string marker;
        /// Its length, then characters, of which those below 9 stand for the numbers of levels.
        std::u16string text;
        NSTextList::Ref list;
    };

    [[nodiscard]] static NSTextList::Ref listOf(const Level& level, std::size_t depth);
    Level* currentLevel();

    std::vector<std::vector<Level>> m_lists;
    std::unordered_map<std::int32_t, std::size_t> m_listsByIdentifier;
    std::unordered_map<std::int32_t, std::int32_t> m_identifiersByNumber;
    std::int32_t m_identifier = 0;
};
