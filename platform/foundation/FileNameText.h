#pragma once

#include <string>
#include <string_view>

/// File names as texts. On disk a name is any bytes; in a text each byte that is not UTF-8 is the unpaired
/// surrogate U+DC00 plus the byte. Every name comes back byte for byte.

[[nodiscard]] std::u16string textFromFileName(std::string_view bytes);

/// Unpaired surrogates that stand for no byte become U+FFFD.
[[nodiscard]] std::string fileNameFromText(std::u16string_view text);

/// Whether a file in a folder can have the name: not empty, not "." or "..", without a slash and NUL.
[[nodiscard]] bool isFileName(std::string_view bytes);
[[nodiscard]] bool isFileName(std::u16string_view text);
