#include "platform/html/HTMLEscaping.h"

#include "platform/foundation/Unicode.h"

namespace {

bool isHighSurrogate(char16_t unit)
{
    return unit >= 0xD800 && unit < 0xDC00;
}

bool isLowSurrogate(char16_t unit)
{
    return unit >= 0xDC00 && unit < 0xE000;
}

char32_t codePointAt(std::u16string_view text, std::size_t& index)
{
    const char16_t unit = text[index++];
    if (isHighSurrogate(unit) && index < text.size() && isLowSurrogate(text[index]))
        return 0x10000 + ((char32_t{unit} - 0xD800) << 10U) + (char32_t{text[index++]} - 0xDC00);
    return isHighSurrogate(unit) || isLowSurrogate(unit) ? kReplacementCharacter : char32_t{unit};
}

bool mayStandInHTML(char32_t codePoint)
{
    if (codePoint < 0x20)
        return codePoint == '\t';
    const bool isControl = codePoint >= 0x7F && codePoint < 0xA0;
    const bool isNoncharacter
        = (codePoint & 0xFFFEU) == 0xFFFE || (codePoint >= 0xFDD0 && codePoint <= 0xFDEF);
    return !isControl && !isNoncharacter;
}

void appendCharacter(std::string& html, char32_t codePoint)
{
    switch (codePoint) {
    case U'&':
        html += "&amp;";
        return;
    case U'<':
        html += "&lt;";
        return;
    case U'>':
        html += "&gt;";
        return;
    default:
        if (codePoint < 0x80)
            html += static_cast<char>(codePoint);
        else
            appendUTF8(html, codePoint);
    }
}

} // namespace

void appendHTMLText(std::string& html, std::u16string_view text)
{
    for (std::size_t index = 0; index < text.size();) {
        const auto codePoint = codePointAt(text, index);
        if (mayStandInHTML(codePoint))
            appendCharacter(html, codePoint);
    }
}

std::string htmlAttributeValue(std::u16string_view value)
{
    std::string escaped;
    for (std::size_t start = 0; start <= value.size();) {
        const auto quote = std::min(value.find(u'"', start), value.size());
        appendHTMLText(escaped, value.substr(start, quote - start));
        if (quote < value.size())
            escaped += "&quot;";
        start = quote + 1;
    }
    return escaped;
}
