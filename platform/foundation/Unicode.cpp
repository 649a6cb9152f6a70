#include "platform/foundation/Unicode.h"

#include <cstring>

namespace {

constexpr char32_t kLastCodePoint = 0x10FFFF;

bool isContinuation(char byte)
{
    return (static_cast<unsigned char>(byte) & 0xC0U) == 0x80;
}

bool isLeadSurrogate(char32_t unit)
{
    return (unit & 0xFFFFFC00U) == 0xD800;
}

bool isTrailSurrogate(char32_t unit)
{
    return (unit & 0xFFFFFC00U) == 0xDC00;
}

// The range that the second byte of a sequence must lie in excludes overlong forms, surrogates and what is
// past the last code point (Unicode, table 3-7).
bool isSecondByte(unsigned char lead, char byte)
{
    const auto second = static_cast<unsigned char>(byte);
    switch (lead) {
    case 0xE0:
        return second >= 0xA0 && second <= 0xBF;
    case 0xED:
        return second >= 0x80 && second <= 0x9F;
    case 0xF0:
        return second >= 0x90 && second <= 0xBF;
    case 0xF4:
        return second >= 0x80 && second <= 0x8F;
    default:
        return isContinuation(byte);
    }
}

std::size_t sequenceLength(unsigned char lead)
{
    if (lead >= 0xC2 && lead <= 0xDF)
        return 2;
    if (lead >= 0xE0 && lead <= 0xEF)
        return 3;
    return lead >= 0xF0 && lead <= 0xF4 ? 4 : 0;
}

std::size_t asciiPrefixLength(std::string_view bytes)
{
    constexpr std::uint64_t kHighBits = 0x8080808080808080;
    std::size_t length = 0;
    std::uint64_t word = 0;
    while (bytes.size() - length >= sizeof(word)) {
        std::memcpy(&word, bytes.data() + length, sizeof(word));
        if (word & kHighBits)
            break;
        length += sizeof(word);
    }
    while (length < bytes.size() && static_cast<unsigned char>(bytes[length]) < 0x80)
        ++length;
    return length;
}

} // namespace

char32_t nextCodePoint(std::string_view utf8, std::size_t& offset)
{
    const auto lead = static_cast<unsigned char>(utf8[offset++]);
    if (lead < 0x80)
        return lead;
    const std::size_t length = sequenceLength(lead);
    if (length == 0 || offset >= utf8.size() || !isSecondByte(lead, utf8[offset]))
        return kReplacementCharacter;
    char32_t codePoint = lead & (0x7FU >> length);
    for (std::size_t index = 1; index < length; ++index) {
        if (offset >= utf8.size() || !isContinuation(utf8[offset]))
            return kReplacementCharacter;
        codePoint = (codePoint << 6U) | (static_cast<unsigned char>(utf8[offset++]) & 0x3FU);
    }
    return codePoint;
}

char32_t nextCodePoint(std::u16string_view utf16, std::size_t& offset)
{
    const char32_t unit = utf16[offset++];
    if (!isLeadSurrogate(unit) || offset == utf16.size() || !isTrailSurrogate(utf16[offset]))
        return unit;
    return 0x10000 + ((unit & 0x3FFU) << 10U) + (utf16[offset++] & 0x3FFU);
}

std::size_t previousCodePointStart(std::u16string_view utf16, std::size_t offset)
{
    const bool isPair
        = offset > 1 && isTrailSurrogate(utf16[offset - 1]) && isLeadSurrogate(utf16[offset - 2]);
    return offset - (isPair ? 2 : 1);
}

void appendUTF8(std::string& text, char32_t codePoint)
{
    const auto tail
        = [codePoint](unsigned shift) { return static_cast<char>(0x80U | ((codePoint >> shift) & 0x3FU)); };
    if (codePoint < 0x80) {
        text += static_cast<char>(codePoint);
    } else if (codePoint < 0x800) {
        text += {static_cast<char>(0xC0U | (codePoint >> 6U)), tail(0)};
    } else if (codePoint < 0x10000) {
        const bool surrogate = isLeadSurrogate(codePoint) || isTrailSurrogate(codePoint);
        if (surrogate)
            return appendUTF8(text, kReplacementCharacter);
        text += {static_cast<char>(0xE0U | (codePoint >> 12U)), tail(6), tail(0)};
    } else if (codePoint <= kLastCodePoint) {
        text += {static_cast<char>(0xF0U | (codePoint >> 18U)), tail(12), tail(6), tail(0)};
    } else {
        appendUTF8(text, kReplacementCharacter);
    }
}

bool isASCII(std::string_view bytes)
{
    return asciiPrefixLength(bytes) == bytes.size();
}

bool isValidUTF8(std::string_view bytes)
{
    for (std::size_t offset = asciiPrefixLength(bytes); offset < bytes.size();) {
        const auto start = offset;
        if (nextCodePoint(bytes, offset) == kReplacementCharacter && bytes.substr(start, 3) != "\xEF\xBF\xBD")
            return false;
        if (offset < bytes.size() && static_cast<unsigned char>(bytes[offset]) < 0x80)
            offset += asciiPrefixLength(bytes.substr(offset));
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
    for (std::size_t offset = 0; offset < text.size();)
        appendUTF8(utf8,
                   nextCodePoint(text, offset)); // What is left of surrogates stands alone, and is replaced.
    return utf8;
}

std::u16string UTF16FromUTF8(std::string_view text)
{
    std::u16string utf16;
    utf16.reserve(text.size());
    for (std::size_t offset = 0; offset < text.size();) {
        const auto codePoint = nextCodePoint(text, offset);
        if (codePoint > 0xFFFF) {
            utf16 += static_cast<char16_t>(0xD7C0U + (codePoint >> 10U));
            utf16 += static_cast<char16_t>(0xDC00U | (codePoint & 0x3FFU));
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
    while (length > 0 && isContinuation(text[length]))
        --length;
    return text.substr(0, length);
}
