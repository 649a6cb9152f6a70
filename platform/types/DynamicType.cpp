#include "platform/types/DynamicType.h"

#include <algorithm>
#include <array>
#include <cstddef>
#include <cstdint>
#include <utility>

namespace {

constexpr std::string_view kPrefix = "dyn.";
constexpr std::string_view kHexadecimalDigits = "0123456789abcdef";
constexpr std::string_view kBlanks = " \t\r\n";
// RFC 6838 (4.2): each half has 127 characters at most.
constexpr std::size_t kHalfLength = 127;

constexpr auto kParentsByEnding = std::to_array<std::pair<std::string_view, std::string_view>>({
    {"+xml", "public.xml"},
    {"+json", "public.json"},
    {"+yaml", "public.yaml"},
});

constexpr auto kParentsByStart = std::to_array<std::pair<std::string_view, std::string_view>>({
    {"text/", "public.plain-text"},
    {"image/", "public.image"},
    {"audio/", "public.audio"},
    {"video/", "public.movie"},
    {"font/", "public.font"},
});

bool isTokenCharacter(char character)
{
    constexpr std::string_view kMarks = "!#$&-^_.+";
    return (character >= 'a' && character <= 'z') || (character >= '0' && character <= '9')
        || kMarks.find(character) != std::string_view::npos;
}

bool isToken(std::string_view text)
{
    return !text.empty() && text.size() <= kHalfLength
        && std::all_of(text.begin(), text.end(), isTokenCharacter);
}

char lowerCase(char character)
{
    return character >= 'A' && character <= 'Z' ? static_cast<char>(character - 'A' + 'a') : character;
}

std::string_view trimmed(std::string_view text)
{
    const auto start = text.find_first_not_of(kBlanks);
    if (start == std::string_view::npos)
        return {};
    return text.substr(start, text.find_last_not_of(kBlanks) - start + 1);
}

} // namespace

std::optional<std::string> normalisedMIMEType(std::string_view mimeType)
{
    std::string normalised(trimmed(mimeType.substr(0, mimeType.find(';'))));
    std::transform(normalised.begin(), normalised.end(), normalised.begin(), lowerCase);
    const auto slash = normalised.find('/');
    if (slash == std::string::npos)
        return std::nullopt;
    const std::string_view view(normalised);
    if (!isToken(view.substr(0, slash)) || !isToken(view.substr(slash + 1)))
        return std::nullopt;
    return normalised;
}

std::string dynamicIdentifierForMIMEType(std::string_view normalisedMIMEType)
{
    std::string identifier(kPrefix);
    for (const char character : normalisedMIMEType) {
        const auto byte = static_cast<std::uint8_t>(character);
        identifier += kHexadecimalDigits[byte >> 4U];
        identifier += kHexadecimalDigits[byte & 0xFU];
    }
    return identifier;
}

std::optional<std::string> mimeTypeForDynamicIdentifier(std::string_view identifier)
{
    if (!identifier.starts_with(kPrefix) || identifier.size() % 2 != 0)
        return std::nullopt;
    std::string mimeType;
    for (auto rest = identifier.substr(kPrefix.size()); !rest.empty(); rest.remove_prefix(2)) {
        const auto high = kHexadecimalDigits.find(rest[0]);
        const auto low = kHexadecimalDigits.find(rest[1]);
        if (high == std::string_view::npos || low == std::string_view::npos)
            return std::nullopt;
        mimeType += static_cast<char>(high << 4U | low);
    }
    // Only what the platform itself would have made is an identifier.
    return normalisedMIMEType(mimeType) == mimeType ? std::optional(mimeType) : std::nullopt;
}

std::string_view parentForMIMEType(std::string_view normalisedMIMEType)
{
    for (const auto& [ending, parent] : kParentsByEnding) {
        if (normalisedMIMEType.ends_with(ending))
            return parent;
    }
    for (const auto& [start, parent] : kParentsByStart) {
        if (normalisedMIMEType.starts_with(start))
            return parent;
    }
    return "public.data";
}
