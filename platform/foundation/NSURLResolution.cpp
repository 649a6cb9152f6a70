#include "platform/foundation/NSURL.h"

#include <algorithm>

namespace {

/// The parts of a URL's text with the characters that part them: "http:", "//host", "/path", "?query" and
/// "#fragment". Empty parts are absent ones.
struct URLParts {
    std::string_view scheme;
    std::string_view authority;
    std::string_view path;
    std::string_view query;
    std::string_view fragment;
};

std::string_view takeFront(std::string_view& text, std::size_t length)
{
    const auto front = text.substr(0, length);
    text.remove_prefix(front.size());
    return front;
}

URLParts partsOf(const NSURL& url)
{
    std::string_view rest = url.absoluteString();
    URLParts parts;
    const auto schemeLength = url.scheme().size();
    parts.scheme = takeFront(rest, schemeLength > 0 ? schemeLength + 1 : 0);
    if (rest.starts_with("//"))
        parts.authority = takeFront(rest, rest.find_first_of("/?#", 2));
    parts.path = takeFront(rest, rest.find_first_of("?#"));
    parts.query = takeFront(rest, rest.find('#'));
    parts.fragment = rest;
    return parts;
}

/// RFC 3986, section 5.2.4, for paths that begin with a slash.
std::string withoutDotSegments(std::string_view path)
{
    std::string result;
    while (!path.empty()) {
        const auto segment = takeFront(path, std::max<std::size_t>(path.find('/', 1), 1));
        const bool isLast = path.empty();
        if (segment == "/..")
            result.resize(std::min(result.rfind('/'), result.size()));
        if (segment != "/." && segment != "/..")
            result += segment;
        else if (isLast)
            result += '/';
    }
    return result;
}

std::string mergedPath(const URLParts& base, std::string_view relative)
{
    if (relative.starts_with('/'))
        return withoutDotSegments(relative);
    const auto slash = base.path.rfind('/');
    auto path
        = slash == std::string_view::npos ? std::string("/") : std::string(base.path.substr(0, slash + 1));
    path += relative;
    return path.starts_with('/') ? withoutDotSegments(path) : path;
}

} // namespace

std::optional<NSURL> NSURL::URLWithString(std::string_view string, const NSURL& base)
{
    if (string.empty())
        return base;
    const auto relative = URLWithString(string);
    if (!relative || !relative->scheme().empty())
        return relative;
    const auto baseParts = partsOf(base);
    const auto parts = partsOf(*relative);
    std::string absolute(baseParts.scheme);
    absolute += parts.authority.empty() ? baseParts.authority : parts.authority;
    if (!parts.authority.empty())
        absolute += withoutDotSegments(parts.path);
    else
        absolute += parts.path.empty() ? std::string(baseParts.path) : mergedPath(baseParts, parts.path);
    const bool keepsQuery = parts.authority.empty() && parts.path.empty() && parts.query.empty();
    absolute += keepsQuery ? baseParts.query : parts.query;
    absolute += parts.fragment;
    return NSURL(std::move(absolute));
}
