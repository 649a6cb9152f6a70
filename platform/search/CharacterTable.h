#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <string_view>

/// The lower-case forms of the ASCII letters and digits; NUL for all other ASCII characters.
inline constexpr auto kFoldedASCII = [] {
    std::array<char, 128> table{};
    for (std::size_t digit = '0'; digit <= '9'; ++digit)
        table[digit] = static_cast<char>(digit);
    for (std::size_t letter = 'a'; letter <= 'z'; ++letter) {
        table[letter] = static_cast<char>(letter);
        table[letter - 'a' + 'A'] = static_cast<char>(letter);
    }
    return table;
}();

/// What the tokenizer does with a character.
enum class CharacterKind : std::uint8_t {
    /// Ends a word.
    Separator,
    /// A letter, digit or mark that belongs to a word.
    Word,
    /// Vanishes within a word: accents of alphabets, soft hyphens, joiners, variation selectors.
    Ignorable,
    /// Chinese, Japanese or Korean: a token of its own.
    Ideograph,
    /// A mark that composes with the kana before it.
    KanaMark,
    /// A part of a decomposed Korean syllable.
    Jamo,
    /// Thai, Lao, Khmer, Burmese: words are found with a dictionary.
    Dictionary,
    /// An emoji: a token of its own.
    Emoji,
};

/// How characters are read and folded: case, accents of alphabets and width go, ligatures and letters that do
/// not decompose (ß, ł, ø, æ) are spelt out. Computed from ICU's data in blocks on first use, once for the
/// process; may be asked from any thread.
class CharacterTable {
public:
    struct Character {
        CharacterKind kind = CharacterKind::Separator;
        /// Bytes of `folded`; kLong when the folded form is longer and asked for with `longFold`.
        std::uint8_t length = 0;
        std::array<char, 6> folded{};
    };

    static constexpr std::uint8_t kLong = 0xFF;

    [[nodiscard]] static const Character& character(char32_t codePoint);
    /// The folded form in UTF-8, however long.
    [[nodiscard]] static std::string_view fold(const Character& character);

    /// The lower-case form of an ASCII letter or digit; NUL for all other ASCII characters.
    [[nodiscard]] static char foldASCII(unsigned char character) { return kFoldedASCII[character]; }
};
