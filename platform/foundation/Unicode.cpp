#include "platform/foundation/Unicode.h"

#include <unicode/utf16.h>
#include <unicode/utf8.h>

#include <limits>

char32_t nextCodePoint(std::string_view utf8, std::size_t& offset)
{
    const auto lead = static_cast<unsigned char>(utf8[offset]);
    if (lead < 0x80) {
        ++offset;
        return lead;
    }
    // ICU's macro counts in 32 bits; four bytes from here are all that it may look at.
    const auto window = utf8.substr(offset, U8_MAX_LENGTH);
    std::int32_t position = 0;
    UChar32 codePoint = 0;
    U8_NEXT(window.data(), position, static_cast<std::int32_t>(window.size()), codePoint);
    offset += static_cast<std::size_t>(position);
    return codePoint < 0 ? kReplacementCharacter : static_cast<char32_t>(codePoint);
}

void appendUTF8(std::string& text, char32_t codePoint)
{
    char bytes[U8_MAX_LENGTH];
    std::int32_t length = 0;
    U8_APPEND_UNSAFE(bytes, length, static_cast<UChar32>(codePoint));
    text.append(bytes, static_cast<std::size_t>(length));
}

bool isValidUTF8(std::string_view bytes)
{
    std::size_t offset = 0;
    while (offset < bytes.size()) {
        if (static_cast<unsigned char>(bytes[offset]) < 0x80) {
            ++offset;
            continue;
        }
        const auto start = offset;
        if (nextCodePoint(bytes, offset) == kReplacementCharacter && bytes.substr(start, 3) != "\xEF\xBF\xBD")
            return false;
    }
    return true;
}

std::string validUTF8(std::string_view bytes)
{
    if (isValidUTF8(bytes))
        return std::string(bytes);
    std::string text;
    text.reserve(bytes.size());
    for (std::size_t offset = 0; offset < bytes.size();)
        appendUTF8(text, nextCodePoint(bytes, offset));
    return text;
}

std::string UTF8FromUTF16(std::u16string_view text)
{
    std::string utf8;
    utf8.reserve(text.size());
    for (std::size_t index = 0; index < text.size(); ++index) {
        char32_t codePoint = text[index];
        if (U16_IS_LEAD(codePoint) && index + 1 < text.size() && U16_IS_TRAIL(text[index + 1]))
            codePoint = static_cast<char32_t>(U16_GET_SUPPLEMENTARY(codePoint, text[++index]));
        else if (U16_IS_SURROGATE(codePoint))
            codePoint = kReplacementCharacter;
        appendUTF8(utf8, codePoint);
    }
    return utf8;
}

std::u16string UTF16FromUTF8(std::string_view text)
{
    std::u16string utf16;
    utf16.reserve(text.size());
    for (std::size_t offset = 0; offset < text.size();) {
        const auto codePoint = nextCodePoint(text, offset);
        if (codePoint > 0xFFFF) {
            utf16 += static_cast<char16_t>(U16_LEAD(codePoint));
            utf16 += static_cast<char16_t>(U16_TRAIL(codePoint));
        } else {
            utf16 += static_cast<char16_t>(codePoint);
        }
    }
    return utf16;
}

std::string_view prefixAtCharacterBorder(std::string_view text, std::size_t maximumByteCount)
{
    if (text.size() <= maximumByteCount)
        return text;
    std::size_t length = maximumByteCount;
    while (length > 0 && U8_IS_TRAIL(static_cast<std::uint8_t>(text[length])))
        --length;
    return text.substr(0, length);
}
