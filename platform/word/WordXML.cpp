#include "platform/word/WordXML.h"

#include "platform/foundation/Unicode.h"

#include <algorithm>
#include <array>
#include <charconv>

namespace {

/// Whether the character stands for itself and takes one byte.
template <typename Unit> bool isPlain(Unit unit)
{
    return unit >= 0x20 && unit < 0x7F && unit != '&' && unit != '<' && unit != '>' && unit != '"';
}

std::string_view referenceOf(char32_t character)
{
    switch (character) {
    case U'&':
        return "&amp;";
    case U'<':
        return "&lt;";
    case U'>':
        return "&gt;";
    case U'"':
        return "&quot;";
    case U'\t':
        return "&#9;";
    case U'\n':
        return "&#10;";
    case U'\r':
        return "&#13;";
    default:
        return {};
    }
}

bool isNoCharacterOfXML(char32_t character)
{
    const bool isSurrogate = character >= 0xD800 && character <= 0xDFFF;
    return isSurrogate || character == 0xFFFE || character == 0xFFFF;
}

} // namespace

void WordXML::text(std::u16string_view text)
{
    for (std::size_t offset = 0; offset < text.size();) {
        const auto* const start = text.begin() + offset;
        const auto* const end = std::find_if_not(start, text.end(), isPlain<char16_t>);
        const auto count = static_cast<std::size_t>(end - start);
        const auto size = m_bytes.size();
        m_bytes.resize(size + count);
        std::transform(start, end, m_bytes.begin() + static_cast<std::ptrdiff_t>(size),
                       [](char16_t unit) { return static_cast<char>(unit); });
        offset += count;
        if (offset < text.size())
            putCharacter(nextCodePoint(text, offset));
    }
}

void WordXML::text(std::string_view utf8)
{
    for (std::size_t offset = 0; offset < utf8.size();) {
        const auto* const start = utf8.begin() + offset;
        const auto* const end = std::find_if_not(start, utf8.end(), isPlain<char>);
        m_bytes.append(start, end);
        offset += static_cast<std::size_t>(end - start);
        if (offset < utf8.size())
            putCharacter(nextCodePoint(utf8, offset));
    }
}

void WordXML::putCharacter(char32_t character)
{
    const auto reference = referenceOf(character);
    if (!reference.empty())
        m_bytes += reference;
    else if (character >= 0x20)
        appendUTF8(m_bytes, isNoCharacterOfXML(character) ? kReplacementCharacter : character);
}

void WordXML::number(std::int64_t number)
{
    std::array<char, 24> digits{};
    const auto result = std::to_chars(digits.data(), digits.data() + digits.size(), number);
    m_bytes.append(digits.data(), result.ptr);
}

void WordXML::toggle(std::string_view name, bool isOn)
{
    if (isOn)
        property(name);
    else
        property(name, std::int64_t{0});
}
