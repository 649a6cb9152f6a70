#include "platform/word/WordLinkAddresses.h"

#include "platform/foundation/Unicode.h"

#include <algorithm>
#include <array>

namespace {

/// Beyond it word processors call the document damaged.
constexpr std::size_t kMostAddressBytes = 2'079;

struct Scheme {
    std::string_view name;
    bool hasHost;
};

constexpr std::array<Scheme, 9> kSchemes{{{"http", true},
                                          {"https", true},
                                          {"ftp", true},
                                          {"ftps", true},
                                          {"sftp", true},
                                          {"mailto", false},
                                          {"tel", false},
                                          {"sms", false},
                                          {"geo", false}}};

bool isHexadecimal(char byte)
{
    return (byte >= '0' && byte <= '9') || (byte >= 'A' && byte <= 'F') || (byte >= 'a' && byte <= 'f');
}

bool isKept(std::string_view text, std::size_t place)
{
    constexpr std::string_view kNotInURLs = "\"<>\\^`{|}";
    const auto byte = text[place];
    if (byte != '%')
        return byte > 0x20 && byte < 0x7F && kNotInURLs.find(byte) == std::string_view::npos;
    return text.size() - place > 2 && isHexadecimal(text[place + 1]) && isHexadecimal(text[place + 2]);
}

std::string encoded(std::string_view text)
{
    constexpr std::string_view kDigits = "0123456789ABCDEF";
    std::string result;
    for (std::size_t place = 0; place < text.size(); ++place) {
        if (isKept(text, place)) {
            result += text[place];
            continue;
        }
        const auto value = static_cast<unsigned char>(text[place]);
        result += '%';
        result += kDigits[value >> 4U];
        result += kDigits[value & 0xFU];
    }
    return result;
}

bool isHostCharacter(char byte)
{
    const bool isLetter = (byte >= 'A' && byte <= 'Z') || (byte >= 'a' && byte <= 'z');
    constexpr std::string_view kOthers = "0123456789.-_~%[]:";
    return isLetter || kOthers.find(byte) != std::string_view::npos;
}

/// Whether two slashes and a host follow the scheme.
bool hasHost(std::string_view rest)
{
    if (!rest.starts_with("//"))
        return false;
    auto host = rest.substr(2, rest.find_first_of("/?#", 2) - 2);
    host.remove_prefix(std::min(host.rfind('@') + 1, host.size()));
    return !host.empty() && std::all_of(host.begin(), host.end(), isHostCharacter);
}

std::string textOf(const NSAny& link)
{
    if (const auto* const url = link.url())
        return url->absoluteString();
    const auto* const text = link.string();
    return text ? UTF8FromUTF16(*text) : std::string();
}

std::string trimmed(const std::string& text)
{
    constexpr std::string_view kBlanks = " \t\r\n";
    const auto first = text.find_first_not_of(kBlanks);
    return first == std::string::npos ? std::string()
                                      : text.substr(first, text.find_last_not_of(kBlanks) + 1 - first);
}

} // namespace

std::string wordAddressOfLink(const NSAny& link)
{
    const auto text = trimmed(textOf(link));
    if (text.size() > kMostAddressBytes)
        return {};
    auto address = encoded(text);
    const auto colon = address.find(':');
    if (colon == std::string::npos || address.size() > kMostAddressBytes)
        return {};
    auto name = address.substr(0, colon);
    std::transform(name.begin(), name.end(), name.begin(), [](char byte) {
        return byte >= 'A' && byte <= 'Z' ? static_cast<char>(byte - 'A' + 'a') : byte;
    });
    const auto* const scheme = std::find_if(kSchemes.begin(), kSchemes.end(),
                                            [&name](const Scheme& row) { return row.name == name; });
    const auto rest = std::string_view(address).substr(colon + 1);
    if (scheme == kSchemes.end() || rest.empty() || (scheme->hasHost && !hasHost(rest)))
        return {};
    return address;
}
