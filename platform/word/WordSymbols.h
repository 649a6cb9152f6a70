#pragma once

#include <cstdint>
#include <string_view>

/// The character that shows what a symbol font has under a code; 0 for a sign that is not known here. Codes
/// outside of the range where symbol fonts have theirs are characters already.
[[nodiscard]] char16_t wordSymbol(std::string_view font, std::uint32_t code);
