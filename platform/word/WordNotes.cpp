#include "platform/word/WordNotes.h"

#include "platform/text/ListNumerals.h"

#include <algorithm>
#include <limits>

namespace {

std::u16string markOf(WordNoteKind kind, std::size_t number)
{
    const auto count = static_cast<NSInteger>(number);
    switch (kind) {
    case WordNoteKind::Endnote:
        return u"[" + romanNumeral(count) + u"]";
    case WordNoteKind::Comment:
        return u"[c" + decimalNumeral(count) + u"]";
    case WordNoteKind::Footnote:
        break;
    }
    return u"[" + decimalNumeral(count) + u"]";
}

bool isBlank(std::u16string_view text)
{
    return text.find_first_not_of(u" \t\n\u2028\f") == std::u16string_view::npos;
}

} // namespace

std::u16string WordNoteNumbers::markForReference(WordNoteKind kind, std::string_view identifier)
{
    auto& numbers = m_numbers[kind];
    const auto number = numbers.size() + 1;
    return markOf(kind, numbers.emplace(identifier, number).first->second);
}

std::size_t WordNoteNumbers::number(WordNoteKind kind, std::string_view identifier) const
{
    const auto numbers = m_numbers.find(kind);
    if (numbers == m_numbers.end())
        return 0;
    const auto found = numbers->second.find(identifier);
    return found == numbers->second.end() ? 0 : found->second;
}

std::u16string WordNoteNumbers::mark(WordNoteKind kind, std::string_view identifier) const
{
    const auto count = number(kind, identifier);
    return count == 0 ? std::u16string() : markOf(kind, count);
}

void appendNotes(NSMutableAttributedString& text, const NSAttributedString& part, std::vector<WordNote> notes,
                 const WordNoteNumbers& numbers)
{
    const auto place = [&numbers](const WordNote& note) {
        const auto number = numbers.number(note.kind, note.identifier);
        return number == 0 ? std::numeric_limits<std::size_t>::max() : number;
    };
    std::stable_sort(notes.begin(), notes.end(), [&place](const WordNote& one, const WordNote& other) {
        return place(one) < place(other);
    });
    for (const auto& note : notes) {
        if (!note.isSeparator || !isBlank(part.substringWithRange(note.range)))
            text.appendAttributedString(part.attributedSubstringFromRange(note.range));
    }
}
