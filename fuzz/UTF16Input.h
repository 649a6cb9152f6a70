#pragma once

#include <cstdint>
#include <cstring>
#include <string>

/// The input's bytes as UTF-16 units, unpaired surrogates and all.
inline std::u16string UTF16Input(const std::uint8_t* data, std::size_t size)
{
    std::u16string text(size / sizeof(char16_t), u'\0');
    if (!text.empty())
        std::memcpy(text.data(), data, text.size() * sizeof(char16_t));
    return text;
}
