#pragma once

#include <cstdint>
#include <string_view>

/// Of fonts of symbols: bytes above 0x7F are characters of the private area, U+F000 and on, as other programs
/// have them.
inline constexpr std::uint16_t kSymbolCodePage = 42;

/// The Windows code page of a font's \fcharset, or 0 when it means the document's own.
[[nodiscard]] std::uint16_t codePageForFontCharset(std::int32_t charset);

/// The charset name of a Windows code page; that of 1252 for one that is not known.
[[nodiscard]] std::string_view charsetNameForCodePage(std::uint16_t codePage);
