#include "strings/RelativeLinks.h"

#include "platform/foundation/Unicode.h"

#include <algorithm>
#include <string_view>
#include <vector>

namespace {

std::vector<std::string_view> componentsOf(std::string_view path)
{
    std::vector<std::string_view> components;
    for (std::size_t start = 0; start < path.size();) {
        const auto end = std::min(path.find('/', start), path.size());
        if (end > start)
            components.push_back(path.substr(start, end - start));
        start = end + 1;
    }
    return components;
}

void appendComponent(std::string& link, std::string_view encoded)
{
    if (!link.empty())
        link += '/';
    link += encoded;
}

/// As in any path of a URL, but that a semicolon, which once began parameters, is encoded as well.
std::string encodedComponent(std::string_view component)
{
    std::string encoded;
    for (const char character : percentEncodedPathComponent(component)) {
        if (character == ';')
            encoded += "%3B";
        else
            encoded += character;
    }
    return encoded;
}

} // namespace

std::u16string CVLMarkdown::relativeLinkFor(const NSURL& target, const NSURL& itemURL)
{
    const auto targetPath = target.path();
    const auto folderPath = itemURL.URLByDeletingLastPathComponent().path();
    const auto targetComponents = componentsOf(targetPath);
    const auto folderComponents = componentsOf(folderPath);
    auto [targetRest, folderRest] = std::mismatch(targetComponents.begin(), targetComponents.end(),
                                                  folderComponents.begin(), folderComponents.end());
    std::string link;
    for (; folderRest != folderComponents.end(); ++folderRest)
        appendComponent(link, "..");
    for (; targetRest != targetComponents.end(); ++targetRest)
        appendComponent(link, encodedComponent(*targetRest));
    return UTF16FromUTF8(link);
}
