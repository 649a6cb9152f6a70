#include "platform/html/CSSValues.h"

#include <fmt/format.h>

#include <algorithm>
#include <array>
#include <charconv>
#include <cmath>

namespace {

constexpr std::string_view kBlanks = " \t\n\r\f";
constexpr double kGreatestNumber = 100'000;

struct Unit {
    std::string_view name;
    double points;
};

// An inch has 96 pixels, and 72 of the typographer's points.
constexpr std::array kAbsoluteUnits{
    Unit{"px", 1.0},         Unit{"pt", 96.0 / 72.0}, Unit{"pc", 16.0},      Unit{"in", 96.0},
    Unit{"cm", 96.0 / 2.54}, Unit{"mm", 9.6 / 2.54},  Unit{"q", 2.4 / 2.54},
};

/// Goes over a text and knows whether a place lies within quotes or parentheses.
class NestingScanner {
public:
    /// Whether the character stands outside of both.
    bool isOutside(char character)
    {
        if (m_quote != 0) {
            if (character == m_quote)
                m_quote = 0;
            return false;
        }
        if (character == '"' || character == '\'')
            m_quote = character;
        else if (character == '(')
            ++m_depth;
        else if (character == ')' && m_depth > 0)
            --m_depth;
        return m_quote == 0 && m_depth == 0 && character != ')';
    }

private:
    char m_quote = 0;
    std::size_t m_depth = 0;
};

} // namespace

std::string_view trimmedCSS(std::string_view text)
{
    const auto first = text.find_first_not_of(kBlanks);
    if (first == std::string_view::npos)
        return {};
    return text.substr(first, text.find_last_not_of(kBlanks) - first + 1);
}

std::string inASCIILowerCase(std::string_view text)
{
    std::string lower(text);
    std::transform(lower.begin(), lower.end(), lower.begin(), [](char byte) {
        return byte >= 'A' && byte <= 'Z' ? static_cast<char>(byte - 'A' + 'a') : byte;
    });
    return lower;
}

std::vector<std::string_view> cssWords(std::string_view text)
{
    std::vector<std::string_view> words;
    NestingScanner scanner;
    std::size_t start = 0;
    const auto finish = [&](std::size_t end) {
        if (end > start)
            words.push_back(text.substr(start, end - start));
        start = end + 1;
    };
    for (std::size_t index = 0; index < text.size(); ++index) {
        if (scanner.isOutside(text[index]) && kBlanks.find(text[index]) != std::string_view::npos)
            finish(index);
    }
    finish(text.size());
    return words;
}

std::vector<std::string_view> cssPieces(std::string_view text, char separator)
{
    std::vector<std::string_view> pieces;
    NestingScanner scanner;
    std::size_t start = 0;
    for (std::size_t index = 0; index < text.size(); ++index) {
        if (!scanner.isOutside(text[index]) || text[index] != separator)
            continue;
        pieces.push_back(trimmedCSS(text.substr(start, index - start)));
        start = index + 1;
    }
    pieces.push_back(trimmedCSS(text.substr(start)));
    return pieces;
}

std::optional<CSSNumber> cssNumber(std::string_view text)
{
    text = trimmedCSS(text);
    if (text.starts_with('+'))
        text.remove_prefix(1);
    CSSNumber number;
    const auto* const end = text.data() + text.size();
    const auto result = std::from_chars(text.data(), end, number.value, std::chars_format::fixed);
    if (result.ec != std::errc() || !std::isfinite(number.value))
        return std::nullopt;
    number.value = std::clamp(number.value, -kGreatestNumber, kGreatestNumber);
    number.unit = inASCIILowerCase({result.ptr, static_cast<std::size_t>(end - result.ptr)});
    const bool isUnit = number.unit == "%"
        || std::all_of(number.unit.begin(), number.unit.end(), [](char c) { return c >= 'a' && c <= 'z'; });
    return isUnit ? std::optional(number) : std::nullopt;
}

std::optional<double> cssLength(std::string_view text, const CSSLengthContext& context)
{
    const auto number = cssNumber(text);
    if (!number)
        return std::nullopt;
    if (number->unit.empty())
        return number->value == 0 ? std::optional(0.0) : std::nullopt;
    if (number->unit == "em")
        return number->value * context.fontSize;
    if (number->unit == "rem")
        return number->value * context.rootFontSize;
    if (number->unit == "ex" || number->unit == "ch")
        return number->value * context.fontSize / 2;
    const auto* const unit
        = std::find_if(kAbsoluteUnits.begin(), kAbsoluteUnits.end(),
                       [&number](const Unit& candidate) { return candidate.name == number->unit; });
    if (unit == kAbsoluteUnits.end())
        return std::nullopt;
    return number->value * unit->points;
}

std::string cssNumberText(double value)
{
    if (!std::isfinite(value))
        return "0";
    const auto rounded = std::round(std::clamp(value, -kGreatestNumber, kGreatestNumber) * 1000) / 1000;
    return fmt::format("{}", rounded == 0 ? 0.0 : rounded);
}

std::string cssPixels(double value)
{
    auto text = cssNumberText(value);
    return text == "0" ? text : text + "px";
}
