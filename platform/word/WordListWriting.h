#pragma once

#include "platform/text/NSParagraphStyle.h"
#include "platform/word/WordXML.h"

#include <array>
#include <compare>
#include <cstdint>
#include <map>
#include <optional>
#include <string>
#include <vector>

/// How a level's items are counted and marked in the format.
struct WordLevelForm {
    /// "decimal" or "bullet", for example.
    std::string_view numberFormat;
    /// The marker, with "%1" to "%9" for the level's number.
    std::u16string text;
    /// The number of the first item.
    std::int64_t start = 1;

    friend auto operator<=>(const WordLevelForm&, const WordLevelForm&) = default;
};

/// The form of a list at a level, from 0. Octal and hexadecimal numbers are decimal. Items of checklists have
/// a ticked or an open box.
[[nodiscard]] WordLevelForm wordLevelForm(const NSTextList& list, std::size_t level);

/// Gives the lists of a text their numbers in the document, where word processors count their items. Each
/// outermost list is one of the document, with the lists in it as its levels, at most nine; a list that looks
/// otherwise than the one of its level before it varies the level. Items of checklists, each of which is a
/// list of its own here, share theirs by their looks. Costs time in proportion to the items.
class WordListWriting {
public:
    struct Item {
        std::int64_t number = 0;
        std::int64_t level = 0;
    };

    /// The next item, in the order of the text. Where word processors would count on to another number than
    /// `marker`, the item's marker in the text, says, a new count begins.
    [[nodiscard]] Item itemOf(const NSParagraphStyle::TextLists& lists, std::u16string_view marker);

    [[nodiscard]] bool isEmpty() const { return m_numbers.empty(); }

    /// The part that defines them.
    [[nodiscard]] std::string part() const;

private:
    static constexpr std::size_t kLevelCount = 9;

    struct Level {
        /// The first is the level's own; others vary it.
        std::vector<WordLevelForm> forms;
        std::map<WordLevelForm, std::size_t> formIndices;
        /// Of its last item; none where it starts anew.
        std::optional<std::int64_t> count;
        const NSTextList* list = nullptr;
    };

    /// The form that each level has, by its index.
    using Variation = std::array<std::size_t, kLevelCount>;

    struct Root {
        std::vector<Level> levels;
        /// The numbers that are in use now.
        std::map<Variation, std::size_t> numbers;
    };

    struct Number {
        std::size_t root = 0;
        Variation variation{};
        std::optional<std::size_t> restartedLevel;
        std::int64_t restart = 0;
    };

    [[nodiscard]] std::size_t rootOf(const NSTextList& list);
    [[nodiscard]] static std::size_t formIndexOf(Level& level, const WordLevelForm& form);
    std::size_t addNumber(Root& root, const Number& number);
    void writeNumber(WordXML& xml, std::int64_t identifier, const Number& number) const;
    [[nodiscard]] std::int64_t countedNumber(Level& level, const NSTextList& list, std::u16string_view marker,
                                             bool& restarts);

    std::vector<Root> m_roots;
    std::vector<Number> m_numbers;
    std::map<const NSTextList*, std::size_t> m_rootsByList;
    std::map<std::u16string, std::size_t, std::less<>> m_rootsOfChecklists;
    std::map<const NSTextList*, std::int64_t> m_counts;
};
