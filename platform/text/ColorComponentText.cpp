#include "platform/text/ColorComponentText.h"

#include <fmt/format.h>

#include <charconv>
#include <cmath>

namespace {

void skipBlanks(std::string_view& text)
{
    const auto first = text.find_first_not_of(" \t\r\n");
    text.remove_prefix(first == std::string_view::npos ? text.size() : first);
}

std::optional<double> takeNumber(std::string_view& text)
{
    double value = 0;
    const auto [end, status] = std::from_chars(text.data(), text.data() + text.size(), value);
    if (status != std::errc() || !std::isfinite(value))
        return std::nullopt;
    text.remove_prefix(static_cast<std::size_t>(end - text.data()));
    const bool isSeparated = text.empty() || std::string_view(" \t\r\n").find(text.front()) != text.npos;
    return isSeparated ? std::optional(value) : std::nullopt;
}

} // namespace

std::optional<std::vector<double>> componentsFromText(std::string_view text, std::size_t count)
{
    if (text.size() > kMaximumComponentTextLength)
        return std::nullopt;
    while (text.ends_with('\0'))
        text.remove_suffix(1);
    std::vector<double> components;
    for (skipBlanks(text); !text.empty(); skipBlanks(text)) {
        const auto number = takeNumber(text);
        if (!number || components.size() > count)
            return std::nullopt;
        components.push_back(*number);
    }
    if (components.size() < count || components.size() > count + 1)
        return std::nullopt;
    return components;
}

std::string textFromComponents(std::span<const double> components)
{
    std::string text;
    for (const auto component : components) {
        if (!text.empty())
            text.push_back(' ');
        // Adding 0 takes the sign from a negative zero.
        fmt::format_to(std::back_inserter(text), "{:.10g}", component + 0.0);
    }
    return text;
}
