#include "platform/word/WordValues.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <cmath>

namespace {

constexpr int kMostInteger = 1'000'000;
constexpr double kMostPoints = 100'000;
constexpr double kTwentiethsPerPoint = 20;
constexpr std::size_t kColorDigitCount = 6;

struct Unit {
    std::string_view name;
    double points;
};

constexpr std::array<Unit, 6> kUnits{
    {{"pt", 1}, {"in", 72}, {"cm", 72 / 2.54}, {"mm", 72 / 25.4}, {"pc", 12}, {"pi", 12}}};

struct Highlight {
    std::string_view name;
    std::uint32_t rgb;
};

constexpr std::array<Highlight, 16> kHighlights{{{"black", 0x000000},
                                                 {"blue", 0x0000FF},
                                                 {"cyan", 0x00FFFF},
                                                 {"darkBlue", 0x00008B},
                                                 {"darkCyan", 0x008B8B},
                                                 {"darkGray", 0xA9A9A9},
                                                 {"darkGreen", 0x006400},
                                                 {"darkMagenta", 0x800080},
                                                 {"darkRed", 0x8B0000},
                                                 {"darkYellow", 0x808000},
                                                 {"green", 0x00FF00},
                                                 {"lightGray", 0xD3D3D3},
                                                 {"magenta", 0xFF00FF},
                                                 {"red", 0xFF0000},
                                                 {"white", 0xFFFFFF},
                                                 {"yellow", 0xFFFF00}}};

} // namespace

bool isWordPropertyOn(const XMLAttributes& attributes)
{
    const auto value = attributes.value("val");
    return value != "0" && value != "false" && value != "off";
}

bool isWordValueOn(std::string_view value)
{
    return value == "1" || value == "true" || value == "on";
}

std::optional<int> wordInteger(std::string_view text)
{
    const auto length = wordLength(text, 1);
    if (!length)
        return std::nullopt;
    double number = 0;
    (void)std::from_chars(text.data(), text.data() + text.size(), number); // It has just been read.
    return static_cast<int>(std::clamp(number, -double{kMostInteger}, double{kMostInteger}));
}

std::optional<double> wordLength(std::string_view text)
{
    return wordLength(text, kTwentiethsPerPoint);
}

std::optional<double> wordLength(std::string_view text, double unitsPerPoint)
{
    double number = 0;
    const auto* const end = text.data() + text.size();
    const auto result = std::from_chars(text.data(), end, number);
    if (result.ec != std::errc() || !std::isfinite(number))
        return std::nullopt;
    const std::string_view rest(result.ptr, static_cast<std::size_t>(end - result.ptr));
    const auto* const unit
        = std::find_if(kUnits.begin(), kUnits.end(), [rest](const Unit& row) { return row.name == rest; });
    if (!rest.empty() && unit == kUnits.end())
        return std::nullopt;
    const auto points = rest.empty() ? number / unitsPerPoint : number * unit->points;
    return std::clamp(points, -kMostPoints, kMostPoints);
}

std::optional<WordColor> wordColor(std::string_view text)
{
    if (text == "auto")
        return WordColor{};
    WordColor color{false, 0};
    const auto* const end = text.data() + text.size();
    const auto result = std::from_chars(text.data(), end, color.rgb, 16);
    if (text.size() != kColorDigitCount || result.ec != std::errc() || result.ptr != end)
        return std::nullopt;
    return color;
}

std::optional<WordColor> wordHighlight(std::string_view name)
{
    if (name == "none")
        return WordColor{};
    const auto* const found = std::find_if(kHighlights.begin(), kHighlights.end(),
                                           [name](const Highlight& row) { return row.name == name; });
    return found == kHighlights.end() ? std::nullopt : std::optional(WordColor{false, found->rgb});
}
