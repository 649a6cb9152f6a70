#include "platform/foundation/NSStringPaths.h"

#include <algorithm>

namespace {

constexpr auto kNone = std::u16string_view::npos;

std::u16string_view withoutTrailingSlashes(std::u16string_view path)
{
    while (path.size() > 1 && path.ends_with(u'/'))
        path.remove_suffix(1);
    return path;
}

std::u16string_view lastComponent(std::u16string_view path)
{
    path = withoutTrailingSlashes(path);
    return path == u"/" ? path : path.substr(path.rfind(u'/') + 1);
}

/// Where the extension's dot stands in the last component.
std::size_t dotOf(std::u16string_view component)
{
    const auto dot = component.rfind(u'.');
    return dot == 0 || dot + 1 == component.size() ? kNone : dot;
}

} // namespace

std::u16string lastPathComponent(std::u16string_view path)
{
    return std::u16string(lastComponent(path));
}

std::u16string pathExtension(std::u16string_view path)
{
    const auto component = lastComponent(path);
    const auto dot = dotOf(component);
    return dot == kNone ? std::u16string() : std::u16string(component.substr(dot + 1));
}

std::u16string stringByDeletingPathExtension(std::u16string_view path)
{
    const auto component = lastComponent(path);
    const auto dot = dotOf(component);
    path = withoutTrailingSlashes(path);
    if (dot != kNone)
        path.remove_suffix(component.size() - dot);
    return std::u16string(path);
}

std::vector<std::u16string> pathComponents(std::u16string_view path)
{
    std::vector<std::u16string> components;
    if (path.starts_with(u'/'))
        components.emplace_back(u"/");
    for (std::size_t start = 0; start < path.size();) {
        const auto end = std::min(path.find(u'/', start), path.size());
        if (end > start)
            components.emplace_back(path.substr(start, end - start));
        start = end + 1;
    }
    if (path.size() > 1 && path.ends_with(u'/') && components.back() != u"/")
        components.emplace_back(u"/");
    return components;
}
