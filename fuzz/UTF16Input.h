#pragma once

#include "platform/foundation/Unicode.h"

#include <cstdint>
#include <string>
#include <string_view>

/// The input as UTF-16: it is UTF-8, so that seeds are plain text, but that a byte 0xFF makes a unit,
/// unpaired surrogates too, of the two bytes behind it.
inline std::u16string UTF16Input(const std::uint8_t* data, std::size_t size)
{
    constexpr char kRaw = '\xFF';
    const std::string bytes(data, data + size);
    std::u16string text;
    for (std::size_t offset = 0; offset < size;) {
        const auto raw = bytes.find(kRaw, offset);
        text += UTF16FromUTF8(std::string_view(bytes).substr(offset, raw - offset));
        if (raw == std::string::npos || raw + 2 >= size)
            break;
        text += static_cast<char16_t>(data[raw + 1] << 8U | data[raw + 2]);
        offset = raw + 3;
    }
    return text;
}
