#pragma once

#include "platform/text/NSAttributedString.h"

#include <cstddef>
#include <map>
#include <string>
#include <string_view>
#include <vector>

enum class WordNoteKind { Footnote, Endnote, Comment };

/// Counts the notes of a document in the order in which its text refers to them.
class WordNoteNumbers {
public:
    /// The mark of a note where the text refers to it: "[1]", "[i]" for an endnote, "[c1]" for a comment. The
    /// brackets keep it apart from the word before it where only characters are seen.
    [[nodiscard]] std::u16string markForReference(WordNoteKind kind, std::string_view identifier);
    /// The mark of a note that was referred to; else empty.
    [[nodiscard]] std::u16string mark(WordNoteKind kind, std::string_view identifier) const;
    /// From 1; 0 for a note that nothing refers to.
    [[nodiscard]] std::size_t number(WordNoteKind kind, std::string_view identifier) const;

private:
    using Numbers = std::map<std::string, std::size_t, std::less<>>;

    std::map<WordNoteKind, Numbers> m_numbers;
};

/// Where a note's text stands in the text of its part.
struct WordNote {
    WordNoteKind kind = WordNoteKind::Footnote;
    std::string identifier;
    NSRange range;
    /// Not a note but what stands between notes and text.
    bool isSeparator = false;
};

/// Appends notes out of the text of their part in the order of their numbers, then those that nothing refers
/// to. Of separators only those that hold words.
void appendNotes(NSMutableAttributedString& text, const NSAttributedString& part, std::vector<WordNote> notes,
                 const WordNoteNumbers& numbers);
