#include "platform/foundation/NSURL.h"

#include <fmt/format.h>

#include <algorithm>
#include <cerrno>
#include <filesystem>
#include <sys/stat.h>
#include <utility>

namespace {

constexpr std::string_view kFileScheme = "file";

bool isAlphanumeric(char character)
{
    return (character >= 'a' && character <= 'z') || (character >= 'A' && character <= 'Z')
        || (character >= '0' && character <= '9');
}

int hexadecimalValue(char character)
{
    if (character >= '0' && character <= '9')
        return character - '0';
    if (character >= 'a' && character <= 'f')
        return character - 'a' + 10;
    if (character >= 'A' && character <= 'F')
        return character - 'A' + 10;
    return -1;
}

bool isEscape(std::string_view text, std::size_t offset)
{
    return offset + 2 < text.size() && hexadecimalValue(text[offset + 1]) >= 0
        && hexadecimalValue(text[offset + 2]) >= 0;
}

std::size_t schemeLength(std::string_view string)
{
    const auto colon = string.find(':');
    if (colon == std::string_view::npos || colon == 0 || !isAlphanumeric(string[0])
        || (string[0] >= '0' && string[0] <= '9'))
        return 0;
    const auto isSchemeCharacter = [](char character) {
        return isAlphanumeric(character) || character == '+' || character == '-' || character == '.';
    };
    return std::all_of(string.begin(), string.begin() + static_cast<std::ptrdiff_t>(colon), isSchemeCharacter)
        ? colon
        : 0;
}

struct PathRange {
    std::size_t begin;
    std::size_t end;
};

PathRange pathRange(std::string_view string)
{
    const auto scheme = schemeLength(string);
    auto begin = scheme ? scheme + 1 : 0;
    if (string.substr(begin).starts_with("//"))
        begin = std::min(string.find_first_of("/?#", begin + 2), string.size());
    return {begin, std::min(string.find_first_of("?#", begin), string.size())};
}

std::string_view withoutTrailingSlashes(std::string_view path)
{
    while (path.size() > 1 && path.ends_with('/'))
        path.remove_suffix(1);
    return path;
}

} // namespace

std::string percentEncodedPathComponent(std::string_view bytes)
{
    constexpr std::string_view kPlain = "-._~!$&'()*+,;=:@";
    std::string encoded;
    encoded.reserve(bytes.size());
    for (const char character : bytes) {
        if (isAlphanumeric(character) || kPlain.find(character) != std::string_view::npos)
            encoded += character;
        else
            fmt::format_to(std::back_inserter(encoded), "%{:02X}", static_cast<unsigned char>(character));
    }
    return encoded;
}

std::string percentDecoded(std::string_view text)
{
    std::string decoded;
    decoded.reserve(text.size());
    for (std::size_t offset = 0; offset < text.size(); ++offset) {
        if (text[offset] == '%' && isEscape(text, offset)) {
            decoded += static_cast<char>(hexadecimalValue(text[offset + 1]) * 16
                                         + hexadecimalValue(text[offset + 2]));
            offset += 2;
        } else {
            decoded += text[offset];
        }
    }
    return decoded;
}

NSURL::NSURL(std::string string)
    : m_string(std::move(string))
{
}

NSURL NSURL::fileURLWithPath(std::string_view path)
{
    std::filesystem::path absolute(path);
    if (absolute.is_relative()) {
        std::error_code ignored; // Without a current folder the path is taken from the root.
        absolute = std::filesystem::current_path(ignored) / absolute;
    }
    std::string string = "file://";
    bool any = false;
    for (const auto& component : absolute.lexically_normal()) {
        if (component.native().empty() || component.native() == "/")
            continue;
        string += '/';
        string += percentEncodedPathComponent(component.native());
        any = true;
    }
    return NSURL(any ? std::move(string) : string + "/");
}

std::optional<NSURL> NSURL::URLWithString(std::string_view string)
{
    if (string.empty())
        return std::nullopt;
    for (std::size_t offset = 0; offset < string.size(); ++offset) {
        const auto byte = static_cast<unsigned char>(string[offset]);
        if (byte <= 0x20 || byte >= 0x7F || (byte == '%' && !isEscape(string, offset)))
            return std::nullopt;
    }
    return NSURL(std::string(string));
}

std::string NSURL::scheme() const
{
    std::string scheme = m_string.substr(0, schemeLength(m_string));
    std::transform(scheme.begin(), scheme.end(), scheme.begin(), [](char character) {
        return character >= 'A' && character <= 'Z' ? static_cast<char>(character + 32) : character;
    });
    return scheme;
}

std::string_view NSURL::rawPath() const
{
    const auto range = pathRange(m_string);
    return std::string_view(m_string).substr(range.begin, range.end - range.begin);
}

bool NSURL::isFileURL() const
{
    if (scheme() != kFileScheme || !rawPath().starts_with('/'))
        return false;
    const auto afterScheme = std::string_view(m_string).substr(kFileScheme.size() + 1);
    if (!afterScheme.starts_with("//"))
        return true;
    const auto host = afterScheme.substr(2, afterScheme.find('/', 2) - 2);
    return host.empty() || host == "localhost";
}

std::string NSURL::path() const
{
    std::string decoded = percentDecoded(withoutTrailingSlashes(rawPath()));
    if (decoded.find('\0') != std::string::npos)
        return {};
    return decoded;
}

std::string NSURL::lastPathComponent() const
{
    const auto path = withoutTrailingSlashes(rawPath());
    if (path == "/")
        return "/";
    return percentDecoded(path.substr(path.rfind('/') + 1));
}

std::string NSURL::pathExtension() const
{
    const auto name = lastPathComponent();
    const auto dot = name.rfind('.');
    return dot == std::string::npos || dot == 0 ? std::string() : name.substr(dot + 1);
}

NSURL NSURL::URLByDeletingLastPathComponent() const
{
    const auto range = pathRange(m_string);
    const auto path = withoutTrailingSlashes(rawPath());
    const auto slash = path.rfind('/');
    const auto kept = slash == std::string_view::npos ? 0 : slash + 1;
    return NSURL(m_string.substr(0, range.begin + kept));
}

NSURL NSURL::URLByAppendingPathComponent(std::string_view component) const
{
    const auto range = pathRange(m_string);
    std::string string = m_string.substr(0, range.end);
    if (!string.ends_with('/'))
        string += '/';
    while (component.starts_with('/'))
        component.remove_prefix(1);
    for (std::size_t offset = 0; offset <= component.size();) {
        const auto end = std::min(component.find('/', offset), component.size());
        string += percentEncodedPathComponent(component.substr(offset, end - offset));
        if (end < component.size())
            string += '/';
        offset = end + 1;
    }
    return NSURL(std::move(string));
}

bool NSURL::checkResourceIsReachableAndReturnError(NSError* error) const
{
    const auto filePath = isFileURL() ? path() : std::string();

    struct stat status { };

    if (!filePath.empty() && ::stat(filePath.c_str(), &status) == 0)
        return true;
    setError(error, NSError::errorWithErrno(filePath.empty() ? EINVAL : errno, m_string));
    return false;
}

bool NSURL::checkPromisedItemIsReachableAndReturnError(NSError* error) const
{
    const auto filePath = isFileURL() ? path() : std::string();

    struct stat status { };

    if (!filePath.empty() && ::lstat(filePath.c_str(), &status) == 0)
        return true;
    setError(error, NSError::errorWithErrno(filePath.empty() ? EINVAL : errno, m_string));
    return false;
}
