#pragma once

#include "platform/text/NSParagraphStyle.h"
#include "platform/word/WordListMarkers.h"

#include <map>
#include <optional>
#include <set>
#include <string>

/// Counts the items of a document's lists as they come, and gives them their markers and text lists.
class WordLists {
public:
    struct Item {
        /// Empty for an item without one, which is in no text list either.
        std::u16string marker;
        /// From the outermost one.
        NSParagraphStyle::TextLists lists;
        /// Lives as long as the numbering.
        const WordListLevel* level = nullptr;
    };

    /// The numbering must outlive the lists.
    explicit WordLists(const WordNumbering& numbering)
        : m_numbering(numbering)
    {
    }

    /// The next item of a list at a level, from 0. None when the document has no such list.
    [[nodiscard]] std::optional<Item> nextItem(int number, int level);

private:
    struct Level {
        /// Of the last item; none before the first.
        std::optional<NSInteger> number;
        NSTextList::Ref list;
    };

    using Levels = std::array<Level, kWordListLevelCount>;

    [[nodiscard]] NSInteger startOf(const WordList& list, std::size_t level) const;
    void restartOverridden(const WordList& list, Levels& levels) const;
    void restartDeeper(const WordList& list, Levels& levels, std::size_t level) const;
    [[nodiscard]] Item itemAt(const WordList& list, Levels& levels, std::size_t level) const;

    const WordNumbering& m_numbering;
    /// By abstract list.
    std::map<int, Levels> m_levels;
    std::set<int> m_metLists;
};
