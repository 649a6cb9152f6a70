#include "platform/foundation/Base64.h"

#include <array>
#include <cstdint>

namespace {

constexpr std::string_view kDigits = "ABCDEFGHIJKLMNOPQRSTUVWXYZabcdefghijklmnopqrstuvwxyz0123456789+/";
constexpr std::string_view kBlanks = " \t\n\r\f";
constexpr std::uint8_t kNoDigit = 64;

constexpr std::array<std::uint8_t, 256> digitValues()
{
    std::array<std::uint8_t, 256> values{};
    values.fill(kNoDigit);
    for (std::size_t index = 0; index < kDigits.size(); ++index)
        values.at(static_cast<unsigned char>(kDigits[index])) = static_cast<std::uint8_t>(index);
    return values;
}

std::uint32_t byteAt(std::string_view bytes, std::size_t index)
{
    return index < bytes.size() ? static_cast<unsigned char>(bytes[index]) : 0;
}

} // namespace

std::string base64EncodedString(std::string_view bytes)
{
    std::string text;
    text.reserve((bytes.size() + 2) / 3 * 4);
    for (std::size_t index = 0; index < bytes.size(); index += 3) {
        const auto group
            = byteAt(bytes, index) << 16U | byteAt(bytes, index + 1) << 8U | byteAt(bytes, index + 2);
        text += kDigits[group >> 18U];
        text += kDigits[group >> 12U & 63U];
        text += index + 1 < bytes.size() ? kDigits[group >> 6U & 63U] : '=';
        text += index + 2 < bytes.size() ? kDigits[group & 63U] : '=';
    }
    return text;
}

std::optional<std::string> bytesFromBase64(std::string_view text)
{
    static constexpr auto kValues = digitValues();
    while (!text.empty() && (text.back() == '=' || kBlanks.find(text.back()) != std::string_view::npos))
        text.remove_suffix(1);
    std::string bytes;
    bytes.reserve(text.size() / 4 * 3 + 3);
    std::uint32_t group = 0;
    unsigned bits = 0;
    for (const char character : text) {
        if (kBlanks.find(character) != std::string_view::npos)
            continue;
        const auto value = kValues[static_cast<unsigned char>(character)];
        if (value == kNoDigit)
            return std::nullopt;
        group = group << 6U | value;
        bits += 6;
        if (bits >= 8) {
            bits -= 8;
            bytes += static_cast<char>(group >> bits & 0xFFU);
        }
    }
    return bits == 6 ? std::nullopt : std::optional(std::move(bytes));
}
