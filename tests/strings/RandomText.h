#pragma once

#include <cstdint>
#include <random>
#include <string>
#include <string_view>

/// Texts made of the given pieces, in any order, for tests of what must hold for every text. The same seed
/// gives the same texts on every machine.
class RandomText {
public:
    explicit RandomText(std::uint32_t seed)
        : m_numbers(seed)
    {
    }

    /// A text of up to `mostCount` characters of `alphabet`.
    std::u16string next(std::u16string_view alphabet, std::uint32_t mostCount)
    {
        std::u16string text(m_numbers() % (mostCount + 1), u'\0');
        for (auto& unit : text)
            unit = alphabet[m_numbers() % alphabet.size()];
        return text;
    }

private:
    std::mt19937 m_numbers;
};
