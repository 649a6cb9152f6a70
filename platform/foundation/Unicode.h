#pragma once

#include <cstdint>
#include <string>
#include <string_view>

/// What stands for bytes that are no UTF-8.
inline constexpr char32_t kReplacementCharacter = 0xFFFD;

/// The code point at `offset`, which is moved behind it. Every maximal ill-formed sequence gives one U+FFFD,
/// as the Unicode standard recommends. `offset` must be below the length.
[[nodiscard]] char32_t nextCodePoint(std::string_view utf8, std::size_t& offset);

/// The code point at `offset`, which is moved behind it; an unpaired surrogate stands for itself. `offset`
/// must be below the length.
[[nodiscard]] char32_t nextCodePoint(std::u16string_view utf16, std::size_t& offset);

/// Where the code point begins that ends at `offset`, which must be above 0.
[[nodiscard]] std::size_t previousCodePointStart(std::u16string_view utf16, std::size_t offset);

void appendUTF8(std::string& text, char32_t codePoint);

[[nodiscard]] bool isASCII(std::string_view bytes);

[[nodiscard]] bool isValidUTF8(std::string_view bytes);

/// `bytes` with every ill-formed sequence replaced by U+FFFD.
[[nodiscard]] std::string validUTF8(std::string_view bytes);

/// UTF-16 with unpaired surrogates replaced.
[[nodiscard]] std::string UTF8FromUTF16(std::u16string_view text);
[[nodiscard]] std::u16string UTF16FromUTF8(std::string_view text);

/// The longest prefix of `text` of at most `maximumByteCount` bytes that does not end within a character.
[[nodiscard]] std::string_view prefixAtCharacterBorder(std::string_view text, std::size_t maximumByteCount);
