#include "platform/html/CharacterReference.h"

#include "platform/foundation/Unicode.h"

#include <libxml/HTMLparser.h>

#include <algorithm>
#include <array>
#include <charconv>
#include <cstdint>
#include <optional>
#include <system_error>
#include <utility>

namespace {

constexpr std::size_t kLongestNameByteCount = 8;
constexpr char32_t kFirstBeyondLatin1 = 0x100;

// Numbers from 0x80 to 0x9F mean the characters of Windows-1252, because that is what authors meant by them.
constexpr std::array<char16_t, 32> kWindowsCharacters{
    0x20AC, 0x0081, 0x201A, 0x0192, 0x201E, 0x2026, 0x2020, 0x2021, 0x02C6, 0x2030, 0x0160,
    0x2039, 0x0152, 0x008D, 0x017D, 0x008F, 0x0090, 0x2018, 0x2019, 0x201C, 0x201D, 0x2022,
    0x2013, 0x2014, 0x02DC, 0x2122, 0x0161, 0x203A, 0x0153, 0x009D, 0x017E, 0x0178,
};

char32_t characterForNumber(std::uint32_t number)
{
    constexpr char32_t kFirstWindowsCharacter = 0x80;
    if (number >= kFirstWindowsCharacter && number < kFirstWindowsCharacter + kWindowsCharacters.size())
        return kWindowsCharacters.at(number - kFirstWindowsCharacter);
    const bool isSurrogate = (number & 0xFFFFF800U) == 0xD800;
    return number == 0 || number > 0x10FFFF || isSurrogate ? kReplacementCharacter : number;
}

std::optional<std::string> decodedNumber(std::string_view digits)
{
    const bool isHexadecimal = digits.starts_with('x') || digits.starts_with('X');
    if (isHexadecimal)
        digits.remove_prefix(1);
    std::uint32_t number = 0;
    const auto* const end = digits.data() + digits.size();
    const auto [stop, failure] = std::from_chars(digits.data(), end, number, isHexadecimal ? 16 : 10);
    if (failure == std::errc::invalid_argument)
        return std::nullopt;
    std::string text;
    appendUTF8(text, failure == std::errc{} ? characterForNumber(number) : kReplacementCharacter);
    return text.append(stop, end);
}

std::optional<char32_t> characterForName(std::string_view name)
{
    if (name.empty() || name.size() > kLongestNameByteCount)
        return std::nullopt;
    const std::string terminated(name);
    const auto* const entity = htmlEntityLookup(reinterpret_cast<const xmlChar*>(terminated.c_str()));
    return entity ? std::optional<char32_t>(entity->value) : std::nullopt;
}

std::optional<std::string> decodedLatin1Name(std::string_view name)
{
    for (auto length = std::min(name.size(), kLongestNameByteCount); length >= 2; --length) {
        const auto character = characterForName(name.substr(0, length));
        if (character && *character < kFirstBeyondLatin1) {
            std::string text;
            appendUTF8(text, *character);
            return text.append(name.substr(length));
        }
    }
    return std::nullopt;
}

std::optional<std::string> decodedName(std::string_view name, bool isTerminated)
{
    if (!isTerminated)
        return decodedLatin1Name(name);
    const auto character = characterForName(name);
    if (!character)
        return std::nullopt;
    std::string text;
    appendUTF8(text, *character);
    return text;
}

} // namespace

std::string decodedCharacterReference(std::string_view name, bool isTerminated)
{
    auto decoded = name.starts_with('#') ? decodedNumber(name.substr(1)) : decodedName(name, isTerminated);
    if (decoded)
        return std::move(*decoded);
    std::string written("&");
    written.append(name);
    return isTerminated ? written.append(";") : written;
}

std::string decodedCharacterReferences(std::string_view text)
{
    std::string decoded;
    while (!text.empty()) {
        const auto ampersand = std::min(text.find('&'), text.size());
        decoded.append(text.substr(0, ampersand));
        text.remove_prefix(ampersand);
        if (text.empty())
            break;
        text.remove_prefix(1);
        const auto* const end = std::find_if_not(
            text.begin(), text.begin() + std::min(text.size(), kReferenceByteCount), isReferenceByte);
        const auto name = text.substr(0, static_cast<std::size_t>(end - text.begin()));
        text.remove_prefix(name.size());
        const bool isTerminated = text.starts_with(';');
        text.remove_prefix(isTerminated ? 1 : 0);
        decoded += decodedCharacterReference(name, isTerminated);
    }
    return decoded;
}
