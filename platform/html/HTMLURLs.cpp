#include "platform/html/HTMLURLs.h"

#include "platform/foundation/Base64.h"
#include "platform/foundation/NSURL.h"
#include "platform/html/CSSValues.h"

#include <fmt/format.h>
#include <libxml/uri.h>

#include <algorithm>
#include <array>
#include <memory>

namespace {

/// Longer ones are taken as they are: resolving takes more than linear time.
constexpr std::size_t kMostResolvedBytes = 4096;

std::string percentEncodedForURL(std::string_view text)
{
    std::string encoded;
    for (const char byte : text) {
        const auto value = static_cast<unsigned char>(byte);
        const bool isKept = value > 0x20 && value < 0x7F && byte != '"' && byte != '<' && byte != '>';
        if (isKept)
            encoded += byte;
        else if (value >= 0x20)
            encoded += fmt::format("%{:02X}", value);
    }
    return encoded;
}

} // namespace

std::string resolvedURL(std::string_view reference, const std::string& base)
{
    auto encoded = percentEncodedForURL(trimmedCSS(reference));
    if (base.empty() || encoded.empty() || encoded.size() + base.size() > kMostResolvedBytes)
        return encoded;
    const auto* const relative = reinterpret_cast<const xmlChar*>(encoded.c_str());
    const auto* const from = reinterpret_cast<const xmlChar*>(base.c_str());
    const std::unique_ptr<xmlChar, void (*)(void*)> built(xmlBuildURI(relative, from),
                                                          [](void* text) { xmlFree(text); });
    return built ? std::string(reinterpret_cast<const char*>(built.get())) : encoded;
}

bool isLinkToBeLeftOut(std::u16string_view target)
{
    constexpr std::array<std::string_view, 4> kSchemes{"javascript", "vbscript", "data", "file"};
    std::string scheme;
    for (const auto unit : target.substr(0, target.find(u':'))) {
        if (unit > u' ' && unit < 0x7F)
            scheme += static_cast<char>(unit);
    }
    const bool hasScheme = target.find(u':') != std::u16string_view::npos;
    return hasScheme
        && std::find(kSchemes.begin(), kSchemes.end(), inASCIILowerCase(scheme)) != kSchemes.end();
}

std::optional<DataURL> contentsOfDataURL(std::string_view url)
{
    url = trimmedCSS(url);
    const auto comma = url.find(',');
    if (comma == std::string_view::npos || inASCIILowerCase(url.substr(0, 5)) != "data:")
        return std::nullopt;
    const auto head = inASCIILowerCase(url.substr(5, comma - 5));
    DataURL contents;
    contents.mimeType = head.substr(0, head.find(';'));
    if (contents.mimeType.empty())
        contents.mimeType = "text/plain";
    auto body = percentDecoded(url.substr(comma + 1));
    if (!head.ends_with(";base64")) {
        contents.bytes = std::move(body);
        return contents;
    }
    auto bytes = bytesFromBase64(body);
    if (!bytes)
        return std::nullopt;
    contents.bytes = std::move(*bytes);
    return contents;
}
