#include "platform/foundation/FileNameText.h"

#include "platform/foundation/Unicode.h"

namespace {

constexpr char16_t kEscapedByte = 0xDC00;

bool isHighSurrogate(char16_t unit)
{
    return unit >= 0xD800 && unit < 0xDC00;
}

bool isEscapedByte(char16_t unit)
{
    return unit >= kEscapedByte + 0x80 && unit <= kEscapedByte + 0xFF;
}

/// The length of the well-formed UTF-8 that `bytes` begin with, at most one character; 0 when ill-formed.
std::size_t characterLength(std::string_view bytes)
{
    std::size_t length = 0;
    (void)nextCodePoint(bytes, length);
    return isValidUTF8(bytes.substr(0, length)) ? length : 0;
}

} // namespace

std::u16string textFromFileName(std::string_view bytes)
{
    if (isValidUTF8(bytes))
        return UTF16FromUTF8(bytes);
    std::u16string text;
    while (!bytes.empty()) {
        const auto length = characterLength(bytes);
        if (length > 0)
            text += UTF16FromUTF8(bytes.substr(0, length));
        else
            text += static_cast<char16_t>(kEscapedByte + static_cast<unsigned char>(bytes.front()));
        bytes.remove_prefix(length > 0 ? length : 1);
    }
    return text;
}

std::string fileNameFromText(std::u16string_view text)
{
    std::string bytes;
    std::size_t plainBegin = 0;
    for (std::size_t index = 0; index < text.size(); ++index) {
        const bool isPaired = index > 0 && isHighSurrogate(text[index - 1]);
        if (!isEscapedByte(text[index]) || isPaired)
            continue;
        bytes += UTF8FromUTF16(text.substr(plainBegin, index - plainBegin));
        bytes += static_cast<char>(text[index] - kEscapedByte);
        plainBegin = index + 1;
    }
    return bytes + UTF8FromUTF16(text.substr(plainBegin));
}

bool isFileName(std::string_view bytes)
{
    constexpr std::string_view kNever("/\0", 2);
    return !bytes.empty() && bytes != "." && bytes != ".."
        && bytes.find_first_of(kNever) == std::string_view::npos;
}

bool isFileName(std::u16string_view text)
{
    return isFileName(fileNameFromText(text));
}
