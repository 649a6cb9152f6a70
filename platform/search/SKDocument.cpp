#include "platform/search/SKDocument.h"

#include <algorithm>
#include <utility>

namespace {

constexpr std::string_view kFileSchemePrefix = "file://";

struct SplitURL {
    std::string_view prefix;
    std::string_view path;
};

// "https://host/a/b" is the prefix "https://host" and the path "/a/b".
std::optional<SplitURL> split(const NSURL& url)
{
    const std::string_view string = url.absoluteString();
    if (url.isFileURL())
        return SplitURL{kFileSchemePrefix,
                        string.substr(string.find('/', string.starts_with("file://") ? 7 : 5))};
    const auto schemeLength = url.scheme().size();
    if (schemeLength == 0)
        return std::nullopt;
    auto pathStart = schemeLength + 1;
    if (string.substr(pathStart).starts_with("//"))
        pathStart = std::min(string.find('/', pathStart + 2), string.size());
    return SplitURL{string.substr(0, pathStart), string.substr(pathStart)};
}

} // namespace

SKDocument::SKDocument(std::string schemePrefix, SKDocumentRef parent, std::string name)
    : m_schemePrefix(std::move(schemePrefix))
    , m_parent(std::move(parent))
    , m_name(std::move(name))
{
}

SKDocumentRef SKDocument::createWithPrefix(std::string_view schemePrefix, SKDocumentRef parent,
                                           std::string_view name)
{
    // NOLINTNEXTLINE(cppcoreguidelines-owning-memory): the constructor is private, and the owner takes it at
    // once
    return SKDocumentRef(new SKDocument(std::string(schemePrefix), std::move(parent), std::string(name)));
}

SKDocumentRef SKDocument::createWithURL(const NSURL& url)
{
    const auto parts = split(url);
    if (!parts)
        return nullptr;
    SKDocumentRef document;
    auto path = parts->path;
    while (!path.empty()) {
        const auto slash = std::min(path.find('/'), path.size());
        const auto name = percentDecoded(path.substr(0, slash));
        path.remove_prefix(std::min(slash + 1, path.size()));
        if (name.empty())
            continue;
        if (name.find('/') != std::string::npos || name.find('\0') != std::string::npos)
            return nullptr;
        document = createWithPrefix(parts->prefix, document, name);
    }
    return document;
}

SKDocumentRef SKDocument::create(std::string_view scheme, SKDocumentRef parent, std::string_view name)
{
    if (name.find('\0') != std::string_view::npos || (!parent && scheme.empty()))
        return nullptr;
    if (parent) {
        const auto prefix = parent->m_schemePrefix;
        return createWithPrefix(prefix, std::move(parent), name);
    }
    return createWithPrefix(std::string(scheme) + (scheme == "file" ? "://" : ":"), nullptr, name);
}

std::optional<std::string> SKDocument::name() const
{
    return m_name.empty() ? std::nullopt : std::optional(m_name);
}

NSURL SKDocument::URL() const
{
    std::string path;
    for (const auto* document = this; document; document = document->m_parent.get())
        path.insert(0, "/" + percentEncodedPathComponent(document->m_name));
    return NSURL::URLWithString(m_schemePrefix + path).value();
}
