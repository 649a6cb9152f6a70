#pragma once

#include <array>
#include <cstdint>
#include <string_view>

/// A word for a kind of underline, with the platform's mask for it.
struct RTFUnderline {
    std::string_view word;
    std::int32_t style;
};

/// What underlines of the words' own are called; other masks are numbers.
inline constexpr std::array kRTFUnderlines{
    RTFUnderline{"ul", 1},           RTFUnderline{"ulw", 0x8001},      RTFUnderline{"uldb", 9},
    RTFUnderline{"ulth", 2},         RTFUnderline{"uld", 0x101},       RTFUnderline{"uldash", 0x201},
    RTFUnderline{"uldashd", 0x301},  RTFUnderline{"uldashdd", 0x401},  RTFUnderline{"ulthd", 0x102},
    RTFUnderline{"ulthdash", 0x202}, RTFUnderline{"ulthdashd", 0x302}, RTFUnderline{"ulthdashdd", 0x402},
};
